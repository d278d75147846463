#!/usr/bin/env bash
# desk.sh NAME 64|32 BUILD TURN [registered|unseen]: a desk for tests of real windows: a Wine prefix and a display of its
# own, on one processor, the one whose turn it is. It stays open as long as the calling program runs (ctest, as a rule);
# tools/wine_exec.sh runs programs at the desk that $DESK names. At a registered desk the automation servers of BUILD are
# registered. At an unseen desk windows are made, laid out and operated as at others, but not drawn on a display, which
# takes half the time.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
source "$(dirname "${BASH_SOURCE[0]}")/wine.sh"

name=$1 bits=$2 build=$3 turn=$4 kind=${5:-}
desk=$REPO/build/desks/$name${WINE_VERSION:+-wine$WINE_VERSION}
mkdir -p "$(dirname "$desk")"

# The processor of the desk, among those that this program may use. A program, its display and Wine's server hand work
# to each other all the time; on one processor that takes half as long as on two.
processor_in_turn() {
  local processors
  mapfile -t processors < <(awk '$1 == "Cpus_allowed_list:" {
    count = split($2, ranges, ",")
    for (i = 1; i <= count; i++) {
      split(ranges[i] "-" ranges[i], ends, "-")
      for (number = ends[1]; number <= ends[2]; number++) print number
    }
  }' /proc/self/status)
  echo "${processors[turn % ${#processors[@]}]}"
}

# Keeps the desk open until the program with this process id has ended.
hold() {
  trap '' HUP
  exec 9>"$desk.lock"
  flock 9 # a desk of the same name may still be closing
  WINE_PROCESSOR=$(processor_in_turn)
  taskset -pc "$WINE_PROCESSOR" "$BASHPID"
  if [ "$kind" = unseen ]; then
    export DISPLAY='' XENVIRONMENT=''
  else
    display_open 9>&-
  fi
  wine_open "desk-$name" "$bits" 9>&-
  [ "$bits" = 64 ] || [ "$kind" = unseen ] || wine_draws || die "this 32-bit Wine draws nothing"
  [ "$kind" != registered ] || wine_register "$build"
  at_exit "rm -f '$desk.env'"
  declare -px DISPLAY XENVIRONMENT WINEPREFIX WINEDEBUG WINEDLLOVERRIDES WINE_RUNNER WINE_LOADER WINE_TMPDIR WINE_PROCESSOR LC_ALL >"$desk.new"
  mv "$desk.new" "$desk.env"
  tail --pid="$1" -f /dev/null 9>&-
}

rm -f "$desk.env"
hold "$PPID" >"$desk.log" 2>&1 </dev/null &
holder=$!
until [ -e "$desk.env" ]; do
  if ! kill -0 "$holder" 2>/dev/null; then
    cat "$desk.log"
    exit 1
  fi
  sleep 0.1
done
disown
