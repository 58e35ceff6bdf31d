#!/bin/sh
# Builds with the desktop windows and tests them on an X server of its own. Exits 0 and says "skipped: ..." if a package
# that this needs can't be had. With PICTURES=FOLDER, pictures of the dialogs in each language are left there.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh

need "c++ cmake ninja pkg-config pkg-config:gtk+-3.0 /usr/include/gtest/gtest.h Xvfb xdotool import" \
  "g++ cmake ninja-build pkg-config libgtk-3-dev libgtest-dev googletest xvfb xdotool imagemagick fonts-ipafont-gothic"

cmake --preset release -DCONVERTNASTRAN_GTK=ON -DCONVERTNASTRAN_TESTS=ON >/dev/null
cmake --build --preset release -j"${JOBS:-2}"

folder=$(mktemp -d)
screen=
trap 'if [ -n "$screen" ]; then kill "$screen" 2>/dev/null || :; fi; rm -rf "$folder"' EXIT
export NO_AT_BRIDGE=1 LANGUAGE=
unset WAYLAND_DISPLAY
host=$PWD/build/release/bin/host

echo "== dialogs answered by a program"
start_screen
ctest --test-dir build/release --output-on-failure --no-tests=error -R Dialogs

echo "== dialogs answered by the keyboard"
write_deck "$folder/deck.dat"
for language in C.UTF-8 de_DE.UTF-8 fr_FR.UTF-8 ja_JP.UTF-8; do
  printed=$(LC_ALL=$language tests/dialogs/typed_run.sh "$folder/deck.dat" "${PICTURES:+$PICTURES/desktop-$language}" "$host")
  expect_done "$printed" "$folder/deck.zdt"
done

echo "== the default extension"
rm "$folder/deck.zdt"
printed=$(LC_ALL=C.UTF-8 tests/dialogs/typed_run.sh "$folder/deck" "" "$host")
expect_done "$printed" "$folder/deck.zdt"

echo "== a display that goes away"
LC_ALL=C.UTF-8 "$host" >"$folder/printed" 2>/dev/null </dev/null &
running=$!
xdotool search --sync --onlyvisible --class '^host' >/dev/null
kill "$screen"
screen=
wait $running || { echo "failed: the host went with the display"; exit 1; }
grep -q '^result: 1$' "$folder/printed"

echo "== no display"
unset DISPLAY
printed=$(echo "$folder/deck.dat" | "$host" | tail -2)
expect_done "$printed" "$folder/deck.zdt"

echo "== a library without the plug-in"
mkdir "$folder/plain"
cp build/release/bin/libConvertNastran.so build/release/bin/Convertmsg.DLL "$host" "$folder/plain"
if ldd "$folder/plain/libConvertNastran.so" | grep -i -E 'gtk|libX'; then
  echo "failed: the library needs a toolkit"
  exit 1
fi
printed=$(echo "$folder/deck.dat" | "$folder/plain/host" | tail -2)
expect_done "$printed" "$folder/deck.zdt"

echo "all passed"
