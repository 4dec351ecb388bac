#!/usr/bin/env bash
# Installs what the build needs (Debian 12, as root) and builds everything.
# Sourced by run.sh and test.sh; safe to run again at any time.
set -euo pipefail

PF_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
PF_BUILD=${PF_BUILD_DIR:-$PF_ROOT/build}

packages=(
    g++ cmake ninja-build ccache pkg-config
    qt6-base-dev qt6-5compat-dev qt6-multimedia-dev libqt6opengl6-dev qt6-qpa-plugins libgl-dev
    liblua5.2-dev libluabind-dev libboost-dev libuchardet-dev zlib1g-dev libpng-dev
    xvfb xauth x11-apps imagemagick xdotool
    adwaita-icon-theme libqt6svg6 qt6-l10n-tools qt6-tools-dev
    python3
)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$package")
    fi
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    if [ "$(id -u)" -ne 0 ]; then
        echo "Missing packages need root: run this as root, or install them first." >&2
        exit 1
    fi
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

cmake -S "$PF_ROOT" -B "$PF_BUILD" -G Ninja
cmake --build "$PF_BUILD"
