#!/usr/bin/env bash
# Installs what is missing, builds the Player and starts it with its games ready to play.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh
cmake --preset release -DTABULON_TESTS=OFF > /dev/null
cmake --build --preset release
build/release/bin/tabulon-setup
exec build/release/bin/tabulon-player
