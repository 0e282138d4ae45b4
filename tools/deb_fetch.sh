# Shell functions that fetch pinned Debian packages into a cache without installing them.
# Sourced by tools/build_data.sh and tools/scenario/fetch_sources.sh; needs $cache and $sudo.

# apt-get download PKG=VERSION into a folder; with an old package list, update it once and retry.
download_deb() {
  local package=$1 folder=$2
  (cd "$folder" && apt-get download -q "$package" 2>/dev/null) && return 0
  echo "fetch: updating the package lists"
  $sudo apt-get update -qq
  (cd "$folder" && apt-get download -q "$package")
}

# fetch_deb PACKAGE NAME [PATHS...]: unpacks the package (or only PATHS of it) into $cache/deb/NAME.
# Each NAME downloads into a folder of its own, so that two fetches never meet.
fetch_deb() {
  local package=$1 name=$2
  shift 2
  local stamp="$cache/deb/$name/.done-${package//[:=~+]/_}${*:+-$(printf '%s' "$*" | cksum | cut -d' ' -f1)}"
  [ -f "$stamp" ] && return 0
  echo "fetch: apt-get download $package"
  local download="$cache/deb/download-$name"
  rm -rf "$cache/deb/$name" "$download"
  mkdir -p "$cache/deb/$name" "$download"
  download_deb "$package" "$download"
  local deb
  deb=$(ls "$download"/*.deb)
  if [ $# -eq 0 ]; then
    dpkg-deb -x "$deb" "$cache/deb/$name"
  else
    dpkg-deb --fsys-tarfile "$deb" | tar -x -C "$cache/deb/$name" --wildcards "$@"
  fi
  rm -rf "$download"
  touch "$stamp"
}
