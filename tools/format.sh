#!/usr/bin/env bash
# format.sh [--check]: formats every source and header, or says which are not formatted.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mapfile -d '' files < <(find . -path ./build -prune -o -path ./.git -prune -o \
  \( -name '*.h' -o -name '*.cpp' \) -print0)
[ "${#files[@]}" -gt 0 ] || exit 0
if [ "${1:-}" = --check ]; then
  if ! report=$(clang-format-19 --dry-run -Werror "${files[@]}" 2>&1); then
    echo "not formatted (tools/format.sh does it):"
    sed -nE 's/^([^ :]+):[0-9]+:[0-9]+: error: .*/\1/p' <<<"$report" | sort -u
    exit 1
  fi
else
  clang-format-19 -i "${files[@]}"
fi
