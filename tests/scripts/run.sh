#!/usr/bin/env bash
# Runs every *_test.sh and *_test.vbs of this folder, with a Wine for 32-bit programs the
# *_test_with_32.sh as well, and passes their result lines on:
#   ok NAME    FAIL NAME reason    skip NAME reason
# The environment of a test:
#   WINE   runs a Windows program:  "$WINE" cscript //nologo file.vbs
#   BUILD  the folder with the DLLs and programs; BITS is 64 or 32; both servers are registered
#   REPO   the repository; DISPLAY an X server of the test's own; TMPDIR a folder for its files
# A script in VBScript must end with the line "done": the script host swallows an unhandled error
# and still reports success.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
export REPO=${REPO:-$(cd ../.. && pwd)}
export WINE=${WINE:-$REPO/tools/wine_exec.sh}
: "${BUILD:?the folder with the built programs}" "${BITS:?64 or 32}"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

run_one() {
  local file=$1 name output status=0
  name=$(basename "${file%.*}")
  export TMPDIR=$folder/$name
  mkdir -p "$TMPDIR"
  output=$folder/$name.out
  case $file in
    *.sh) timeout --kill-after=10 300 bash "$file" >"$output" 2>&1 </dev/null || status=$? ;;
    *.vbs) WINE_TIMEOUT=120 "$WINE" cscript //nologo "$file" >"$output" 2>&1 </dev/null || status=$? ;;
  esac
  tr -d '\r' <"$output" | sed -E "s/^(ok|FAIL|skip) /\1 $name./"
  if [ "$status" != 0 ] && ! grep -q '^FAIL ' "$output"; then
    echo "FAIL $name ended with status $status"
  elif [[ $file == *.vbs ]] && ! grep -qx done <(tr -d '\r' <"$output"); then
    echo "FAIL $name stopped before its end"
  elif ! grep -qE '^(ok|FAIL|skip) ' "$output"; then
    echo "FAIL $name reported no result"
  fi
}

# Keeps the prefix's desktop open between the clients: the last program to leave takes it along, which
# may be what keeps the next one from getting going now and then (see client_steps.sh).
WINE_TIMEOUT=900 "$WINE" "$BUILD/drive.exe" sleep 900000 >/dev/null 2>&1 </dev/null &
keeper=$!
trap 'kill "$keeper" 2>/dev/null; rm -rf "$folder"' EXIT

shopt -s nullglob
files=(*_test.sh *_test.vbs)
[ "$BITS" != 32 ] || files+=(*_test_with_32.sh)
for file in "${files[@]}"; do
  run_one "$file"
done
