#!/usr/bin/env bash
# Makes the Debian packages and the source archive into build/release/packages, from what ./run has
# built; builds it where that was not done. The documents that ci/docs.sh made go in, where it ran.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

"$top/tools/setup.sh" build package
"$top/tools/build.sh" release -DZT_BUILD_TESTS=OFF
cd "$top/build/release"
rm -rf packages _CPack_Packages
for config in CPackConfig.cmake CPackSourceConfig.cmake; do
    cpack --config "$config" -B packages >"packages-$config.log" 2>&1 || {
        tail -n 40 "packages-$config.log" >&2
        exit 1
    }
done
rm -rf _CPack_Packages packages/_CPack_Packages
ls packages
