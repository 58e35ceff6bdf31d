#!/bin/sh
# The command's files are whole or not there, and nothing is overwritten that shouldn't be. Usage: outputs_test.sh NAS2ZDT
# shellcheck source=tests/support/command.sh
. "$(dirname "$0")/../support/command.sh"

printf '*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n' >one.expected
printf 'BEGIN BULK\nGRID,1\nENDDATA\n' >good.dat
awk 'BEGIN { print "BEGIN BULK"; for (i = 1; i < 100000; ++i) print "GRID," i ",,1.5"; print "ENDDATA" }' >big.dat
expect "a big deck" 0 -q big.dat
mv big.zdt big.expected

# nothing NAME: no temporary file is left here
nothing() { [ -z "$(find . -name '.nas2zdt-*' -o -name '*.part' | head -n 1)" ] || fail "$1: something is left behind"; }

# same NAME FILE EXPECTED: the files are alike
same() { cmp "$2" "$3" || fail "$1"; }

# ---- a result without an extension of its deck stands beside the deck
mkdir -p a/b real/sub v.2
cp good.dat deck
cp good.dat a/deck
cp good.dat real/deck
ln -s real/sub link
expect "a deck without an extension" 0 ./deck
same "a deck without an extension" deck.zdt one.expected
grep -Fxq '** Original File   : ./deck' out || fail "the log names the deck as the user did"
(cd a/b && "$nas2zdt" -q ../deck) || fail "a deck in the folder above"
same "a deck in the folder above" a/deck.zdt one.expected
expect "a deck above a link" 0 -q link/../deck
same "a deck above a link" real/deck.zdt one.expected
cp good.dat v.2/deck
(cd v.2 && "$nas2zdt" -q ./deck) || fail "a deck in a folder with a point"
same "the last point is that of the full path" v.zdt one.expected
[ -z "$(find . -name '.zdt' -o -name '..zdt')" ] || fail "a result without a name"

# ---- what an older file was stays
printf old >old.zdt
chmod 604 old.zdt
ln -s old.zdt linked.zdt
ln -s new.zdt dangling.zdt
expect "through a link" 0 -q -o linked.zdt good.dat
same "through a link" old.zdt one.expected
[ -h linked.zdt ] || fail "a link stays a link"
[ "$(stat -c %a old.zdt)" -eq 604 ] || fail "the mode of an older file"
expect "through a link to nothing" 0 -q -o dangling.zdt good.dat
same "through a link to nothing" new.zdt one.expected
umask 027
expect "the usual mode" 0 -q -o usual.zdt --view usual.svg --log usual.log good.dat
[ "$(stat -c %a usual.zdt usual.svg usual.log | uniq)" = 640 ] || fail "the usual mode"
umask 022
if [ "$(id -u)" -ne 0 ]; then
    printf old >readonly.zdt
    chmod 444 readonly.zdt
    expect "a file that may not be written" 1 -q -o readonly.zdt good.dat
    [ "$(cat readonly.zdt)" = old ] || fail "a file that may not be written"
fi

# ---- devices and pipes are written straight
expect "nowhere" 0 -q -o /dev/null good.dat
[ -c /dev/null ] || fail "the device is still there"
expect "standard output that is a file" 0 -q -o /dev/stdout good.dat
same "standard output that is a file" out one.expected
"$nas2zdt" -q -o /dev/stdout good.dat | cmp - one.expected || fail "standard output that is a pipe"
expect "an account without a file" 0 -q --account -o /dev/null good.dat

# ---- a failed write and a failed run leave the older files
printf old >big.zdt
printf old >big.svg
(ulimit -f 8 && "$nas2zdt" -q --view big.svg big.dat 2>err) && fail "a full disk"
grep -q '^nas2zdt: big.zdt: ' err || fail "a full disk is told"
[ "$(cat big.zdt)" = old ] || fail "a full disk"
printf 'BEGIN BULK\nINCLUDE,none.inc\nENDDATA\n' >bad.dat
printf old >bad.zdt
expect "a failed run" 1 -q bad.dat
[ "$(cat bad.zdt)" = old ] || fail "a failed run"
nothing "failures"

# ---- signals at any time; a shell has what it puts behind ignore those of the keyboard
printf old >old.expected
for signal in TERM HUP USR1; do
    for delay in 0 0.02 0.04 0.06; do
        cp old.expected big.zdt
        "$nas2zdt" -q --flatten big.dat &
        sleep $delay
        kill -$signal $! 2>/dev/null || true
        { wait $!; } 2>/dev/null || true
        cmp -s big.zdt old.expected || same "$signal" big.zdt big.expected
        nothing "$signal"
        [ -z "$(ls tmp)" ] || fail "$signal: a joined deck is left behind"
    done
done

# ---- two runs at once
sed 's/1\.5$/2.5/' big.dat >other.dat
expect "the other deck" 0 -q other.dat
mv other.zdt other.expected
for _ in 1 2 3 4 5 6; do
    "$nas2zdt" -q -o shared.zdt big.dat &
    "$nas2zdt" -q -o shared.zdt other.dat || fail "two runs at once"
    wait $! || fail "two runs at once"
    cmp -s shared.zdt big.expected || same "two runs at once" shared.zdt other.expected
done
nothing "two runs at once"

# ---- outputs that meet decks and each other: refused before anything is written
rm -f good.zdt
cp good.dat PART.INC
printf 'BEGIN BULK\nINCLUDE,PART.INC\nENDDATA\n' >outer.dat
ln PART.INC hard.svg
cp good.dat twin.svg
ln twin.svg twin.vtu
ln -s out.svg out.vtu
while IFS='|' read -r args why; do
    # shellcheck disable=SC2086 # several arguments
    expect "$args" 1 -q $args
    grep -Fxq "nas2zdt: $why" err || fail "$args: the reason"
    for output in outer.zdt good.zdt out.svg; do [ ! -e $output ] || fail "$args: $output was written"; done
    same "$args" PART.INC good.dat
done <<END
-o good.dat good.dat|good.dat: its result good.dat would overwrite the deck good.dat
-o PART.INC outer.dat|PART.INC: would overwrite the deck PART.INC
--flatten -o PART.INC outer.dat|PART.INC: would overwrite the deck PART.INC
--view hard.svg outer.dat|hard.svg: would overwrite the deck PART.INC
--log hard.svg outer.dat|hard.svg: would overwrite the deck PART.INC
--log good.dat good.dat|good.dat: the log would overwrite the deck good.dat
--log ./good.zdt good.dat|./good.zdt: the log would overwrite the result of good.dat
-o both.x --view both.x good.dat|both.x: the picture would overwrite the result of good.dat
--view x --vtu a/../x good.dat|a/../x: the grid would overwrite the picture x
--view out.svg --vtu out.vtu good.dat|out.vtu: the grid would overwrite the picture out.svg
--view twin.svg --vtu twin.vtu good.dat|twin.vtu: the grid would overwrite the picture twin.svg
--view missing/x good.dat|missing: no such folder
END
# ---- pictures in folders, each by its deck's name
printf 'BEGIN BULK\nGRID,1\nFORCE,7,1,,1.,1.\nFORCE,12,1,,1.,,1.\nENDDATA\n' >loads.dat
mkdir drawn twice
cp good.dat drawn/loads.dat
expect "pictures of several decks" 0 -q --view drawn --vtu drawn/ loads.dat good.dat
for output in loads.svg loads.vtu good.svg good.vtu; do [ -s drawn/$output ] || fail "pictures of several decks: $output"; done
expect "two pictures of one name" 1 -q --view twice loads.dat drawn/loads.dat
grep -Fxq "nas2zdt: drawn/loads.dat: its picture twice/loads.svg would overwrite the picture of loads.dat" err || fail "two pictures of one name"
expect "a missing folder of pictures" 1 -q --view none/ loads.dat
grep -Fxq "nas2zdt: none/: no such folder" err || fail "a missing folder of pictures"

# ---- a load case, and a picture of each
expect "a load case" 0 -q --case 12 --view one.svg --vtu one.vtu loads.dat
grep -q '>Load case 12 alone.<' one.svg || fail "a load case of a picture"
grep -q 'Name="Force case 12"' one.vtu || fail "a load case of a grid"
! grep -q 'Name="Force case 7"' one.vtu || fail "one load case of a grid"
expect "a load case that isn't there" 1 -q --case 8 --view none.svg loads.dat
grep -Fxq "nas2zdt: loads.dat: there is no load case 8: there are 7, 12" err || fail "a load case that isn't there"
[ ! -e none.svg ] || fail "no picture without its load case"
expect "no load cases" 1 -q --case 8 --view none.svg good.dat
grep -Fxq "nas2zdt: good.dat: there is no load case 8: the deck has none" err || fail "no load cases"
expect "a picture of each case" 0 -q --colour loss --view-cases new/cases loads.dat good.dat
[ "$(echo new/cases/*)" = "new/cases/loads-case-12.svg new/cases/loads-case-7.svg" ] || fail "a picture of each case"
grep -Fxq "nas2zdt: good.dat: no load cases to draw" err || fail "a deck without load cases"
expect "a picture of each case again" 0 -q --view-cases new/cases loads.dat
cp loads.dat new/cases/loads.dat
cp loads.dat new/cases/loads-case-7.svg
expect "a picture that is a deck" 1 -q --view-cases new/cases new/cases/loads-case-7.svg loads.dat
grep -Fxq "nas2zdt: new/cases/loads-case-7.svg: would overwrite the deck new/cases/loads-case-7.svg" err || fail "a picture that is a deck"
same "a picture that is a deck" new/cases/loads-case-7.svg loads.dat
rm new/cases/*.svg
expect "cases of two decks of one name" 1 -q --view-cases new/cases loads.dat new/cases/loads.dat
grep -Fxq "nas2zdt: new/cases/loads-case-7.svg: would overwrite the output new/cases/loads-case-7.svg" err || fail "cases of two decks of one name"
expect "a folder that is a file" 1 -q --view-cases one.svg loads.dat
grep -Fxq "nas2zdt: one.svg: is no folder" err || fail "a folder that is a file"

# ---- the page of a review, if the command has it
printf old >page.html
rm -f good.zdt
status=0
"$nas2zdt" -q --report page.html good.dat >out 2>err || status=$?
if [ "$status" -eq 0 ]; then
    export SOURCE_DATE_EPOCH=951827696
    expect "a page" 0 -q --report page.html good.dat
    same "the result beside a page" good.zdt one.expected
    [ ! -s out ] || fail "a page prints nothing"
    cp page.html page.expected
    expect "the same page" 0 -q --report page.html good.dat
    same "the same page" page.html page.expected
    unset SOURCE_DATE_EPOCH
    printf 'CEND\nBEGIN BULK\nGRID,1\nCROD,7,5,1,99\nENDDATA\n' >broken.dat
    expect "errors of a deck are the page's alone" 0 -q --no-warnings --report page.html broken.dat
    expect "a page of a joined deck" 0 -q --flatten --report page.html outer.dat
    grep -q 'id="report"' page.html || fail "a page of a joined deck has no data"
    if grep -q 'id="report".*deflate' page.html && command -v python3 >/dev/null; then
        python3 - <<'END' || fail "the data of a page"
import base64, json, re, zlib
data = re.search(r'id="report"[^>]*>([^<]*)<', open("page.html").read())[1]
page = json.loads(zlib.decompress(base64.b64decode(data)))
assert page["version"] == 1 and [file["name"] for file in page["files"]] == ["outer.dat", "PART.INC"]
END
    fi
    ln PART.INC hard.html
    for args in "--report hard.html outer.dat|hard.html: would overwrite the deck PART.INC" \
        "-o x.html --report x.html good.dat|x.html: the report would overwrite the result of good.dat" \
        "--report missing/x.html good.dat|missing: no such folder"; do
        # shellcheck disable=SC2086 # several arguments
        expect "$args" 1 -q ${args%%|*}
        grep -Fxq "nas2zdt: ${args#*|}" err || fail "$args: the reason"
    done
    expect "several decks" 2 -q --report page.html good.dat outer.dat
    printf old >page.html
    expect "a failed run" 1 -q --report page.html bad.dat
    (ulimit -f 800 && "$nas2zdt" -q --report page.html big.dat 2>err) && fail "a full disk under a page"
    [ "$(cat page.html)" = old ] || fail "an older page stays"
    nothing "a page"
else
    [ "$status" -eq 1 ] || fail "a command without the page"
    grep -Fq 'nas2zdt: --report: this command was built without its page; build it with Node.js' err || fail "how to get it"
    [ "$(cat page.html)" = old ] || fail "a command without the page writes none"
    [ ! -e good.zdt ] || fail "a command without the page converts nothing"
fi

for args in "--report x.svg" "--view x.vtu" "--view X.DAT" "--view x.zdt" "--vtu x.svg" "--vtu=x.json"; do
    # shellcheck disable=SC2086 # several arguments
    expect "the name of another format: $args" 2 $args good.dat
done
echo "1 passed, 0 failed"
