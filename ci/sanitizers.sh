#!/usr/bin/env bash
# The second compiler, warnings as errors; all tests under the address, leak and undefined behaviour
# sanitizers on what it made.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/build.sh asan-ubsan
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1
export LSAN_OPTIONS=suppressions=$PWD/ci/lsan.supp:print_suppressions=0
# Here a step takes four times as long; all the steps are made in ./test.
export ZT_MONKEY_STEPS=${ZT_MONKEY_STEPS:-2000}
export UBSAN_OPTIONS=print_stacktrace=1
ctest --test-dir build/asan-ubsan --no-tests=error --output-on-failure --parallel "$(nproc)" -LE package
