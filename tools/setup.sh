#!/usr/bin/env bash
# Installs the Debian packages that the build needs, only when one is missing; packages named
# as arguments join them (tools/fuzz.sh asks for clang).
# Non-interactive and idempotent: a machine that has everything runs no apt at all.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  libfmt-dev libpugixml-dev nlohmann-json3-dev
  libsodium-dev libcurl4-openssl-dev libzip-dev libcpp-httplib-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  python3 python3-cairo
  "$@"
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
