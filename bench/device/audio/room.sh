# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh
#
# room: begins a sound server with a loudspeaker "room" and a microphone before it, until the script ends; read by the
# scripts that listen.
room() {
    private=$(mktemp -d)
    export HOME="$private" XDG_RUNTIME_DIR="$private" PULSE_SERVER="unix:$private/native"
    # The output without rewinds gives sound in small pieces, as devices do.
    pulseaudio --daemonize=no -n --exit-idle-time=-1 \
        --load="module-native-protocol-unix auth-anonymous=1 socket=$private/native" \
        --load="module-null-sink sink_name=room norewinds=1 rate=48000" \
        --load="module-remap-source master=room.monitor source_name=mic" 2>/dev/null &
    server=$!
    trap 'kill "$server"; wait "$server" || true; rm -rf "$private"' EXIT
    tries=0
    until pactl list short sources 2>/dev/null | grep -q mic || [ $tries -gt 100 ]; do
        sleep 0.1
        tries=$((tries + 1))
    done
    pactl set-default-source mic
}
