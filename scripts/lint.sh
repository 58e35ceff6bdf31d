#!/bin/sh
# Passes the sources to clang-tidy (.clang-tidy) and cppcheck (scripts/cppcheck.supp), the scripts to shellcheck, and the
# comments of headers to Doxygen. What they find is an error. "lint.sh quick" does without clang-tidy's walks along paths, which take a third of its time.
# Installs the tools where they are missing. Sources that aren't built here are left out: those of Windows, and those of
# desktop windows and microbenchmarks where their libraries are missing.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh
require "clang-tidy cppcheck shellcheck doxygen clang++ cmake ninja" \
    "clang clang-tidy clang-tools cppcheck shellcheck doxygen cmake ninja-build"
build=build/lint
checks=
[ "${1:-}" != quick ] || checks='-checks=-clang-analyzer-*'
jobs=$(nproc)
cmake -S . -B $build -G Ninja -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DCONVERTNASTRAN_TESTS=OFF \
    -DCONVERTNASTRAN_BENCH=ON -DCONVERTNASTRAN_FUZZ=ON -DCONVERTNASTRAN_VIEWER=OFF >/dev/null

echo "== shellcheck"
git ls-files '*.sh' '*.bash' | xargs shellcheck -x

echo "== doxygen"
cmake --build $build --target docs

echo "== cppcheck"
cppcheck --project=$build/compile_commands.json --enable=warning,performance,portability --std=c++20 --quiet -j "$jobs" \
    --suppress=missingIncludeSystem --suppressions-list=scripts/cppcheck.supp --error-exitcode=1

echo "== clang-tidy"
git ls-files '*.c' '*.cpp' |
    while read -r file; do
        if grep -qF "\"$PWD/$file\"" $build/compile_commands.json; then echo "$file"; fi
    done |
    xargs -P "$jobs" -n 4 clang-tidy -quiet ${checks:+"$checks"} -p $build >$build/found 2>$build/progress || {
    cat $build/found
    exit 1
}
echo "no findings"
