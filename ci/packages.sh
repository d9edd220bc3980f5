#!/usr/bin/env bash
# The Debian packages: lintian finds no error in them, and in a bare Debian 12 they are installed, used
# and removed. ci/packages.sh takes those of tools/packages.sh and makes the root; ci/fresh.sh hands
# over both: ci/packages.sh FOLDER-OF-PACKAGES ROOT.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. ci/bare_root.sh
in_own_mounts "$0" "$@"

packages=${1:-build/release/packages}
[ $# -gt 0 ] || tools/packages.sh
if [ $# -gt 1 ]; then
    root=$2
    trap 'umount --recursive --lazy "$root/proc" "$root/dev" 2>/dev/null' EXIT
else
    root=$(mktemp -d "${TMPDIR:-/tmp}/packages-debian.XXXXXX")
    trap 'remove_root "$root"' EXIT
    make_bare_root "$root"
fi

echo "-- lintian"
LC_ALL=C lintian --allow-root --fail-on error --suppress-tags initial-upload-closes-no-bugs \
    "$packages"/*.deb

open_root "$root"
mkdir -p "$root/packages"
cp "$packages"/*.deb tests/package/check_debs.sh "$root/packages"
in_root "$root" /packages/check_debs.sh /packages
echo "-- the packages install, work and go without a trace"
