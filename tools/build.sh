#!/usr/bin/env bash
# Configures and builds a preset quietly: tools/build.sh PRESET [CMAKE-OPTION...]
# Everything the tools print goes to build/PRESET.log, which is shown when something fails.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
preset=$1
shift

cd "$top"
mkdir -p build
export CCACHE_MAXSIZE=${CCACHE_MAXSIZE:-20G} # all presets of one tree take 5 GB
log=build/$preset.log
echo "Building ($preset) ..."
if ! { cmake --preset "$preset" "$@" && cmake --build --preset "$preset"; } >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    echo "tools/build.sh: building '$preset' failed; the whole log is $log" >&2
    exit 1
fi
