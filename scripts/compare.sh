#!/bin/sh
# Converts the examples, decks out of chance and decks that are long enough for threads with the commands of two builds:
# compare.sh BUILD BUILD [COUNT]
# Files, logs, failures and exit statuses must be the same, the first build with one thread and the second with one, two
# and eight.
set -eu
first=$(cd "$1" && pwd)/bin
second=$(cd "$2" && pwd)/bin
count=${3:-200}
examples=$(cd "$(dirname "$0")/../examples" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/decks" "$work/long"
cp "$examples"/*.dat "$work/decks/"
"$first/make_decks" "$work/decks" "$count"
for order in ascending shuffled scattered; do
    "$first/nas2zdt-deckgen" --cards 100000 --ids $order --format mixed -o "$work/long/$order.dat"
done

run() { # run COMMAND THREADS DECKS: what came of each deck, in the folder of that name
    rm -rf "${work:?}/run"
    mkdir "$work/run"
    cp "$work/$3"/*.dat "$work/run/"
    printf 'BEGIN BULK\nGRID,501,,1.,2.,3.\nENDDATA\n' >"$work/run/A.DAT"
    printf 'BEGIN BULK\nGRID,502,,1.,2.,3.\nENDDATA\n' >"$work/run/B.DAT"
    (
        cd "$work/run"
        for deck in *.dat; do
            result=0
            CONVERTNASTRAN_THREADS=$2 "$1" "$deck" >"$deck.out" 2>"$deck.err" || result=$?
            echo "$result" >"$deck.result"
        done
    )
}
compare() { # compare DECKS THREADS...
    decks=$1
    shift
    run "$first/nas2zdt" 1 "$decks"
    mv "$work/run" "$work/$decks.first"
    for threads; do
        run "$second/nas2zdt" "$threads" "$decks"
        diff -r "$work/$decks.first" "$work/run"
    done
    converted=$(cat "$work/$decks.first"/*.result | grep -c '^0$')
    echo "the same for $(cat "$work/$decks.first"/*.result | wc -l) decks, of which $converted were converted"
}
compare decks 1 # too short for threads
compare long 1 2 8
