#!/usr/bin/env bash
# format.sh [--check]: formats every source and header, or says which are not formatted.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mapfile -d '' files < <(git ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp' |
  while IFS= read -r -d '' file; do [ ! -e "$file" ] || printf '%s\0' "$file"; done)
[ "${#files[@]}" -gt 0 ] || exit 0
if [ "${1:-}" = --check ]; then
  clang-format --dry-run -Werror "${files[@]}"
else
  clang-format -i "${files[@]}"
fi
