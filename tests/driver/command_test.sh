#!/bin/sh
# The command from a shell: exit status, and what goes where. Usage: command_test.sh NAS2ZDT
# shellcheck source=tests/support/command.sh
. "$(dirname "$0")/../support/command.sh"

printf 'BEGIN BULK\nGRID,1\nENDDATA\n' >deck.dat
expect "a deck converts" 0 deck.dat
grep -q '^\*\* Original File   : deck.dat$' out || fail "log on standard output"
[ ! -s err ] || fail "silence on standard error"
printf '*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n' | cmp - deck.zdt || fail "target file"

expect "help" 0 --help
grep -q '^usage: nas2zdt' out || fail "help text"
expect "version" 0 --version
grep -Eq '^nas2zdt [0-9]+\.[0-9]+' out || fail "version text"
expect "no deck" 2
expect "unknown option" 2 --nonsense deck.dat

expect "missing deck" 1 none.dat
grep -q 'none.dat' err || fail "name of the deck that can't be opened"
printf 'BEGIN BULK\nINCLUDE,none.inc\nENDDATA\n' >bad.dat
expect "missing include" 1 bad.dat
grep -q 'NONE.INC' err || fail "name of the include that can't be opened"
[ ! -e bad.zdt ] || fail "nothing is left behind"
printf 'BEGIN BULK\nINCLUDE,loop.dat\nENDDATA\n' >loop.dat
expect "a deck that includes itself" 1 loop.dat
printf 'BEGIN BULK\nGRID,1%0200d\nENDDATA\n' 0 >long.dat
expect "a line that is too long" 1 long.dat
grep -q 'long.dat:2: .*199' err || fail "file, line and limit of the line that is too long"
mkdir blocked.zdt
cp deck.dat blocked.dat
expect "a target that can't be written" 1 blocked.dat
grep -q 'blocked.zdt' err || fail "name of the target"
echo "1 passed, 0 failed"
