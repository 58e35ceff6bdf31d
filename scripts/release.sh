#!/bin/sh
# Makes all packages of what is committed, in build/packages/VERSION: release.sh [VERSION]. With VERSION it must be that
# of the project, and CHANGELOG.md must say that it is released. Packages whose tools aren't there and can't be installed
# are left out, and named at the end.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh

fail() {
    echo "failed: $1" >&2
    exit 1
}

scripts/setup.sh
require "git sha256sum" "git coreutils"
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
if [ $# -gt 0 ]; then
    [ "$1" = "$version" ] || fail "the project is of version $version"
    grep -q "^## $version" CHANGELOG.md || fail "CHANGELOG.md doesn't know version $version"
    if grep "^## $version" CHANGELOG.md | grep -q 'not yet'; then fail "CHANGELOG.md says that $version isn't released"; fi
fi
[ -z "$(git status --porcelain)" ] || fail "there is something that isn't committed"

SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
TZ=UTC0 # zip archives have local times
export SOURCE_DATE_EPOCH TZ
packages=$PWD/build/packages/$version
rm -rf "$packages"
mkdir -p "$packages"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

omitted=
omit() { # omit WHAT WHY
    omitted="$omitted
  $1: $2"
}
wheel=
python=/usr/lib/python3/dist-packages
if have "$python/build $python/setuptools $python/wheel" "python3-build python3-setuptools python3-wheel"; then
    wheel=yes
else
    omit wheels "$missing"
fi
have "node npm" "nodejs npm" || : # CMake tells what it does without

# build PRESET: into build/package-PRESET, and a wheel of it
build() {
    build=build/package-$1
    rm -rf "$build"
    cmake --preset "$1" -B "$build" -DCONVERTNASTRAN_TESTS=OFF -DCONVERTNASTRAN_EXAMPLES=OFF >"$work/configured"
    without=$(sed -n "/isn't there\|built without/s/^-- //p" "$work/configured")
    [ -z "$without" ] || omit "from packages of $1" "$without"
    cmake --build "$build" -j"${JOBS:-$(nproc)}"
    if [ -n "$wheel" ]; then
        cmake --build "$build" --target wheel
        cp "$build"/wheel/*.whl "$packages"
    fi
}
# pack PRESET GENERATOR SUFFIX
pack() {
    cpack --config "build/package-$1/CPackConfig.cmake" -G "$2" -B "$work/$1-$2"
    cp "$work/$1-$2"/*"$3" "$packages"
}

echo "== source"
git archive --prefix="convertnastran-$version/" HEAD | gzip -9 -n >"$packages/convertnastran-$version.tar.gz"

echo "== Linux"
have pkg-config:gtk+-3.0 "libgtk-3-dev pkg-config" || omit "the windows of a desktop on Linux" "$missing"
have "/usr/include/zlib.h /usr/include/openssl/sha.h" "zlib1g-dev libssl-dev" || :
build release
pack release TGZ .tar.gz
if have dpkg-shlibdeps dpkg-dev; then pack release DEB .deb; else omit "the Debian package" "$missing"; fi

echo "== Windows"
if have x86_64-w64-mingw32-g++-posix g++-mingw-w64-x86-64-posix; then
    have /usr/x86_64-w64-mingw32/include/zlib.h libz-mingw-w64-dev || :
    have makensis nsis || omit "the installer for Windows" "$missing"
    build windows
    pack windows ZIP .zip
    ! command -v makensis >/dev/null || pack windows NSIS .exe
else
    omit "the packages for Windows" "$missing"
fi

(cd "$packages" && sha256sum -- * >"$work/SHA256SUMS" && mv "$work/SHA256SUMS" .)
echo "== $packages"
ls -l "$packages"
[ -z "$omitted" ] || echo "left out, for what isn't there:$omitted"
