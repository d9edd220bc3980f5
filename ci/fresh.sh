#!/usr/bin/env bash
# Proves the two commands on a machine where nothing is: makes a bare Debian 12 root, unpacks the
# source archive there, and gives ./run and ./test as a newcomer would, ./run twice. Then makes the
# Debian packages of what stands built, and gives them to ci/packages.sh.
# Needs root and debootstrap; takes mirror and keys from this machine's apt and npm configuration.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. ci/bare_root.sh
in_own_mounts "$0" "$@"

root=$(mktemp -d "${TMPDIR:-/tmp}/fresh-debian.XXXXXX")
trap 'remove_root "$root"; remove_root "$root.bare"' EXIT
make_bare_root "$root"
cp -a "$root" "$root.bare" # for the packages: nothing is installed there

# The same for npm: its registry, and the certificate authority of a network that has its own.
registry=$(npm config get registry 2>/dev/null || true)
certificates=
if [ -f "${NODE_EXTRA_CA_CERTS:-}" ]; then
    certificates=/etc/extra-certificates.pem
    cp "$NODE_EXTRA_CA_CERTS" "$root$certificates"
fi
open_root "$root"
# A compiler cache of this machine serves there too, once ./test has installed ccache: it holds only
# what the same compiler makes of the same text, headers included.
if [ -d "$HOME/.cache/ccache" ]; then
    mkdir -p "$root/root/.cache/ccache"
    mount --bind "$HOME/.cache/ccache" "$root/root/.cache/ccache"
fi

echo "-- unpacking the source archive"
checkout=$root/home/newcomer/checkout
mkdir -p "$checkout"
tools/source.sh "$root/home/newcomer/source.tar.xz"
tar -xJf "$root/home/newcomer/source.tar.xz" -C "$checkout" --strip-components=1

as_newcomer() {
    in_root "$root" ${registry:+npm_config_registry="$registry"} \
        ${certificates:+NODE_EXTRA_CA_CERTS="$certificates"} "$@"
}
echo "-- ./run from another folder"
as_newcomer sh -c 'cd /tmp && /home/newcomer/checkout/run'
# The Chinese font can be asked for only where its data can be had.
fonts=(hershey-simplex)
if compgen -G "build/fontdata/*/ARPHICPL.TXT" >/dev/null; then
    fonts+=(gb-strokes)
else
    echo "ci/fresh.sh: this machine has no data for the Chinese font, so that it is not asked for" >&2
fi
for font in "${fonts[@]}"; do
    [ -s "$checkout/build/release/bin/font/$font.shx" ] || {
        echo "ci/fresh.sh: the font $font was not made" >&2
        exit 1
    }
done
echo "-- ./run again, with nothing left to install"
as_newcomer sh -c 'rm -f /etc/resolv.conf && cd / && /home/newcomer/checkout/run'
cp /etc/resolv.conf "$root/etc/resolv.conf"
# Random cases come out there as they did here.
echo "-- ./test, without the thousands of random cases"
as_newcomer sh -c 'cd /home/newcomer/checkout && ./test --label-exclude random'
echo "-- both commands work on a fresh machine"

echo "-- the packages"
[ -s build/docs/ztdrawengine.qch ] || ci/docs.sh
cp -r build/docs "$checkout/build/docs"
as_newcomer /home/newcomer/checkout/tools/packages.sh
# What was fetched once is not fetched again.
cp -alf "$root"/var/cache/apt/archives/*.deb "$root.bare/var/cache/apt/archives/"
cp -alf "$root"/var/lib/apt/lists/. "$root.bare/var/lib/apt/lists/"
ci/packages.sh "$checkout/build/release/packages" "$root.bare"
