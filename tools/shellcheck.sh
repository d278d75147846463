#!/usr/bin/env bash
# Runs ShellCheck over every shell script of the repository.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
mapfile -t scripts < <(grep -rlE '^#!.*(bash|sh)$' --exclude-dir=build --exclude-dir=.git .)
mapfile -t sourced < <(grep -rlE '^# shellcheck shell=' --include='*.sh' --exclude-dir=build .)
exec shellcheck --external-sources --source-path=SCRIPTDIR "${scripts[@]}" "${sourced[@]}"
