#!/usr/bin/env bash
# wine_exec.sh PROGRAM...: runs it at the desk that $DESK names (tools/desk.sh), or in the prefix that wine_open chose;
# at most WINE_TIMEOUT seconds, if that is set. Test scripts find this file's path in $WINE.
set -euo pipefail
# shellcheck source=/dev/null
[ -z "${DESK:-}" ] || source "$(dirname "${BASH_SOURCE[0]}")/../build/desks/$DESK${WINE_VERSION:+-wine$WINE_VERSION}.env"
# Wine finds the server of a prefix through TMPDIR; with another one it would start a second server on the same prefix,
# which knows neither its programs nor what was registered just before.
export TMPDIR=${WINE_TMPDIR:-${TMPDIR:-/tmp}}
# shellcheck disable=SC2086 # the runner is several words, or none
run() { timeout --kill-after=10 "${WINE_TIMEOUT:-0}" ${WINE_RUNNER:-} wine "$@"; }
[ -n "${DESK:-}" ] || { run "$@"; exit; }
taskset -pc "$WINE_PROCESSOR" $$ >/dev/null
# A program that a failed test left behind must not keep the output open, or ctest would wait for it.
output=$(mktemp)
trap 'cat "$output"; rm -f "$output"' EXIT
run "$@" >"$output" 2>&1 </dev/null
