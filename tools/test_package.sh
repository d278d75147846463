#!/usr/bin/env bash
# test_package.sh [OUT.zip]: builds both bitnesses and makes the test package; see docs/test-package.md
# for what is in it. The default is build/TilloraOptions-tests-VERSION.zip.
#
# The same sources and compilers make the same file: entries are sorted, and carry one date.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/common.sh

readonly DATE='2000-01-01 00:00:00Z'
readonly LIBRARIES=(TilloraOptions TilloraHost)
readonly PROGRAMS=(windows_tests client_tests run_tests drive com_client cpp_client cpp_late_client)

name=TilloraOptions-tests-$(sed -n 's/^project(TilloraOptions VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
out=$(realpath -m "${1:-build/$name.zip}")
stage=$(mktemp -d)
at_exit "rm -rf '$stage'"
root=$stage/$name

add_bitness() {
  local folder=$1 strip=$2-w64-mingw32-strip build=build/windows-$1 log=build/test-package-$1.log program
  say "building windows-$folder ($log)"
  { cmake --preset "windows-$folder" &&
    cmake --build --preset "windows-$folder" -j "$(nproc)" --target "${LIBRARIES[@]}" "${PROGRAMS[@]}"; } \
    >"$log" 2>&1 || {
    tail -40 "$log" >&2
    die "the build failed"
  }
  mkdir -p "$root/$folder"
  cp "$build"/Tillora{Options,Host}.dll "$build/TilloraOptions.Component.manifest" "$root/$folder"
  for program in "${PROGRAMS[@]}"; do
    SOURCE_DATE_EPOCH=946684800 "$strip" -o "$root/$folder/$program.exe" "$build/$program.exe"
  done
}
add_bitness x64 x86_64
add_bitness x86 i686

# The scripts are where the test programs look for them.
mkdir -p "$root/tests/scripts" "$root/licences"
cp -r --parents clients/{vbscript,jscript} tests/scripts/bad_inputs.vbs "$root"
sed 's/$/\r/' tests/package/test.cmd >"$root/test.cmd"
sed 's/$/\r/' docs/test-package.md >"$root/README.txt"
for package in gcc-mingw-w64-base mingw-w64-common googletest; do
  cp "/usr/share/doc/$package/copyright" "$root/licences/$package.txt"
done
cp /usr/share/common-licenses/GPL-3 "$root/licences/GPL-3.txt"

find "$root" -type d -exec chmod 755 {} +
find "$root" -type f -exec chmod 644 {} + -exec touch -d "$DATE" {} +
mkdir -p "$(dirname "$out")"
rm -f "$out"
(cd "$stage" && find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -X -9 -q "$out" -@)
say "$out: $(stat -c %s "$out") bytes, $(unzip -Z1 "$out" | wc -l) files"
