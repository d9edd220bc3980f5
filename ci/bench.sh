#!/usr/bin/env bash
# Benchmarks: ci/bench.sh shows figures; ci/bench.sh smoke only runs each once, briefly, and leaves
# out the largest sizes, which take minutes.
#
# ci/bench.sh compare REV [NAME...] builds the benchmarks of another revision beside these, runs
# both in one run and shows before and after; it fails when a row takes more than 20 % longer than
# it did. With names only those programs: `compare main hatch scene`.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export QT_QPA_PLATFORM=offscreen

# Its tree stays in the build folder, so that a second comparison builds little.
tree_of() {
    local tree=build/compare commit
    commit=$(git rev-parse --verify --quiet "$1^{commit}") || {
        echo "ci/bench.sh: no such revision: $1" >&2
        return 1
    }
    if [ -e "$tree/.git" ]; then
        git -C "$tree" checkout --quiet --force --detach "$commit"
    else
        git worktree prune
        git worktree add --quiet --force --detach "$tree" "$commit"
    fi
    echo "$tree"
}

if [ "${1:-}" = compare ]; then
    revision=${2:?ci/bench.sh compare REV [NAME...]}
    before=$(tree_of "$revision")
    "$before/tools/build.sh" bench
    tools/build.sh bench
    exec ci/bench_compare.py "$before/build/bench/bench" build/bench/bench "${@:3}"
fi

tools/build.sh bench
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
