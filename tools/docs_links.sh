#!/usr/bin/env bash
# docs_links.sh: every link of the documents into this repository leads to a file, and every document and picture of
# docs/ can be reached by links from README.md. Reports what is wrong.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# links FILE: the files that it links to, as paths from the repository's folder.
links() {
  local target
  { grep -oE '\]\([^)]+\)' "$1" || true; } | sed -E 's/^\]\(//; s/\)$//; s/#.*//' |
    while read -r target; do
      case $target in
        '' | *://* | mailto:*) ;;
        *) realpath -m --relative-to=. "$(dirname "$1")/$target" ;;
      esac
    done
}

bad=
declare -A reached=([README.md]=1)
queue=(README.md CONTRIBUTING.md)
while [ "${#queue[@]}" -gt 0 ]; do
  file=${queue[0]}
  queue=("${queue[@]:1}")
  while read -r target; do
    if [ ! -e "$target" ]; then
      echo "$file: there is no $target"
      bad=1
    elif [ -z "${reached[$target]:-}" ]; then
      reached[$target]=1
      if [[ $target == *.md ]]; then queue+=("$target"); fi
    fi
  done < <(links "$file")
done

while read -r file; do
  [ -n "${reached[$file]:-}" ] || { echo "no document links to $file"; bad=1; }
done < <(find docs -type f \( -name '*.md' -o -name '*.png' \) | sort)
[ -z "$bad" ]
