#!/usr/bin/env bash
# wine32.sh: provides a Wine that runs 32-bit programs. Prints the command prefix with which to run
# it on the last line: empty, or a runner that enters a chroot. Fails where none can be had.
#
# Ordinary multi-arch packages are tried first. They cannot be installed where the machine's i386
# and amd64 package lists are out of step; then the same packages go into a chroot made from the
# Debian release itself, which sees this repository and /tmp under their usual names.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

readonly ROOT=${TILLORA_WINE32_ROOT:-/var/lib/tillora-wine32}
readonly RUNNER=$REPO/tools/wine32_chroot.sh
release=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")

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

install_chroot() {
  [ "$(id -u)" = 0 ] || { warn "a chroot for 32-bit Wine needs root"; return 1; }
  unshare -m true 2>/dev/null || { warn "mount namespaces are not allowed here"; return 1; }
  install_packages debootstrap || return 1
  local mirror proxy=
  mirror=$(debian_mirror "$release")
  [ -n "$mirror" ] || { warn "no $release archive in apt's sources"; return 1; }
  eval "$(apt-config shell proxy Acquire::http::Proxy)"
  if [ -n "$proxy" ] && [ "$proxy" != DIRECT ]; then export http_proxy=$proxy; fi

  say "making a chroot with 32-bit Wine in $ROOT (about a minute, 1.7 GB)"
  rm -rf --one-file-system "$ROOT"
  debootstrap --arch=amd64 --variant=minbase "$release" "$ROOT" "$mirror" || return 1
  cat >"$ROOT/etc/apt/apt.conf.d/99tillora" <<'CONF'
APT::Install-Recommends "false";
Acquire::Languages "none";
Acquire::Retries "3";
CONF
  unshare -m bash -euc 'mount -t proc proc "$1/proc"; mount --rbind /dev "$1/dev"
    exec chroot "$1" bash -ec "
      export DEBIAN_FRONTEND=noninteractive LC_ALL=C
      dpkg --add-architecture i386; apt-get -q update
      apt-get -q -y install wine wine64 wine32:i386
      apt-get clean; rm -rf /var/lib/apt/lists/*"' _ "$ROOT" || return 1
  touch "$ROOT/.complete"
}

if [ "${TILLORA_WINE32_FROM:-}" != chroot ] && multiarch_installed; then
  echo
elif [ -e "$ROOT/.complete" ]; then
  echo "$RUNNER"
elif [ "${TILLORA_WINE32_FROM:-}" != chroot ] && one_at_a_time install_multiarch >&2; then
  echo
elif install_chroot >&2; then
  echo "$RUNNER"
else
  die "no 32-bit Wine can be had on this machine"
fi
