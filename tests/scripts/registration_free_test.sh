#!/usr/bin/env bash
# A program with a manifest uses the component where nothing is registered: from a single-threaded
# apartment, and through the system's marshalling from a multi-threaded one.
set -euo pipefail
source ./client_steps.sh

program=$TMPDIR/program
mkdir "$program"
cp "$BUILD"/{com_client.exe,TilloraOptions.dll,TilloraOptions.Component.manifest} "$program"

"$WINE" regsvr32 /s /u "$(windows_path "$BUILD/TilloraOptions.dll")" >/dev/null 2>&1
trap '"$WINE" regsvr32 /s "$(windows_path "$BUILD/TilloraOptions.dll")" >/dev/null 2>&1' EXIT

client "$program/com_client.exe" registered
finish registered
printed machine_has_no_class 'registered for the machine: class no, name no'
printed user_has_no_class 'registered for the user: class no, name no'

"$WINE" "$program/com_client.exe" create >"$TMPDIR/without.txt" 2>/dev/null </dev/null || true
if grep -q '^create: 0x80040154' "$TMPDIR/without.txt"; then
  echo "ok without_manifest_there_is_no_class"
else
  echo "FAIL without_manifest_there_is_no_class $(tr -d '\r' <"$TMPDIR/without.txt" | tr '\n' ' ')"
fi

cp "$REPO/tests/com_client/com_client.manifest" "$program/com_client.exe.manifest"
for apartment in sta mta; do
  client "$program/com_client.exe" create "$apartment"
  finish "$apartment"
  printed "${apartment}_name" 'create by name: 0x00000000'
  printed "${apartment}_create" 'create: 0x00000000'
  printed "${apartment}_library" "library: $(windows_path "$program/TilloraOptions.dll")"
  printed "${apartment}_by_name" 'by name: 0x00000000 no'
  # Not every platform hands on what is said about a failure between apartments.
  if grep -q '^show: 0x800A005B' "$client_output"; then
    echo "ok ${apartment}_show"
  else
    echo "FAIL ${apartment}_show $(tail -1 "$client_output")"
  fi
done
