# Steps of the client tests: a client runs in the background while drive.exe is the person at the
# dialog. Sourced, not run.
# shellcheck shell=bash

# windows_path FILE: how a Windows program names it.
windows_path() { printf 'Z:%s\n' "${1//\//\\}"; }

client_output=
client_process=
client_command=()
# client PROGRAM...: starts it; its output is for `finish`.
client() {
  client_command=("$@")
  client_output=$TMPDIR/client.txt
  "$WINE" "$@" >"$client_output" 2>&1 </dev/null &
  client_process=$!
}

# script FILE [ARGUMENT...]: a client of the repository, run by the system's script host.
script() {
  local file
  file=$(windows_path "$1")
  shift
  client cscript //nologo "$file" "$@"
}

drive_once() {
  "$WINE" "$BUILD/drive.exe" "$@" </dev/null >"$TMPDIR/drive.txt" 2>&1
}

# drive COMMAND...: FAIL where a step cannot be done; the client is ended then. Seen now and then, on a
# busy machine, for a reason not found: a client that never gets going under Wine, without a window or
# a word. Such a client, and no other, is started once more; the log says so.
drive() {
  drive_once "$@" && return
  if grep -q 'never shown' "$TMPDIR/drive.txt" && [ ! -s "$client_output" ]; then
    echo "the client showed no window and said nothing; what there is instead:"
    "$WINE" "$BUILD/drive.exe" list </dev/null || true
    ps -o pid,stat,wchan,etime,args -p "$client_process" --ppid "$client_process" || true
    kill "$client_process" 2>/dev/null || true
    wait "$client_process" || true
    echo "starting it once more"
    client "${client_command[@]}"
    drive_once "$@" && return
  fi
  echo "FAIL drive $(tr -d '\r' <"$TMPDIR/drive.txt" | tr '\n' ' '), the client said:"
  cat "$client_output"
  kill "$client_process" 2>/dev/null || true
  exit 0
}

# finish NAME: waits for the client; FAIL unless it ended well.
finish() { finish_failing "$1" 0; }

# finish_failing NAME STATUS: FAIL unless it ended with this status.
finish_failing() {
  local status=0
  wait "$client_process" || status=$?
  if [ "$status" = "$2" ]; then
    tr -d '\r' <"$client_output" >"$client_output.unix"
    mv "$client_output.unix" "$client_output"
  else
    echo "FAIL $1 the client ended with status $status"
    cat "$client_output"
    exit 0
  fi
}

# printed NAME TEXT [TIMES]: the client printed this line, that many times (1).
printed() {
  local times=${3:-1} found
  found=$(grep -cxF -- "$2" "$client_output" || true)
  if [ "$found" = "$times" ]; then
    echo "ok $1"
  else
    echo "FAIL $1 '$2' was printed $found times instead of $times"
    cat "$client_output"
  fi
}
