#!/usr/bin/env bash
# test_package.sh [FOLDER]: builds both bitnesses and packs the tests for a plain Windows
# (docs/windows-tests.md) as FOLDER/TilloraOptions-tests-VERSION.zip; the default folder is build. The
# same sources and compilers make the same file.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/common.sh

out=$(realpath -m "${1:-build}")
name=TilloraOptions-tests-$(sed -n 's/^project(TilloraOptions VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
stage=$(mktemp -d)
at_exit "rm -rf '$stage'"
for preset in windows-x64 windows-x86; do
  log=build/test-package-$preset.log
  build "$preset" "$log" test_package
  # Without a date given, stripping would write the time of day into the programs.
  SOURCE_DATE_EPOCH=946684800 cmake --install "build/$preset" --component tests --strip \
    --prefix "$stage/$name" >>"$log"
done
mkdir -p "$out"
cmake -D CPACK_TEMPORARY_INSTALL_DIRECTORY="$stage/$name" -D CPACK_PACKAGE_DIRECTORY="$out" \
  -D CPACK_PACKAGE_FILE_NAME="$name" -P cmake/package_zip.cmake
say "$out/$name.zip"
