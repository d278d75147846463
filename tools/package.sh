#!/usr/bin/env bash
# package.sh [FOLDER]: builds both bitnesses and packs them for host developers (docs/package.md) as
# FOLDER/TilloraOptions-VERSION.zip; the default folder is build.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/common.sh

for preset in windows-x64 windows-x86; do
  build "$preset" "build/package-$preset.log" TilloraOptions TilloraHost
done
cpack --config build/windows-x64/CPackConfig.cmake -B "$(realpath -m "${1:-build}")"
