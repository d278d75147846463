#!/usr/bin/env bash
# package.sh [OUT.zip]: builds both bitnesses and makes the package for who writes host programs; see
# docs/package.md for what is in it. The default is build/TilloraOptions-VERSION.zip.
#
# The same sources and compilers make the same file: entries are sorted, and carry one date.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/common.sh

readonly DATE='2000-01-01 00:00:00Z'
readonly SERVERS=(TilloraOptions TilloraHost)

version=$(sed -n 's/^project(TilloraOptions VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
[ -n "$version" ] || die "CMakeLists.txt names no version"
name=TilloraOptions-$version
out=$(realpath -m "${1:-build/$name.zip}")

for preset in windows-x64 windows-x86; do
  say "building $preset (build/package-$preset.log)"
  { cmake --preset "$preset" &&
    cmake --build --preset "$preset" -j "$(nproc)" --target "${SERVERS[@]}"; } \
    >"build/package-$preset.log" 2>&1 || {
    tail -40 "build/package-$preset.log" >&2
    die "the build failed"
  }
done

stage=$(mktemp -d)
at_exit "rm -rf '$stage'"
root=$stage/$name

# put FOLDER FILE...: into a folder of the package.
put() {
  mkdir -p "$root/$1"
  cp "${@:2}" "$root/$1"
}

for bits in x64 x86; do
  build=build/windows-$bits
  for server in "${SERVERS[@]}"; do
    put "$bits" "$build/$server.dll" "$build/idl/$server.tlb"
  done
  put "$bits" "$build/TilloraOptions.Component.manifest"
done
for server in "${SERVERS[@]}"; do
  # One header serves both bitnesses.
  for generated in "$server.h" "${server}_i.c"; do
    cmp build/windows-x64/idl/"$generated" build/windows-x86/idl/"$generated" ||
      die "$generated differs between the bitnesses"
    put include "build/windows-x64/idl/$generated"
  done
done
put idl component/automation/TilloraOptions.idl host/automation/TilloraHost.idl
put idl/component component/option_table.inc component/option_changes.inc
cp -r clients docs "$root"
printf 'docs/package.md says what is here; docs/host-guide.md is where to begin.\n' >"$root/README.txt"

put licences /usr/share/common-licenses/GPL-3
mv "$root/licences/GPL-3" "$root/licences/GPL-3.txt"
cp /usr/share/doc/gcc-mingw-w64-base/copyright "$root/licences/gcc.txt"
cp /usr/share/doc/mingw-w64-common/copyright "$root/licences/mingw-w64.txt"

find "$root" -type d -exec chmod 755 {} +
find "$root" -type f -exec chmod 644 {} + -exec touch -d "$DATE" {} +
mkdir -p "$(dirname "$out")"
rm -f "$out"
(cd "$stage" && find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -X -9 -q "$out" -@)
say "$out: $(stat -c %s "$out") bytes, $(unzip -Z1 "$out" | wc -l) files"
