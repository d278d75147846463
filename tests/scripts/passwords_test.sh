#!/usr/bin/env bash
# What the reference host says of passwords, and what can be read in the windows while one is set:
# that there is one, nowhere which.
set -euo pipefail
source ./client_steps.sh

readonly STORED=wren7stored TYPED=Robin8Typed
database=$(windows_path "$TMPDIR/shop.db")
administrator() {
  "$WINE" "$BUILD/Tillora Administrator.exe" --database "$database" \
    --log "$(windows_path "$TMPDIR/events.log")" "$@" >>"$TMPDIR/printed.txt" 2>&1 </dev/null
}
# says NAME FILE LINE: the file has this line.
says() {
  if grep -qF -- "$3" <(tr -d '\r' <"$TMPDIR/$2"); then
    echo "ok $1"
  else
    echo "FAIL $1 '$3' is not in $2"
    cat "$TMPDIR/$2"
  fi
}

administrator --set-option AdminSecurityBits 8 --set-option PasswordAdminOptions "$STORED" \
  --dump --out "$(windows_path "$TMPDIR/before.txt")"
says the_dump_tells_that_one_is_set before.txt 'PasswordAdminOptions = (set)'
says the_log_names_the_option events.log 'Stored option PasswordAdminOptions'
administrator --set-option NoSuchOption "$STORED" || true
says the_log_tells_of_a_refusal events.log 'NoSuchOption'

client "$BUILD/Tillora Administrator.exe" --database "$database" \
  --log "$(windows_path "$TMPDIR/events.log")" --options 11
drive wait Options 60 -- press Options 'Passwor&d...' -- wait 'Password to access Options' 10 \
  -- type "$STORED" -- key TAB -- type "$TYPED" -- key TAB -- type "$TYPED" -- texts \
  -- key ENTER -- wait Options 10 -- key ALT+O -- gone Options 10
cp "$TMPDIR/drive.txt" "$TMPDIR/windows.txt"
finish administrator
says the_windows_were_read windows.txt 'Con&firm password'
says the_log_tells_of_the_save events.log 'Options closed'

administrator --dump --out "$(windows_path "$TMPDIR/after.txt")"
says the_new_one_is_set after.txt 'PasswordAdminOptions = (set)'
administrator --set-option PasswordAdminOptions '' --dump --out "$(windows_path "$TMPDIR/cleared.txt")"
says none_is_set_any_more cleared.txt 'PasswordAdminOptions = (not set)'

if told=$(grep -aliE "$STORED|$TYPED" "$TMPDIR"/*.txt "$TMPDIR"/*.log); then
  echo "FAIL no_file_tells_a_password ${told//$'\n'/ }"
else
  echo "ok no_file_tells_a_password"
fi
