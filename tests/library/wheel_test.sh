#!/bin/sh
# Builds the wheel, unpacks it as an installation does and converts with nothing else. Usage: wheel_test.sh PYTHON SOURCE
# COMMAND..., a command that wants the folder and the script added. Exits 77 if there is no build.
set -eu
python=$1
source=$2
shift 2
"$python" -c 'import setuptools, wheel; from build import ProjectBuilder' 2>/dev/null || exit 77
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$@" -D "FOLDER=$work/wheel" -P "$source/cmake/Wheel.cmake" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
wheel=$(echo "$work"/wheel/*.whl)
case $wheel in
*/nas2zdt-*-py3-none-linux_*.whl) ;;
*) echo "failed: $wheel isn't for any Python 3 of this platform" && exit 1 ;;
esac
"$python" -m zipfile -e "$wheel" "$work/site"
cp "$source/examples/loaded_plate.dat" "$work/deck.dat"
(cd "$work" && env -u NAS2ZDT_LIBRARY -u LD_LIBRARY_PATH PYTHONPATH="$work/site" "$python" -m nas2zdt deck.dat >log)
cmp "$work/deck.zdt" "$source/examples/loaded_plate.zdt"
grep -q 'must be a NASTRAN bulk data deck' "$work/log" # the message library was found
[ -e "$work/site/nas2zdt/py.typed" ]
echo "1 passed, 0 failed"
