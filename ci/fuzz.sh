#!/usr/bin/env bash
# Fuzzes every target for a while, starting from its corpus: ci/fuzz.sh [SECONDS [NAME...]]
# ci/fuzz.sh smoke makes a fixed number of runs from a fixed seed, the same at every call, with what
# ci/sanitizers.sh has built; for long runs the targets are built alone, and are quicker.
# What it finds is left in build/fuzz-findings; add it to fuzz/corpus/NAME with the fix.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset=fuzz
how=(-max_total_time="${1:-60}")
corpus=build/fuzz-corpus
if [ "${1:-}" = smoke ]; then
    preset=asan-ubsan
    how=(-runs=1500 -seed=1)
    corpus=$(mktemp -d)
    trap 'rm -rf "$corpus"' EXIT
fi
names=("${@:2}")
if [ ${#names[@]} -eq 0 ]; then
    for source in fuzz/fuzz_*.cpp; do
        source=${source#fuzz/fuzz_}
        names+=("${source%.cpp}")
    done
fi

tools/build.sh "$preset"
findings=$PWD/build/fuzz-findings
mkdir -p "$findings"
# Threads that wait for the next parallel loop would take most of the time of a small input.
export OMP_WAIT_POLICY=passive LLVM_PROFILE_FILE=/dev/null
export QT_QPA_PLATFORM=offscreen LSAN_OPTIONS=suppressions=$PWD/ci/lsan.supp:print_suppressions=0

fuzz() { # NAME: its output stands together, however many run beside it
    local name=$1 told
    mkdir -p "$corpus/$name"
    told=$("build/$preset/fuzz/fuzz_$name" "${how[@]}" -timeout=20 -rss_limit_mb=4096 \
        -print_final_stats=1 -verbosity=0 -artifact_prefix="$findings/$name-" \
        "$corpus/$name" "fuzz/corpus/$name" 2>&1) && local passed=0 || local passed=1
    printf -- '-- %s\n%s\n' "$name" "$told"
    return $passed
}
failed=0
for name in "${names[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$(nproc)" ]; do
        wait -n || failed=1
    done
    fuzz "$name" &
done
while [ -n "$(jobs -p)" ]; do
    wait -n || failed=1
done
exit $failed
