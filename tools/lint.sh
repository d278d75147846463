#!/usr/bin/env bash
# lint.sh [--all] [FILE...]: clang-tidy over the sources (tests and benchmarks excepted): the portable
# ones as the native preset compiles them, the others as windows-x64 does. Both are built before.
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
passed=build/lint
mkdir -p "$passed"

# fingerprints BUILD: lines "source<TAB>hash"; the hash covers what the compiler read of this
# repository, as ninja recorded it: paths from the root, or with ccache's base directory set, from
# the build folder.
fingerprints() {
  local source files
  while IFS=$'\t' read -r source files; do
    # shellcheck disable=SC2086
    printf '%s\t%s\n' "$source" "$(cat .clang-tidy tools/lint.sh $files | sha256sum | cut -c1-32)"
  done < <(ninja -C "$1" -t deps 2>/dev/null |
    awk -v repo="$REPO/" -v up="$(realpath --relative-to="$1" .)/" '
    /^[^ ].*: #deps/ { if (source) print source "\t" files; source = ""; files = ""; next }
    /^ / {
      file = $1
      if (index(file, up) == 1) file = repo substr(file, length(up) + 1)
      if (index(file, repo) != 1 || index(file, repo "build/") == 1) next
      file = substr(file, length(repo) + 1)
      if (!source) source = file
      files = files " " file
    }
    END { if (source) print source "\t" files }' | sort)
}

# The analyser is told where the standard library with threads is; by itself it takes the other one.
readonly MINGW_LIBRARY=/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++
WINDOWS_ARGUMENTS="--extra-arg-before=--target=x86_64-w64-mingw32 --extra-arg=-nostdinc++"
WINDOWS_ARGUMENTS+=" --extra-arg=-isystem$MINGW_LIBRARY"
WINDOWS_ARGUMENTS+=" --extra-arg=-isystem$MINGW_LIBRARY/x86_64-w64-mingw32"
export WINDOWS_ARGUMENTS

# The bound on the path analysis keeps files with much inlined library code from taking ten seconds.
analyse() {
  local build=$1 source=$2 stamp=$3 platform=
  [ "$build" != "$TILLORA_WINDOWS_BUILD" ] || platform=$WINDOWS_ARGUMENTS
  nice clang-tidy-19 --quiet -p "$build" $platform --extra-arg=-Xclang \
    --extra-arg=-analyzer-config --extra-arg=-Xclang --extra-arg=max-nodes=20000 \
    "$source" 2>/dev/null && : >"$stamp"
}
export -f analyse
export TILLORA_NATIVE_BUILD=${TILLORA_NATIVE_BUILD:-build/native}
export TILLORA_WINDOWS_BUILD=${TILLORA_WINDOWS_BUILD:-build/windows-x64}

todo=()
declare -A seen
for build in "$TILLORA_NATIVE_BUILD" "$TILLORA_WINDOWS_BUILD"; do
  [ -e "$build/compile_commands.json" ] || continue
  while IFS=$'\t' read -r source hash; do
    [[ $source == *.cpp && $source != tests/* && $source != bench/* ]] || continue
    [ -z "${seen[$source]:-}" ] || continue
    [ "$#" = 0 ] || [[ " $* " == *" $source "* ]] || continue
    seen[$source]=1
    [ -z "$all" ] && [ -e "$passed/$hash" ] || todo+=("$build" "$source" "$passed/$hash")
  done < <(fingerprints "$build")
done

[ "${#seen[@]}" -gt 0 ] || die "nothing to analyse: build the presets first"
say "clang-tidy: $((${#todo[@]} / 3)) of ${#seen[@]} files to analyse"
[ "${#todo[@]}" -eq 0 ] ||
  printf '%s\0' "${todo[@]}" | xargs -0 -n 3 -P "$(nproc)" bash -c 'analyse "$@"' _
