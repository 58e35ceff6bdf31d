#!/bin/sh
# What shells complete and the manual tells, held to --help. Usage: completion_test.sh NAS2ZDT
# Shells that aren't there are passed over.
set -eu
nas2zdt=$1
project=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir deep
touch one.dat TWO.BDF three.zdt
passed=0

fail() {
    echo "failed: $1" >&2
    exit 1
}

"$nas2zdt" --help | grep -oE '^  -.*' | grep -oE '^  -[a-zA-Z]|(^  |, )--[a-z-]+' | tr -d ' ,' | sort >options
[ "$(wc -l <options)" -gt 20 ] || fail "the options of --help"

while read -r option; do
    sed 's/\\//g' "$project/docs/nas2zdt.1" | grep -qE "^\.(B|BI|BR|IR) .*$option([^a-z-]|\$)" || fail "$option isn't in the manual"
done <options
passed=$((passed + 1))

if command -v bash >/dev/null; then
    # bash_gives WORD...: what bash completes the last word to, sorted
    bash_gives() {
        bash -c '. "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _nas2zdt "$1"; printf "%s\n" "${COMPREPLY[@]}"' \
            bash "$project/completions/nas2zdt.bash" "$nas2zdt" "$@" | sort
    }
    bash_gives - | cmp - options || fail "bash: all options"
    [ "$(bash_gives --acc)" = --account ] || fail "bash: an option"
    [ "$(bash_gives --account = | tr '\n' ' ')" = "json jsonl " ] || fail "bash: a value behind ="
    [ "$(bash_gives --strict = a)" = any ] || fail "bash: the beginning of a value"
    [ -z "$(bash_gives --limit "")" ] || fail "bash: a value of no list"
    [ "$(bash_gives --logical "")" = deep ] || fail "bash: a folder"
    [ "$(bash_gives --log thr)" = three.zdt ] || fail "bash: a file"
    [ "$(bash_gives --quiet "" | tr '\n' ' ')" = "TWO.BDF deep one.dat " ] || fail "bash: decks and folders"
    passed=$((passed + 1))
fi

if command -v zsh >/dev/null; then
    cat >complete.zsh <<'END'
# complete.zsh PROJECT NAS2ZDT LINE...: what a shell on a terminal of its own makes of each line when Tab is hit, in the
# file "out": on the terminal it would stand among what is drawn anew
zmodload zsh/zpty
zpty shell zsh -f -i
zpty -w shell "PS1= PS2= TERM=dumb; unsetopt zle_bracketed_paste 2>/dev/null; fpath=($1/completions \$fpath); path=(${2:h} \$path)"
zpty -w shell 'autoload -U compinit; compinit -u -D; zstyle ":completion:*" list-prompt ""; bindkey "^I" complete-word'
zpty -w shell 'show() { print -r -- "$BUFFER" >>out; zle kill-whole-line }; zle -N show; bindkey "^X" show; print ready''-now'
zpty -r -m shell text '*ready-now*'
for line in "${@:3}"; do
    shown=$(wc -l <out)
    zpty -w -n shell "$line"$'\t\x18'
    until (( $(wc -l <out) > shown )); do
        zpty -r -t shell text || sleep 0.02
    done
done
zpty -d shell
END
    cat >expected <<'END'
nas2zdt --account
nas2zdt --strict=any 
nas2zdt --log=three.zdt 
nas2zdt --quiet one.dat 
END
    : >out
    timeout 100 zsh -f complete.zsh "$project" "$nas2zdt" "nas2zdt --acc" "nas2zdt --strict=a" "nas2zdt --log=th" \
        "nas2zdt --quiet o" </dev/null || fail "zsh takes too long"
    cmp out expected || fail "zsh: $(cat out)"
    passed=$((passed + 1))
fi
echo "$passed passed, 0 failed"
