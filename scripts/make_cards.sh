#!/bin/sh
# Makes docs/cards.md anew from the release build, after a change of what a card keeps. The tests hold the page to it.
set -eu
cd "$(dirname "$0")/.."
cmake --preset release -DCONVERTNASTRAN_TESTS=ON >/dev/null
cmake --build --preset release --target make_cards
build/release/bin/make_cards >build/cards.md
mv build/cards.md docs/cards.md
