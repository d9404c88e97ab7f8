#!/usr/bin/env bash
# Installs the Debian/Ubuntu packages that building, running and testing Contavia need.
# Installs nothing when everything is already there; uses sudo when not run as root.
set -euo pipefail

packages=(
  cmake ninja-build g++ make pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-translations-l10n libgl-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang-format clang-tidy clang libclang-rt-dev
  fonts-liberation fonts-dejavu-core
  xvfb xauth xdotool imagemagick poppler-utils
  librsvg2-bin dpkg-dev time bc
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

echo "Installo i pacchetti mancanti: ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
  sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get -o DPkg::Lock::Timeout=300 update -q
$sudo apt-get -o DPkg::Lock::Timeout=300 install -y -q --no-install-recommends "${missing[@]}"
