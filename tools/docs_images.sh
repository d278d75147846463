#!/usr/bin/env bash
# docs_images.sh [PICTURES]: makes the screenshots of the documents anew: docs/images/tab-*.png, one
# for each tab, and dialog-*.png. They are those of `./run --tour`, which is run unless PICTURES
# is the folder that a tour has left behind.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/common.sh

readonly TABS=(general lists transactions rounding currency scanning layby eod pump web security fred)

pictures=${1:-build/tour}
[ -n "${1:-}" ] || ./run --tour

# Without the time of day in the file, a screen that looks the same gives the same file.
keep() {
  [ -e "$pictures/$1.png" ] || die "the tour has left no $pictures/$1.png"
  convert "$pictures/$1.png" -strip -define png:exclude-chunks=date,time \
    -define png:compression-level=9 "docs/images/$2.png"
}

for ((i = 0; i < ${#TABS[@]}; i++)); do
  keep "$(printf 'tab-%02d' $((i + 1)))" "tab-${TABS[i]}"
done
for dialog in "$pictures"/dialog-*.png; do
  keep "$(basename "$dialog" .png)" "$(basename "$dialog" .png)"
done
say "$(find docs/images -name '*.png' | wc -l) pictures in docs/images"
