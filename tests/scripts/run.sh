#!/usr/bin/env bash
# run.sh TEST.sh: runs one test of this folder at the desk that $DESK names. It passes if every line of its results is
# "ok NAME"; "FAIL NAME reason" and "skip NAME reason" are the others. A test has:
#   WINE   runs a Windows program:  "$WINE" cscript //nologo file.vbs
#   BUILD  the folder with the DLLs and programs; BITS is 64 or 32; both servers are registered
#   REPO   the repository; TMPDIR a folder for its files
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
REPO=$(cd ../.. && pwd)
export REPO WINE=$REPO/tools/wine_exec.sh WINE_TMPDIR=${TMPDIR:-/tmp}
: "${BUILD:?the folder with the built programs}" "${BITS:?64 or 32}"
TMPDIR=$(mktemp -d)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

# What a test opens itself runs on the desk's processor too.
(
  # shellcheck source=/dev/null
  source "$REPO/build/desks/$DESK${WINE_VERSION:+-wine$WINE_VERSION}.env"
  taskset -pc "$WINE_PROCESSOR" $$ >/dev/null
)

bash "$1" 2>&1 </dev/null | tr -d '\r' | tee "$TMPDIR/results.txt"
grep -qE '^(ok|skip) ' "$TMPDIR/results.txt" && ! grep -q '^FAIL ' "$TMPDIR/results.txt"
