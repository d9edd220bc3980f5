#!/usr/bin/env bash
# Makes the pictures of the user manual anew, in both languages, by the studio itself: into docs/images.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

"$top/tools/setup.sh" build pictures
cmake --preset dev -S "$top" >"$top/build/pictures.log"
cmake --build "$top/build/dev" --target studioshots >>"$top/build/pictures.log"
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
"$top/build/dev/bin/studioshots" "$made" --manual
for picture in "$made"/*.png; do
    # Few colours are enough for a window, and make the file a quarter.
    convert "$picture" -dither None -colors 64 -strip "$top/docs/images/$(basename "$picture")"
done
ls -l "$top"/docs/images/manual-*.png
