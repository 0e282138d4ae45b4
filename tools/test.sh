#!/usr/bin/env bash
# Installs what the build needs, builds everything with warnings as errors, and runs every test.
#   tools/test.sh             the normal build (build/), with the layer and duplicate-symbol checks
#   tools/test.sh --sanitize  the same under the address and undefined-behaviour sanitizers (build-san/)
#   tools/test.sh --tsan      the threaded suites under the thread sanitizer (build-tsan/); any report fails
set -euo pipefail
cd "$(dirname "$0")/.."
tools/setup.sh

build=build
flags=(-DORV_WERROR=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo)
targets=()
select=()
case "${1:-}" in
  --sanitize)
    build=build-san
    flags=(-DORV_WERROR=ON -DORV_SANITIZE=ON -DORV_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug)
    ;;
  --tsan)
    build=build-tsan
    flags=(-DORV_WERROR=ON -DORV_TSAN=ON -DORV_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo)
    # The suites that run threads; each of their tests in a process of its own.
    suites=(app feed engine simlink ui window simconnect rt_standin)
    targets=(--target "${suites[@]/%/_tests}")
    select=(-L "^($(IFS='|'; echo "${suites[*]}"))_tests\$" -LE '^shuffled$')
    # The first report ends the process with 66, so that the test fails.
    export TSAN_OPTIONS="halt_on_error=1 exitcode=66 second_deadlock_stack=1 history_size=4 ${TSAN_OPTIONS:-}"
    ;;
  "") ;;
  *) echo "usage: $0 [--sanitize | --tsan]" >&2; exit 2 ;;
esac

cmake -S . -B "$build" -G Ninja "${flags[@]}" >/dev/null
cmake --build "$build" "${targets[@]}"
ctest --test-dir "$build" --output-on-failure -j "$(nproc)" --timeout 300 "${select[@]}"
