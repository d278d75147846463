# Shared by the scripts: messages, packages, clean-up. Sourced, not run.
# shellcheck shell=bash

# shellcheck disable=SC2034 # for those that source this
REPO=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '== %s\n' "$*"; }
warn() { printf '!! %s\n' "$*" >&2; }
die() {
  warn "$*"
  exit 1
}

# at_exit COMMAND: runs it when the script ends, however it ends; the latest first.
exit_actions=()
run_exit_actions() {
  local status=$? i
  trap - EXIT INT TERM
  for ((i = ${#exit_actions[@]} - 1; i >= 0; i--)); do
    eval "${exit_actions[i]}" || true
  done
  exit "$status"
}
at_exit() {
  exit_actions+=("$1")
  trap run_exit_actions EXIT
  trap 'exit 130' INT TERM
}

# as_root COMMAND...: directly, or through sudo.
as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    warn "this needs root, and there is no sudo: $*"
    return 1
  fi
}

# missing_packages NAME...: those of them that are not installed.
missing_packages() {
  local installed
  installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
    sed -n 's/^installed //p' || true)
  comm -23 <(printf '%s\n' "$@" | sort -u) <(sort -u <<<"$installed")
}

root_apt() {
  as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C apt-get -q -y -o Acquire::Retries=3 \
    -o DPkg::Lock::Timeout=300 "$@"
}

# one_at_a_time COMMAND...: for work with apt, which parts of a build may ask for at once.
one_at_a_time() (
  exec 8>"/tmp/tillora-apt-$(id -u).lock"
  flock 8
  "$@" 8>&-
)

# install_packages NAME...: installs what is missing, with apt's own progress. Fast when nothing is missing.
install_packages() {
  local missing
  mapfile -t missing < <(missing_packages "$@")
  [ "${#missing[@]}" -gt 0 ] || return 0
  say "installing ${missing[*]}"
  one_at_a_time update_and_install "${missing[@]}"
}
update_and_install() {
  root_apt update || warn "apt update failed; trying with the package lists at hand"
  root_apt install --no-install-recommends "$@"
}

# debian_mirror RELEASE: the address of the machine's own Debian archive, from apt's sources.
debian_mirror() {
  # shellcheck disable=SC2016 # apt expands it
  apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' "Codename: $1" \
    'Label: Debian' | sort -u | head -1
}

# The command that joins the files of Debian's SQLite.
# shellcheck disable=SC2034
SQLITE_PACKAGES=(dpkg-dev tcl make gcc libc6-dev)

have_windows_tools() {
  command -v wine >/dev/null && command -v x86_64-w64-mingw32-g++-posix >/dev/null
}

# build PRESET LOG TARGET...: errors go to the terminal too.
build() {
  local preset=$1 log=$2 started=$SECONDS
  say "building $preset"
  if cmake --preset "$preset" >"$log" 2>&1 && cmake --build --preset "$preset" --target "${@:3}" >>"$log" 2>&1; then
    say "built $preset in $((SECONDS - started)) s"
  else
    grep -E -A6 '(error|FAILED): ' "$log" | grep -v '^\[' | head -40 >&2 || tail -40 "$log" >&2
    warn "the build failed; see $log"
    return 1
  fi
}
