#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
#
# microphone.sh BUILD [SECONDS]   how long it takes until the microphone gives its first piece of sound, and what gets
# lost in so many seconds (60 unless they are given) in which all processors are busy with something else. Needs
# pulseaudio and pulseaudio-utils.
set -eu

build=$1
# shellcheck source=bench/device/audio/room.sh
. "$(dirname "$0")/device/audio/room.sh"
room
"$build/bench/device/audio/microphone_figures" "${2:-60}"
