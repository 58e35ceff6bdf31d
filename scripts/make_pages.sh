#!/bin/sh
# Makes docs/cards.md and the table of docs/faithful.md anew from the release build, after a change of what a card keeps
# or of a rule of restating. The tests hold the pages to it.
set -eu
cd "$(dirname "$0")/.."
cmake --preset release -DCONVERTNASTRAN_TESTS=ON >/dev/null
cmake --build --preset release --target make_pages
build/release/bin/make_pages cards >build/cards.md
mv build/cards.md docs/cards.md
sed '/^## Rules$/q' docs/faithful.md >build/faithful.md
build/release/bin/make_pages rules >>build/faithful.md
mv build/faithful.md docs/faithful.md
