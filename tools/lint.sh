#!/usr/bin/env bash
# lint.sh BUILD [FILE...]: clang-tidy over the sources that a build folder has compiled (tests and
# benchmarks excepted): of a Windows build those that the native one lacks.
#
# A file that passed is not analysed again until it, a header it includes or the configuration
# changes. Precompiled headers are left out: each source must include what it uses.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/common.sh

build=$(realpath --relative-to=. "${1:?usage: lint.sh BUILD [FILE...]}")
shift
export LINT=$build/lint
mkdir -p "$LINT/passed"
sed -E 's/ -Winvalid-pch| -fpch-preprocess| -include [^ ]*cmake_pch\.hxx//g' \
  "$build/compile_commands.json" >"$LINT/compile_commands.json"

ours='ui|support|identity|sales|operations|component|host|tools/document_tables'
PLATFORM=
if grep -q '^CMAKE_SYSTEM_NAME.*Windows\|windows-x64.cmake' "$build/CMakeCache.txt"; then
  ours='ui/win32|support/win32|component/automation|host/(automation|app|terminal)|clients/[a-z_]*'
  # The analyser is shown the standard library with threads; by itself it takes the other one.
  library=/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++
  PLATFORM="--extra-arg-before=--target=x86_64-w64-mingw32 --extra-arg=-nostdinc++"
  PLATFORM+=" --extra-arg=-isystem$library --extra-arg=-isystem$library/x86_64-w64-mingw32"
fi
export PLATFORM

# Lines "source<TAB>hash" of all objects; the hash covers what the compiler read of this repository,
# as ninja recorded it: paths from the root, or from the build folder.
fingerprints() {
  local source files
  ninja -C "$build" -t deps 2>/dev/null |
    awk -v root="$REPO/" -v up="$(realpath --relative-to="$build" .)/" '
      /^[^ ].*: #deps/ { if (source) print source "\t" files; source = files = ""; next }
      /^ / {
        file = $1
        if (index(file, up) == 1) file = root substr(file, length(up) + 1)
        if (index(file, root) != 1 || index(file, root "build/") == 1) next
        file = substr(file, length(root) + 1)
        if (!source) source = file
        files = files " " file
      }
      END { if (source) print source "\t" files }' | sort -u |
    while IFS=$'\t' read -r source files; do
      # shellcheck disable=SC2086
      printf '%s\t%s\n' "$source" "$(cat .clang-tidy tools/lint.sh $files | sha256sum | cut -c1-32)"
    done
}

# The bound on the path analysis keeps files with much inlined library code from taking ten seconds.
analyse() {
  # shellcheck disable=SC2086
  nice clang-tidy-19 --quiet -p "$LINT" $PLATFORM --extra-arg=-Xclang \
    --extra-arg=-analyzer-config --extra-arg=-Xclang --extra-arg=max-nodes=20000 \
    "$1" 2>/dev/null && : >"$LINT/passed/$2"
}
export -f analyse

todo=() seen=0
while IFS=$'\t' read -r source hash; do
  [[ $source =~ ^($ours)/[^/]*\.cpp$ ]] || continue
  [ "$#" = 0 ] || [[ " $* " == *" $source "* ]] || continue
  seen=$((seen + 1))
  [ -e "$LINT/passed/$hash" ] || todo+=("$source" "$hash")
done < <(fingerprints)

[ "$seen" -gt 0 ] || die "nothing to analyse: build $build first"
say "clang-tidy: $((${#todo[@]} / 2)) of $seen files to analyse"
[ "${#todo[@]}" -eq 0 ] ||
  printf '%s\0' "${todo[@]}" | xargs -0 -n 2 -P "$(nproc)" bash -c 'analyse "$@"' _
