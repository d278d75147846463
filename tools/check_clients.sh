#!/usr/bin/env bash
# check_clients.sh: the syntax of clients that do not run under Wine, as far as their compilers are
# installed (python3; mcs, of the package mono-mcs). Says what was not checked.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../clients"

out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
if command -v python3 >/dev/null; then
  for file in python/*.py; do
    python3 -c 'import py_compile, sys; py_compile.compile(sys.argv[1], sys.argv[2], doraise=True)' \
      "$file" "$out/compiled"
    echo "ok: $file"
  done
else
  echo "not checked: Python"
fi
if command -v mcs >/dev/null; then
  mcs -warnaserror -out:"$out/Program.exe" -r:Microsoft.CSharp csharp/Program.cs
  echo "ok: csharp/Program.cs"
else
  echo "not checked: C#"
fi
echo "not checked: PowerShell, Basic"
