#!/usr/bin/env bash
# wine32_chroot.sh COMMAND...: runs it inside the chroot that wine32.sh made, in the same folder.
# The mounts are private to the process and vanish with it.
set -euo pipefail
export TILLORA_CHROOT=${TILLORA_WINE32_ROOT:-/var/lib/tillora-wine32}
TILLORA_REPO=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export TILLORA_REPO
exec unshare -m bash -euc '
  root=$TILLORA_CHROOT
  mkdir -p "$root$TILLORA_REPO"
  mount -t proc proc "$root/proc"
  mount --rbind /dev "$root/dev"
  mount --bind /tmp "$root/tmp"
  mount --bind "$TILLORA_REPO" "$root$TILLORA_REPO"
  exec chroot "$root" sh -c "cd \"\$0\" && exec \"\$@\"" "$PWD" "$@"' _ "$@"
