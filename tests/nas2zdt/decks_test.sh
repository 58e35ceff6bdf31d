#!/bin/sh
# Many decks on one command line. Usage: decks_test.sh NAS2ZDT FOLDER-OF-ODD-LIBRARIES
# shellcheck source=tests/support/command.sh
. "$(dirname "$0")/../support/command.sh"
odd=$2

printf 'BEGIN BULK\nGRID,1\nENDDATA\n' >good.deck
printf 'BEGIN BULK\nGRID,1\nRBAR,7\nENDDATA\n' >lossy.deck
printf 'BEGIN BULK\nINCLUDE,none.inc\nENDDATA\n' >bad.deck
awk 'BEGIN { print "BEGIN BULK"; for (i = 1; i < 30000; ++i) print "GRID," i ",,1.5\nRBAR,7"; print "ENDDATA" }' >big.deck

# ---- which decks a command line names, in which order
mkdir -p tree/b/deep tree/.hidden tree/c odd
for deck in tree/a.dat tree/b.x tree/b/B.BDF tree/b/deep/z.nas tree/b/deep/note.txt tree/b-1.blk tree/.hidden/no.dat tree/c/.no.dat \
    one.dat odd/@list odd/#no.dat; do cp good.deck "$deck"; done
cp good.deck tree/result.zdt
ln -s .. tree/b/deep/round
ln -s ../../one.dat tree/c/link.dat
printf '\357\273\277one.dat\r\n# a comment\r\n\r\n \nodd/@list\ntree/a.dat' >list
printf 'tree\n' >folders
mkdir results
: >empty
all="tree/a.dat tree/b-1.blk tree/b/B.BDF tree/b/deep/z.nas tree/c/link.dat"
while IFS='|' read -r name status args decks; do
    rm -f results/*
    # shellcheck disable=SC2086 # several arguments
    expect "$name" "$status" -o results --no-warnings --account=jsonl $args
    given=$(sed 's/.*"deck":"\([^"]*\)".*/\1/' out | tr '\n' ' ')
    [ "$given" = "$decks${decks:+ }" ] || fail "$name: $given"
done <<END
a folder|0|-r tree|$all
a folder and a deck behind it|0|--recursive tree odd/@list|$all odd/@list
a folder of a folder|0|-r tree tree/b|$all
other extensions|0|-r --extensions X,.TXT tree|tree/b.x tree/b/deep/note.txt
a folder without the option|1|tree|tree
no decks in a folder|1|-r --extensions none tree|
a list|0|@list|one.dat odd/@list tree/a.dat
a list of folders|0|-r @folders|$all
a list, folders and a deck|1|one.dat -r tree/b @list|one.dat tree/b/B.BDF tree/b/deep/z.nas one.dat odd/@list tree/a.dat
an empty list|1|@empty|
no list|1|@none|
a name like a list|0|./odd/@list|./odd/@list
a name like a comment|0|odd/#no.dat|odd/#no.dat
a name behind --|1|-- @list|@list
results as decks|2|-r --extensions dat,ZDT tree|
a file for a list of one|2|-o x.zdt @folders|
END
"$nas2zdt" -q -o results @- <list 2>err || fail "a list from standard input"
[ "$(echo results/*)" = "results/@list.zdt results/a.zdt results/one.zdt" ] || fail "a list from standard input: its results"
expect "two forms" 2 --account=json --check=jsonl one.dat
expect "outputs that no note has" 2 --resume --view-cases cases one.dat

# ---- whatever is converted at a time, all is told in the order of the list
mkdir many
for i in 1 2 3 4 5 6; do
    cp big.deck many/$i-big.dat
    cp good.deck many/$i-good.dat
    cp lossy.deck many/$i-lossy.dat
    cp bad.deck many/$i-bad.dat
done
for args in "" "-q --strict" "--account" "--account=json --check=json" "--check=jsonl" "--log many.log" "--view-cases cases"; do
    for jobs in 1 2 5; do
        rm -f many/*.zdt
        # shellcheck disable=SC2086 # several arguments
        expect "many decks $args, $jobs at a time" 1 $args -r many --jobs $jobs
        [ ! -e many.log ] || cat many.log >>out
        rm -f many.log
        cat many/*.zdt >>out
        if [ $jobs -eq 1 ]; then cp out one.out && cp err one.err; fi
        for told in out err; do
            cmp $told one.$told || fail "many decks $args: $jobs at a time are told otherwise than one"
        done
    done
done
[ "$(find many -name '*.zdt' | wc -l)" -eq 18 ] || fail "the results of many decks"
expect "one JSON object" 1 --account=json -r many
if command -v python3 >/dev/null; then
    python3 - <<'END' || fail "JSON of many decks"
import json
decks = json.load(open("out"))["decks"]
assert [d["deck"] for d in decks] == sorted(d["deck"] for d in decks) and len(decks) == 24
assert [d["deck"] for d in decks if d["error"]] == [f"many/{i}-bad.dat" for i in range(1, 7)]
END
fi

# ---- the closing line
while IFS='|' read -r args line; do
    # shellcheck disable=SC2086 # several arguments
    expect "counts: $args" 1 $args -r many
    [ "$(cat out err | grep -c ' converted, ')" -eq "$([ -z "$line" ] && echo 0 || echo 1)" ] || fail "counts: $args"
    [ -z "$line" ] || [ "$(tail -n 1 "${line%%:*}")" = "${line#*:}" ] || fail "counts: $args: the line"
done <<END
--no-warnings --jobs 1|out:18 converted, 6 failed
--jobs 2|out:18 converted, 6 failed, 12 with losses in the model
--allow RBAR|out:18 converted, 6 failed, 0 with losses in the model
--account=jsonl|err:nas2zdt: 18 converted, 6 failed, 12 with losses in the model
-q|
END
expect "no counts of one deck" 0 one.dat
! grep -q ' converted, ' out || fail "no counts of one deck"

# ---- what ends the process of a deck is that deck's failure
mkdir ends
cp "$nas2zdt" ends/nas2zdt
cp "$odd/trap/Convertmsg.DLL" ends
whole=$nas2zdt nas2zdt=ends/nas2zdt
for jobs in 1 3; do
    rm -f many/*.zdt
    expect "processes that end" 1 --jobs $jobs --account=jsonl many/1-good.dat many/2-lossy.dat many/3-good.dat many/3-lossy.dat many/4-good.dat
    grep -q '^nas2zdt: many/2-lossy.dat: its process ended ' err || fail "a process that ends is told"
    [ "$(tail -n 1 err)" = "nas2zdt: 3 converted, 2 failed, 0 with losses in the model" ] || fail "the others are converted"
    [ "$(sed 's/.*"deck":"\([^"]*\)".*"error":\(.\).*/\1\2/' out | tr '\n' ' ')" = \
        'many/1-good.datn many/2-lossy.dat" many/3-good.datn many/3-lossy.dat" many/4-good.datn ' ] || fail "JSON of processes that end"
done
nas2zdt=$whole

# ---- no deck's result replaces what an earlier one has read
printf 'GRID,1\n' >PART.ZDT
printf 'BEGIN BULK\nINCLUDE,PART.ZDT\nENDDATA\n' >reads.dat
ln -s PART.ZDT over.zdt
cp good.deck over.dat
for jobs in 1 2; do
    expect "a result over an include" 1 --jobs $jobs reads.dat over.dat
    grep -Fxq "nas2zdt: over.zdt: would overwrite the deck PART.ZDT" err || fail "a result over an include"
    [ "$(cat PART.ZDT)" = GRID,1 ] || fail "an include that a result would replace"
done

# ---- resuming: each step changes something, and tells how many decks are converted and skipped then
mkdir again
cp good.deck again/good.dat
cp lossy.deck again/lossy.dat
cp bad.deck again/bad.dat
printf 'BEGIN BULK\nINCLUDE,PART.INC\nENDDATA\n' >again/outer.dat
printf 'GRID,2\n' >part.inc
touch -d '2001-02-03 04:05' again/*.dat part.inc
while IFS='|' read -r name change args counts; do
    sh -c "$change"
    # shellcheck disable=SC2086 # several arguments
    expect "resuming: $name" 1 --jobs 2 --no-warnings --resume $args -r again
    [ "$(tail -n 1 out)" = "$counts skipped" ] || fail "resuming: $name"
done <<END
the first run|:||3 converted, 1 failed, 0
nothing changed|:||0 converted, 1 failed, 3
ways that don't matter|:|--threads 2 --jobs 1|0 converted, 1 failed, 3
a result that is gone|rm again/good.zdt||1 converted, 1 failed, 2
a result that was changed|echo >>again/good.zdt||1 converted, 1 failed, 2
a result that was made otherwise|:|--flatten|3 converted, 1 failed, 0
a kind that is allowed|:|--allow X|3 converted, 1 failed, 0
another kind|:|--allow Y|3 converted, 1 failed, 0
made as before|:||3 converted, 1 failed, 0
a deck that was changed|touch -d '2001-02-03 04:06' again/lossy.dat||1 converted, 1 failed, 2
a deck that is older now|touch -d '2001-02-03 04:00' again/lossy.dat||1 converted, 1 failed, 2
an include that was changed|touch -d '2001-02-03 04:06' part.inc||1 converted, 1 failed, 2
an include that changes too lately|touch part.inc||1 converted, 1 failed, 2
and so isn't noted|:||1 converted, 1 failed, 2
a note that was cut off|printf nas2zdt >again/good.zdt.made; touch -d '2001-02-03 04:06' part.inc||2 converted, 1 failed, 1
a result that another run made|cp again/good.zdt x; mv x again/good.zdt||1 converted, 1 failed, 2
all as it was|:||0 converted, 1 failed, 3
END
expect "losses that fail aren't done" 3 -q --strict --resume again/lossy.dat again/good.dat
expect "losses that fail again" 3 --strict --resume again/lossy.dat again/good.dat
[ "$(tail -n 1 out)" = "1 converted, 0 failed, 1 with losses in the model, 1 skipped" ] || fail "losses that fail again"

# ---- an interrupted run leaves whole results alone
mkdir lots # of decks, so that the signal comes in time
for i in $(seq 60); do cp big.deck "lots/$i.dat"; done
expect "a whole result" 0 -q --no-warnings -o results/big.zdt lots/1.dat
for signal in TERM HUP; do
    rm -f lots/*.zdt
    "$nas2zdt" -q --jobs 2 -r lots >out 2>err &
    while kill -0 $! 2>/dev/null && [ -z "$(find lots -name '.nas2zdt-*')" ]; do :; done # a result is being written
    kill -$signal $! 2>/dev/null || true
    got=0
    { wait $! || got=$?; } 2>/dev/null
    [ "$got" -gt 128 ] || fail "$signal: exit status $got"
    [ -z "$(find lots -name '.nas2zdt-*')" ] || fail "$signal: something is left behind"
    for result in lots/*.zdt; do
        [ ! -e "$result" ] || cmp "$result" results/big.zdt || fail "$signal: $result isn't whole"
    done
done
echo "1 passed, 0 failed"
