#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# recognition_sessions.sh BUILD   how soon sessions that listen to noisy clips of music name them, and how many of 3,000
# name what is not there; one line a figure. Takes half an hour. Needs what recognition/material.sh says.
set -eu

build=$1
# shellcheck source=bench/recognition/material.sh
. "$(dirname "$0")/recognition/material.sh"

clips 60 1250
catalog 151
"$programs/recognition_sessions" "$catalog" "$clips" "$work/looks"
"$programs/recognition_sessions" "$catalog" "$clips" "$work/looks-without" without | prefixed without
"$scripts/sessions.py" "$clips/clips.csv" "$work/looks" "$certain" --without "$work/looks-without" \
    --music "$work/music"
