#!/bin/sh
# A message library that is missing or odd: the run goes on, and the log shows what the library says.
# Usage: message_library_test.sh NAS2ZDT FOLDER-OF-ODD-LIBRARIES
set -eu
nas2zdt=$1 odd=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cp "$nas2zdt" nas2zdt # the message library is looked for beside it
printf 'BEGIN BULK\nGRID,1\nRBAR,1,2\nENDDATA\n' >deck.dat

# logs NAME LINE COMMAND...: the command must log LINE for the card
logs() {
    name=$1 line=$2
    shift 2
    rm -f "$folder/deck.zdt"
    "$@" "$folder/deck.dat" >"$folder/out"
    if ! grep -Fqx -e "$line" "$folder/out" ||
        ! printf '*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n' | cmp - "$folder/deck.zdt"; then
        echo "failed: $name" >&2
        cat "$folder/out" >&2
        exit 1
    fi
}

fallback='Error : DLL is not loaded. check message dll!'
places='RBAR|(Line:3~3)|%s|%n|%f|%'
key=IDS_NASTRAN_Not_convert_in_this_version

logs none "$fallback" ./nas2zdt
cp "$odd/no_export/Convertmsg.DLL" .
logs no_export "$fallback" ./nas2zdt
cp "$odd/other_places/Convertmsg.DLL" .
logs other_places "$places" ./nas2zdt
cp "$odd/no_text/Convertmsg.DLL" .
logs no_text "$key" ./nas2zdt
PATH=$folder:$PATH logs "a command that was found by its name" "$key" nas2zdt

# ---- nothing is loaded because it lies in the current folder
mkdir planted
cp nas2zdt planted/nas2zdt
mv Convertmsg.DLL planted
cd planted
# shellcheck disable=SC2016 # for the other shell
logs "another name than its own" "$fallback" bash -c 'exec -a "$PWD/nas2zdt" ../nas2zdt "$@"' -
LD_LIBRARY_PATH=: logs "a search path of empty pieces" "$fallback" ../nas2zdt
LD_LIBRARY_PATH=:.:$odd/other_places logs "a whole folder of a search path" "$places" ../nas2zdt
echo "1 passed, 0 failed"
