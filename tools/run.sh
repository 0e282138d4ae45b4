#!/usr/bin/env bash
# Installs what the build needs, builds Orvane, its reference data and the RealTraffic
# stand-in, and runs Orvane on its built-in default: headless in the working folder build/,
# against the stand-in simulator (a user aircraft parked at Frankfurt) and the recorded
# Frankfurt traffic, for 40 seconds. Files of the download site come from a local one on
# loopback that serves the built stock airport files (build/download_site). Further arguments
# go to Orvane instead of the default.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/setup.sh
cmake -S . -B build -G Ninja -DORV_WERROR=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target orvane rt_standin download_site
tools/build_data.sh build
if [ $# -eq 0 ]; then set -- --seconds 40; fi
rm -f build/download_site.port
build/tools/download_site/download_site --root build/download_site --port-file build/download_site.port \
  >build/download_site.log &
site=$!
build/tools/rt_standin/rt_standin --no-link --play tests/data/recordings/eddf_midday.txt >/dev/null &
standin=$!
trap 'kill $standin $site 2>/dev/null || true' EXIT
for _ in $(seq 50); do [ -f build/download_site.port ] && break; sleep 0.1; done
build/orvane --download-site "http://127.0.0.1:$(cat build/download_site.port)/" "$@"
