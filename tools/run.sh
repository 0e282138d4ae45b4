#!/usr/bin/env bash
# Installs what the build needs, builds Orvane, its reference data and the tools, and runs the
# demo: a busy half hour of scheduled traffic at Amsterdam Schiphol (generated from FlightGear's
# public schedules, tools/scenario), played ten times faster than real time through the
# RealTraffic stand-in into Orvane and its stand-in simulator, then the motion report and the
# map of the airport (tools/scenario/demo.sh). Options of the demo choose another airport, time
# and scale:
#   tools/run.sh [--airport ICAO] [--day mon..sun] [--time HH:MM] [--minutes M] [--time-scale N]
# `tools/run.sh --frankfurt [ORVANE OPTIONS]` runs the recorded Frankfurt traffic instead, headless
# for 40 seconds unless options are given.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/setup.sh
cmake -S . -B build -G Ninja -DORV_WERROR=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target orvane rt_standin download_site
tools/build_data.sh build
if [ "${1:-}" != "--frankfurt" ]; then
  exec tools/scenario/demo.sh "$@"
fi
shift
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
