#!/usr/bin/env bash
# Benchmarks: ci/bench.sh shows figures; ci/bench.sh smoke only runs each once, briefly.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/build.sh bench
export QT_QPA_PLATFORM=offscreen
for program in build/bench/bench/bench_*; do
    echo "-- $(basename "$program")"
    if [ "${1:-}" = smoke ]; then
        ZT_BENCH_SMOKE=1 "$program" --benchmark_min_time=0.001 >/dev/null
    else
        "$program"
    fi
done
