#!/usr/bin/env bash
# wine_exec.sh PROGRAM...: runs it in the prefix that wine_open chose, at most WINE_TIMEOUT seconds
# (120). Test scripts find this file's path in $WINE.
#
# Wine finds the server of a prefix by way of TMPDIR; with another one it would start a second server
# on the same prefix, which knows neither its programs nor what was registered just before.
export TMPDIR=${WINE_TMPDIR:-${TMPDIR:-/tmp}}
exec timeout --kill-after=10 "${WINE_TIMEOUT:-120}" ${WINE_RUNNER:-} wine "$@"
