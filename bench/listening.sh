#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# listening.sh BUILD [SONGS]   how soon the microphone's music is named, clean and in a café, among so many songs (10,000
# unless they are given), what that costs, and how often something is named in an hour and more of other sound. Takes
# half an hour. Needs what recognition/material.sh says, pulseaudio and pulseaudio-utils.
set -eu

build=$1
# shellcheck source=bench/recognition/material.sh
. "$(dirname "$0")/recognition/material.sh"
# shellcheck source=bench/device/audio/room.sh
. "$(dirname "$0")/device/audio/room.sh"

clips 40 250
catalog "${2:-10000}"
room
"$build/bench/device/recognizer/listening_figures" "$catalog" "$clips"
