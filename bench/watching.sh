#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# watching.sh BUILD   what it costs to follow a folder of 10,000 songs: from an edit by another program to the word
# of the library, a copy of as many songs into the folder, and nothing at all; one line a figure: name, value, unit.
# The files are made once, under TRACKWISE_BENCH_DIR (default: /var/tmp/trackwise-bench), which needs
# python3-mutagen and ffmpeg; what is written to is a copy of them there.
set -eu

build=$1
here=$(dirname "$0")/device/library
work=${TRACKWISE_BENCH_DIR:-/var/tmp/trackwise-bench}
mkdir -p "$work"
if [ ! -d "$work/music-10000" ]; then
    /usr/bin/python3 "$here/make_tree.py" 10000 "$work/making"
    mv "$work/making" "$work/music-10000"
fi
private=$(mktemp -d "$work/watching.XXXXXX")
trap 'rm -rf "$private"' EXIT
cp -r "$work/music-10000" "$private/music"
"$build/bench/device/library/watching_figures" "$private/library.sqlite" "$private/music" "$work/music-10000"
