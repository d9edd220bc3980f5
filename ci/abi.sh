#!/usr/bin/env bash
# Holds the shared libraries of a release build against what their version promised:
# ci/abi.sh [BUILD] compares with abi/MAJOR.MINOR, ci/abi.sh --write [BUILD] writes that folder
# anew. BUILD is build/release unless it is given. Names and types of the public headers alone count;
# additions are shown and allowed.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
write=false
if [ "${1:-}" = --write ]; then
    write=true
    shift
fi
build=${1:-build/release}
version=$(head -n 1 version.txt)
promised=abi/${version%.*}
libraries=(QtPropertyBrowser ZTMarkDataManager ZTDrawEngineLib)

dump() { # LIBRARY
    abidw --headers-dir "libs/$1" --drop-private-types --no-corpus-path --no-comp-dir-path \
        --no-show-locs --drop-undefined-syms \
        "$build/lib/lib$1.so"
}

if $write; then
    mkdir -p "$promised"
    for library in "${libraries[@]}"; do
        dump "$library" | xz -9 >"$promised/$library.abi.xz"
    done
    ls -l "$promised"
    exit
fi

[ -d "$promised" ] || {
    echo "ci/abi.sh: nothing was promised for ${version%.*} yet; ci/abi.sh --write does" >&2
    exit 1
}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
passed=true
for library in "${libraries[@]}"; do
    xz -dc "$promised/$library.abi.xz" >"$scratch/promised.abi"
    dump "$library" >"$scratch/now.abi"
    # Bits of the result: 1 error, 2 wrong use, 4 something changed, 8 something incompatible.
    result=0
    abidiff --no-added-syms "$scratch/promised.abi" "$scratch/now.abi" >"$scratch/changes" || result=$?
    if [ "$result" -ne 0 ]; then
        echo "lib$library.so does not keep what ${version%.*} promised:" >&2
        cat "$scratch/changes" >&2
        passed=false
    fi
done
$passed
echo "abi: ${libraries[*]} keep what ${version%.*} promised"
