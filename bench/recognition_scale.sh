#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# recognition_scale.sh BUILD   what asking for clips and listening to them cost in catalogs of 250 to 100,000 songs, and
# what part of the clips is named in one of 10,000; one line a figure. Needs what recognition/material.sh says.
set -eu

build=$1
# shellcheck source=bench/recognition/material.sh
. "$(dirname "$0")/recognition/material.sh"

for songs in 250 1000 10000 100000; do
    catalog "$songs"
    grep '^catalog_file' "$catalog.figures" | prefixed "songs_$songs"
    clips 3 30
    cat "$catalog" >/dev/null # is in memory from here on, if it fits
    "$programs/recognition_figures" "$catalog" "$clips" "$work/answers"
    "$scripts/recall.py" "$clips/clips.csv" "$work/answers" | grep '^query' | prefixed "songs_$songs"
    "$programs/recognition_sessions" "$catalog" "$clips" "$work/looks" | prefixed "songs_$songs"
    "$scripts/sessions.py" "$clips/clips.csv" "$work/looks" "$certain" | grep '^look' | prefixed "songs_$songs"
done
clips 40 250
catalog 10000
"$programs/recognition_figures" "$catalog" "$clips" "$work/answers"
"$scripts/recall.py" "$clips/clips.csv" "$work/answers" --threshold "$certain" | prefixed songs_10000
