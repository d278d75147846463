#!/usr/bin/env bash
# setup.sh run|native|windows-x64|windows-x86...: installs the packages that these need and that are missing.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

packages=(cmake ninja-build)
for what in "$@"; do
  case $what in
    run) packages+=(g++-mingw-w64-x86-64 mingw-w64-tools googletest wine wine64 xvfb xdotool imagemagick
      fonts-wine fonts-liberation) ;;
    native) packages+=(g++ ccache googletest python3 clang-format clang-tidy-19 shellcheck) ;;
    windows-x64) packages+=(g++-mingw-w64-x86-64 mingw-w64-tools wine wine64 xvfb xdotool imagemagick
      fonts-wine fonts-liberation ccache googletest python3 clang-tidy-19 binutils) ;;
    windows-x86) packages+=(g++-mingw-w64-i686 zip unzip) ;;
  esac
done
install_packages "${packages[@]}"
