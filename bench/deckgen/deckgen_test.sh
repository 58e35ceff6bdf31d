#!/bin/sh
# Decks don't change by accident: figures taken with one can only be compared with figures taken with the same. Every
# kind of card in every format and order of ids, and a mix, have the checksum that they had when this was written; a
# generator that is changed on purpose changes it.
# usage: deckgen_test.sh NAS2ZDT-DECKGEN
set -eu
deckgen=$1
all() {
    for kind in $("$deckgen" --list); do
        for format in small large free mixed; do "$deckgen" --only "$kind" --cards 200 --format "$format" --ids scattered; done
        for ids in ascending shuffled sparse; do "$deckgen" --only "$kind" --cards 200 --ids "$ids" --seed 7; done
    done
    "$deckgen" --cards 5000 --format mixed \
        --mix grids=40,shells=20,bars=8,solids=5,springs=5,frames=2,loads=12,supports=5,sets=2,duplicates=1
    "$deckgen" --reference --scale 1
}
expected="3911187596 7631848"
sum=$(all | cksum)
[ "$sum" = "$expected" ] || { echo "checksum $sum, not $expected"; exit 1; }
[ "$("$deckgen" --list | wc -l)" -eq 66 ] || { echo "not all kinds of cards"; exit 1; }
if "$deckgen" --only NOTHING >/dev/null 2>&1; then echo "an unknown card was taken"; exit 1; fi
