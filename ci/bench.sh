#!/usr/bin/env bash
# Benchmarks: ci/bench.sh shows figures; ci/bench.sh smoke only runs each once, briefly, and leaves
# out the largest sizes, which take minutes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/build.sh bench
export QT_QPA_PLATFORM=offscreen
for source in bench/bench_*.cpp; do
    program=build/bench/bench/$(basename "$source" .cpp)
    echo "-- $(basename "$program")"
    if [ "${1:-}" = smoke ]; then
        # One that cannot do its work says so in its row and ends well all the same.
        "$program" --benchmark_min_time=0.001 --benchmark_filter=-/100000 >build/bench-smoke.txt
        if grep 'ERROR OCCURRED' build/bench-smoke.txt >&2; then
            exit 1
        fi
    else
        "$program"
    fi
done
