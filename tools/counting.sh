# SPDX-License-Identifier: MIT
# Checks and test programs that may run side by side, and are counted. Read in at the root of the tree, by ./test and .ci/run.
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 ASAN_OPTIONS=detect_leaks=1
export ASAN_SYMBOLIZER_PATH=/usr/lib/llvm-16/bin/llvm-symbolizer  # names in what the sanitizers say
export LSAN_OPTIONS=suppressions=$PWD/tools/leaks-of-others:print_suppressions=0
counts=$(mktemp)
trap 'rm -f "$counts"' EXIT

say() { printf '%s\n' "$*"; }
count() { printf '%s %s\n' "$1" "$2" >>"$counts"; }  # passed, failed; one short write, whole whoever else writes

# One check: its name, then the command. Prints its output only when it fails.
check() {
  local name=$1 log start=$SECONDS
  shift
  log=$(mktemp)
  if "$@" >"$log" 2>&1; then
    count 1 0; say "ok    $name ($((SECONDS - start)) s)"
  else
    count 0 1; cat "$log"; say "FAIL  $name"
  fi
  rm -f "$log"
}

number_in() { sed -n "s/^  \"$1\": \([0-9]*\),\r\?\$/\1/p" "$2"; }

# What stands in front of a file's name for the test program: wine knows this machine's root as "Z:".
root_for_tests=''
# One part of a test program's tests. One that ends badly though all of its tests passed has leaked.
shard() {
  local name=$1 report log status=0 tests failures
  shift
  report=$(mktemp) log=$(mktemp)
  timeout --kill-after=10 1800 "$@" --gtest_brief=1 --gtest_output="json:$root_for_tests$report" >"$log" 2>&1 || status=$?
  tests=$(number_in tests "$report")
  failures=$(number_in failures "$report")
  [ "$status" -eq 0 ] || cat "$log"
  if [ -z "$tests" ]; then
    count 0 1; say "FAIL  $name did not come to its end (status $status)"
  else
    count $((tests - failures)) "$failures"
    if [ "$failures" -ne 0 ]; then
      say "FAIL  $name"
    elif [ "$status" -ne 0 ]; then
      count 0 1; say "FAIL  $name ended with status $status"
    fi
  fi
  rm -f "$report" "$log"
}

# A test program in parts that run side by side; its tests are counted one by one.
suite() {
  local name=$1 shards=$2 start=$SECONDS parts=() index
  shift 2
  for ((index = 0; index < shards; index++)); do
    GTEST_TOTAL_SHARDS=$shards GTEST_SHARD_INDEX=$index shard "$name" "$@" &
    parts+=($!)
  done
  wait "${parts[@]}"
  say "end   $name ($((SECONDS - start)) s)"
}

# The last line; true when nothing has failed.
verdict() {
  awk '{ passed += $1; failed += $2 } END { print passed + 0 " passed, " failed + 0 " failed"; exit failed > 0 || passed == 0 }' "$counts"
}
