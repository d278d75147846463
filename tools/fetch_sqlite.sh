#!/usr/bin/env bash
# fetch_sqlite.sh DIR: puts sqlite3.c and sqlite3.h into DIR, once. The build calls it.
#
# The amalgamation is pinned: it is taken out of a package whose checksum npm verifies, and its own checksum is verified
# here. If that package cannot be downloaded, Debian's source package is used, whose checksum apt verifies through the
# archive's signature.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

readonly PACKAGE=better-sqlite3@13.2.0
readonly SQLITE3_C=75a4760a7b9727a4c4c877aec92eacf39e52a8f2921ce00bd33be6d3a8e8e254

dir=${1:?"usage: fetch_sqlite.sh DIR"}
mkdir -p "$dir"
exec 9>"$dir/.lock"
flock 9 # several build folders may ask at the same time

if [ -e "$dir/.complete" ] && [ -e "$dir/sqlite3.c" ] && [ -e "$dir/sqlite3.h" ]; then
  exit 0
fi

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

from_package() {
  command -v npm >/dev/null || return 1
  (cd "$scratch" && timeout 90 npm pack --silent --fetch-retries=1 "$PACKAGE" >/dev/null) || return 1
  tar -xzf "$scratch"/*.tgz -C "$scratch" package/deps/sqlite3 || return 1
  echo "$SQLITE3_C  $scratch/package/deps/sqlite3/sqlite3.c" | sha256sum --check --quiet || return 1
  cp "$scratch"/package/deps/sqlite3/sqlite3.[ch] "$dir"
}

# The source package is not an amalgamation yet; its own makefile joins the files.
from_debian() {
  install_packages "${SQLITE_PACKAGES[@]}" || return 1
  local release mirror
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  mirror=$(debian_mirror "$release")
  [ -n "$mirror" ] || return 1
  mkdir -p "$scratch/lists/partial"
  echo "deb-src $mirror $release main" >"$scratch/sources.list"
  local apt=(-q -o "Dir::Etc::SourceList=$scratch/sources.list" -o Dir::Etc::SourceParts=/dev/null
    -o "Dir::State::Lists=$scratch/lists" -o APT::Sandbox::User=)
  timeout 300 apt-get "${apt[@]}" update || return 1
  (cd "$scratch" && timeout 300 apt-get "${apt[@]}" source --only-source sqlite3) || return 1
  (cd "$scratch"/sqlite3-*/ && ./configure --disable-tcl >/dev/null && make sqlite3.c >/dev/null) ||
    return 1
  cp "$scratch"/sqlite3-*/sqlite3.[ch] "$dir"
}

if [ "${TILLORA_SQLITE_FROM:-}" != debian ] && from_package; then
  :
else
  warn "the pinned SQLite package could not be downloaded; trying Debian's source package"
  from_debian >"$dir/fetch.log" 2>&1 || die "SQLite could not be fetched; see $dir/fetch.log"
fi
touch "$dir/.complete"
say "SQLite $(sed -n 's/^#define SQLITE_VERSION  *"\(.*\)"/\1/p' "$dir/sqlite3.h") in $dir"
