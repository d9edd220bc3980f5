#!/usr/bin/env bash
# Installs with apt what a group of work needs and this machine lacks: tools/setup.sh GROUP...
# Groups: build (compile and run), test (./test), check (the stricter checks of ci/).
# Says what it installs; does nothing, and needs no network, when all is there.
set -euo pipefail

packages_of() {
    case "$1" in
    build) echo g++ cmake ninja-build qtbase5-dev qttools5-dev-tools qttranslations5-l10n libcli11-dev zlib1g-dev fonts-dejavu-core ;;
    test) echo python3-minimal python3 pkg-config ;;
    check) echo git clang clang-format clang-tidy clazy libclang-rt-14-dev libomp-dev \
        libbenchmark-dev doxygen gcovr debootstrap ;;
    *)
        echo "tools/setup.sh: unknown group '$1' (build, test, check)" >&2
        exit 2
        ;;
    esac
}

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing=()
for group in "$@"; do
    for package in $(packages_of "$group"); do
        is_installed "$package" || missing+=("$package")
    done
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing: ${missing[*]}" >&2
        echo "Install them as root (apt-get install ${missing[*]}) and start again." >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing what is missing: ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -yq --no-install-recommends "${missing[@]}"
