# Private Wine prefixes and displays for tests and demonstrations. Sourced after common.sh.
#
#   wine_open NAME 64|32|both [DPI]   makes the prefix build/wine/NAME when missing, starts its server;
#                                afterwards `wine_run` and tools/wine_exec.sh use it. With
#                                WINE_MANAGED=Y its windows are left to a window manager; without it and
#                                without a display they are there and nobody sees them. With
#                                WINE_VERSION=10 it is build/wine/NAME-wine10, of that Wine
#   wine_run SECONDS PROGRAM...  runs a program in it with a time limit
#   display_open                 starts an X server of our own on a free display, DISPLAY_SIZE large,
#                                and sets DISPLAY and XENVIRONMENT
# Both are closed when the script ends.
#
# WINE_RUNNER is several words, or none:
# shellcheck shell=bash disable=SC2086

WINE_HOME=${TILLORA_WINE_HOME:-$REPO/build/wine}

# Raise it when the settings below change: prefixes made with other settings are made anew.
readonly WINE_SETTINGS_VERSION=5

wine_registry_settings() {
  local dpi=$1 drivers=x11
  [ "${WINE_MANAGED:-N}" = Y ] || drivers=x11,null
  cat <<REG
REGEDIT4

[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\AeDebug]
"Debugger"="false"

[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\\Software\\Wine\\Drivers]
"Graphics"="$drivers"

[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]
"Managed"="${WINE_MANAGED:-N}"

[HKEY_CURRENT_USER\\Control Panel\\Desktop]
"LogPixels"=dword:$(printf '%08x' "$dpi")
REG
}

# Stops the server, because the settings are read when the first program starts.
wine_set_registry() {
  wine_registry_settings "$1" >"$WINEPREFIX/tillora.reg"
  wine_run 60 regedit /S "$(wine_path "$WINEPREFIX/tillora.reg")" || return 1
  wine_server -k
  wine_server -w
}

# wine_use_dpi DPI: another resolution in an open prefix.
wine_use_dpi() {
  wine_set_registry "$1" || return 1
  wine_server -p
}

# Text widths depend on the fonts; these are the ones that the dialog asks for.
wine_copy_fonts() {
  local fonts=$WINEPREFIX/drive_c/windows/Fonts
  mkdir -p "$fonts"
  cp /usr/share/wine/fonts/{tahoma,tahomabd,marlett}.ttf "$fonts"
  cp /usr/share/fonts/truetype/liberation/LiberationSans-*.ttf "$fonts"
  # For tests of other fonts, if they are installed.
  cp /usr/share/fonts/truetype/{open-sans/OpenSans-Regular,dejavu/DejaVuSans}.ttf "$fonts" 2>/dev/null || true
}

# A server knows its prefix by the folder's inode, which the next prefix may get.
wine_remove_prefix() {
  [ ! -e "$WINEPREFIX" ] || wine_server -k
  rm -rf "$WINEPREFIX"
}

# A prefix that nothing was done with yet.
wine_make_unused() {
  say "making the Wine prefix $WINEPREFIX"
  wine_remove_prefix
  mkdir -p "$WINEPREFIX"
  wine_run 180 wineboot -i || return 1
  wine_server -w
  wine_copy_fonts
}

# wine_make_prefix BITS DPI: a copy of an unused one, which takes three seconds instead of twenty. Windows' own programs,
# which nobody changes and which take up to 1.3 GB, are linked instead of copied.
wine_make_prefix() {
  local unused=$WINE_HOME/unused-$1${WINE_VERSION:+-wine$WINE_VERSION} folder linked=()
  wine_remove_prefix
  (
    flock 8
    if [ "$(cat "$unused/tillora.stamp" 2>/dev/null)" != "$WINE_UNUSED_STAMP" ]; then
      WINEPREFIX=$unused wine_make_unused && echo "$WINE_UNUSED_STAMP" >"$unused/tillora.stamp" || exit 1
    fi
    for folder in system32 syswow64 winsxs; do
      [ ! -e "$unused/drive_c/windows/$folder" ] || linked+=("drive_c/windows/$folder")
    done
    mkdir -p "$WINEPREFIX" &&
      tar -C "$unused" -c "${linked[@]/#/--exclude=./}" . | tar -C "$WINEPREFIX" -x || exit 1
    for folder in "${linked[@]}"; do
      cp -al "$unused/$folder" "$WINEPREFIX/$folder" || exit 1
    done
  ) 8>"$unused.lock" || return 1
  wine_server -p
  wine_set_registry "$2" || return 1
  echo "$WINE_STAMP" >"$WINEPREFIX/tillora.stamp"
}

# wine_path FILE: how a Windows program names it.
wine_path() { printf 'Z:%s\n' "${1//\//\\}"; }

wine_server() {
  timeout --kill-after=5 60 ${WINE_RUNNER:-} wineserver "$@" >/dev/null 2>&1 || true
}

# The first program of a prefix leaves services behind that keep its output open, so never pipe it.
wine_run() {
  local seconds=$1
  shift
  timeout --kill-after=10 "$seconds" ${WINE_RUNNER:-} "$WINE_LOADER" "$@" </dev/null >>"$WINE_LOG" 2>&1
}

wine_open() {
  local name=$1 bits=$2 dpi=${3:-96}
  name+=${WINE_VERSION:+-wine$WINE_VERSION}
  export WINEPREFIX=$WINE_HOME/$name WINEDEBUG=${WINEDEBUG:--all}
  export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=" LC_ALL=C.UTF-8
  export WINE_RUNNER='' WINE_TMPDIR=${TMPDIR:-/tmp}
  unset WINEARCH DESK
  [ "$bits" != 32 ] || export WINEARCH=win32
  WINE_RUNNER=$("$REPO/tools/provide_wine.sh" "$bits" | tail -1) || return 1
  # Where 32-bit Wine is installed, `wine cscript` would be the system's 32-bit one.
  export WINE_LOADER=wine
  [ "$bits" != 64 ] || WINE_LOADER=/usr/lib/wine/wine64
  mkdir -p "$WINE_HOME"
  WINE_LOG=$WINE_HOME/$name.log
  WINE_UNUSED_STAMP="$WINE_SETTINGS_VERSION $bits $WINE_RUNNER $(${WINE_RUNNER:-} "$WINE_LOADER" --version)"
  WINE_STAMP="$dpi ${WINE_MANAGED:-N} $WINE_UNUSED_STAMP"
  : >"$WINE_LOG"
  if [ "$(cat "$WINEPREFIX/tillora.stamp" 2>/dev/null)" != "$WINE_STAMP" ]; then
    wine_make_prefix "$bits" "$dpi" || { warn "the Wine prefix could not be made; see $WINE_LOG"; return 1; }
  fi
  # Without a server that stays, every program would start the prefix anew: seconds instead of
  # milliseconds.
  wine_server -p
  at_exit "WINEPREFIX='$WINEPREFIX' WINE_RUNNER='$WINE_RUNNER' wine_server -k"
  wine_run 60 cmd /c ver || { warn "Wine does not start; see $WINE_LOG"; return 1; }
}

# wine_register BUILD: both automation servers, as far as they are built.
wine_register() {
  local server
  for server in TilloraOptions TilloraHost; do
    [ ! -e "$1/$server.dll" ] ||
      wine_run 60 regsvr32 /s "$(wine_path "$(realpath "$1/$server.dll")")" ||
      { warn "$server.dll cannot be registered; see $WINE_LOG"; return 1; }
  done
}

# wine_draws: whether windows really show pixels. A half-installed 32-bit Wine runs programs and
# draws nothing.
wine_draws() {
  local colours
  ${WINE_RUNNER:-} "$WINE_LOADER" notepad </dev/null >/dev/null 2>&1 &
  local notepad=$!
  for _ in $(seq 50); do
    sleep 0.2
    colours=$(import -window root -depth 8 -format '%k' info: 2>/dev/null || echo 0)
    [ "$colours" -lt 4 ] || break
  done
  kill "$notepad" 2>/dev/null || true
  wine_run 20 taskkill /f /im notepad.exe || true
  [ "$colours" -ge 4 ]
}

display_open() {
  local number pipe
  pipe=$(mktemp -u)
  mkfifo "$pipe"
  Xvfb -displayfd 7 -screen 0 "${DISPLAY_SIZE:-1280x1024}x24" -nolisten tcp 7>"$pipe" >/dev/null 2>&1 &
  at_exit "kill $! 2>/dev/null"
  read -r -t 20 number <"$pipe" || { rm -f "$pipe"; warn "Xvfb does not start"; return 1; }
  rm -f "$pipe"
  export DISPLAY=:$number XENVIRONMENT=$REPO/tools/x_resources
}
