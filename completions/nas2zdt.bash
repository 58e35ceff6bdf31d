# shellcheck shell=bash
# Completion of nas2zdt for bash, by what its --help says of its options.

_nas2zdt() {
    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} equals=
    local row='^(-[a-zA-Z], )?(--?[a-zA-Z-]+)(\[=([a-z|]+)\]| ([A-Z=]+) )?' line file
    local names=() words=() value=
    if [[ $current == = ]]; then # a word of its own for bash
        equals=1 current=
    elif [[ $before == = ]]; then
        equals=1 before=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    while read -r line; do
        [[ $line =~ $row ]] || continue
        names+=("${BASH_REMATCH[2]}")
        [[ -z ${BASH_REMATCH[1]} ]] || names+=("${BASH_REMATCH[1]%, }")
        [[ $before == "${BASH_REMATCH[2]}" ]] || continue
        value=${BASH_REMATCH[5]}
        [[ -z $equals ]] || IFS='|' read -ra words <<<"${BASH_REMATCH[4]}"
    done < <("$1" --help 2>/dev/null)

    COMPREPLY=()
    if [[ $value == *FOLDER ]]; then
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
    elif [[ $value == FILE || $value == PATH ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    elif [[ -n $value || -n $equals ]]; then
        mapfile -t COMPREPLY < <(compgen -W "${words[*]}" -- "$current")
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "${names[*]}" -- "$current")
    else
        while read -r file; do
            if [[ -d $file || ${file,,} =~ \.(dat|bdf|nas|blk)$ ]]; then COMPREPLY+=("$file"); fi
        done < <(compgen -f -- "$current")
    fi
}
complete -o filenames -F _nas2zdt nas2zdt
