#!/usr/bin/env bash
# The tests of hosts' habits, and the studio's window, on screens as people have them: under X11 and
# under Wayland, at single and at double scale. Takes what ./test has built.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${1:-build/dev}
work=$(mktemp -d)
trap 'kill "${servers[@]}" 2>/dev/null; wait; rm -rf "$work"' EXIT
servers=()
chmod 700 "$work"
export XDG_RUNTIME_DIR=$work XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data LC_ALL=C.UTF-8
export QT_QPA_FONTDIR=/usr/share/fonts/truetype/dejavu
unset DISPLAY WAYLAND_DISPLAY

wait_for() { # FILE: a server that has said that it is there
    local tries
    for ((tries = 0; tries < 200; ++tries)); do
        [ ! -s "$1" ] && [ ! -S "$1" ] || return 0
        sleep 0.05
    done
    echo "ci/screens.sh: no server came up ($1)" >&2
    return 1
}

# The studio comes up, shows its window, and ends when it is asked to.
try_studio() {
    local window
    "$build/bin/ztstudio" --sample >"$work/studio.out" 2>&1 &
    window=$!
    sleep 3 # nothing tells from outside that a Wayland window is shown
    kill -0 "$window" 2>/dev/null || { cat "$work/studio.out" >&2; return 1; }
    kill "$window"
    wait "$window" || true
    if grep -i 'could not\|cannot\|failed' "$work/studio.out" >&2; then return 1; fi
}

try() { # PLATFORM SCALE, where the display is told by the environment
    echo "-- $1, scale $2"
    local test
    for test in habits lateLoad; do
        QT_QPA_PLATFORM=$1 ZT_SCREEN_SCALE=$2 "$build/tests/tst.hosts.$test" >"$work/$test.out" 2>&1 || {
            cat "$work/$test.out" >&2
            return 1
        }
        grep -q '^Totals: [1-9][0-9]* passed, 0 failed, 0 skipped' "$work/$test.out"
    done
    QT_QPA_PLATFORM=$1 try_studio
}

Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
servers+=($!)
wait_for "$work/display"
for scale in 1 2; do
    DISPLAY=:$(cat "$work/display") QT_SCALE_FACTOR=$scale try xcb "$scale"
done
for scale in 1 2; do
    weston --backend=headless-backend.so --use-pixman --no-config --idle-time=0 --width=3200 --height=2000 \
        --scale="$scale" --socket="wayland-$scale" --log="$work/weston-$scale.log" >/dev/null 2>&1 &
    servers+=($!)
    wait_for "$work/wayland-$scale"
    WAYLAND_DISPLAY=wayland-$scale try wayland "$scale"
done
echo "-- windows open under X11 and Wayland"
