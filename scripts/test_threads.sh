#!/bin/sh
# Runs what works on several threads under ThreadSanitizer: the tests of threads, and a deck that is long enough for all
# of them, with every table that is made beside the conversion.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset tsan >/dev/null
cmake --build --preset tsan --target driver_test check_test nas2zdt nas2zdt-deckgen
bin=$PWD/build/tsan/bin
export TSAN_OPTIONS=halt_on_error=1
"$bin/driver_test" --gtest_filter='Threads.*:Pieces.*' --gtest_brief=1
"$bin/check_test" --gtest_filter='*Relay*' --gtest_brief=1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$bin/nas2zdt-deckgen" --cards 100000 --format mixed -o "$folder/deck.dat"
for threads in 2 4; do
    "$bin/nas2zdt" --threads $threads --account --check --no-warnings "$folder/deck.dat" >"$folder/told.$threads" || [ $? = 4 ]
done
cmp "$folder/told.2" "$folder/told.4"
