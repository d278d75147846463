#!/usr/bin/env bash
# The measuring test of every page and dialog (tests/windows/fit_test.cpp) at the resolutions that a program is run with
# in practice. The test program itself runs it at 96.
set -euo pipefail
source "$REPO/tools/common.sh"
source "$REPO/tools/wine.sh"

DISPLAY_SIZE=3840x2160 display_open
for dpi in 120 144 168 192; do
  wine_open fit 64 "$dpi" || { echo "FAIL fit_$dpi the prefix cannot be made"; continue; }
  log=$TMPDIR/fit-$dpi.txt
  if "$WINE" "$BUILD/windows_tests.exe" --gtest_filter='Fonts/FitTest.*' --gtest_output= >"$log" 2>&1 </dev/null &&
    [ "$(grep -c '^\[       OK' "$log")" -ge 2 ]; then
    echo "ok fit_$dpi"
  else
    sed 's/^/  /' "$log" | head -60
    echo "FAIL fit_$dpi see above"
  fi
  wine_server -k
done
