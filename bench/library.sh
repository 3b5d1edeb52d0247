#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# library.sh BUILD   what scanning, rescanning, typing and looking up cost; one line a figure: name, value, unit.
# Files and databases are made once, under TRACKWISE_BENCH_DIR (default: /var/tmp/trackwise-bench; 5 GB).
# The ratio to Debian's mpd needs the packages mpd and mpc; making the files, python3-mutagen and ffmpeg.
set -eu

build=$1
here=$(dirname "$0")/device/library
figures=$build/bench/device/library/library_figures
work=${TRACKWISE_BENCH_DIR:-/var/tmp/trackwise-bench}
mkdir -p "$work"

tree() {
    [ -d "$work/music-$1" ] && return
    /usr/bin/python3 "$here/make_tree.py" "$1" "$work/making"
    mv "$work/making" "$work/music-$1"
}

# prefixed PREFIX: puts it before the name of each figure
prefixed() { sed "/^#/!s/^/$1_/"; }

scans() {
    rm -f "$work/scan-$1.sqlite"*
    "$figures" scan "$work/scan-$1.sqlite" "$work/music-$1" | tee "$work/first" | prefixed "first_scan_$1"
    "$figures" scan "$work/scan-$1.sqlite" "$work/music-$1" | prefixed "no_change_$1"
}

# One update into an empty database: files per second, and seconds of processor time.
peer_rate() {
    peer=$work/peer
    rm -rf "$peer"
    mkdir -p "$peer/playlists" "$peer/music"
    cat >"$peer/conf" <<CONF
music_directory "$peer/music"
db_file "$peer/db"
state_file "$peer/state"
playlist_directory "$peer/playlists"
log_file "$peer/log"
bind_to_address "$peer/socket"
auto_update "no"
audio_output {
 type "null"
 name "null"
}
CONF
    mpd --no-daemon --stderr "$peer/conf" 2>"$peer/errors" &
    daemon=$!
    export MPD_HOST="$peer/socket"
    tries=0
    until mpc stats >/dev/null 2>&1 || [ $tries -gt 100 ]; do
        sleep 0.05
        tries=$((tries + 1))
    done
    # It scans by itself when it starts without a database: the files come only now.
    mpc update --wait >/dev/null
    ln -s "$work/music-10000" "$peer/music/files"
    used() { awk -v ticks="$(getconf CLK_TCK)" '{ print ($14 + $15) / ticks }' "/proc/$daemon/stat"; }
    before=$(used)
    begin=$(date +%s%N)
    mpc update --wait >/dev/null
    end=$(date +%s%N)
    after=$(used)
    songs=$(mpc stats | awk '/Songs/ { print $2 }')
    kill "$daemon"
    wait "$daemon" 2>/dev/null || true
    echo "$songs $((end - begin)) $before $after" | awk '{ print $1 / ($2 / 1e9), $4 - $3 }'
}

tree 10000
"$figures" scan "$work/warm.sqlite" "$work/music-10000" >"$work/ignored" # the files are in memory from here on
rm -f "$work/warm.sqlite"*
scans 10000
if command -v mpd >/dev/null && command -v mpc >/dev/null; then
    # In turns, so that both meet the same machine.
    for round in 1 2 3; do
        rm -f "$work/turn.sqlite"*
        ours=$("$figures" scan "$work/turn.sqlite" "$work/music-10000" |
            awk '$1 == "rate" { rate = $2 } $1 == "cpu" { cpu = $2 } END { print rate, cpu }')
        theirs=$(peer_rate)
        echo "$ours $theirs" | awk -v round=$round '{
            printf "rate_ratio_to_mpd_%d %.2f times (%.0f to %.0f files/s)\n", round, $1 / $3, $1, $3
            printf "cpu_ratio_to_mpd_%d %.2f times (%.2f to %.2f s)\n", round, $4 / $2, $2, $4 }'
    done
else
    echo "# no mpd and mpc here: no ratio"
fi
tree 100000
scans 100000
for count in 100000 1000000; do
    if [ ! -f "$work/rows-$count.sqlite" ]; then
        "$figures" rows "$work/making.sqlite" "$count" | prefixed "rows_$count"
        mv "$work/making.sqlite" "$work/rows-$count.sqlite"
        rm -f "$work/making.sqlite-"*
    fi
    "$figures" search "$work/rows-$count.sqlite" | prefixed "search_$count"
done
