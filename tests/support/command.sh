# shellcheck shell=sh
# What the shell tests of the command share; they source it with $1 as the path of NAS2ZDT. They work in a folder of their
# own, where "out" and "err" hold what the last run printed and "tmp" is the folder for temporary files.
set -eu
nas2zdt=$1
folder=$(mktemp -d "${TMPDIR:-/tmp}/nas2zdt-XXXXXX") # without a "." of its own
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/tmp"
TMPDIR=$folder/tmp
export TMPDIR
cd "$folder"

fail() {
    echo "failed: $1" >&2
    cat out err >&2
    exit 1
}

# expect NAME STATUS ARGS...: runs the command with ARGS
expect() {
    name=$1 status=$2
    shift 2
    got=0
    "$nas2zdt" "$@" >out 2>err </dev/null || got=$?
    [ "$got" -eq "$status" ] || fail "$name: exit status $got"
    [ -z "$(ls tmp)" ] || fail "$name: something is left in the folder for temporary files"
}
