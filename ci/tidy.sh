#!/usr/bin/env bash
# Static analysis of libraries and programs: clang-tidy with the checks of .clang-tidy, then clazy.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Only the compile commands are needed, nothing is built.
mkdir -p build
cmake --preset tidy -DCMAKE_CXX_CLANG_TIDY= >build/tidy.log 2>&1 || { cat build/tidy.log >&2; exit 1; }
mapfile -t sources < <(git ls-files 'libs/*.cpp' 'apps/*.cpp')

run_on_sources() {
    printf '%s\0' "${sources[@]}" | xargs -0 -n 4 -P "$(nproc)" "$@"
}

run_on_sources clang-tidy -p build/tidy --quiet --warnings-as-errors='*' 2>/dev/null
# Not asked for: the items' properties have the signals that they are meant to have; loops run over
# temporaries, which have nothing to detach from; tables of commands are static on purpose.
run_on_sources clazy-standalone -p build/tidy -header-filter='libs/.*' \
    -checks=level1,no-qproperty-without-notify,no-range-loop-detach,no-non-pod-global-static \
    >build/clazy.log 2>&1
if grep -q 'warning:' build/clazy.log; then
    grep 'warning:' build/clazy.log | sort -u >&2
    exit 1
fi
