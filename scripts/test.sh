#!/usr/bin/env bash
# Installs what is missing, builds everything and runs all tests: plain, and under AddressSanitizer and
# UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-dependencies.sh --test
export CCACHE_NOHASHDIR=1
export QT_ACCESSIBILITY=0

run() {
    local preset=$1
    shift
    echo "== $preset =="
    cmake --preset "$preset" > /dev/null
    cmake --build --preset "$preset"
    ctest --test-dir "build/$preset" --output-on-failure --parallel "$(nproc)" --timeout 300 "$@"
}

run dev
# Whole programs on a display take minutes, and have run above; the window's own tests run here too.
run asan --exclude-regex '^e2e\.'
