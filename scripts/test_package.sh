#!/bin/sh
# Makes the package in two places, whose bytes must be the same, unpacks it, reads back what it says and holds, and uses
# it: the command, and hosts that find the library as other projects do. pkg-config is used if it is there.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh
scripts/setup.sh
require "dpkg-shlibdeps git" "dpkg-dev git"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "failed: $1" >&2
    exit 1
}

pack() { # pack SOURCE BUILD
    cmake -S "$1" -B "$2" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCONVERTNASTRAN_TESTS=OFF >/dev/null
    cmake --build "$2" >/dev/null
    (cd "$2" && cpack -G DEB >/dev/null)
}
export SOURCE_DATE_EPOCH=1700000000
copy_project "$work/elsewhere/project"
pack "$PWD" "$work/build"
(TZ=Asia/Tokyo && export TZ && pack "$work/elsewhere/project" "$work/elsewhere/project/build")
package=$(echo "$work"/build/*.deb)
cmp "$package" "$work"/elsewhere/project/build/*.deb
(cd "$work/build" && umask 077 && cpack -G DEB -B "$work/strict" >/dev/null)
[ "$(dpkg-deb -c "$package")" = "$(dpkg-deb -c "$work"/strict/*.deb)" ] || fail "who may read it depends on who made it"

dpkg-deb -x "$package" "$work/root"
usr=$work/root/usr
library=$(dirname "$(find "$usr" -name 'libConvertNastran.so')")
field() { dpkg-deb -f "$package" "$1"; }
for name in libc6 libstdc++6; do
    field Depends | grep -qF "$name (>= " || fail "depends on $name of a version: $(field Depends)"
done
if field Depends | grep -q gtk; then fail "the library and the command need no toolkit"; fi
if [ -e "$library/ConvertNastranGtk.so" ]; then
    field Recommends | grep -qF "libgtk-3-0 (>= " || fail "recommends the toolkit of the windows: $(field Recommends)"
fi
for file in control md5sums shlibs triggers; do
    [ -n "$(dpkg-deb -I "$package" $file)" ] || fail "$file is empty"
done
cmp "$usr/share/doc/convertnastran/copyright" LICENSE
gzip -dc "$usr/share/doc/convertnastran/changelog.gz" | grep -q "^convertnastran ($(field Version)) .*" || fail "changelog"
gzip -dc "$usr/share/man/man1/nas2zdt.1.gz" | cmp - docs/nas2zdt.1
for file in bash-completion/completions/nas2zdt zsh/vendor-completions/_nas2zdt doc/convertnastran/examples/read_zdt.py; do
    [ -s "$usr/share/$file" ] || fail "$file isn't there"
done
for check in paths exports hardening; do
    python3 tests/binaries/binaries_test.py $check "$usr" >"$work/found" || fail "$(cat "$work/found")"
done

cp examples/portal_frame.dat "$work/deck.dat"
"$usr/bin/nas2zdt" "$work/deck.dat" >"$work/log"
cmp "$work/deck.zdt" examples/portal_frame.zdt
grep -q 'must be a NASTRAN bulk data deck' "$work/log" # the message library was found

# a host by find_package
mkdir "$work/host"
cp examples/hosts/convert.cpp "$work/host"
cat >"$work/host/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.22)
project(host LANGUAGES CXX)
find_package(ConvertNastran REQUIRED)
add_executable(host convert.cpp)
target_compile_features(host PRIVATE cxx_std_20)
target_link_libraries(host PRIVATE ConvertNastran::ConvertNastran)
END
cmake -S "$work/host" -B "$work/host/build" -G Ninja -DCMAKE_PREFIX_PATH="$usr" >/dev/null
cmake --build "$work/host/build" >/dev/null
expected=$(printf 'result: 0\npath: %s/deck.zdt' "$work")
passed=2 # the package and the command
convert() { # convert HOST...: types the deck's path and looks at what the host says of it
    rm -f "$work/deck.zdt"
    told=$(echo "$work/deck.dat" | env -u DISPLAY -u WAYLAND_DISPLAY LD_LIBRARY_PATH="$library" "$@" | tail -n 2)
    [ "$told" = "$expected" ] || fail "$*: $told"
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

# without dialogs: the library for programs, from C and from Python
cp examples/hosts/library.c "$work/host"
cat >"$work/host/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.25)
project(host LANGUAGES C CXX)
find_package(ConvertNastran REQUIRED)
add_executable(host library.c)
target_link_libraries(host PRIVATE ConvertNastran::nas2zdt)
END
cmake -S "$work/host" -B "$work/host/library" -G Ninja -DCMAKE_PREFIX_PATH="$usr" >/dev/null
cmake --build "$work/host/library" >/dev/null
convert_file() { # convert_file COMMAND...: converts the deck by the command with DECK TARGET added
    rm -f "$work/deck.zdt"
    LD_LIBRARY_PATH="$library" "$@" "$work/deck.dat" "$work/deck.zdt" >"$work/log" 2>&1 || fail "$*: $(cat "$work/log")"
    cmp "$work/deck.zdt" examples/portal_frame.zdt
    passed=$((passed + 1))
}
convert_file "$work/host/library/host"
if command -v pkg-config >/dev/null; then
    # shellcheck disable=SC2046 # flags
    gcc examples/hosts/library.c -o "$work/library" $(pkg-config --cflags --libs nas2zdt)
    convert_file "$work/library"
fi
PYTHONPATH=$usr/lib/python3/dist-packages convert_file python3 -c 'import nas2zdt, sys; nas2zdt.convert(*sys.argv[1:])'

# by name
gcc -I Converter/ConvertNastran examples/host/host.c -o "$work/loaded"
convert "$work/loaded"
convert python3 examples/hosts/convert.py "$library/libConvertNastran.so"
echo "$passed passed, 0 failed"
