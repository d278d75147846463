#!/usr/bin/env bash
# setup.sh run|native|windows-x64|windows-x86|package|tests...: installs the packages that these need and
# that are missing; the presets' are those of their builds.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

packages=(cmake ninja-build)
# For tools/fetch_sqlite.sh, which would wait for everything else to be installed.
command -v npm >/dev/null || packages+=("${SQLITE_PACKAGES[@]}")
for what in "$@"; do
  case $what in
    run) packages+=(g++-mingw-w64-x86-64 mingw-w64-tools googletest wine wine64 xvfb xdotool imagemagick
      fonts-wine fonts-liberation) ;;
    native) packages+=(clang-19 libclang-rt-19-dev g++ ccache libgtest-dev) ;;
    windows-x64) packages+=(g++-mingw-w64-x86-64 mingw-w64-tools wine wine64 ccache googletest) ;;
    windows-x86) packages+=(g++-mingw-w64-i686) ;;
    package) packages+=(zip unzip binutils) ;;
    tests) packages+=(xvfb imagemagick fonts-wine fonts-liberation fonts-open-sans fonts-dejavu-core python3 clang-format-19 clang-tidy-19
      shellcheck) ;;
  esac
done
install_packages "${packages[@]}"
