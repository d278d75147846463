#!/usr/bin/env bash
# Programs of either kind of apartment show the dialog, hear its events, and may end with the
# component's objects alive or its dialog open.
set -euo pipefail
source ./client_steps.sh

shop=$(windows_path "$TMPDIR/shop.db")
for apartment in sta mta; do
  client "$BUILD/com_client.exe" show "$shop" "$apartment"
  drive wait Options 60 -- key ALT+M CTRL+A -- type 'Corner Shop' -- key ALT+A -- key ESC \
    -- gone Options 10
  finish "$apartment"
  printed "${apartment}_advise" 'advise: 0x00000000'
  if [ "$apartment" = sta ]; then
    printed sta_thread "dialog: in the caller's thread"
  else
    printed mta_thread 'dialog: in another thread'
  fi
  printed "${apartment}_event" 'changes heard'
  printed "${apartment}_show" 'show: 0x00000000 '
  printed "${apartment}_listener" 'listener released: yes'
  printed "${apartment}_end" 'done'
done

# leaves NAME ARGUMENT...: a program that ends so, ends well. Another program asks for its exit code:
# Wine may kill what takes its time to go away, and then only Windows programs are told the code.
leaves() {
  local program
  program=$(windows_path "$BUILD/com_client.exe")
  client cmd /c "$program leave ${*:2} && echo ended with 0"
  finish "$1"
  printed "$1" 'leaving'
  printed "${1}_ends" 'ended with 0'
}

leaves leave_sta sta
leaves leave_mta mta
leaves leave_open_dialog open "$shop"
