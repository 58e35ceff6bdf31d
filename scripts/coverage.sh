#!/bin/sh
# Passes all tests and tells how many lines and branches of the sources they ran through. The lines that they didn't are
# in build/coverage/report/index.html. Branches of exceptions that the compiler adds aren't counted.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh
scripts/setup.sh
require gcovr gcovr
build=build/coverage
cmake --preset coverage -DCONVERTNASTRAN_TESTS=ON
cmake --build --preset coverage
find $build -name '*.gcda' -delete # of an earlier run
ctest --preset coverage --parallel "$(nproc)"
mkdir -p $build/report
gcovr --root . --object-directory $build --filter 'Converter/' --filter 'platform/' --filter 'nas2zdt/' \
    --exclude-throw-branches --exclude-unreachable-branches -j "$(nproc)" \
    --html-details $build/report/index.html --txt $build/report/lines.txt --print-summary
