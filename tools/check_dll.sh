#!/usr/bin/env bash
# check_dll.sh FILE imports | check_dll.sh FILE size BYTES
set -euo pipefail

file=$1
[ -e "$file" ] || { echo "$file was not built"; exit 1; }
case $2 in
  imports)
    system='advapi32|comctl32|comdlg32|gdi32|kernel32|msvcrt|ole32|oleaut32|shell32|shlwapi|user32|uxtheme|version'
    imports=$(x86_64-w64-mingw32-objdump -p "$file" | sed -n 's/.*DLL Name: //p' | sort -u)
    [ -n "$imports" ] || { echo "$file imports nothing: is it a DLL?"; exit 1; }
    echo "$imports"
    foreign=$(grep -viE "^($system)\.(dll|drv)$" <<<"$imports" || true)
    [ -z "$foreign" ] || { echo "not a part of Windows: $foreign"; exit 1; }
    ;;
  size)
    bytes=$(stat -c %s "$file")
    echo "$file: $bytes bytes, at most $3"
    [ "$bytes" -lt "$3" ]
    ;;
esac
