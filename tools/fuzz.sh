#!/usr/bin/env bash
# Fuzzes the readers of outside input with libFuzzer, under the address and undefined-behaviour
# sanitizers (targets and corpora in fuzz/, see fuzz/README.md).
#   tools/fuzz.sh NAME SECONDS   fuzzes the target NAME (fuzz/NAME_fuzz.cpp) for SECONDS, or until
#                                ten million executions, whichever comes first
#   tools/fuzz.sh all SECONDS    every target in turn, SECONDS each
#   tools/fuzz.sh list           the names of the targets
# Builds with Debian's clang in build-fuzz/ (installed when missing). The seeds in fuzz/corpus/NAME
# are only read; what the fuzzer learns goes to build-fuzz/corpus/NAME, and the input of a
# finding to build-fuzz/findings/NAME/. Prints executions and findings per target; exits 1 when
# any target had a finding.
set -euo pipefail
cd "$(dirname "$0")/.."

targets=()
for source in fuzz/*_fuzz.cpp; do
  name=$(basename "$source" _fuzz.cpp)
  targets+=("$name")
done

usage() {
  echo "usage: $0 NAME|all SECONDS  or  $0 list; targets: ${targets[*]}" >&2
  exit 2
}

[ $# -ge 1 ] || usage
if [ "$1" = list ]; then
  printf '%s\n' "${targets[@]}"
  exit 0
fi
[ $# -eq 2 ] || usage
case "$2" in '' | *[!0-9]*) usage ;; esac
seconds=$2
if [ "$1" = all ]; then
  selected=("${targets[@]}")
else
  [ -f "fuzz/$1_fuzz.cpp" ] || usage
  selected=("$1")
fi

# clang, its runtime (libFuzzer and the sanitizers) and the symbolizer for readable reports.
tools/setup.sh clang libclang-rt-dev llvm

build=build-fuzz
cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DORV_FUZZ=ON \
  -DORV_SANITIZE=ON -DORV_WERROR=ON -DORV_BUILD_TESTS=OFF -DORV_BUILD_BENCH=OFF \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" --target "${selected[@]/%/_fuzz}"

export ASAN_OPTIONS="${ASAN_OPTIONS:-abort_on_error=1:detect_leaks=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
# Findings whose fix is being made elsewhere; each line goes when its fix is in.
if grep -q '^[^#]' fuzz/ubsan_pending.supp 2>/dev/null; then
  UBSAN_OPTIONS="$UBSAN_OPTIONS:suppressions=$PWD/fuzz/ubsan_pending.supp"
fi
summary=()
failed=0
for name in "${selected[@]}"; do
  work="$build/corpus/$name"
  findings="$build/findings/$name"
  mkdir -p "$work" "$findings"
  options=(-max_total_time="$seconds" -runs=10000000 -timeout=10 -rss_limit_mb=2048 -print_final_stats=1
    -artifact_prefix="$PWD/$findings/")
  [ -f "fuzz/$name.dict" ] && options+=(-dict="fuzz/$name.dict")
  log="$build/findings/$name.log"
  before=$(find "$findings" -maxdepth 1 -type f | wc -l)
  echo "== $name: $seconds s"
  set +e
  "$build/fuzz/${name}_fuzz" "${options[@]}" "$work" "fuzz/corpus/$name" >"$log" 2>&1 &
  pid=$!
  wait $pid
  status=$?
  set -e
  # The scratch folder of a run that ended at a finding (fuzz_support.cpp).
  rm -rf /dev/shm/orvane-fuzz-"$pid"-* "${TMPDIR:-/tmp}"/orvane-fuzz-"$pid"-*
  executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  # A run that stopped at a finding prints no final statistics; its last status line counts.
  [ -n "$executions" ] || executions=$(sed -n 's/^#\([0-9]*\).*/\1/p' "$log" | tail -1)
  found=$(($(find "$findings" -maxdepth 1 -type f | wc -l) - before))
  if [ $status -ne 0 ]; then
    failed=1
    grep -m1 -E 'ERROR: |runtime error|fuzz check failed|deadly signal' "$log" || tail -5 "$log"
    echo "   the input: $(ls -t "$findings" | head -1); the report: $log"
  fi
  summary+=("$(printf '%-14s %12s executions  %d findings (%s)' "$name" "${executions:-?}" "$found" \
    "$([ $status -eq 0 ] && echo clean || echo "stopped at a finding")")")
done
printf '%s\n' "${summary[@]}"
exit $failed
