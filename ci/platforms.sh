#!/usr/bin/env bash
# What hosts do with the library, on real window systems: X11 (Xvfb) and Wayland (weston without a
# screen), each at the screen's own scale and at twice it. Needs what ./test has built.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
program=$PWD/build/dev/tests/tst.hosts.habits
[ -x "$program" ] || tools/build.sh dev
scratch=$(mktemp -d)
started=()
trap 'kill "${started[@]}" 2>/dev/null || true; wait; rm -rf "$scratch"' EXIT
export XDG_RUNTIME_DIR=$scratch LC_ALL=C

wait_for() { # FILE
    for _ in $(seq 100); do
        [ ! -s "$1" ] && [ ! -S "$1" ] || return 0
        sleep 0.1
    done
    echo "ci/platforms.sh: no window system came up" >&2
    cat "$scratch"/*.log >&2
    return 1
}

Xvfb -displayfd 3 -screen 0 1280x900x24 3>"$scratch/display" 2>"$scratch/xvfb.log" &
started+=($!)
weston --backend=headless-backend.so --socket=wayland-check --idle-time=0 --width=1280 \
    --height=900 >"$scratch/weston.log" 2>&1 &
started+=($!)
wait_for "$scratch/display"
wait_for "$scratch/wayland-check"

for scale in 1 2; do
    echo "-- X11, scale $scale"
    DISPLAY=:$(cat "$scratch/display") QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$scale "$program" -silent
    echo "-- Wayland, scale $scale"
    WAYLAND_DISPLAY=wayland-check QT_QPA_PLATFORM=wayland QT_SCALE_FACTOR=$scale "$program" -silent
done
