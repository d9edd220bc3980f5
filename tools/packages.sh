#!/usr/bin/env bash
# Makes the Debian packages into build/release/packages, from what ./run has built; builds it where
# that was not done. The documents that ci/docs.sh made go in, where it ran. In a git checkout the
# source archive of tools/source.sh stands beside them.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

"$top/tools/setup.sh" build package
"$top/tools/build.sh" release -DZT_BUILD_TESTS=OFF
cd "$top/build/release"
rm -rf packages _CPack_Packages
cpack -B packages >packages.log 2>&1 || {
    tail -n 40 packages.log >&2
    exit 1
}
rm -rf _CPack_Packages packages/_CPack_Packages
if git -C "$top" rev-parse --quiet --verify HEAD >/dev/null 2>&1; then
    "$top/tools/source.sh" "packages/ztdrawengine-$(head -n 1 "$top/version.txt").tar.xz"
fi
ls packages
