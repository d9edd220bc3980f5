#!/usr/bin/env bash
# Fuzzes every target for a while, starting from its corpus: ci/fuzz.sh [SECONDS]
# What it finds is left in build/fuzz-findings; add it to fuzz/corpus/NAME with the fix.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds=${1:-60}

tools/build.sh fuzz
findings=$PWD/build/fuzz-findings
mkdir -p "$findings"
export QT_QPA_PLATFORM=offscreen LSAN_OPTIONS=suppressions=$PWD/ci/lsan.supp:print_suppressions=0
for source in fuzz/fuzz_*.cpp; do
    target=$(basename "$source" .cpp)
    grown=build/fuzz-corpus/$target
    mkdir -p "$grown"
    echo "-- $target, $seconds s"
    build/fuzz/fuzz/"$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 \
        -print_final_stats=1 -verbosity=0 -artifact_prefix="$findings/$target-" \
        "$grown" "fuzz/corpus/${target#fuzz_}"
done
