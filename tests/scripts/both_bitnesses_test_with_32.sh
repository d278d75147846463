#!/usr/bin/env bash
# The 64-bit and the 32-bit servers side by side in one prefix: programs of either kind get theirs, one
# can go without the other noticing, and with the last one every key is gone. Then a manifest beside
# the program will do.
#   BUILD64   the folder with the 64-bit programs; else beside BUILD
set -euo pipefail
source "$REPO/tools/common.sh"
source "$REPO/tools/wine.sh"

BUILD64=${BUILD64:-$(dirname "$BUILD")/windows-x64}
if [ ! -e "$BUILD64/com_client.exe" ]; then
  echo "skip both_bitnesses the 64-bit component is not built"
  exit 0
fi
wine_open both-bitnesses both || { echo "FAIL prefix it cannot be made"; exit 0; }

folder() { [ "$1" = 64 ] && echo "$BUILD64" || echo "$BUILD"; }

# register BITS [regsvr32's switches...]: both servers, with the program of that bitness.
register() {
  local bits=$1 program='C:\windows\system32\regsvr32.exe' server
  shift
  [ "$bits" = 64 ] || program='C:\windows\syswow64\regsvr32.exe'
  for server in TilloraOptions TilloraHost; do
    "$WINE" "$program" /s "$@" "$(wine_path "$(folder "$bits")/$server.dll")" \
      >/dev/null 2>&1 </dev/null || echo "FAIL regsvr32_$bits $* $server ended with status $?"
  done
}

# dump FILE: the registries of the machine and of the user.
dump() {
  local root
  : >"$1"
  for root in HKEY_LOCAL_MACHINE HKEY_CURRENT_USER; do
    "$WINE" regedit /E "$(wine_path "$1.$root")" "$root\\Software" >/dev/null 2>&1 </dev/null
    iconv -f UTF-16 -t UTF-8 "$1.$root" | tr -d '\r' >>"$1"
  done
}

same() {
  local name=$1
  if diff "$2" "$3" >"$TMPDIR/diff.txt"; then
    echo "ok $name"
  else
    echo "FAIL $name $(wc -l <"$TMPDIR/diff.txt") lines of the registry differ"
    head -40 "$TMPDIR/diff.txt"
  fi
}

# works NAME BITS [FOLDER]: a program of this bitness creates the component, even from a multi-threaded apartment, where
# the system needs the registered interfaces; fails NAME BITS: it cannot.
works() {
  local name=$1 bits=$2 folder=${3:-$(folder "$2")} apartment line
  for apartment in sta mta; do
    "$WINE" "$folder/com_client.exe" create "$apartment" 2>&1 </dev/null |
      tr -d '\r' >"$TMPDIR/client.txt" || echo "FAIL ${name}_${bits}_$apartment the client fails"
    for line in "bits: $bits" 'create by name: 0x00000000' \
      "library: $(wine_path "$folder/TilloraOptions.dll")"; do
      if grep -qxF -- "$line" "$TMPDIR/client.txt"; then
        echo "ok ${name}_${bits}_$apartment $line"
      else
        echo "FAIL ${name}_${bits}_$apartment it does not print $line"
        cat "$TMPDIR/client.txt"
      fi
    done
  done
}
fails() {
  if "$WINE" "$(folder "$2")/com_client.exe" create >"$TMPDIR/fails.txt" 2>/dev/null </dev/null; then
    echo "FAIL $1_$2 it can still be created"
  elif grep -q '^create: 0x80040154' "$TMPDIR/fails.txt"; then
    echo "ok $1_$2"
  else
    echo "FAIL $1_$2 $(tr -d '\r' <"$TMPDIR/fails.txt" | tr '\n' ' ')"
  fi
}

register 64 /u
register 32 /u
# Every user of Windows has this folder; a new prefix may lack it.
"$WINE" reg add 'HKCU\Software\Classes' /f >/dev/null 2>&1 </dev/null
dump "$TMPDIR/before.reg"

for first in 64 32; do
  last=$((96 - first))
  register 64
  register 32
  works both 64
  works both 32
  register "$first" /u
  fails "without_$first" "$first"
  works "without_$first" "$last"
  register "$last" /u
  fails without_both "$last"
  dump "$TMPDIR/after.reg"
  same "no_key_is_left_when_${first}_goes_first" "$TMPDIR/before.reg" "$TMPDIR/after.reg"
done

for bits in 64 32; do
  register "$bits" /n /i:user
done
dump "$TMPDIR/users.reg"
grep -qi 'TilloraOptions.Options' "$TMPDIR/users.reg" && echo "ok user_is_registered" ||
  echo "FAIL user_is_registered the dump does not mention it"
for bits in 64 32; do
  register "$bits" /n /u /i:user
done
dump "$TMPDIR/after.reg"
same no_key_of_the_user_is_left "$TMPDIR/before.reg" "$TMPDIR/after.reg"

# Comes last, because Wine registers a type library that it finds by a manifest.
for bits in 64 32; do
  beside=$TMPDIR/$bits
  mkdir "$beside"
  cp "$(folder "$bits")"/{com_client.exe,TilloraOptions.dll,TilloraOptions.Component.manifest} "$beside"
  cp "$REPO/tests/com_client/com_client.manifest" "$beside/com_client.exe.manifest"
  works with_a_manifest "$bits" "$beside"
done
