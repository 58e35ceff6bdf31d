#!/bin/sh
# Installs what building and testing need, where it is missing. Needs Debian's package manager, and root or sudo.
set -eu
missing=
need() { # need COMMAND-OR-FILE PACKAGE
    command -v "$1" >/dev/null 2>&1 || [ -e "$1" ] || missing="$missing $2"
}
need g++ g++
need cmake cmake
need ninja ninja-build
need python3 python3
need /usr/include/gtest/gtest.h libgtest-dev
[ -n "$missing" ] || exit 0
sudo=
[ "$(id -u)" -eq 0 ] || sudo=sudo
$sudo apt-get update -q
# shellcheck disable=SC2086 # a list of packages
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -q -y --no-install-recommends $missing
