#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# start.sh BUILD   processor time, user and system, from the start of the program to the first frame of its
# window on the screen, over a library of 100,000 songs; one line a figure: name, value, unit. Needs xvfb and
# dbus; the library is made once, under TRACKWISE_BENCH_DIR (default: /var/tmp/trackwise-bench).
set -eu

build=$1
turns=10
if [ "${2:-}" != inside ]; then
    exec xvfb-run -a -s '-screen 0 1600x1200x24' dbus-run-session -- "$0" "$build" inside
fi

work=${TRACKWISE_BENCH_DIR:-/var/tmp/trackwise-bench}
database=$work/rows-100000.sqlite
mkdir -p "$work"
if [ ! -f "$database" ]; then
    "$build/bench/device/library/library_figures" rows "$work/making.sqlite" 100000 >/dev/null
    mv "$work/making.sqlite" "$database"
    rm -f "$work/making.sqlite-"*
fi
private=$(mktemp -d)
trap 'rm -rf "$private"' EXIT
mkdir "$private/music" "$private/run"
chmod 700 "$private/run"
cp "$database" "$private/library.sqlite"
printf '[Access]\nLibrary=allowed\n' >"$private/library.sqlite.access.ini"
mkfifo "$private/frames"
export XDG_CONFIG_HOME="$private" XDG_CACHE_HOME="$private" XDG_DATA_HOME="$private" XDG_RUNTIME_DIR="$private/run"
export QT_LOGGING_RULES=qt.scenegraph.time.renderloop.debug=true
ticks=$(getconf CLK_TCK)

# The first frame is drawn before the window is on the screen; it is the second that can be seen.
processor_time() {
    "$build/bin/trackwise" --library "$private/library.sqlite" --folder "$private/music" >"$private/frames" 2>&1 &
    program=$!
    frames=0
    while read -r line; do
        case $line in *'frame rendered in'*) frames=$((frames + 1)) ;; esac
        [ $frames -lt 2 ] || break
    done <"$private/frames"
    kill -STOP $program
    awk -v ticks="$ticks" '{ print ($14 + $15) / ticks * 1000 }' "/proc/$program/stat"
    kill -KILL $program
    wait $program 2>/dev/null || true
}

# The first start of all fills the caches of fonts and shaders.
printf 'start_to_first_frame_cpu_no_caches %.0f ms\n' "$(processor_time)"
turn=0
while [ $turn -lt $turns ]; do
    processor_time
    turn=$((turn + 1))
done | sort -n | awk '
    { time[NR] = $1 }
    END {
        printf "start_to_first_frame_cpu_median %.0f ms\n", time[int((NR + 1) / 2)]
        printf "start_to_first_frame_cpu_most %.0f ms\n", time[NR]
    }'
