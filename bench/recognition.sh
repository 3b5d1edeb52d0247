#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# recognition.sh BUILD   what part of noisy clips of music is named, and what indexing and asking cost; one line a
# figure: name, value (for clips of 3/5/10 s), unit. Needs what recognition/material.sh says.
set -eu

build=$1
# shellcheck source=bench/recognition/material.sh
. "$(dirname "$0")/recognition/material.sh"

clips 40 250
catalog 151 # those that are indexed, and none that is made up
cat "$catalog.figures"
"$programs/recognition_figures" "$catalog" "$clips" "$work/answers"
"$scripts/recall.py" "$clips/clips.csv" "$work/answers" --threshold "$certain"

catalog 151 compact
grep '^catalog' "$catalog.figures" | prefixed compact
"$programs/recognition_figures" "$catalog" "$clips" "$work/answers"
"$scripts/recall.py" "$clips/clips.csv" "$work/answers" | grep '^recall_all' | prefixed compact
