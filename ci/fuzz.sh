#!/usr/bin/env bash
# Fuzzes every target for a while, starting from its corpus: ci/fuzz.sh [SECONDS]
# ci/fuzz.sh smoke makes a fixed number of runs from a fixed seed, the same at every call.
# What it finds is left in build/fuzz-findings; add it to fuzz/corpus/NAME with the fix.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
how=(-max_total_time="${1:-60}")
corpus=build/fuzz-corpus
if [ "${1:-}" = smoke ]; then
    how=(-runs=1500 -seed=1)
    corpus=$(mktemp -d)
fi

tools/build.sh fuzz
findings=$PWD/build/fuzz-findings
mkdir -p "$findings"
# Threads that wait for the next parallel loop would take most of the time of a small input.
export OMP_WAIT_POLICY=passive
export QT_QPA_PLATFORM=offscreen LSAN_OPTIONS=suppressions=$PWD/ci/lsan.supp:print_suppressions=0
for source in fuzz/fuzz_*.cpp; do
    target=$(basename "$source" .cpp)
    grown=$corpus/$target
    mkdir -p "$grown"
    echo "-- $target"
    build/fuzz/fuzz/"$target" "${how[@]}" -timeout=20 -rss_limit_mb=4096 \
        -print_final_stats=1 -verbosity=0 -artifact_prefix="$findings/$target-" \
        "$grown" "fuzz/corpus/${target#fuzz_}"
done
