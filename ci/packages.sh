#!/usr/bin/env bash
# Looks over the packages in a folder: ci/packages.sh FOLDER, as tools/packages.sh leaves it. Each
# is there, lintian finds no error, and the source archive holds what is under version control.
set -euo pipefail
packages=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."
version=$(head -n 1 version.txt)

for name in "libztdrawengine${version%.*}" libztdrawengine-dev libztdrawengine-doc \
    ztdrawengine-fonts ztdrawengine-designer ztmark ztstudio; do
    compgen -G "$packages/${name}_$version-*.deb" >/dev/null || {
        echo "ci/packages.sh: there is no package $name $version" >&2
        exit 1
    }
done
grep -q "^ztdrawengine ($version-" packaging/changelog || {
    echo "ci/packages.sh: packaging/changelog does not begin with $version" >&2
    exit 1
}
lintian --allow-root --fail-on error --suppress-tags initial-upload-closes-no-bugs \
    "$packages"/*.deb

archive=$packages/ztdrawengine-$version.tar.xz
if git rev-parse --git-dir >/dev/null 2>&1; then
    missing=$(comm -23 <(git ls-files | sort) \
        <(tar -tf "$archive" | sed -n "s,^ztdrawengine-$version/,,p" | grep -v '/$' | sort))
    if [ -n "$missing" ]; then
        echo "ci/packages.sh: missing in the source archive:" >&2
        echo "$missing" >&2
        exit 1
    fi
fi
echo "packages: all there, no error"
