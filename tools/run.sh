#!/usr/bin/env bash
# Installs what the build needs, builds Orvane, its reference data and the RealTraffic
# stand-in, and runs Orvane on its built-in default: headless in the working folder build/,
# against the stand-in simulator (a user aircraft parked at Frankfurt) and the recorded
# Frankfurt traffic, for 40 seconds. Further arguments go to Orvane instead of the default.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/setup.sh
cmake -S . -B build -G Ninja -DORV_WERROR=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target orvane rt_standin
tools/build_data.sh build
if [ $# -eq 0 ]; then set -- --seconds 40; fi
build/tools/rt_standin/rt_standin --no-link --play tests/data/recordings/eddf_midday.txt --loop >/dev/null &
standin=$!
trap 'kill $standin 2>/dev/null || true' EXIT
build/orvane "$@"
