#!/usr/bin/env bash
# Takes a picture of every form of the Player, on the screens and font densities that it is made for, into FOLDER
# (build/release/screenshots by default). Installs what is missing and builds first.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/${PRESET:-release}
folder=${1:-$build/screenshots}
scripts/install-dependencies.sh --test
cmake --preset "${PRESET:-release}" > /dev/null
cmake --build --preset "${PRESET:-release}"

mkdir -p "$folder"
for screen in "1024x600 1" "1024x768 1" "1920x1080 1" "3840x2160 2"; do
    read -r size scale <<< "$screen"
    for dpi in 96 120; do
        /usr/bin/python3 -B tests/e2e/screenshots.py "$build" "$folder/$size-$dpi" \
            "$size" "$scale" "$dpi" 2> "$folder/$size-$dpi.log"
    done
done
