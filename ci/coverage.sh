#!/usr/bin/env bash
# Line coverage of the engine by its own tests: 90% of the library, 95% of shx/, shapes/ and model/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/build.sh coverage
find build/coverage -name '*.gcda' -delete
ctest --test-dir build/coverage --no-tests=error --output-on-failure --parallel "$(nproc)" \
    -L engine >build/coverage-tests.log || { tail -n 60 build/coverage-tests.log >&2; exit 1; }

gcovr --root . --filter libs/ZTDrawEngineLib/ --exclude '.*_autogen.*' \
    --exclude-unreachable-branches --gcov-ignore-parse-errors -j "$(nproc)" \
    --json build/coverage.json build/coverage >build/coverage.log 2>&1 ||
    { tail -n 20 build/coverage.log >&2; exit 1; }

lines_of() { # FOLDER LEAST
    echo "-- $1: at least $2%"
    gcovr --root . --add-tracefile build/coverage.json --filter "$1" --fail-under-line "$2" \
        --print-summary | grep -E '^lines'
}
lines_of libs/ZTDrawEngineLib/ 90
for folder in shx shapes model; do
    lines_of "libs/ZTDrawEngineLib/$folder/" 95
done
