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

# expect LIBRARY LINE: the line that the log has for the card
expect() {
    rm -f Convertmsg.DLL deck.zdt
    [ "$1" = none ] || cp "$odd/$1/Convertmsg.DLL" .
    ./nas2zdt deck.dat >out
    if ! grep -Fqx -e "$2" out || ! printf '*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n' | cmp - deck.zdt; then
        echo "failed: $1" >&2
        cat out >&2
        exit 1
    fi
}

fallback='Error : DLL is not loaded. check message dll!'
expect none "$fallback"
expect no_export "$fallback"
expect other_places 'RBAR|(Line:3~3)|%s|%n|%f|%'
expect no_text 'IDS_NASTRAN_Not_convert_in_this_version'
PATH=$folder:$PATH nas2zdt deck.dat | grep -Fqx 'IDS_NASTRAN_Not_convert_in_this_version' || {
    echo "failed: a command that was found by its name finds its messages" >&2
    exit 1
}
echo "1 passed, 0 failed"
