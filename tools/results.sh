# Counts results of tests of all kinds. Sourced after common.sh.
#
#   results_begin DIR                 empties DIR, where logs and reports go
#   result pass|fail|skip NAME [WHY]  one result
#   check NAME COMMAND...             one result: passes when the command does
#   build PRESET                      configures and builds; a result only when it fails
#   run_gtest NAME SECONDS PROGRAM... every test of a GoogleTest program
#   run_script_tests NAME SECONDS PROGRAM...  every "ok NAME", "FAIL NAME why", "skip NAME why" line
#   results_end                       the summary line; fails when a test failed or none ran
# Results are lines of a file, so that subshells may add to it.
# shellcheck shell=bash

results_begin() {
  RESULTS=$1
  mkdir -p "$RESULTS"
  rm -f "$RESULTS"/*.log "$RESULTS"/*.xml "$RESULTS"/results.txt
  : >"$RESULTS/results.txt"
}

result() {
  local outcome=$1 name=$2 why=${3:-}
  printf '%s\t%s\t%s\n' "$outcome" "$name" "$why" >>"$RESULTS/results.txt"
  case $outcome in
    fail) warn "FAILED: $name${why:+: $why}" ;;
    skip) warn "SKIPPED: $name${why:+: $why}" ;;
  esac
}

log_name() { printf '%s/%s.log\n' "$RESULTS" "${1//[^A-Za-z0-9_.-]/_}"; }

check() {
  local name=$1 log
  shift
  log=$(log_name "$name")
  if "$@" >"$log" 2>&1; then
    result pass "$name"
    say "ok: $name"
  else
    tail -40 "$log" >&2
    result fail "$name" "see $log"
  fi
}

build() {
  local preset=$1 log started=$SECONDS
  log=$(log_name "build $preset")
  if cmake --preset "$preset" >"$log" 2>&1 &&
    cmake --build --preset "$preset" -j "$(nproc)" >>"$log" 2>&1; then
    say "built $preset in $((SECONDS - started)) s"
  else
    grep -E -A6 '(error|FAILED): ' "$log" | grep -v '^\[' | head -40 >&2 || tail -40 "$log" >&2
    result fail "build $preset" "see $log"
    return 1
  fi
}

# The report is counted, not the exit code alone: a program that ends early has no report.
run_gtest() {
  local name=$1 seconds=$2 log xml started=$SECONDS status=0
  shift 2
  log=$(log_name "$name")
  xml=${log%.log}.xml
  if [ ! -e "${!#}" ]; then
    result fail "$name" "${!#} was not built"
    return
  fi
  WINE_TIMEOUT=$seconds timeout --kill-after=10 $((seconds + 30)) \
    "$@" "--gtest_output=xml:$(gtest_report_path "$xml" "$@")" >"$log" 2>&1 </dev/null || status=$?

  if [ ! -s "$xml" ]; then
    tail -30 "$log" >&2
    finished_tests "$log" OK | sed "s/.*/pass\t$name &\t/" >>"$RESULTS/results.txt"
    local test
    while read -r test; do
      result fail "$name $test"
    done < <(finished_tests "$log" FAILED)
    result fail "$name $(sed -n 's/\r//; s/^\[ RUN      \] //p' "$log" | tail -1)" \
      "the program ended here with status $status; see $log"
    return
  fi
  local line test
  while IFS= read -r line; do
    test=$(sed -E 's/.*<testcase name="([^"]*)".* classname="([^"]*)".*/\2.\1/' <<<"$line")
    case $line in
      *'result="skipped"'*) result skip "$name $test" "$(skip_reason "$log" "$test")" ;;
      *'status="notrun"'*) result skip "$name $test" "disabled in the source" ;;
      *'/>') printf 'pass\t%s %s\t\n' "$name" "$test" >>"$RESULTS/results.txt" ;;
      *)
        sed -n "/^\[ RUN      \] $test\r\?\$/,/^\[  FAILED  \]/p" "$log" | head -40 >&2
        result fail "$name $test"
        ;;
    esac
  done < <(tr -d '\r' <"$xml" | grep '<testcase ')
  if [ "$status" != 0 ] && ! grep -q '<failure' "$xml"; then
    result fail "$name" "all tests passed, but the program ended with status $status; see $log"
  fi
  say "$name: $(grep -c '<testcase ' "$xml") tests in $((SECONDS - started)) s"
}

# finished_tests LOG OK|FAILED: the tests that a program which ended early had finished so.
finished_tests() {
  tr -d '\r' <"$1" | sed -nE "s/^\[ +$2 +\] ([^ ]+) \([0-9]+ ms\)\$/\1/p"
}

# Where the program itself finds the report: Windows programs name it by drive.
gtest_report_path() {
  local path=$1
  shift
  case "${!#}" in
    *.exe) wine_path "$path" ;;
    *) echo "$path" ;;
  esac
}

skip_reason() {
  local log=$1 test=$2
  sed -n "/^\[ RUN      \] $test\r\?\$/,/^\[  SKIPPED \]/p" "$log" | tr -d '\r' |
    sed '/^\[/d; /Skipped$/d' | tr '\n' ' '
}

run_script_tests() {
  local name=$1 seconds=$2 log status=0 started=$SECONDS outcome test why count=0
  shift 2
  log=$(log_name "$name")
  timeout --kill-after=10 "$seconds" "$@" >"$log" 2>&1 </dev/null || status=$?
  while read -r outcome test why; do
    case $outcome in
      ok) printf 'pass\t%s %s\t\n' "$name" "$test" >>"$RESULTS/results.txt" ;;
      FAIL) result fail "$name $test" "$why" ;;
      skip) result skip "$name $test" "$why" ;;
      *) continue ;;
    esac
    count=$((count + 1))
  done < <(tr -d '\r' <"$log")
  [ "$status" = 0 ] || grep -q '^FAIL ' "$log" || {
    tail -30 "$log" >&2
    result fail "$name" "ended with status $status; see $log"
  }
  say "$name: $count tests in $((SECONDS - started)) s"
}

results_end() {
  local passed failed skipped
  passed=$(grep -c '^pass' "$RESULTS/results.txt" || true)
  failed=$(grep -c '^fail' "$RESULTS/results.txt" || true)
  skipped=$(grep -c '^skip' "$RESULTS/results.txt" || true)
  echo
  if [ "$skipped" != 0 ]; then
    awk -F'\t' '$1 == "skip" {print "skipped: " $2 ": " $3}' "$RESULTS/results.txt"
  fi
  if [ "$failed" != 0 ]; then
    awk -F'\t' '$1 == "fail" {print "failed:  " $2 ($3 == "" ? "" : ": " $3)}' "$RESULTS/results.txt"
  fi
  printf '%s passed, %s failed' "$passed" "$failed"
  [ "$skipped" = 0 ] || printf ', %s skipped' "$skipped"
  printf '\n'
  [ "$failed" = 0 ] && [ "$passed" != 0 ]
}
