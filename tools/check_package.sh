#!/usr/bin/env bash
# check_package.sh: builds the package twice, the libraries linked and the type libraries compiled
# anew in between, and fails where the two differ, where something is missing in them, or where they
# name a folder of this machine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/common.sh

folder=$(mktemp -d)
at_exit "rm -rf '$folder'"

tools/package.sh "$folder/first.zip"
for preset in windows-x64 windows-x86; do
  rm -f build/"$preset"/Tillora{Options,Host}.dll build/"$preset"/unstripped/Tillora{Options,Host}.dll \
    build/"$preset"/idl/*.tlb
done
sleep 2 # the time of day in a file has a grain of two seconds at most
tools/package.sh "$folder/second.zip"
cmp "$folder/first.zip" "$folder/second.zip"
say "both are $(sha256sum <"$folder/first.zip" | cut -c1-16)..."

unzip -q "$folder/first.zip" -d "$folder"
cd "$folder"/TilloraOptions-*/
version=${PWD##*-}
while read -r file; do
  [ -s "$file" ] || die "$file is missing"
done <<FILES
x64/TilloraOptions.dll
x64/TilloraOptions.tlb
x64/TilloraOptions.Component.manifest
x86/TilloraOptions.dll
x86/TilloraOptions.tlb
x86/TilloraOptions.Component.manifest
include/TilloraOptions.h
include/TilloraOptions_i.c
idl/TilloraOptions.idl
idl/component/option_table.inc
clients/vbscript/host_in_script.vbs
docs/host-guide.md
docs/images/tab-general.png
licences/GPL-3.txt
licences/gcc.txt
licences/mingw-w64.txt
FILES

grep -qi "RUNTIME LIBRARY EXCEPTION" licences/gcc.txt || die "the exception is not in licences/gcc.txt"
for bits in x64 x86; do
  for library in TilloraOptions TilloraHost; do
    grep -qxF "$version.0" <(strings -el "$bits/$library.dll") ||
      die "$bits/$library.dll does not have the version $version.0"
  done
  grep -q "version=\"$version.0\"" "$bits/TilloraOptions.Component.manifest" ||
    die "the manifest of $bits has another version"
done
if grep -rlF "$REPO" .; then die "these files name the folder of the sources"; fi
say "the package is complete, and has the version $version"
