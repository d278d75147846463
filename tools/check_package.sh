#!/usr/bin/env bash
# check_package.sh: makes the package twice, relinking the libraries and recompiling the type libraries in between.
# Fails if the two differ, if something is missing in them, or if they name a folder of this machine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/common.sh

folder=$(mktemp -d)
at_exit "rm -rf '$folder'"

tools/package.sh "$folder/first"
rm -f build/windows-x{64,86}/{,unstripped/}Tillora{Options,Host}.dll build/windows-x{64,86}/idl/*.tlb
sleep 2 # the time of day in a file has a grain of two seconds at most
tools/package.sh "$folder/second"
cmp "$folder"/first/*.zip "$folder"/second/*.zip
for generated in build/windows-x64/idl/*.h build/windows-x64/idl/*_i.c; do
  cmp "$generated" "build/windows-x86/idl/${generated##*/}" # one serves both bitnesses
done

unzip -q "$folder"/first/*.zip -d "$folder"
cd "$folder"/TilloraOptions-*/
version=${PWD##*-}
for file in {x64,x86}/Tillora{Options,Host}.{dll,tlb} {x64,x86}/TilloraOptions.Component.manifest \
  include/Tillora{Options.h,Options_i.c,Host.h,Host_i.c} idl/TilloraOptions.idl \
  idl/component/contract/option_table.inc clients/vbscript/host_in_script.vbs docs/host-guide.md \
  docs/images/tab-general.png licences/{GPL-3,gcc,mingw-w64}.txt README.txt; do
  [ -s "$file" ] || die "$file is missing"
done

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
