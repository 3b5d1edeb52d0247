#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# about.sh BUILD   processor time of the program, user and system, while its about screen is open and nothing else
# happens, as a share of one core over 20 seconds; one line a figure: name, value, unit. Needs xvfb, dbus and
# xdotool; a graphics processor is not used, which is the worst case.
set -eu

build=$1
seconds=20
if [ "${2:-}" != inside ]; then
    exec xvfb-run -a -s '-screen 0 1600x1200x24' dbus-run-session -- "$0" "$build" inside
fi

private=$(mktemp -d)
trap 'rm -rf "$private"' EXIT
mkdir "$private/run"
chmod 700 "$private/run"
export HOME="$private" XDG_CONFIG_HOME="$private" XDG_CACHE_HOME="$private" XDG_DATA_HOME="$private" XDG_RUNTIME_DIR="$private/run"
export LC_ALL=C.UTF-8
ticks=$(getconf CLK_TCK)

ticks_used() {
    awk '{ print $14 + $15 }' "/proc/$1/stat"
}

measure() {
    width=${1%x*}
    "$build/bin/trackwise" --demo --size "$1" --show "Harbour Lights" &
    program=$!
    window=$(xdotool search --sync --onlyvisible --name "^Trackwise$" 2>/dev/null | tail -n 1)
    sleep 4 # the first scan
    xdotool windowmove "$window" 0 0 mousemove $((width - 35)) 26 click 1 sleep 1
    xdotool mousemove $((width - 130)) 237 click 1 mousemove 5 5 sleep 3 # "About", in the menu behind "More"
    before=$(ticks_used $program)
    sleep $seconds
    after=$(ticks_used $program)
    kill $program
    wait $program 2>/dev/null || true
    awk -v used=$((after - before)) -v ticks="$ticks" -v seconds=$seconds -v size="$1" \
        'BEGIN { printf "about_idle_cpu_%s %.2f %%\n", size, 100 * used / ticks / seconds }'
}

for size in 1440x900 1024x768 720x360 360x720; do
    measure $size
done
