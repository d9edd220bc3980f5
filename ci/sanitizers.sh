#!/usr/bin/env bash
# The second compiler, warnings as errors; all tests under the address, leak and undefined behaviour
# sanitizers on what it made. Those of the engine count which of its lines they reach, for
# ci/coverage.py.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/build.sh asan-ubsan
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1
export LSAN_OPTIONS=suppressions=$PWD/ci/lsan.supp:print_suppressions=0
# Here a step takes four times as long; all the steps are made in ./test.
export ZT_MONKEY_STEPS=${ZT_MONKEY_STEPS:-2000}
export UBSAN_OPTIONS=print_stacktrace=1

counts=build/asan-ubsan/coverage
rm -rf "$counts"
run() { # WHERE-COUNTS-GO CTEST-OPTION...
    LLVM_PROFILE_FILE=$1 ctest --test-dir build/asan-ubsan --no-tests=error --output-on-failure \
        --parallel "$(nproc)" "${@:2}"
}
passed=true
run "$PWD/$counts/%4m.profraw" -L engine || passed=false
run /dev/null -LE 'engine|package' || passed=false
$passed
