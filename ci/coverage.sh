#!/usr/bin/env bash
# Line coverage of the tests: 90% of the library, 95% of shapes/ and model/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/build.sh coverage
find build/coverage -name '*.gcda' -delete
ctest --test-dir build/coverage --no-tests=error --output-on-failure --parallel "$(nproc)" -LE 'package|slow' >build/coverage-tests.log ||
    { tail -n 60 build/coverage-tests.log >&2; exit 1; }

lines_of() { # FOLDER LEAST
    echo "-- $1: at least $2%"
    gcovr --root . --filter "$1" --exclude-unreachable-branches --fail-under-line "$2" \
        --exclude '.*_autogen.*' --gcov-ignore-parse-errors --print-summary build/coverage |
        grep -E '^(lines|TOTAL)'
}
lines_of libs/ZTDrawEngineLib/ 90
lines_of libs/ZTDrawEngineLib/shapes/ 95
lines_of libs/ZTDrawEngineLib/model/ 95
