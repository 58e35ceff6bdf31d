#!/bin/sh
# Whether the page of --report shows in a real browser what it should. Exits 0 and says "skipped: ..." if a package that
# this needs can't be had. BUILD=FOLDER is the build that is tested, made if it isn't there.
set -eu
cd "$(dirname "$0")/.."
# shellcheck source=scripts/packages.sh
. scripts/packages.sh
need "cmake ninja g++ node npm chromium /usr/include/zlib.h /usr/include/openssl/evp.h /usr/include/gtest/gtest.h" \
  "cmake ninja-build g++ nodejs npm chromium zlib1g-dev libssl-dev libgtest-dev"

build=$PWD/${BUILD:-build/release}
packages=$build/viewer-tests
mkdir -p "$packages"
cp -r viewer/. "$packages"
if ! (cd "$packages" && npm ci --ignore-scripts --prefer-offline --no-audit --no-fund --fetch-retries=1 >npm.log 2>&1); then
  echo "skipped: npm can't get the packages of the viewer: $(grep -m 1 -E '^npm (error|ERR!)' "$packages/npm.log")"
  exit 0
fi

echo "== types"
(cd "$packages" && npx tsc --noEmit)

echo "== in the browser"
cmake --preset release -B "$build" -DCONVERTNASTRAN_VIEWER=ON >/dev/null
cmake --build "$build" --target nas2zdt
CHROMIUM=$(command -v chromium) NAS2ZDT=$build/bin/nas2zdt VIEWER_PACKAGES=$packages EXAMPLES=$PWD/examples \
  node --test --test-reporter=spec tests/report/browser/
