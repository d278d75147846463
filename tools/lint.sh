#!/usr/bin/env bash
# lint.sh [--all] [FILE...]: clang-tidy over the portable sources, as the native preset compiles them.
#
# A file that passed is not analysed again until it, a header it includes or the configuration
# changes; --all analyses everything.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/common.sh

all=
if [ "${1:-}" = --all ]; then
  all=1
  shift
fi
build=${TILLORA_NATIVE_BUILD:-build/native}
passed=build/lint
[ -e "$build/compile_commands.json" ] || cmake --preset native >/dev/null
mkdir -p "$passed"

# Lines "source<TAB>hash": the hash covers what the compiler read of this repository.
fingerprints() {
  local source files
  while IFS=$'\t' read -r source files; do
    # shellcheck disable=SC2086
    printf '%s\t%s\n' "$source" \
      "$({ clang-tidy-19 --version; cat .clang-tidy $files; } 2>/dev/null | sha256sum | cut -c1-32)"
  done < <(ninja -C "$build" -t deps | awk -v repo="$REPO/" '
    /^[^ ].*: #deps/ { if (source) print source "\t" files; source = ""; files = ""; next }
    /^ / {
      file = $1
      if (index(file, repo) != 1 || index(file, repo "build/") == 1) next
      file = substr(file, length(repo) + 1)
      if (!source) source = file
      files = files " " file
    }
    END { if (source) print source "\t" files }')
}

todo=()
declare -A stamp
while IFS=$'\t' read -r source hash; do
  [[ $source == *.cpp && $source != tests/* && $source != bench/* ]] || continue
  [ -e "$source" ] || continue
  [ "$#" = 0 ] || [[ " $* " == *" $source "* ]] || continue
  stamp[$source]=$passed/$hash
  [ -z "$all" ] && [ -e "$passed/$hash" ] || todo+=("$source")
done < <(fingerprints)

[ "${#stamp[@]}" -gt 0 ] || die "nothing to analyse: build the native preset first"
say "clang-tidy: ${#todo[@]} of ${#stamp[@]} files to analyse"
# The bound on the path analysis keeps files with much inlined library code from taking ten seconds.
analyse() {
  nice clang-tidy-19 --quiet -p "$1" --extra-arg=-Xclang --extra-arg=-analyzer-config \
    --extra-arg=-Xclang --extra-arg=max-nodes=20000 "$2" 2>/dev/null && : >"$3"
}
export -f analyse
for source in ${todo[@]+"${todo[@]}"}; do
  printf '%s\0%s\0%s\0' "$build" "$source" "${stamp[$source]}"
done | xargs -0 -r -n 3 -P "$(nproc)" bash -c 'analyse "$@"' _
