#!/usr/bin/env bash
# Proves the two commands on a machine where nothing is: makes a bare Debian 12 root, copies the
# checkout in, and gives ./run and ./test there as a newcomer would, ./run twice.
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
trap 'umount --recursive --lazy "$root/proc" "$root/dev" "$root/root/.cache/ccache" 2>/dev/null; rm -rf --one-file-system "$root"' EXIT

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
mount -t proc proc "$root/proc"
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

as_newcomer() {
    env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM=dumb \
        ${registry:+npm_config_registry="$registry"} \
        ${certificates:+NODE_EXTRA_CA_CERTS="$certificates"} chroot "$root" "$@"
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
    [ -s "$root/home/newcomer/checkout/build/release/bin/font/$font.shx" ] || {
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
