#!/usr/bin/env bash
# In a bare Debian, as root: check_debs.sh FOLDER installs the packages of the folder as people do, a
# few at a time and nothing else, so that what one forgets to ask for is missed; uses them; and takes
# them off again.
set -euo pipefail
folder=$1
work=$(mktemp -d)
mkdir -m 700 "$work/home" "$work/run"
export XDG_RUNTIME_DIR=$work/run
export HOME=$work/home LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen DEBIAN_FRONTEND=noninteractive
documents=/usr/share/doc/libztdrawengine-doc

fail() {
    echo "check_debs.sh: $*" >&2
    exit 1
}

# What the packages are called, the way apt wants a file.
deb() {
    local name
    for name in "$@"; do
        compgen -G "$folder/${name}_*.deb" || fail "no package $name"
    done
}

install() {
    apt-get install -yq --no-install-recommends "$@" >"$work/apt.log" 2>&1 || {
        tail -n 20 "$work/apt.log" >&2
        return 1
    }
}

# Every library that the program or library asks for is found.
has_libraries() {
    local missing
    missing=$(ldd "$1" | grep 'not found') && fail "$1: $missing"
    return 0
}

echo "-- ztmark"
[ -n "$(ls /var/lib/apt/lists)" ] || apt-get update -q >"$work/apt.log" 2>&1
# shellcheck disable=SC2046
install $(deb ztmark libztdrawengine0.2)
ztmark --version
ztmark code qr SN-0001 -q -o "$work/code.svg"
[ -s "$work/code.svg" ]
if ztmark text A -q --font-pair hershey-simplex.shx -o "$work/text.svg" 2>"$work/no-font"; then
    fail "a stroke font was found that no package brought"
fi
grep -q hershey-simplex "$work/no-font"
# shellcheck disable=SC2046
install $(deb ztdrawengine-fonts) man-db
ztmark text A -q --font-pair hershey-simplex.shx -o "$work/text.svg"
ztmark font list | grep -q hershey-simplex
man ztmark 2>/dev/null | grep -q '^ *ztmark job'
MANPATH=/usr/share/man man -L zh_CN.UTF-8 ztmark >"$work/manual.zh" 2>/dev/null
grep -q '用法\|机器' "$work/manual.zh"
bash -n /usr/share/bash-completion/completions/ztmark

echo "-- ztstudio"
# shellcheck disable=SC2046
install $(deb ztstudio)
ztstudio --version
ztstudio --headless --sample --out "$work/studio" 2>"$work/studio.err"
for file in sample-window.png sample.svg sample.json; do
    [ -s "$work/studio/$file" ] || fail "the studio wrote no $file"
done
man ztstudio 2>/dev/null | grep -q -- --headless
[ -s /usr/share/applications/ztstudio.desktop ]
[ -s /usr/share/mime/packages/application-x-ztdrawing.xml ]
[ -s /usr/share/icons/hicolor/scalable/apps/ztstudio.svg ]

echo "-- for developers"
# shellcheck disable=SC2046
install $(deb libztdrawengine-dev libztdrawengine-doc ztdrawengine-designer) g++ cmake make pkg-config
[ -s $documents/html/index.html ]
[ -s $documents/ztdrawengine.qch ]
has_libraries "$(dpkg -L ztdrawengine-designer | grep '\.so$')"
host=$documents/examples/minimal-host
g++ -std=c++17 -fPIC $host/main.cpp $(pkg-config --cflags --libs ZTDrawEngineLib) -o "$work/host"
"$work/host" --once | cmp - $host/expected-output.txt
# One program links each kit: what a kit needs and the package forgets is missed here.
cat >"$work/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.16)
project(hosts LANGUAGES CXX)
foreach(example IN ITEMS minimal-host kiosk qr-code)
  add_subdirectory($documents/examples/\${example} \${example})
endforeach()
END
cmake -S "$work" -B "$work/hosts" >"$work/cmake.log"
make -C "$work/hosts" -j"$(nproc)" minimal-host kiosk qr-code >>"$work/cmake.log" 2>&1 || {
    tail -n 20 "$work/cmake.log" >&2
    fail "the examples do not build"
}
"$work/hosts/minimal-host/minimal-host" --once | cmp - $host/expected-output.txt
cp $documents/samples/text.ztd "$work"
if [ -e /usr/share/ztdrawengine/font/gb-strokes.shx ]; then
    "$work/hosts/kiosk/kiosk" "$work/text.ztd" 2 >"$work/kiosk.out"
    [ "$(grep -c '^marked 9 objects: SN-000[12]' "$work/kiosk.out")" = 2 ]
fi
[ "$("$work/hosts/qr-code/qr-code" SN-0001 "$work/code.nc" --once)" = "21 x 21 modules, 10.5 mm wide" ]
[ -s "$work/code.nc" ]

echo "-- away with them"
ours=$(dpkg-query -W -f '${Package}\n' '*ztdrawengine*' ztmark ztstudio)
[ "$(wc -l <<<"$ours")" = "$(ls "$folder"/*.deb | wc -l)" ] || fail "installed: $ours"
# shellcheck disable=SC2086
dpkg -L $ours | sort -u >"$work/files"
# shellcheck disable=SC2086
apt-get purge -yq $ours >"$work/apt.log" 2>&1
while read -r file; do
    [ ! -e "$file" ] || dpkg -S "$file" >/dev/null 2>&1 || fail "left behind: $file"
done <"$work/files"
# Pages that man keeps laid out go by its own housekeeping.
left=$(find / -xdev \( -path "$work" -o -path "$folder" -o -path /var/cache/apt -o -path /proc \
    -o -path /dev -o -path /var/cache/man \) -prune -o \( -iname '*ztdraw*' -o -iname '*ztmark*' -o -iname '*ztstudio*' \
    -o -iname '*QtPropertyBrowser*' \) -print)
[ -z "$left" ] || fail "left behind: $left"
rm -rf "$work"
