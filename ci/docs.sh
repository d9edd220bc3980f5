#!/usr/bin/env bash
# Reference from the public headers; an undocumented or wrongly documented parameter is an error.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mkdir -p build/docs
doxygen docs/Doxyfile
