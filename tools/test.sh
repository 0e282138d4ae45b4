#!/usr/bin/env bash
# Installs what the build needs, builds everything with warnings as errors, and runs every test.
#   tools/test.sh             the normal build (build/)
#   tools/test.sh --sanitize  the same under the address and undefined-behaviour sanitizers (build-san/)
set -euo pipefail
cd "$(dirname "$0")/.."
tools/setup.sh

build=build
flags=(-DORV_WERROR=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo)
if [ "${1:-}" = "--sanitize" ]; then
  build=build-san
  flags=(-DORV_WERROR=ON -DORV_SANITIZE=ON -DORV_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug)
fi

cmake -S . -B "$build" -G Ninja "${flags[@]}" >/dev/null
cmake --build "$build"
ctest --test-dir "$build" --output-on-failure -j "$(nproc)" --timeout 300
