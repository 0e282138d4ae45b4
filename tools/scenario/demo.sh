#!/usr/bin/env bash
# The demo behind tools/run.sh: generates the scheduled traffic of an airport for a window of the
# week, plays it faster than real time through rt_standin into Orvane, whose stand-in simulator
# stands the user's aircraft at that airport and writes its trace, then writes the motion report
# and the map of the airport and prints where they are. Expects the build (orvane, rt_standin,
# download_site) and the reference data in build/.
#
#   tools/scenario/demo.sh [--airport ICAO] [--day mon..sun] [--time HH:MM] [--minutes M] [--time-scale N]
set -euo pipefail
cd "$(dirname "$0")/../.."
airport=EHAM day=mon time=12:00 minutes=30 scale=10
while [ $# -gt 0 ]; do
  case $1 in
    --airport) airport=${2^^}; shift 2 ;;
    --day) day=$2; shift 2 ;;
    --time) time=$2; shift 2 ;;
    --minutes) minutes=$2; shift 2 ;;
    --time-scale) scale=$2; shift 2 ;;
    *) echo "demo: unknown option $1 (--airport, --day, --time, --minutes, --time-scale)" >&2; exit 2 ;;
  esac
done
python=/usr/bin/python3
[ -x "$python" ] || python=python3
export PYTHONDONTWRITEBYTECODE=1
out=build/scenario
rm -rf "$out" && mkdir -p "$out"
sources=$(tools/scenario/fetch_sources.sh)
$python tools/scenario/generate_scenario.py --sources "$sources" --airport "$airport" --day "$day" --time "$time" \
  --minutes "$minutes" --out "$out/recording.txt" --true "$out/true_paths.csv" --summary "$out/flights.json"
$python tools/scenario/standin_scenario.py "$out/flights.json" "$sources/flightgear-ai/Airports/$airport/parking.xml" \
  >"$out/standin.json"

rm -f build/download_site.port
build/tools/download_site/download_site --root build/download_site --port-file build/download_site.port \
  >build/download_site.log &
site=$!
standin=""
trap 'kill $site $standin 2>/dev/null || true' EXIT
for _ in $(seq 50); do [ -f build/download_site.port ] && break; sleep 0.1; done
# The program's start-up takes some seconds of wall time; the feed starts once it listens.
play_seconds=$($python -c "print(round($minutes * 60 / $scale + 0.5))")
start_wall=$(date +%s.%N)
build/orvane --download-site "http://127.0.0.1:$(cat build/download_site.port)/" --scenario "$(pwd)/$out/standin.json" \
  --time-scale "$scale" --seconds $((play_seconds + 40 + 15)) >"$out/orvane.out" 2>&1 &
orvane=$!
sleep 15
play_wall=$(date +%s.%N)
build/tools/rt_standin/rt_standin --no-link --play "$out/recording.txt" --time-scale "$scale" >"$out/rt_standin.log" &
standin=$!
echo "demo: $airport, $day $time UTC, $minutes minutes at $scale times real time: $play_seconds s of play"
wait $orvane || true
# Trace time is the simulator's, which began at the program's start; the recording began later.
delay=$($python -c "print(30 + ($play_wall - $start_wall) * $scale)")
$python tools/motion_report/motion_report.py build/output/standin_trace.csv --true "$out/true_paths.csv" \
  --parking "$sources/flightgear-ai/Airports/$airport/parking.xml" --runways "$sources/runways.dat" \
  --titles build/input/standin_titles.json --delay "$delay" --out "$out/report" | tail -n 25
echo "demo: report $out/report/report.txt, map $out/report/map.png (and map.svg), Orvane's log build/Log.txt"
