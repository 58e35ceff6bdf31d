#!/bin/sh
# Sets up, builds and passes all tests, in the release and in the sanitize build, which must convert alike; or in the
# presets that are named alone: test.sh [PRESET...]
set -eu
cd "$(dirname "$0")/.."
presets=${*:-release sanitize}
scripts/setup.sh
for preset in $presets; do
    cmake --preset "$preset" -DCONVERTNASTRAN_TESTS=ON
    cmake --build --preset "$preset"
    ctest --preset "$preset" --parallel "$(nproc)"
done
[ $# -gt 0 ] || scripts/compare.sh build/release build/sanitize
