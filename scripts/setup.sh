#!/bin/sh
# Installs what building and testing need, where it is missing. Needs Debian's package manager, and root or sudo.
set -eu
# shellcheck source=scripts/packages.sh
. "$(dirname "$0")/packages.sh"
packages=
for pair in g++:g++ cmake:cmake ninja:ninja-build python3:python3 readelf:binutils /usr/include/gtest/gtest.h:libgtest-dev; do
    [ -z "$(missing_of "${pair%:*}")" ] || packages="$packages ${pair#*:}"
done
# shellcheck disable=SC2086 # a list
[ -z "$packages" ] || install_packages $packages
