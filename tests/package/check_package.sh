#!/usr/bin/env bash
# check_package.sh BUILD-TREE SOURCE-TREE SCRATCH
set -euo pipefail
build=$1 source=$2 scratch=$3
prefix=$scratch/prefix
example=$source/examples/minimal-host

rm -rf "$scratch"
mkdir -p "$scratch"
cmake --install "$build" --prefix "$prefix" >"$scratch/install.log"

libdir=$(dirname "$(find "$prefix" -name 'libZTDrawEngineLib.so' | head -n 1)")
version=$(head -n 1 "$source/version.txt")
soname=$(readelf -d "$libdir/libZTDrawEngineLib.so" | sed -n 's/.*soname: \[\(.*\)\]/\1/p')
echo "soname: $soname"
[ "$soname" = "libZTDrawEngineLib.so.${version%.*}" ]
[ -z "$(find "$prefix" -name '*_p.h')" ] || { echo "private headers are installed" >&2; exit 1; }

echo "-- by find_package"
cmake -G Ninja -S "$example" -B "$scratch/cmake-host" -DCMAKE_PREFIX_PATH="$prefix" >"$scratch/cmake.log"
cmake --build "$scratch/cmake-host" >>"$scratch/cmake.log"
"$scratch/cmake-host/minimal-host" --once >"$scratch/cmake-host.out"

echo "-- by pkg-config"
export PKG_CONFIG_PATH=$libdir/pkgconfig
# shellcheck disable=SC2046
"$CXX" -std=c++17 -fPIC "$example/main.cpp" \
    $(pkg-config --cflags --libs ZTDrawEngineLib) \
    -o "$scratch/pkg-config-host"
LD_LIBRARY_PATH=$libdir "$scratch/pkg-config-host" --once >"$scratch/pkg-config-host.out"

cat "$scratch/cmake-host.out"
cmp "$scratch/cmake-host.out" "$scratch/pkg-config-host.out"
cmp "$scratch/cmake-host.out" "$example/expected-output.txt"

echo "-- the other examples, by the package's components"
cat >"$scratch/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.16)
project(examples LANGUAGES CXX)
foreach(example IN ITEMS qr-code own-kind property-grid batch kiosk laser designer-form tutorial)
  add_subdirectory("$source/examples/\${example}" \${example})
endforeach()
END
cmake -G Ninja -S "$scratch" -B "$scratch/examples" -DCMAKE_PREFIX_PATH="$prefix" >"$scratch/cmake.log"
cmake --build "$scratch/examples" >>"$scratch/cmake.log" || { cat "$scratch/cmake.log" >&2; exit 1; }
"$source/examples/own-kind/check.sh" "$scratch/examples/own-kind/own-kind" \
    "$source/examples/own-kind/expected-output.txt"
# A kiosk marks each number once, and the drawing on the disk is ahead of what was marked.
# Without its stroke fonts it marks nothing. With them installed it finds them by itself.
cp "$source/samples/text.ztd" "$source/samples/plate.ztd" "$scratch"
kiosk=$scratch/examples/kiosk
fonts=$prefix/share/ztdrawengine/font
export XDG_DATA_HOME=$scratch/no-fonts-of-the-user
mv "$fonts" "$fonts.away" # its folder is there where any font was made
if "$kiosk/kiosk" "$scratch/text.ztd" 1 >"$scratch/kiosk.out" 2>"$scratch/kiosk.err"; then exit 1; fi
[ ! -s "$scratch/kiosk.out" ]
grep -q 'these fonts are missing: .*hershey-simplex.shx' "$scratch/kiosk.err"
mv "$fonts.away" "$fonts"
if [ -e "$fonts/gb-strokes.shx" ]; then
    "$kiosk/kiosk" "$scratch/text.ztd" 2 >"$scratch/kiosk.out"
    sed -n 1p "$scratch/kiosk.out" | grep -q '^marked 9 objects: SN-0001'
    sed -n 2p "$scratch/kiosk.out" | grep -q '^marked 9 objects: SN-0002'
    "$prefix/bin/ztmark" info "$scratch/text.ztd" | grep -q '"SN-0003'
fi
"$scratch/examples/batch/batch" "$scratch/plate.ztd" | grep -q '/plate.ztd.nc: [0-9]* pieces, [0-9.]* s$'
grep -q '^G21' "$scratch/plate.ztd.nc"
if "$scratch/examples/batch/batch" "$scratch/none.ztd" 2>"$scratch/batch.err"; then exit 1; fi
grep -q 'none.ztd: ' "$scratch/batch.err"
[ "$("$scratch/examples/designer-form/designer-form" --once)" = "1 shape in the tree" ]
for step in 01 02 03 04 05 06 07 08 09 10; do
    echo "step$step"
    TMPDIR=$scratch "$scratch/examples/tutorial/step$step" --once
done >"$scratch/tutorial.out"
diff "$scratch/tutorial.out" "$source/examples/tutorial/expected-output.txt"
# The drawing of its last step has a code: a batch marks what the command line marks of it.
"$scratch/examples/batch/batch" "$scratch/tutorial-plate.ztd" >/dev/null
"$prefix/bin/ztmark" job "$scratch/tutorial-plate.ztd" -o "$scratch/plate-by-hand.nc" >/dev/null 2>&1
burns() { grep -c '^G1' "$1"; }
[ "$(burns "$scratch/tutorial-plate.ztd.nc")" = "$(burns "$scratch/plate-by-hand.nc")" ]
"$scratch/examples/laser/laser" "$scratch/tutorial-plate.ztd" --once 2>"$scratch/laser.err" |
    grep -q '^[0-9]* pieces marked in '
if grep warning "$scratch/laser.err"; then exit 1; fi
qr_code=$scratch/examples/qr-code/qr-code
[ "$("$qr_code" SN-0001 "$scratch/code.nc" --once)" = "21 x 21 modules, 10.5 mm wide" ]
grep -q '^G21' "$scratch/code.nc"
# No QR code holds 5000 characters.
if "$qr_code" "$(printf '%05000d' 0 | tr 0 a)" "$scratch/long.nc" --once 2>"$scratch/code.err"; then exit 1; fi
[ -s "$scratch/code.err" ]
[ ! -e "$scratch/long.nc" ]
"$scratch/examples/laser/laser" "$scratch/plate.ztd" --once | grep -q ' pieces marked in [0-9.]* s$'

echo "-- the installed command line"
[ "$("$prefix/bin/ztmark" --version)" = "ztmark $version" ]

echo "-- the stroke fonts"
if [ -e "$build/bin/font/README.txt" ]; then
    for file in "$fonts"/*; do
        cmp "$file" "$build/bin/font/$(basename "$file")"
    done
    [ -s "$fonts/hershey-simplex.shx" ]
    [ -s "$fonts/LICENSE-hershey.txt" ]
    [ -e "$fonts/gb-strokes.shx" ] || echo "no Chinese font was made"
    [ ! -e "$fonts/gb-strokes.shx" ] || [ -s "$fonts/ARPHICPL.TXT" ]
    # They are found from the library's true place where the loader came to it by a link.
    ln -s "$prefix/lib" "$scratch/lib"
    LD_LIBRARY_PATH=$scratch/${libdir#"$prefix/"} "$prefix/bin/ztmark" font list |
        grep -q hershey-simplex
else
    echo "no stroke fonts were made"
fi

echo "-- the file manager knows drawings"
desktop=$prefix/share/applications/ztstudio.desktop
mime=$prefix/share/mime/packages/application-x-ztdrawing.xml
grep -q '^Exec=ztstudio %f$' "$desktop"
grep -q '^MimeType=.*application/x-ztdrawing;' "$desktop"
[ -x "$prefix/bin/ztstudio" ]
[ -f "$prefix/share/icons/hicolor/scalable/apps/ztstudio.svg" ]
[ -f "$prefix/share/icons/hicolor/scalable/mimetypes/application-x-ztdrawing.svg" ]
grep -q 'glob pattern="\*.ztd"' "$mime"
if command -v desktop-file-validate >/dev/null; then desktop-file-validate "$desktop"; fi
if command -v xmllint >/dev/null; then xmllint --noout "$mime"; fi
if command -v update-mime-database >/dev/null; then
    update-mime-database "$prefix/share/mime" 2>"$scratch/mime.log"
    grep -q '^application/x-ztdrawing:\*.ztd$' "$prefix/share/mime/globs"
    # The database of magic numbers holds the beginning of a drawing as it is.
    LC_ALL=C grep -qaF "$(printf '\x89ZTD')" "$prefix/share/mime/magic"
fi
