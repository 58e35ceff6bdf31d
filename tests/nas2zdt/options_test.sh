#!/bin/sh
# The command's options from a shell. Usage: options_test.sh NAS2ZDT
# shellcheck source=tests/support/command.sh
. "$(dirname "$0")/../support/command.sh"

# says NAME FILE TEXT: FILE must have a line that is TEXT
says() { grep -Fxq -- "$3" "$2" || fail "$1"; }

# silent NAME FILES...: they must be empty
silent() {
    name=$1
    shift
    for file; do [ ! -s "$file" ] || fail "$name: $file isn't empty"; done
}

printf '*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n' >one.expected
printf 'BEGIN BULK\nGRID,1\nENDDATA\n' >good.dat
printf 'BEGIN BULK\nGRID,1\nRBAR,7\nENDDATA\n' >lossy.dat
printf 'BEGIN BULK\nINCLUDE,none.inc\nENDDATA\n' >bad.dat
mkdir other results
cp good.dat other/good.dat

# ---- the command line
expect "no deck" 2
expect "version" 0 --version
grep -Eq '^nas2zdt [0-9]+\.[0-9]+' out || fail "version text"
expect "help fits a page" 0 --help
grep -q '^usage: nas2zdt' out || fail "help text"
[ "$(wc -l <out)" -le 44 ] || fail "help has more lines than a page"
[ "$(wc -L <out)" -le 96 ] || fail "help has lines that are too long"
for args in "--log" "--log= good.dat" "--strict=all good.dat" "--allow" "--allow= good.dat" "--account=xml good.dat" "--check=xml good.dat" "--tolerance 1 good.dat" "--check --tolerance -1 good.dat" "--check --tolerance 1x good.dat" "--quiet=1 good.dat" "-o" \
    "--limit" "--limit ranges good.dat" "--limit ranges=0 good.dat" "--threads 0 good.dat" "--limit ranges=5x good.dat" "--limit lines=5 good.dat" \
    "--limit decks=99999999999999999999 good.dat" "--limit =5 good.dat" "--restated x.dat good.dat" "--subcase 1 good.dat" "--super 1 good.dat" "--faithful --super x good.dat" \
    "--logical A=. good.dat" "--faithful --logical A good.dat" "--faithful --restated x.dat good.dat lossy.dat" "-o good.zdt good.dat lossy.dat" \
    "--case 1 good.dat" "--view x.svg --case x good.dat" "--view x.svg --colour red good.dat" "--colour loss good.dat" "--view x.svg good.dat lossy.dat"; do
    # shellcheck disable=SC2086 # several arguments
    expect "wrong usage: $args" 2 $args
    silent "wrong usage: $args" out
done
for pair in "--acount --account" "--ACCOUNT=json --account" "-check --check" "--vut=x.vtu --vtu" "--fatihful --faithful" \
    "--no-warning --no-warnings" "--account=jsno json" "--strict=ayn any" "--limit=rangs=5 ranges" "--limit=nnoe none"; do
    expect "misspelt: $pair" 2 "${pair% *}" good.dat
    grep -Fq -- "; did you mean ${pair#* }?" err || fail "misspelt: $pair"
done
for arg in --verbose --xyz=account -x --account=xml --limit=ranges=0 --tolerance=jsn; do
    expect "like nothing: $arg" 2 "$arg" good.dat
    ! grep -q "did you mean" err || fail "like nothing: $arg"
done
for option in -q -h -V; do expect "the short form $option" 0 $option good.dat; done
expect "a short form with a value" 2 -q=1 good.dat
expect "a deck behind --" 1 -- --quiet
grep -q '^nas2zdt: --quiet: ' err || fail "a deck that looks like an option"

# ---- without options
expect "a deck converts" 0 good.dat
says "the log on standard output" out "** Original File   : good.dat"
silent "a deck converts" err
cmp good.zdt one.expected || fail "the target file"
printf 'BEGIN BULK\nINCLUDE,loop.dat\nENDDATA\n' >loop.dat
expect "a deck that includes itself" 1 loop.dat
mkdir blocked.zdt
cp good.dat blocked.dat
expect "a target that can't be written" 1 blocked.dat
grep -q 'blocked.zdt' err || fail "name of the target"

# ---- nothing of the options changes a result or a log
expect "plain" 0 lossy.dat
mv out plain.log
mv lossy.zdt plain.zdt
expect "all" 0 --account lossy.dat
head -n "$(wc -l <plain.log)" out | cmp - plain.log || fail "the log with the account behind it"
cmp plain.zdt lossy.zdt || fail "the target file with an account"
warning="nas2zdt: lossy.dat: warning: model: 1 RBAR (reported: not converted)"
says "no progress without a terminal, but a warning" err "$warning"
[ "$(wc -l <err)" -eq 1 ] || fail "one line a class"
expect "flattened" 0 --flatten lossy.dat
cmp plain.zdt lossy.zdt || fail "the target file of a joined deck"
sed 's/(Line:3)/(Line:lossy.dat:3)/' plain.log | cmp - out || fail "the log of a joined deck"

# ---- check
printf 'CEND\nBEGIN BULK\nGRID,1\nGRID,2,,1.\nCROD,7,5,1,99\nPROD,5,1,1.\nMAT1,1,1.,,.3\nENDDATA\n' >broken.dat
expect "an error of a deck" 4 -q --no-warnings --check broken.dat
says "the error with its place" out "  CROD 7 (broken.dat:5): GRID 99 doesn't exist"
says "sums" out "    rods                                        1              1              -"
says "their number" err "nas2zdt: broken.dat: 1 error of the deck"
mv broken.zdt checked.zdt
expect "the same without a check" 0 -q --no-warnings broken.dat
cmp broken.zdt checked.zdt || fail "the target file with a check"
expect "a loss comes before" 3 -q --strict --check broken.dat
expect "a sound deck" 0 -q --no-warnings --check --tolerance 0 --subcase 1 good.dat
silent "a sound deck" err
expect "a deck that can't be joined" 1 -q --check bad.dat
expect "both for programs" 4 --account=json --check=json good.dat broken.dat
if command -v python3 >/dev/null; then
    python3 - <<'END' || fail "JSON of a check"
import json
good, broken = json.load(open("out"))["decks"]
assert good["check"]["errors"] == 0 and good["account"]["losses"] == 0
assert broken["check"]["errors"] == 1 and broken["log"][0] is not None
places = [p for f in broken["check"]["findings"] if f["severity"] == "error" for p in f["places"]]
assert places == [{"id": 7, "file": "broken.dat", "line": 5, "text": "GRID 99 doesn't exist"}]
assert {(t["group"], t["name"]): t["deck"] for t in broken["check"]["totals"]}["nodes", "count"] == 2
END
fi
expect "the check alone for programs" 0 --check=json good.dat
grep -q '"account":null,"check":{' out || fail "no account that nobody asked for"

# ---- account and strict
expect "the account of a deck" 0 --quiet --account lossy.dat
says "a stored row" out "  GRID            1        1        -        -        -        -        -        -"
says "a reported row" out "  RBAR            1        -        -        1        -        -        -        -"
says "a loss" out "  RBAR            1  reported: not converted: 3"
says "sections" out "Sections of lossy.zdt"
says "a section" out "  *NODE                   1        3"
expect "strict without a loss" 0 --quiet --strict=any good.dat
silent "strict without a loss" out err
expect "strict with a loss" 3 --quiet --strict good.dat lossy.dat
says "strict with a loss" err "nas2zdt: lossy.dat: 1 loss fail --strict; see --account"
printf 'BEGIN BULK\nGRID,1,,1.2345678\nPARAM,POST,0\nMAT1,1,1.,,.3,7.\nENDDATA\n' >light.dat
expect "strict with a loss of mass" 3 --quiet --strict light.dat
says "a warning of mass" err "nas2zdt: light.dat: warning: mass: 1 MAT1 (dropped: RHO); see --account"
says "a warning of control" err "nas2zdt: light.dat: warning: control: 1 PARAM (unknown); see --account"
expect "what is allowed" 0 --quiet --strict --allow MAT1 --allow PARAM:unknown-word light.dat
silent "what is allowed" err
expect "strict about notes" 3 --quiet --strict=any --allow=fields --allow=unknown-word --no-warnings light.dat
says "strict about notes" err "nas2zdt: light.dat: 1 loss fail --strict; see --account"
expect "without warnings" 0 --no-warnings lossy.dat
silent "without warnings" err
expect "a rounded coordinate" 0 --quiet --account light.dat
says "a rounded coordinate" out "  GRID            1  rounded: coordinates to six digits, by at most 2.2e-06"
expect "a failure stands above a loss" 1 --strict lossy.dat bad.dat
expect "json" 0 --account=json lossy.dat good.dat
[ "$(wc -l <out)" -eq 1 ] || fail "json on one line"
if command -v python3 >/dev/null; then
    python3 - out <<'EOF' || fail "json as documented"
import json, sys
with open(sys.argv[1], encoding="utf-8") as file: data = json.load(file)
lossy, good = data["decks"]
assert data["version"] == 2
assert lossy["deck"] == "lossy.dat" and lossy["target"] == "lossy.zdt" and lossy["error"] is None
assert "RBAR isn't converted in this version. (Line:3)" in lossy["log"]
account = lossy["account"]
assert account["losses"] == 1
assert account["keywords"] == [
    {"keyword": "GRID", "read": 1, "stored": 1, "replaced": 0, "reported": 0, "skipped": 0, "unknown": 0, "lost": 0, "cut_off": 0},
    {"keyword": "RBAR", "read": 1, "stored": 0, "replaced": 0, "reported": 1, "skipped": 0, "unknown": 0, "lost": 0, "cut_off": 0}]
assert account["classes"] == {"model": 1, "mass": 0, "control": 0, "note": 0}
assert account["lost"] == [{"class": "model", "kind": "reported", "keyword": "RBAR", "code": "reported", "text": "reported: not converted", "count": 1,
                            "places": [{"file": "lossy.dat", "first": 3, "last": 3}], "ids": []}]
assert account["sections"][:2] == [{"section": "*VERSION", "blocks": 1, "lines": 3}, {"section": "*NODE", "blocks": 1, "lines": 3}]
assert good["account"]["losses"] == 0
EOF
fi
expect "json of a failed run" 1 --account=json bad.dat
grep -q '"error":".*NONE.INC.*","log":\[.*\],"account":null' out || fail "json of a failed run"

# ---- where results go
expect "into a file" 0 -o results/x.txt good.dat
cmp results/x.txt one.expected || fail "into a file"
expect "into a folder" 0 -o results/ good.dat
cmp results/good.zdt one.expected || fail "into a folder"
expect "several decks" 1 -o results bad.dat good.dat none.dat lossy.dat
says "a line of result" out "good.dat: converted into results/good.zdt"
says "the decks behind a bad one" out "lossy.dat: converted into results/lossy.zdt"
grep -q '^nas2zdt: none.dat: ' err || fail "a line for a bad deck"
[ ! -e results/bad.zdt ] || fail "nothing of a bad deck"
expect "quiet" 0 --quiet good.dat lossy.dat
silent "quiet" out
says "quiet keeps warnings" err "$warning; see --account"
for output in missing/ missing/x.zdt; do
    expect "a missing folder" 1 -o $output good.dat
    grep -Eq '^nas2zdt: missing/?: no such folder$' err || fail "a missing folder"
    [ "$(wc -l <err)" -eq 1 ] || fail "one line for a missing folder"
done

# ---- decks and results that meet
expect "the same deck twice" 1 good.dat ./good.dat
says "the same deck twice" err "nas2zdt: ./good.dat: this deck is given twice"
rm -f results/*
expect "one result of two decks" 1 -o results good.dat other/good.dat
says "one result of two decks" err "nas2zdt: other/good.dat: its result results/good.zdt would overwrite the result of good.dat"
cmp results/good.zdt one.expected || fail "the first of two decks"
cp good.dat next.dat
cp good.dat next.zdt
expect "a result that is a deck" 1 next.dat next.zdt
cmp next.zdt good.dat || fail "a deck that a result would overwrite"

# ---- the log in a file
expect "a log" 0 --quiet --log run.log lossy.dat
cmp run.log plain.log || fail "a log"
expect "the log of several decks" 0 --quiet --log run.log good.dat lossy.dat
[ "$(grep -c 'Original File' run.log)" -eq 2 ] || fail "the log of several decks"
expect "a log that is a folder" 1 --log results good.dat
expect "a log in a missing folder" 1 --log missing/run.log good.dat
[ "$(wc -l <err)" -eq 1 ] || fail "one line for a log in a missing folder"
if [ -e /dev/full ]; then
    ln -s /dev/full full.log
    expect "a log on a full disk" 1 --quiet --log full.log good.dat
    got=0
    "$nas2zdt" --account --quiet good.dat >/dev/full 2>err || got=$?
    [ "$got" -eq 1 ] || fail "an account on a full disk"
fi

# ---- includes
mkdir parts
printf 'RBAR,7\nGRID,2\n' >'parts/The Part.dat'
printf 'BEGIN BULK\nGRID,1\nINCLUDE %sparts/\n  The Part.dat%s\nENDDATA\n' "'" "'" >whole.dat
expect "an include in the usual form" 1 whole.dat
says "the hint" err "nas2zdt: whole.dat: the option --flatten reads includes as NASTRAN does"
expect "a joined deck" 0 --flatten --account other/../whole.dat
says "a line of the log" out "RBAR isn't converted in this version. (Line:other/../parts/The Part.dat:1)"
says "a line of the account" out "  RBAR            1  reported: not converted: other/../parts/The Part.dat:1"
says "the deck's name" out "** Original File   : other/../whole.dat"
printf '*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n  2, 0, 0, 0\n\n' >two.expected
cmp whole.zdt two.expected || fail "the target file of a joined deck with an include"
printf 'GRID,2\nGRID,1%0160d\n' 0 >long.inc
printf 'BEGIN BULK\nINCLUDE %slong.inc%s\nENDDATA\n' "'" "'" >long.dat
expect "a long line of an include" 1 --flatten long.dat
grep -q '^nas2zdt: long.inc:2: .*159' err || fail "a long line of an include"
printf 'BEGIN BULK\nINCLUDE %scycle.dat%s\n' "'" "'" >cycle.dat
expect "a cycle" 1 --flatten cycle.dat
grep -q '^nas2zdt: cycle.dat:2: ' err || fail "a cycle"
[ ! -e cycle.zdt ] || fail "nothing of a cycle"
printf 'BEGIN BULK\nINCLUDE,\nENDDATA\n' >nameless.dat
expect "an include without a name" 1 nameless.dat
grep -q '^nas2zdt: nameless.dat: ' err || fail "the deck of an include without a name"

# ---- restating
mkdir named
printf 'GRID,5,7,1.,0.,0.\n' >named/five.dat
printf 'CORD2R,7,,1.,0.,0.,1.,0.,1.\n,2.,0.,0.\nINCLUDE %sHere:five.dat%s\nGRID\t6\t\t3.\nRBAR,7\n' "'" "'" >bare.dat
printf '*VERSION\n  5.8.1\n\n*NODE\n  5, 2, 0, 0\n  6, 3, 0, 0\n\n' >five.expected
expect "a restated deck" 0 --faithful --restated restated.dat --logical here=named --account bare.dat
cmp bare.zdt five.expected || fail "the target file of a restated deck"
says "a rule" out "  GRID            1  restated: at its basic position: named/five.dat:1"
says "a loss of a restated deck" out "  RBAR            1  reported: not converted: bare.dat:5"
expect "the restated deck by itself" 0 --quiet restated.dat
cmp restated.zdt five.expected || fail "the target file of the restated deck by itself"
Here=named expect "a folder by the environment" 0 --faithful --strict --allow RBAR bare.dat
printf 'BEGIN BULK\nGRID\t8\t\t9.\nRBAR,7\nENDDATA\n' >tab.dat
expect "what restating would carry over" 0 --quiet tab.dat
grep -Fq '; --faithful carries over ' err || fail "what restating would carry over"
expect "a subcase that isn't there" 1 --faithful --subcase 3 good.dat
says "a subcase that isn't there" err "nas2zdt: good.dat: there is no subcase 3"
expect "a restated deck over the deck" 1 --faithful --restated good.dat good.dat
expect "a restated deck over an include" 1 --faithful --restated named/five.dat --logical here=named bare.dat

# ---- limits
printf 'BEGIN BULK\nGRID,1\nPLOAD2,1,1.,1,THRU,9\nENDDATA\n' >range.dat
rm -f range.zdt
expect "a limit" 1 --limit ranges=7 range.dat
says "a limit" err "nas2zdt: range.dat:3: limit on ranges: THRU ranges make more than 7 entries in all"
says "what sets it" err "nas2zdt: range.dat: the option --limit ranges=N sets this limit"
[ ! -e range.zdt ] || fail "nothing of a run that passed a limit"
expect "a limit that is met" 0 --limit ranges=8 range.dat
expect "a limit that is lifted" 0 --limit=ranges=7 --limit ranges=none range.dat
expect "all limits lifted" 0 --limit ranges=7 --limit none range.dat
printf 'BEGIN BULK\nGRID,1,,0.,0.,0.\n=,*(1),=,*(1.),==\n=(4)\n=,*(1),=,*(1.),==\n=(4)\nENDDATA\n' >made.dat
expect "a limit on replication" 1 --faithful --limit ranges=9 made.dat
says "a limit on replication" err "nas2zdt: made.dat:6: limit on ranges: replication makes more than 9 cards in all; the option --limit ranges=N sets it"
expect "a limit that replication meets" 0 --faithful --limit ranges=10 made.dat
printf 'BEGIN BULK\nINCLUDE,good.dat\nENDDATA\n' >outer.dat
for args in "" "--flatten"; do
    # shellcheck disable=SC2086 # an argument or none
    expect "a limit on decks $args" 1 $args --limit decks=1 outer.dat
    grep -q '^nas2zdt: outer.dat:2: limit on decks: more than 1 decks are opened' err || fail "a limit on decks $args"
done

# ---- the folder for temporary files
TMPDIR=$folder/none expect "no folder for temporary files" 1 --flatten good.dat
grep -q '^nas2zdt: folder for temporary files: ' err || fail "no folder for temporary files"

# ---- output that nobody takes: results are whole, and only what was asked for is missed
mkfifo pipe
exec 3<>pipe
exec 4>pipe 3>&- # a pipe whose reader is gone
head -c 4096 /dev/zero >full
# untaken STATUS ARGS...: the command with ARGS must exit so, its output a broken pipe or a file at its limit
untaken() {
    status=$1
    shift
    for output in pipe limit; do
        rm -f good.zdt
        got=0
        if [ $output = pipe ]; then
            "$nas2zdt" "$@" >&4 2>&4 || got=$?
        else
            (ulimit -f 8 && "$nas2zdt" "$@" >>full 2>>full) || got=$?
        fi
        [ "$got" -eq "$status" ] || fail "$*, with a $output as output: exit status $got"
        [ -z "$(ls tmp)" ] || fail "$*, with a $output as output: something is left behind"
    done
}
untaken 0 good.dat
cmp good.zdt one.expected || fail "the target file when nobody takes the log"
untaken 0 --flatten good.dat
untaken 1 --account good.dat
cmp good.zdt one.expected || fail "the target file when nobody takes the account"
untaken 1 --account=json good.dat
untaken 1 --help
untaken 1 bad.dat
exec 4>&-

# ---- nothing in a deck or a name commands a terminal
# plain NAME FILES...: they must hold no control characters but line feeds
plain() {
    name=$1
    shift
    for file; do
        commands=$(LC_ALL=C tr -dc '\000-\011\013-\037\177-\237' <"$file" | wc -c)
        [ "$commands" -eq 0 ] || fail "$name: $file has control characters"
    done
}
odd=$(printf 'd\033[2J\302\233K\233\177')
printf 'BEGIN BULK\nGRID,1\n\033[31mX,1\nENDDATA\n' >"$odd.dat"
expect "odd names in log and account" 0 --account --log odd.log "$odd.dat" good.dat
plain "odd names in log and account" out err odd.log
says "an odd deck in the log" odd.log "** Original File   : d?[2J?K??.dat"
says "an odd deck in the account" out "Account of d?[2J?K??.dat"
says "an odd word in the account" out "  ?[31MX          1        -        -        -        -        1        -        -"
expect "odd names in json" 3 --account=json --strict "$odd.dat"
plain "odd names in json" out err
mkdir "$odd"
printf 'BEGIN BULK\nINCLUDE,%s\nENDDATA\n' "$odd" >odd.dat
for args in "odd.dat" "--flatten odd.dat" "$odd" "-o $odd/x/y good.dat" "--log $odd good.dat"; do
    # shellcheck disable=SC2086 # several arguments
    expect "an odd name in an error: $args" 1 $args
    plain "an odd name in an error: $args" out err
    grep -Fiq 'd?[2J?K??' err || fail "an odd name in an error: $args"
done
expect "an odd option" 2 "--$odd"
plain "an odd option" out err
echo "1 passed, 0 failed"
