#!/usr/bin/env bash
# The measuring tests of every page and dialog (tests/windows/fit_test.cpp) at other resolutions and on small screens. The
# test program itself runs them at 96 dots per inch.
set -euo pipefail
source "$REPO/tools/common.sh"
source "$REPO/tools/wine.sh"

# measure NAME DPI SCREEN TESTS
measure() {
  local log=$TMPDIR/$1.txt
  if DISPLAY_SIZE=$3 display_open && wine_open fit 64 && wine_use_dpi "$2" &&
    "$WINE" "$BUILD/windows_tests.exe" --gtest_filter="$4" --gtest_output= >"$log" 2>&1 </dev/null &&
    grep -q '^\[       OK' "$log"; then
    echo "ok $1"
  else
    sed 's/^/  /' "$log" | head -60
    echo "FAIL $1 see above"
  fi
  wine_server -k
}

for dpi in 120 144 168 192; do
  measure "fit_$dpi" "$dpi" 3840x2160 'Fonts/FitTest.*'
done
# What a task bar leaves of two small screens.
measure small_screen 96 1024x728 'ScreenSizeTest.Every*'
measure small_screen_of_high_resolution 120 1366x718 'ScreenSizeTest.Every*'
