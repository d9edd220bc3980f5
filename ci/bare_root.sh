#!/usr/bin/env bash
# To be sourced: bare Debian 12 roots, for checks of what works on a machine where nothing is. Needs
# root and debootstrap; takes mirror and keys from this machine's apt configuration.
suite=bookworm

# Starts the script anew in a mount namespace of its own: nothing stays mounted, whatever happens.
in_own_mounts() { # SCRIPT ARGUMENT...
    if [ "$(id -u)" -ne 0 ]; then
        echo "$1: needs root to make and enter the new system" >&2
        exit 1
    fi
    [ "${ZT_OWN_MOUNTS:-}" = 1 ] || ZT_OWN_MOUNTS=1 exec unshare --mount --propagation private "$@"
}

debian_sources() {
    apt-get indextargets --format "deb $1" 'Created-By: Packages' 'Origin: Debian' |
        grep " $suite" | sort -u
}

make_bare_root() { # FOLDER
    local root=$1 mirror settings
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' \
        "Codename: $suite" | head -n 1)
    echo "-- making a bare Debian 12"
    debootstrap --variant=minbase "$suite" "$root" "$mirror" >"$root.log" 2>&1 || {
        tail "$root.log" >&2
        return 1
    }
    rm -f "$root.log"
    debian_sources '$(REPO_URI) $(RELEASE) $(COMPONENT)' >"$root/etc/apt/sources.list"
    cp /etc/resolv.conf "$root/etc/resolv.conf"
    for settings in /etc/apt/apt.conf.d/*; do
        grep -q '^Acquire' "$settings" && cp "$settings" "$root/etc/apt/apt.conf.d/"
    done
    return 0
}

open_root() { # FOLDER
    mount -t proc proc "$1/proc"
    mount --rbind /dev "$1/dev"
}

# With what stands in it, but with nothing that is mounted there.
remove_root() { # FOLDER
    umount --recursive --lazy "$1/proc" "$1/dev" "$1/root/.cache/ccache" 2>/dev/null || true
    rm -rf --one-file-system "$1" "$1.log"
}

in_root() { # FOLDER VARIABLE=VALUE... COMMAND...: with none of this machine's environment
    local root=$1 variables=()
    shift
    while [[ ${1:-} == *=* ]]; do
        variables+=("$1")
        shift
    done
    env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM=dumb \
        "${variables[@]}" chroot "$root" "$@"
}
