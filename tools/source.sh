#!/usr/bin/env bash
# Writes the source archive of the last commit, which builds without git: tools/source.sh [FILE]
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

name=ztdrawengine-$(head -n 1 "$top/version.txt")
file=${1:-$top/build/$name.tar.xz}
mkdir -p "$(dirname "$file")"
git -C "$top" archive --format=tar --prefix="$name/" HEAD | xz -T0 -c >"$file.part"
mv "$file.part" "$file"
