#!/usr/bin/env bash
# The binary interface of the shared libraries against that of the last release, which stands in
# packaging/abi/VERSION: a program that runs with the release runs with this tree. What was added is
# compatible. A tree of a later minor version is compared with nothing: it may change all.
#
# ci/abi.sh dump, at a release, writes what stands here as that of version.txt.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C
libraries=(ZTMarkDataManager QtPropertyBrowser ZTDrawEngineLib)
version=$(head -n 1 version.txt)

# What hosts can see: types that no installed header defines are ours to change.
public_headers() { # FOLDER
    rm -rf "$1"
    mkdir -p "$1"
    local library
    for library in "${libraries[@]}"; do
        find "libs/$library" -name '*.h' ! -name '*_p.h' ! -path '*/types/*' ! -path '*/editors/*' \
            ! -path '*/hatch/*' -exec cp --parents -t "$1" {} +
    done
}

dump_of() { # LIBRARY FILE
    abidw --headers-dir build/abi/headers --drop-private-types --drop-undefined-syms \
        --suppressions packaging/abi/ignored.abignore \
        --no-show-locs --no-comp-dir-path --no-corpus-path --type-id-style hash \
        --exported-interfaces-only --out-file "$2" "build/abi/lib/lib$1.so"
    [ -s "$2" ]
}

tools/build.sh abi
public_headers build/abi/headers
now=build/abi/dumps
rm -rf "$now"
mkdir -p "$now"
for library in "${libraries[@]}"; do
    dump_of "$library" "$now/$library.abi"
done

if [ "${1:-}" = dump ]; then
    mkdir -p "packaging/abi/$version"
    for library in "${libraries[@]}"; do
        xz -9e -c "$now/$library.abi" >"packaging/abi/$version/$library.abi.xz"
    done
    ls -l "packaging/abi/$version"
    exit 0
fi

# The last release that this version promises to run in place of.
release=$(ls -d packaging/abi/"${version%.*}".* 2>/dev/null | sort -V | tail -n 1 || true)
if [ -z "$release" ]; then
    echo "ci/abi.sh: ${version%.*} has no release yet: programs are built anew for it"
    exit 0
fi
broken=()
for library in "${libraries[@]}"; do
    before=$now/$library.release.abi
    xz -dc "$release/$library.abi.xz" >"$before"
    abidiff --no-added-syms --suppressions packaging/abi/ignored.abignore \
        "$before" "$now/$library.abi" || broken+=("$library")
done
if [ ${#broken[@]} -gt 0 ]; then
    cat >&2 <<END
ci/abi.sh: programs that were built with $(basename "$release") would not run with: ${broken[*]}
Keep what was there: add beside it, and mark the old ZT_DEPRECATED (docs/stability.md). Where the
change must be, it needs the next minor version in version.txt. Before $version is released, its dump
is made anew: ci/abi.sh dump.
END
    exit 1
fi
echo "The binary interface of $(basename "$release") stands."
