#!/usr/bin/env bash
# The second compiler, warnings as errors, and the tests on what it made.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/build.sh clang
ctest --test-dir build/clang --no-tests=error --output-on-failure --parallel "$(nproc)"
