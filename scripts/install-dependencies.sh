#!/usr/bin/env bash
# Installs the Debian packages that are missing. --test adds what only the tests need.
set -euo pipefail

packages=(
    cmake g++ ninja-build pkg-config
    libarchive-dev libpugixml-dev libsqlite3-dev libcurl4-openssl-dev nlohmann-json3-dev
    libcli11-dev
    qt6-base-dev qt6-svg-dev libgl-dev
    libsdl2-mixer-dev libvorbis-dev
    librsvg2-bin imagemagick python3 python3-numpy vorbis-tools
    libfluidsynth3 musescore-general-soundfont-small
    libchm-dev libxml2-dev fp-utils-3.2.2
    fonts-comic-neue fonts-quicksand fonts-dejavu-core fonts-droid-fallback fonts-noto-color-emoji
)
if [ "${1:-}" = "--test" ]; then
    packages+=(
        libgtest-dev libgmock-dev libbenchmark-dev libebur128-dev ccache
        xvfb xserver-xephyr x11-xserver-utils openbox xdotool dbus at-spi2-core python3-gi gir1.2-atspi-2.0
        libarchive-tools ziptool python3-aiosmtpd openssl
    )
fi

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then as_root=(sudo); fi
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
