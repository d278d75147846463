#!/usr/bin/env bash
# in_wine.sh [--32] [--show] PROGRAM...: runs one Windows program in a prefix of its own with both
# automation servers registered, for trying things by hand and for single tests:
#   tools/in_wine.sh build/windows-x64/windows_tests.exe --gtest_filter='Frame*'
# Windows go to a display of our own; with --show to the user's.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
source "$(dirname "${BASH_SOURCE[0]}")/wine.sh"

bits=64 show=
while true; do
  case ${1:-} in
    --32) bits=32 ;;
    --show) show=1 ;;
    *) break ;;
  esac
  shift
done
[ -n "$show" ] || display_open
wine_open "hand-$bits" "$bits"
wine_register "$(dirname "$1")"
${WINE_RUNNER:-} "$WINE_LOADER" "$@"
