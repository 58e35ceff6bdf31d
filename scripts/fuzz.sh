#!/bin/sh
# Builds the fuzz targets and runs each for some seconds: fuzz.sh [SECONDS [TARGET...]]
# What was reached is kept in build/fuzz/corpus, so that a later run goes on from there; an input that shows a fault is
# left in build/fuzz/findings. Where clang's fuzzing runtime can't be had, nothing is done.
set -eu
cd "$(dirname "$0")/.."
. scripts/packages.sh
seconds=${1:-20}
[ $# -eq 0 ] || shift
targets=${*:-deck include field restate check}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
can_fuzz() {
    echo 'extern "C" int LLVMFuzzerTestOneInput(const unsigned char*, unsigned long) { return 0; }' >"$scratch/empty.cpp"
    clang++ -fsanitize=fuzzer,address,undefined "$scratch/empty.cpp" -o "$scratch/empty" 2>"$scratch/why"
}
if ! can_fuzz; then
    install_packages clang libclang-rt-14-dev >"$scratch/install" 2>&1 || true
    if ! can_fuzz; then
        cat "$scratch/why"
        echo "skipped: no clang with its fuzzing runtime here"
        exit 0
    fi
fi
cmake --preset fuzz
# shellcheck disable=SC2046,SC2086 # several words
cmake --build --preset fuzz --target $(printf 'fuzz_%s ' $targets)

# Files of the runs belong in memory.
for folder in /dev/shm "${TMPDIR:-/tmp}"; do
    [ -d "$folder" ] && [ -w "$folder" ] && break
done
runs=$(mktemp -d "$folder/nas2zdt-fuzz-XXXXXX")
trap 'rm -rf "$scratch" "$runs"' EXIT

corpus=$PWD/build/fuzz/corpus
findings=$PWD/build/fuzz/findings
bin=$PWD/build/fuzz/bin
mkdir -p "$corpus/deck" "$corpus/include" "$corpus/field" "$corpus/restate" "$corpus/check" "$findings"
for deck in examples/*.dat; do
    cp "$deck" "$corpus/deck/"
    cp "$deck" "$corpus/restate/"
    cp "$deck" "$corpus/check/"
    { printf "BEGIN BULK\nINCLUDE,A.DAT\nINCLUDE 'b.dat'\n"; cat "$deck"; printf '\036BEGIN BULK\nINCLUDE B.DAT\n'
      cat "$deck"; printf '\036'; cat "$deck"; } >"$corpus/include/$(basename "$deck")"
done
cd "$scratch"
export ASAN_OPTIONS="${ASAN_OPTIONS:-malloc_context_size=2:quarantine_size_mb=16}" # for speed
for target in $targets; do
    echo "--- $target, $seconds s"
    log=$scratch/$target.log
    # A run that takes seconds or gigabytes is a fault too.
    if ! TMPDIR=$runs nice "$bin/fuzz_$target" "$corpus/$target" -max_total_time="$seconds" -max_len=4096 -entropic=0 -timeout=20 \
        -rss_limit_mb=2048 -reload=0 -print_final_stats=1 -verbosity=1 -artifact_prefix="$findings/$target-" \
        >"$log" 2>&1; then
        tail -n 60 "$log"
        exit 1
    fi
    grep -E '^(Done|stat::(number_of_executed|average_exec|peak_rss))' "$log"
done
