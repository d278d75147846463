#!/usr/bin/env bash
# provide_wine.sh 64|32|both: provides a Wine for programs of this bitness. Prints the command prefix with which to run
# it on the last line: empty, or a runner that enters a chroot. Fails if none is available. The environment variable
# WINE_VERSION chooses which:
#
#   empty   the machine's own; for 32-bit programs from multi-arch packages, which cannot be installed
#           where the machine's i386 and amd64 package lists are out of step; then that of a chroot
#           of the machine's own Debian release
#   8, 10   that of a chroot of the Debian release which has it
#
# provide_wine.sh in RELEASE COMMAND...: runs it inside that release's chroot, in the same folder. It
# sees this repository and /tmp under their usual names. The mounts are private to the process and
# vanish with it.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

chroot_folder() { echo "${TILLORA_CHROOTS:-/var/lib}/tillora-wine-$1"; }

multiarch_installed() {
  [ -x /usr/lib/wine/wine ] &&
    [ "$(dpkg-query -W -f '${db:Status-Status}' wine32:i386 2>/dev/null)" = installed ]
}

# Nothing installed may be removed or replaced for it, so it is simulated first.
install_multiarch() {
  local had_i386 packages=(--no-remove --no-install-recommends wine wine64 wine32:i386)
  had_i386=$(dpkg --print-foreign-architectures | grep -cx i386 || true)
  as_root dpkg --add-architecture i386 || return 1
  if root_apt update >/dev/null 2>&1 &&
    root_apt install --simulate "${packages[@]}" >/dev/null 2>&1 &&
    root_apt install "${packages[@]}"; then
    return 0
  fi
  if [ "$had_i386" = 0 ]; then
    as_root dpkg --remove-architecture i386
    root_apt update >/dev/null 2>&1 || true
  fi
  return 1
}

make_chroot() {
  local release=$1 root mirror proxy=
  root=$(chroot_folder "$release")
  [ ! -e "$root/.complete" ] || return 0
  [ "$(id -u)" = 0 ] || { warn "a chroot needs root"; return 1; }
  unshare -m true ||
    { warn "no mount namespaces here (in a chroot: bind its folder onto itself first)"; return 1; }
  install_packages debootstrap || return 1
  mirror=$(debian_mirror "$(. /etc/os-release && echo "${VERSION_CODENAME:-}")")
  [ -n "$mirror" ] || { warn "no archive of this Debian release in apt's sources"; return 1; }
  eval "$(apt-config shell proxy Acquire::http::Proxy)"
  if [ -n "$proxy" ] && [ "$proxy" != DIRECT ]; then export http_proxy=$proxy; fi

  say "making a chroot of Debian $release with its Wine in $root (a minute or two, 1.7 GB)"
  rm -rf --one-file-system "$root"
  debootstrap --arch=amd64 --variant=minbase "$release" "$root" "$mirror" || return 1
  cat >"$root/etc/apt/apt.conf.d/99tillora" <<'CONF'
APT::Install-Recommends "false";
Acquire::Languages "none";
Acquire::Retries "3";
CONF
  # shellcheck disable=SC2016 # expanded inside
  unshare -m bash -euc 'mount -t proc proc "$1/proc"; mount --rbind /dev "$1/dev"
    exec chroot "$1" bash -ec "
      export DEBIAN_FRONTEND=noninteractive LC_ALL=C
      dpkg --add-architecture i386; apt-get -q update
      apt-get -q -y install wine wine64 wine32:i386
      apt-get clean; rm -rf /var/lib/apt/lists/*"' _ "$root" || return 1
  touch "$root/.complete"
}

# provide_chroot RELEASE: makes it if it is missing; a second caller at the same time waits for it.
provide_chroot() {
  exec 9>"/tmp/tillora-wine-$1.lock"
  flock 9
  make_chroot "$1" >&2 9>&- || die "Debian $1's Wine is not available on this machine"
  echo "$steady $REPO/tools/provide_wine.sh in $1"
}

# Debian's Wine 10 crashes if TMPDIR is set.
run_in_chroot() {
  unset TMPDIR
  # shellcheck disable=SC2016 # expanded inside
  CHROOT=$(chroot_folder "$1") REPO=$REPO exec unshare -m bash -euc '
    mkdir -p "$CHROOT$REPO"
    mount -t proc proc "$CHROOT/proc"
    mount --rbind /dev "$CHROOT/dev"
    mount --bind /tmp "$CHROOT/tmp"
    mount --bind "$REPO" "$CHROOT$REPO"
    exec chroot "$CHROOT" sh -c "cd \"\$0\" && exec \"\$@\"" "$PWD" "$@"' _ "${@:2}"
}

[ "${1:-}" != in ] || run_in_chroot "${@:2}"

# Each 64-bit program needs the address 0x7ffe0000. Kernels that place its heap anywhere in a gigabyte place it there
# once in thousands of starts; Wine then gives the program up.
steady=
if setarch -R true 2>/dev/null; then
  steady='setarch -R'
else
  warn "addresses cannot be kept steady here; a Windows program may fail to start, once in thousands of times"
fi

case ${WINE_VERSION:-}:${1:-} in
  8:*) provide_chroot bookworm ;;
  10:*) provide_chroot trixie ;;
  :64) echo "$steady" ;;
  :32 | :both)
    release=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
    if [ -e "$(chroot_folder "$release")/.complete" ]; then
      provide_chroot "$release"
    elif multiarch_installed || one_at_a_time install_multiarch >&2; then
      echo "$steady"
    else
      provide_chroot "$release"
    fi
    ;;
  *) die "usage: [WINE_VERSION=8|10] provide_wine.sh 64|32|both, or provide_wine.sh in RELEASE COMMAND" ;;
esac
