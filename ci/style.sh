#!/usr/bin/env bash
# Every source stands as clang-format lays it out, and every script parses.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run --Werror
for script in run test .ci/run ci/*.sh tools/*.sh tests/package/*.sh; do
    bash -n "$script"
done
