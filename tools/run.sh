#!/usr/bin/env bash
# Installs what the build needs, builds Orvane and its reference data, and runs it on its
# built-in default: headless, in the prepared working folder build/, for a few seconds.
# Further arguments go to the program instead of the default (try --seconds 30).
set -euo pipefail
cd "$(dirname "$0")/.."
tools/setup.sh
cmake -S . -B build -G Ninja -DORV_WERROR=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target orvane
tools/build_data.sh build
if [ $# -eq 0 ]; then set -- --seconds 5; fi
exec build/orvane "$@"
