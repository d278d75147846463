#!/usr/bin/env bash
# setup.sh [--native]: installs the packages that building and testing need and that are missing.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

packages=(g++ cmake ninja-build ccache googletest libbenchmark-dev clang-format clang-tidy-19)
if [ "${1:-}" != --native ]; then
  packages+=(g++-mingw-w64-x86-64 g++-mingw-w64-i686 mingw-w64-tools
    wine wine64 xvfb xdotool imagemagick fonts-wine fonts-liberation
    binutils zip unzip)
fi
# The database's source comes through npm, from wherever npm was installed.
command -v npm >/dev/null || packages+=(npm)
install_packages "${packages[@]}"
