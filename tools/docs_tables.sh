#!/usr/bin/env bash
# docs_tables.sh [--check] [PROGRAM]: makes the tables of the documents anew from the component's own
# tables, or says which are out of date. PROGRAM is document_tables, as a native build leaves it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

check=()
if [ "${1:-}" = --check ]; then
  check=(--check)
  shift
fi
program=${1:-build/native/document_tables}
[ -x "$program" ] || { echo "$program was not built: cmake --build --preset native"; exit 1; }
mapfile -t documents < <(find docs README.md -name '*.md' | sort)
exec "$program" "${check[@]}" "${documents[@]}"
