#!/bin/sh
# Converts the examples and decks out of chance with the commands of two builds: compare.sh BUILD BUILD [COUNT]
# Files, logs, failures and exit statuses must be the same.
set -eu
first=$(cd "$1" && pwd)/bin
second=$(cd "$2" && pwd)/bin
count=${3:-200}
examples=$(cd "$(dirname "$0")/../examples" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/decks" "$work/first" "$work/second"
cp "$examples"/*.dat "$work/decks/"
"$first/make_decks" "$work/decks" "$count"
printf 'BEGIN BULK\nGRID,501,,1.,2.,3.\nENDDATA\n' | tee "$work/first/A.DAT" >"$work/second/A.DAT"
printf 'BEGIN BULK\nGRID,502,,1.,2.,3.\nENDDATA\n' | tee "$work/first/B.DAT" >"$work/second/B.DAT"

run() { # run COMMAND FOLDER: what came of each deck
    cd "$2"
    cp "$work"/decks/*.dat .
    for deck in *.dat; do
        result=0
        "$1" "$deck" >"$deck.out" 2>"$deck.err" || result=$?
        echo "$result" >"$deck.result"
    done
}
(run "$first/nas2zdt" "$work/first")
(run "$second/nas2zdt" "$work/second")
diff -r "$work/first" "$work/second"
converted=$(cat "$work"/first/*.result | grep -c '^0$')
echo "the same for $(cat "$work"/first/*.result | wc -l) decks, of which $converted were converted"
