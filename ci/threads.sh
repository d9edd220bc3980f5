#!/usr/bin/env bash
# Data races: the tests of what works in threads, under the thread sanitizer.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/build.sh threads
export TSAN_OPTIONS=suppressions=$PWD/ci/tsan.supp:halt_on_error=0:second_deadlock_stack=1
ctest --test-dir build/threads --no-tests=error --output-on-failure --parallel "$(nproc)" \
    -L threads
