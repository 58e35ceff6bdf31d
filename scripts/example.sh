#!/bin/sh
# Sets up, builds and converts an example.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset release -DCONVERTNASTRAN_TESTS=OFF
cmake --build --preset release
mkdir -p build/example
cp examples/grids.dat build/example/
build/release/bin/nas2zdt build/example/grids.dat
echo "--- build/example/grids.zdt"
cat build/example/grids.zdt
