#!/usr/bin/env bash
# wine_exec.sh PROGRAM...: runs it in the prefix that wine_open chose, at most WINE_TIMEOUT seconds
# (120). Test scripts find this file's path in $WINE.
exec timeout --kill-after=10 "${WINE_TIMEOUT:-120}" ${WINE_RUNNER:-} wine "$@"
