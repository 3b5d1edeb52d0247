#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# library.sh BUILD   what scanning, rescanning, typing and looking up cost; one line a figure: name, value, unit.
# Files and databases are made once, under TRACKWISE_BENCH_DIR (default: /var/tmp/trackwise-bench; 5 GB).
# The ratio to Debian's mpd needs the packages mpd and mpc; making the files, python3-mutagen and ffmpeg.
set -eu

build=$1
here=$(dirname "$0")/library
figures=$build/bench/library/library_figures
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

# The time of one update into an empty database, in files per second.
peer_rate() {
    peer=$work/peer
    rm -rf "$peer"
    mkdir -p "$peer/playlists"
    cat >"$peer/conf" <<CONF
music_directory "$work/music-10000"
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
    begin=$(date +%s%N)
    mpc update --wait >/dev/null
    end=$(date +%s%N)
    songs=$(mpc stats | awk '/Songs/ { print $2 }')
    kill "$daemon"
    wait "$daemon" 2>/dev/null || true
    echo "$songs $((end - begin))" | awk '{ print $1 / ($2 / 1e9) }'
}

tree 10000
"$figures" scan "$work/warm.sqlite" "$work/music-10000" >"$work/ignored" # the files are in memory from here on
rm -f "$work/warm.sqlite"*
scans 10000
if command -v mpd >/dev/null && command -v mpc >/dev/null; then
    # In turns, so that both meet the same machine.
    for round in 1 2 3; do
        rm -f "$work/turn.sqlite"*
        ours=$("$figures" scan "$work/turn.sqlite" "$work/music-10000" | awk '$1 == "rate" { print $2 }')
        theirs=$(peer_rate)
        echo "$ours $theirs" | awk -v round=$round '{ printf "ratio_to_mpd_%d %.2f times (%.0f to %.0f files/s)\n", round, $1 / $2, $1, $2 }'
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
