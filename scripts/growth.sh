#!/bin/sh
# Builds the command and tells how its time grows on decks that were thought out to take long.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset release
cmake --build --preset release --target nas2zdt
exec python3 bench/growth.py build/release/bin/nas2zdt "$@"
