#!/usr/bin/env bash
# format.sh [--check]: formats every source and header, or says which are not formatted.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mapfile -d '' files < <(find . -path ./build -prune -o -path ./.git -prune -o \
  \( -name '*.h' -o -name '*.cpp' \) -print0)
[ "${#files[@]}" -gt 0 ] || exit 0
if [ "${1:-}" = --check ]; then
  clang-format --dry-run -Werror "${files[@]}"
else
  clang-format -i "${files[@]}"
fi
