#!/usr/bin/env bash
# Run in a Debian 12 where the packages were made: installs the library for developers, builds an
# example against it by find_package and by pkg-config, and runs it. Changes the system it runs in:
# ci/fresh.sh calls it with the folder of the sources.
set -euo pipefail
source=$1
packages=$source/build/release/packages
work=$(mktemp -d)

apt-get install -yq --no-install-recommends "$packages"/*.deb >"$work/apt.log" 2>&1 || {
    tail -n 30 "$work/apt.log" >&2
    exit 1
}
export QT_QPA_PLATFORM=offscreen
cmake -G Ninja -S /usr/share/doc/libztdrawengine-doc/examples/minimal-host -B "$work/host" >"$work/log"
cmake --build "$work/host" >>"$work/log"
"$work/host/minimal-host" --once | cmp - "$source/examples/minimal-host/expected-output.txt"
cmake -G Ninja -S "$source/examples/kiosk" -B "$work/kiosk" >"$work/log"
cmake --build "$work/kiosk" >>"$work/log"
cp "$source/samples/plate.ztd" "$work"
"$work/kiosk/kiosk" "$work/plate.ztd" 1 | grep -q '^marked '
# shellcheck disable=SC2046
g++ -std=c++17 -fPIC "$source/examples/minimal-host/main.cpp" \
    $(pkg-config --cflags --libs ZTDrawEngineLib) -o "$work/by-pkg-config"
"$work/by-pkg-config" --once | cmp - "$source/examples/minimal-host/expected-output.txt"
apt-get purge -yq ztdrawengine-designer libztdrawengine-dev >"$work/apt.log" 2>&1
[ ! -e /usr/include/ZTDrawEngineLib ]
