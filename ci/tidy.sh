#!/usr/bin/env bash
# Static analysis of libraries and programs: clang-tidy with the checks of .clang-tidy, then clazy.
# A source that passed is not analysed again as long as nothing that it compiles, no check and no
# tool has changed; what passed is remembered in ZT_TIDY_CACHE (by default in ~/.cache/zt-tidy).
# ci/tidy.sh FILE... takes these alone; without, all but those that ci/tidy-waiting.txt names.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Only the compile commands are needed, nothing is built.
mkdir -p build
cmake --preset tidy -DCMAKE_CXX_CLANG_TIDY= >build/tidy.log 2>&1 || { cat build/tidy.log >&2; exit 1; }
sources=("$@")
if [ $# -eq 0 ]; then
    mapfile -t sources < <(git ls-files 'libs/*.cpp' 'apps/*.cpp' |
        grep -vxF -f <(grep -v '^#' ci/tidy-waiting.txt))
    echo "$(grep -vc '^#' ci/tidy-waiting.txt) sources wait for their first analysis (ci/tidy-waiting.txt)"
fi

export ZT_TIDY_CACHE=${ZT_TIDY_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/zt-tidy}
mkdir -p "$ZT_TIDY_CACHE"
python3 - build/tidy/compile_commands.json build/tidy/commands <<'PYTHON'
"""One file a source: the arguments with which it is preprocessed, one a line."""
import json, os, shlex, sys
for entry in json.load(open(sys.argv[1], encoding="utf-8")):
    words = shlex.split(entry["command"])
    while not words[0].endswith(("clang++", "clang++-14")):
        words.pop(0)
    keep, skip = [], False
    for word in words[1:]:
        if skip or word in ("-c", entry["file"]):
            skip = False
        elif word in ("-o", "-MF", "-MT"):
            skip = True
        elif word != "-MD":
            keep.append(word)
    name = os.path.relpath(entry["file"]).replace("/", "%")
    os.makedirs(sys.argv[2], exist_ok=True)
    with open(os.path.join(sys.argv[2], name), "w", encoding="utf-8") as out:
        out.write("\n".join(shlex.quote(word) for word in keep))
PYTHON

analyse() { # FILE
    local source=$1 key log arguments=build/tidy/commands/${1//\//%}
    [ -e "$arguments" ] || { echo "$source: belongs to no target" >&2; return 1; }
    key=$( { cat .clang-tidy ci/tidy.sh; clang-tidy --version; dpkg-query -W clazy
        clang++ @"$arguments" -E -C -P "$source"; } 2>&1 | sed "s|$PWD||g" | sha256sum | cut -c1-64)
    [ ! -e "$ZT_TIDY_CACHE/$key" ] || return 0
    clang-tidy -p build/tidy --quiet --warnings-as-errors='*' "$source" 2>/dev/null || return 1
    # Not asked for: the items' properties have the signals that they are meant to have; loops run
    # over temporaries, which have nothing to detach from; tables of commands are static on purpose.
    log=$(clazy-standalone -p build/tidy -header-filter='libs/.*' \
        -checks=level1,no-qproperty-without-notify,no-range-loop-detach,no-non-pod-global-static \
        "$source" 2>&1) || { echo "$log" >&2; return 1; }
    if grep 'warning:' <<<"$log" >&2; then
        return 1
    fi
    : >"$ZT_TIDY_CACHE/$key"
}
export -f analyse
printf '%s\0' "${sources[@]}" |
    xargs -0 -n 1 -P "$(nproc)" bash -c 'analyse "$1"' analyse
