#!/usr/bin/env bash
# Proves the two commands on a machine where nothing is: makes a bare Debian 12 root, copies the
# checkout in, and gives ./run and ./test there as a newcomer would, ./run twice. Makes the packages
# of what was built; installs, uses and removes those of the programs in a second bare root, builds
# an example against the others in the first. They are left in build/packages.
# Needs root and debootstrap; takes mirror and keys from this machine's apt and npm configuration.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
suite=bookworm

if [ "$(id -u)" -ne 0 ]; then
    echo "ci/fresh.sh: needs root to make and enter the new system" >&2
    exit 1
fi
if [ "${ZT_FRESH_INSIDE:-}" != 1 ]; then
    # A mount namespace of its own: nothing stays mounted, whatever happens.
    ZT_FRESH_INSIDE=1 exec unshare --mount --propagation private "$0" "$@"
fi

debian_sources() {
    apt-get indextargets --format "deb $1" 'Created-By: Packages' 'Origin: Debian' |
        grep " $suite" | sort -u
}

root=$(mktemp -d "${TMPDIR:-/tmp}/fresh-debian.XXXXXX")
bare=$root.bare
clean_up() {
    umount --recursive --lazy "$root/proc" "$root/dev" "$root/root/.cache/ccache" "$bare/proc" \
        2>/dev/null || true
    rm -rf --one-file-system "$root" "$bare"
}
trap clean_up EXIT

mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' \
    "Codename: $suite" | head -n 1)
echo "-- making a bare Debian 12"
debootstrap --variant=minbase "$suite" "$root" "$mirror" >"$root.log" 2>&1 || {
    tail "$root.log" >&2
    exit 1
}
rm -f "$root.log"
debian_sources '$(REPO_URI) $(RELEASE) $(COMPONENT)' >"$root/etc/apt/sources.list"
cp /etc/resolv.conf "$root/etc/resolv.conf"
for settings in /etc/apt/apt.conf.d/*; do
    grep -q '^Acquire' "$settings" && cp "$settings" "$root/etc/apt/apt.conf.d/"
done
# The same for npm: its registry, and the certificate authority of a network that has its own.
registry=$(npm config get registry 2>/dev/null || true)
certificates=
if [ -f "${NODE_EXTRA_CA_CERTS:-}" ]; then
    certificates=/etc/extra-certificates.pem
    cp "$NODE_EXTRA_CA_CERTS" "$root$certificates"
fi
cp -a "$root" "$bare"
mount -t proc proc "$root/proc"
mount -t proc proc "$bare/proc"
mount --rbind /dev "$root/dev"
# A compiler cache of this machine serves there too, once ./test has installed ccache: it holds only
# what the same compiler makes of the same text, headers included.
if [ -d "$HOME/.cache/ccache" ]; then
    mkdir -p "$root/root/.cache/ccache"
    mount --bind "$HOME/.cache/ccache" "$root/root/.cache/ccache"
fi

echo "-- copying the checkout in"
mkdir -p "$root/home/newcomer/checkout"
git archive HEAD | tar -x -C "$root/home/newcomer/checkout"

inside() { # ROOT COMMAND...
    env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM=dumb \
        LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive ${registry:+npm_config_registry="$registry"} \
        ${certificates:+NODE_EXTRA_CA_CERTS="$certificates"} chroot "$@"
}
as_newcomer() { inside "$root" "$@"; }
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
    [ -s "$root/home/newcomer/checkout/build/release/bin/font/$font.shx" ] || {
        echo "ci/fresh.sh: the font $font was not made" >&2
        exit 1
    }
done
echo "-- ./run again, with nothing left to install"
as_newcomer sh -c 'rm -f /etc/resolv.conf && cd / && /home/newcomer/checkout/run'
cp /etc/resolv.conf "$root/etc/resolv.conf"
echo "-- ./test"
as_newcomer sh -c 'cd /home/newcomer/checkout && ./test'

echo "-- the packages"
if [ -d build/docs/html ]; then
    mkdir -p "$root/home/newcomer/checkout/build"
    cp -a build/docs "$root/home/newcomer/checkout/build/"
fi
as_newcomer /home/newcomer/checkout/tools/packages.sh
rm -rf build/packages
cp -a "$root/home/newcomer/checkout/build/release/packages" build/packages
ci/packages.sh build/packages
ci/abi.sh "$root/home/newcomer/checkout/build/release"

echo "-- the programs installed, used and removed on a bare machine"
mkdir "$bare/packages"
cp build/packages/*.deb ci/use_programs.sh "$bare/packages"
inside "$bare" bash /packages/use_programs.sh
echo "-- a host built against the installed packages"
cp ci/use_library.sh "$root/home/newcomer"
as_newcomer bash /home/newcomer/use_library.sh /home/newcomer/checkout
echo "-- both commands and the packages work on a fresh machine"
