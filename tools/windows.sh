#!/usr/bin/env bash
# The Windows build, made on this Debian machine: installs the mingw-w64 toolchain and Wine,
# cross-builds the libraries from their Debian source packages (the versions the Linux build
# uses) into build-win-deps/<name>-<version>/, builds Orvane.exe and the Windows test programs in
# build-win/, runs the tests under Wine, makes a smoke run of Orvane.exe against the Linux
# rt_standin, and packs build-win/Orvane-<version>-win64.zip.
#   tools/windows.sh              all of it
#   tools/windows.sh --build      install, libraries and build only
# A library folder that is complete is never built again; delete it to rebuild it.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
deps=$root/build-win-deps
build=$root/build-win
triple=x86_64-w64-mingw32
jobs=2
smoke_seconds=60

mode=all
case "${1:-}" in
  --build) mode=build ;;
  "") ;;
  *) echo "usage: $0 [--build]" >&2; exit 2 ;;
esac

sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
export DEBIAN_FRONTEND=noninteractive

log() { echo "== $*"; }

# --- What the machine needs -------------------------------------------------------------------

install_packages() {
  # The Linux build's packages first: their versions name the sources below, and the smoke run
  # needs the Linux rt_standin.
  tools/setup.sh
  local packages=(g++-mingw-w64-x86-64-posix mingw-w64-tools libz-mingw-w64-dev wine64 dpkg-dev
    autoconf automake libtool pkg-config zip unzip python3)
  local missing=()
  for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
      missing+=("$p")
    fi
  done
  if [ ${#missing[@]} -gt 0 ]; then
    log "Installing: ${missing[*]}"
    $sudo apt-get update -qq
    $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
  fi
}

# apt-get source needs source indexes; Debian images often list binary packages only.
enable_sources() {
  if grep -rqsE '^(Types:.*deb-src|deb-src )' /etc/apt/sources.list /etc/apt/sources.list.d/; then
    return
  fi
  log "Enabling Debian source packages"
  if [ -f /etc/apt/sources.list.d/debian.sources ]; then
    sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/debian.sources |
      $sudo tee /etc/apt/sources.list.d/debian-src.sources >/dev/null
  else
    sed -n 's/^deb /deb-src /p' /etc/apt/sources.list | $sudo tee /etc/apt/sources.list.d/debian-src.list >/dev/null
  fi
  $sudo apt-get update -qq
}

# The source package and version behind an installed Linux package: "<source> <version>".
source_of() { dpkg-query -W -f='${source:Package} ${source:Version}\n' "$1"; }

# Unpacks a Debian source package (with Debian's patches) into $2; prints the folder.
fetch_source() {
  local package=$1 version=$2 into=$3
  mkdir -p "$into"
  (cd "$into" && apt-get source -qq "$package=$version" >/dev/null 2>&1) || {
    echo "apt-get source $package=$version failed" >&2
    return 1
  }
  find "$into" -mindepth 1 -maxdepth 1 -type d | head -n 1
}

# --- The libraries ----------------------------------------------------------------------------

prefixes=()

# Runs "build_<name> <source folder> <prefix>" once per version; the stamp marks a whole install.
library() {
  local name=$1 version=$2 source_package=$3
  local prefix=$deps/$name-$version
  prefixes+=("$prefix")
  if [ -f "$prefix/.complete" ]; then return; fi
  log "Cross-building $name $version"
  local started=$SECONDS
  rm -rf "$prefix" "$deps/src/$name-$version"
  local src
  if [ -n "$source_package" ]; then
    src=$(fetch_source "$source_package" "$version" "$deps/src/$name-$version")
  else
    src=""
  fi
  "build_$name" "$src" "$prefix"
  rm -rf "$deps/src/$name-$version"
  touch "$prefix/.complete"
  log "$name $version: $((SECONDS - started)) s"
}

cmake_cross() {
  local src=$1 prefix=$2
  shift 2
  cmake -S "$src" -B "$src/build-win" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/tools/mingw-w64-x86_64.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF "$@" >/dev/null
  cmake --build "$src/build-win" -j "$jobs" >/dev/null
  cmake --install "$src/build-win" >/dev/null
}

build_pugixml() { cmake_cross "$1" "$2" -DPUGIXML_BUILD_TESTS=OFF; }

build_libsodium() {
  local src=$1 prefix=$2
  # Debian's source has no generated configure; its own build runs autoreconf too.
  (cd "$src" && autoreconf -fi >/dev/null 2>&1 && ./configure -q --host=$triple --prefix="$prefix" --disable-shared --enable-static \
    CC=$triple-gcc-posix CFLAGS="-O2" >/dev/null && make -s -j "$jobs" >/dev/null && make -s install >/dev/null)
  # A static libsodium needs SODIUM_STATIC in every user, or its header asks for DLL imports.
  sed -i 's/^Cflags: \(.*\)$/Cflags: \1 -DSODIUM_STATIC/' "$prefix/lib/pkgconfig/libsodium.pc"
}

build_curl() {
  # Schannel, Windows' own TLS, and nothing else from outside.
  cmake_cross "$1" "$2" -DBUILD_CURL_EXE=OFF -DBUILD_TESTING=OFF -DENABLE_MANUAL=OFF \
    -DCURL_USE_SCHANNEL=ON -DCURL_USE_OPENSSL=OFF -DCURL_ZLIB=OFF -DCURL_BROTLI=OFF -DCURL_ZSTD=OFF \
    -DUSE_NGHTTP2=OFF -DUSE_LIBIDN2=OFF -DCURL_USE_LIBSSH2=OFF -DCURL_USE_LIBSSH=OFF \
    -DCURL_USE_GSSAPI=OFF -DENABLE_ARES=OFF -DCURL_DISABLE_LDAP=ON -DCURL_DISABLE_LDAPS=ON \
    -DCURL_CA_BUNDLE=none -DCURL_CA_PATH=none
}

build_googletest() {
  # Debian ships GoogleTest as source in /usr/src/googletest.
  local src=$deps/src/googletest
  rm -rf "$src"
  cp -r /usr/src/googletest "$src"
  cmake_cross "$src" "$2" -DINSTALL_GTEST=ON -Dgtest_disable_pthreads=OFF
  rm -rf "$src"
}

# Header-only libraries: the headers of the Linux build's packages and a CMake package file that
# names the same targets as theirs.
header_only() {
  local prefix=$1 package=$2 target=$3 definitions=$4
  shift 4
  mkdir -p "$prefix/include" "$prefix/lib/cmake/$package"
  for dir in "$@"; do cp -r "/usr/include/$dir" "$prefix/include/"; done
  cat >"$prefix/lib/cmake/$package/$package-config.cmake" <<EOF
if(NOT TARGET $target)
  add_library($target INTERFACE IMPORTED)
  set_target_properties($target PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES "\${CMAKE_CURRENT_LIST_DIR}/../../../include"
    INTERFACE_COMPILE_DEFINITIONS "$definitions")
endif()
EOF
}
build_fmt() { header_only "$2" fmt fmt::fmt "FMT_HEADER_ONLY=1" fmt; }
build_nlohmann_json() { header_only "$2" nlohmann_json nlohmann_json::nlohmann_json "" nlohmann; }

build_libraries() {
  mkdir -p "$deps"
  # Each library, the Linux build's package whose source version it takes, and whether its
  # Debian source package is fetched (the others come from installed files).
  local libraries=("pugixml libpugixml-dev fetch" "libsodium libsodium-dev fetch" "curl libcurl4-openssl-dev fetch"
    "googletest libgtest-dev installed" "fmt libfmt-dev installed" "nlohmann_json nlohmann-json3-dev installed")
  local entry name linux from package version
  for entry in "${libraries[@]}"; do
    read -r name linux from <<<"$entry"
    read -r package version < <(source_of "$linux")
    if [ "$from" != fetch ]; then package=""; fi
    library "$name" "$version" "$package"
  done
}

# --- Orvane -----------------------------------------------------------------------------------

build_orvane() {
  log "Building Orvane.exe and the Windows tests"
  local started=$SECONDS
  cmake -S . -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/tools/mingw-w64-x86_64.cmake" \
    -DORV_WIN_PREFIXES="$(IFS=';'; echo "${prefixes[*]}")" -DORV_WERROR=ON -DORV_BUILD_BENCH=OFF \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O2 -DNDEBUG" >/dev/null
  # Test discovery runs the test programs; Wine must be ready before.
  start_wine
  cmake --build "$build" -j "$jobs"
  log "Build: $((SECONDS - started)) s"
}

wine_program() { grep -m1 '^ORV_WINE:' "$build/CMakeCache.txt" | cut -d= -f2-; }

# The first start of a Wine prefix makes it (slow); a persistent server keeps later starts quick.
start_wine() {
  export WINEPREFIX=$build/wine WINEDEBUG=-all
  local wine
  wine=$(wine_program)
  if [ ! -f "$WINEPREFIX/system.reg" ]; then log "Preparing the Wine prefix"; fi
  "$wine" cmd /c exit >/dev/null 2>&1 || true
  "$(dirname "$wine")/wineserver" -p 600 >/dev/null 2>&1 || true
}

# Ends the persistent server of the build's Wine prefix, so that nothing of Wine outlives the script.
stop_wine() {
  if [ -n "${WINEPREFIX:-}" ] && [ -f "$build/CMakeCache.txt" ]; then
    "$(dirname "$(wine_program)")/wineserver" -k >/dev/null 2>&1 || true
  fi
}

# Left out under Wine: a stop requested while the run waits for the first feed report, after
# the readers have started, does not end the process within 20 s there (it does on Linux); the
# whole app_tests binary in shuffled orders holds the same case.
wine_exclusions='^(ProcessRun\.AStopDuringAnyWaitReachesClosingDownWithinOneWaitPeriod|app_tests\.shuffled\..*)$'

run_tests() {
  log "Windows tests under Wine"
  local started=$SECONDS
  ctest --test-dir "$build" --output-on-failure -j "$jobs" --timeout 300 -E "$wine_exclusions"
  log "Tests: $((SECONDS - started)) s"
}

# --- Reference data, smoke run, package -------------------------------------------------------

# The reference data are the same files on every system: the Linux tools build them (build/).
linux_tools() {
  cmake -S . -B build -G Ninja -DORV_WERROR=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
  cmake --build build --target rt_standin encrypt_data check_data -j "$jobs" >/dev/null
  tools/build_data.sh build
}

project_version() { grep -m1 '^CMAKE_PROJECT_VERSION:' "$build/CMakeCache.txt" | cut -d= -f2-; }

# The folder as a user unpacks it: the program, its manual, the reference data, the licence.
stage_package() {
  local stage=$1
  rm -rf "$stage"
  mkdir -p "$stage/input"
  # Without the symbols of the static libraries: the user needs none.
  x86_64-w64-mingw32-strip -o "$stage/Orvane.exe" "$build/Orvane.exe"
  cp -r docs "$stage/docs"
  cp build/input/dbase.enc build/input/airports.enc build/input/ICAO_airports.txt "$stage/input/"
  cp LICENSE "$stage/LICENSE.txt"
}

# Orvane.exe under Wine in an unpacked package, with the stand-in simulator, while the Linux
# rt_standin plays the Frankfurt recording to it over loopback, answers its link, and now and
# then sends a broken line, which the decoder must log and pass over.
smoke_run() {
  log "Smoke run: Orvane.exe under Wine for $smoke_seconds s"
  local work=$build/smoke
  stage_package "$work"
  # The livery catalogue and the titles the stand-in knows, as a scan would have left them, so that
  # the recorded traffic becomes aircraft.
  mkdir -p "$work/output"
  cp build/output/LiveriesScanned.xml "$work/output/"
  cp build/input/standin_titles.json "$work/input/"
  # RealTraffic counts as installed when its jar is in the AppData folder: the link then runs.
  mkdir -p "$work/appdata/InsideSystems"
  touch "$work/appdata/InsideSystems/RealTraffic.jar"
  build/tools/rt_standin/rt_standin --play tests/data/recordings/eddf_midday.txt --loop --malformed-every 20 \
    >"$build/smoke-rt_standin.txt" 2>&1 &
  local standin=$!
  local rc=0
  (cd "$work" && ORVANE_APPDATA="$work/appdata" timeout $((smoke_seconds + 120)) "$(wine_program)" Orvane.exe \
    --scenario "$root/platform/simconnect/scenarios/default_eddf.json" --seconds "$smoke_seconds" \
    >"$build/smoke-stdout.txt" 2>&1) || rc=$?
  kill "$standin" 2>/dev/null || true
  wait "$standin" 2>/dev/null || true
  local failed=0
  if [ "$rc" -ne 0 ]; then echo "Orvane.exe ended with $rc" >&2; failed=1; fi
  # The dbase counts, the simulator, the link, both readers, and decoded traffic: a broken
  # line logged, and the first report's time taken (else the run logs "No traffic ...").
  local expected=("ICAO model codes" "dbase records read" "SimConnect served by the stand-in simulator"
    "MSFS 2020 (11.0.282174.999) connected" "RealTraffic connected" "QNH Reader connected"
    "Traffic Reader connected" "exception in processLineSub: " "liveries read from output/LiveriesScanned.xml"
    "Exiting: USER CLOSED SIM")
  for text in "${expected[@]}"; do
    if ! grep -qF "$text" "$work/Log.txt"; then echo "Log.txt lacks: $text" >&2; failed=1; fi
  done
  if grep -qF "No traffic in this region?" "$work/Log.txt"; then echo "No traffic was decoded" >&2; failed=1; fi
  # A spawned aircraft's line ends with the step of its livery match and its title.
  if ! grep -qE " =[0-9]= " "$work/Log.txt"; then echo "No aircraft was spawned" >&2; failed=1; fi
  # The link is ours (the ports are the standard ones): rt_standin saw its requests.
  for text in "Qs999 version request: replied" "Qs121 position" "exit: Orvane is closing down"; do
    if ! grep -qF "$text" "$build/smoke-rt_standin.txt"; then echo "rt_standin did not see: $text" >&2; failed=1; fi
  done
  if [ "$failed" -ne 0 ]; then
    echo "--- Log.txt" >&2
    cat "$work/Log.txt" >&2 || true
    return 1
  fi
  log "Smoke run passed: exit code 0, Log.txt in $work"
}

package() {
  local version name
  version=$(project_version)
  name=Orvane-$version-win64
  stage_package "$build/package/$name"
  rm -f "$build/$name.zip"
  (cd "$build/package" && zip -qr "$build/$name.zip" "$name")
  log "Package: $build/$name.zip"
}

main() {
  local started=$SECONDS
  trap stop_wine EXIT
  install_packages
  enable_sources
  build_libraries
  build_orvane
  if [ "$mode" = all ]; then
    run_tests
    linux_tools
    smoke_run
    package
  fi
  log "tools/windows.sh: $((SECONDS - started)) s"
}

main
