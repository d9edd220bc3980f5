#!/usr/bin/env bash
# The site in build/docs/html and the same as Qt help, build/docs/ztdrawengine.qch: guides, manual
# and reference, with pictures that the program makes. An undocumented or wrongly documented
# parameter, and a link that leads nowhere, is an error.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

studio=
for preset in dev release; do
    [ -n "$studio" ] || [ ! -x "build/$preset/bin/ztstudio" ] || studio=build/$preset/bin/ztstudio
done
if [ -z "$studio" ]; then
    tools/build.sh release -DZT_BUILD_TESTS=OFF
    studio=build/release/bin/ztstudio
fi
rm -rf build/docs
mkdir -p build/docs/pictures
"$studio" --headless --sample --out build/docs/made >/dev/null
cp build/docs/made/*.png build/docs/pictures/studio.png
rm -rf build/docs/made
cp docs/images/manual-*.png build/docs/pictures/

doxygen docs/Doxyfile
[ -s build/docs/ztdrawengine.qch ]
[ -s build/docs/html/search/searchdata.js ]
for document in docs/*.md docs/how-to/*.md docs/formats/*.md; do
    page=$(ci/docs_page.py "$document" | sed -n '1s/.*{#\(.*\)}$/\1/p')
    [ -s "build/docs/html/$page.html" ] || {
        echo "ci/docs.sh: $document is no page of the site" >&2
        exit 1
    }
done
