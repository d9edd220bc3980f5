#!/usr/bin/env bash
# check.sh PROGRAM EXPECTED: what the program prints is what is expected, to the letter.
set -euo pipefail
"$1" | diff - "$2"
