#!/usr/bin/env bash
# tour.sh BUILD OUT [DPI]: shows the dialog on every tab, the dialogs behind its buttons, and one edit
# that is applied.
#
# Leaves in OUT: a picture per tab (tab-01.png ...) and per dialog (dialog-*.png), the edited and the applied state, and
# tour.txt: what the edit changed in the shop database and what the host was notified of.
# Uses a display and a prefix of its own and a new shop database, which stays in OUT.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
source "$(dirname "${BASH_SOURCE[0]}")/wine.sh"

build=$(realpath "${1:?usage: tour.sh BUILD OUT [DPI]}")
out=${2:?usage: tour.sh BUILD OUT [DPI]}
dpi=${3:-96}
readonly TABS=12
readonly NEW_NAME="Corner Store 2"
program="$build/Tillora Administrator.exe"
[ -e "$program" ] || die "$program was not built"

mkdir -p "$out"
out=$(realpath "$out")
rm -f "$out"/*.png "$out"/*.txt "$out"/*.log "$out"/*.db*
display_open
wine_open "tour-$dpi" 64 "$dpi"
wine_register "$build"
# Keeps this program running: the last one to end closes the prefix's desktop, and the next may then never start.
wine_run 900 "$build/drive.exe" sleep 900000 &
at_exit "kill $! 2>/dev/null"

administrator() {
  wine_run "$1" "$program" --database "$(wine_path "$out/shop.db")" \
    --log "$(wine_path "$out/events.log")" "${@:2}"
}

drive() { wine_run 60 "$build/drive.exe" "$@"; }

# picture NAME [TITLE]: the dialog as it looks once two pictures in a row agree.
picture() {
  local before='' now
  for _ in $(seq 20); do
    now=$(import -window root rgba:- | sha256sum)
    [ "$now" != "$before" ] || break
    before=$now
    sleep 0.15
  done
  local window geometry
  window=$(xdotool search --onlyvisible --name "^${2:-Options}\$" | tail -1)
  eval "$(xdotool getwindowgeometry --shell "$window")"
  geometry=${WIDTH}x${HEIGHT}+${X}+${Y}
  import -window root -crop "$geometry" +repage "$out/$1.png"
}

open_on() {
  administrator 120 --options "$1" &
  administrator_pid=$!
  drive wait Options 30 || die "the dialog did not open on tab $1; see $WINE_LOG"
}

close_dialog() {
  drive key ESC
  wait "$administrator_pid" || warn "the program ended with an error; see $WINE_LOG"
}

dump() {
  rm -f "$out/dump.txt"
  administrator 60 --dump "$(wine_path "$out/dump.txt")"
  tr -d '\r' <"$out/dump.txt" >"$out/$1.txt"
  rm -f "$out/dump.txt"
}

for tab in $(seq "$TABS"); do
  open_on "$tab"
  picture "$(printf 'tab-%02d' "$tab")"
  close_dialog
  say "tab $tab of $TABS"
done

# dialog NAME TAB TITLE DRIVE...: the dialog that opens on a tab after these words of drive.exe.
dialog() {
  open_on "$2"
  drive "${@:4}"
  drive wait "$3" 30 || die "\"$3\" did not open; see $WINE_LOG"
  picture "dialog-$1" "$3"
  drive key ESC
  drive gone "$3" 30
  close_dialog
  say "$3"
}

dialog rounding-item 4 "Rounding Item" press Options "Rounding &Item"
dialog random-price 6 "Random Price Barcode Format" press Options "&Edit"
dialog default-reports 8 "Default Reports - EOD Processing" press Options "Default Reports..."
dialog report-captions 8 "Report Captions" key ALT+R
dialog pump-grade 9 "Edit Pump Grade Information" press Options "&Edit"
dialog web-site 10 "Edit Web Site Information" press Options "&Edit"
dialog password 11 "Password to start Tillora Administrator" key SPACE TAB SPACE

dump before
rm -f "$out/events.log"
open_on 1
drive key CTRL+A -- type "$NEW_NAME"
picture edited
drive key ALT+A
picture applied
close_dialog
dump after

{
  echo "Typed \"$NEW_NAME\" into the company name and pressed Apply."
  echo
  echo "What changed in the shop database:"
  diff --unchanged-line-format= --old-line-format='- %L' --new-line-format='+ %L' \
    "$out/before.txt" "$out/after.txt" || true
  echo
  echo "What the host was notified of:"
  tr -d '\r' <"$out/events.log"
} >"$out/tour.txt"
rm -f "$out/before.txt" "$out/after.txt" "$out/events.log"
cat "$out/tour.txt"
say "pictures and text are in $out"
