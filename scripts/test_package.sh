#!/bin/sh
# Makes the package, unpacks it, and uses what is in it: the command, and hosts that find the library as other projects
# do. Needs what building needs, and dpkg-deb; pkg-config is used if it is there.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --preset release -DCONVERTNASTRAN_TESTS=OFF -B "$work/build" >/dev/null
cmake --build "$work/build" >/dev/null
(cd "$work/build" && cpack -G DEB >/dev/null)
dpkg-deb -x "$work"/build/*.deb "$work/root"
library=$(dirname "$(find "$work/root/usr" -name 'libConvertNastran.so')")

cp examples/portal_frame.dat "$work/deck.dat"
"$work/root/usr/bin/nas2zdt" "$work/deck.dat" >"$work/log"
cmp "$work/deck.zdt" examples/portal_frame.zdt
grep -q 'must be a NASTRAN bulk data deck' "$work/log" # the message library was found

# a host by find_package
mkdir "$work/host"
cp examples/hosts/convert.cpp "$work/host"
cat >"$work/host/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.25)
project(host LANGUAGES CXX)
find_package(ConvertNastran REQUIRED)
add_executable(host convert.cpp)
target_compile_features(host PRIVATE cxx_std_20)
target_link_libraries(host PRIVATE ConvertNastran::ConvertNastran)
END
cmake -S "$work/host" -B "$work/host/build" -G Ninja -DCMAKE_PREFIX_PATH="$work/root/usr" >/dev/null
cmake --build "$work/host/build" >/dev/null
expected=$(printf 'result: 0\npath: %s/deck.zdt' "$work")
passed=1 # the command
convert() { # convert HOST...: types the deck's path and looks at what the host says of it
    rm -f "$work/deck.zdt"
    told=$(echo "$work/deck.dat" | env -u DISPLAY -u WAYLAND_DISPLAY LD_LIBRARY_PATH="$library" "$@" | tail -n 2)
    [ "$told" = "$expected" ] || { echo "failed: $*: $told" >&2; exit 1; }
    cmp "$work/deck.zdt" examples/portal_frame.zdt
    passed=$((passed + 1))
}
convert "$work/host/build/host"

# by pkg-config
if command -v pkg-config >/dev/null; then
    export PKG_CONFIG_PATH="$library/pkgconfig"
    # shellcheck disable=SC2046 # flags
    g++ -std=c++20 examples/hosts/convert.cpp -o "$work/linked" $(pkg-config --cflags --libs ConvertNastran)
    convert "$work/linked"
fi

# by name
gcc -I Converter/ConvertNastran examples/host/host.c -o "$work/loaded"
convert "$work/loaded"
convert python3 examples/hosts/convert.py "$library/libConvertNastran.so"
echo "$passed passed, 0 failed"
