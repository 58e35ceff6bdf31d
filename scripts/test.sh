#!/bin/sh
# Sets up, builds and passes all tests, in the release and in the sanitize build, which must convert alike.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh
for preset in release sanitize; do
    cmake --preset "$preset" -DCONVERTNASTRAN_TESTS=ON
    cmake --build --preset "$preset"
    ctest --preset "$preset" --parallel "$(nproc)"
done
scripts/compare.sh build/release build/sanitize
