#!/usr/bin/env bash
# with_sound_server.sh COMMAND [ARGUMENTS...]: runs a command beside a PulseAudio daemon of its own
# with two null sinks, "Desk Speakers" and "Head Phones", which needs no card. Where there is none to
# be had, says why and runs the command plainly.
set -uo pipefail

folder=$(mktemp -d)
daemon=
finish() {
    [ -z "$daemon" ] || kill "$daemon" 2>/dev/null
    rm -rf "$folder"
}
trap finish EXIT

start() {
    local sink
    local -a options=(-n --daemonize=no --use-pid-file=no --exit-idle-time=-1 --disable-shm=yes
        --realtime=no --high-priority=no --log-target=stderr
        -L "module-native-protocol-unix auth-anonymous=1 socket=$folder/native")
    for sink in "Desk Speakers" "Head Phones"; do
        options+=(-L "module-null-sink sink_name=${sink##* } sink_properties=\"device.description='$sink'\"")
    done
    env -u DISPLAY -u DBUS_SESSION_BUS_ADDRESS -u PULSE_SERVER HOME="$folder" \
        XDG_RUNTIME_DIR="$folder" XDG_CONFIG_HOME="$folder" PULSE_RUNTIME_PATH="$folder" \
        PULSE_STATE_PATH="$folder" pulseaudio "${options[@]}" </dev/null >"$folder/log" 2>&1 &
    daemon=$!
    timeout 20 sh -c 'until PULSE_SERVER=$1 pactl info >/dev/null 2>&1; do sleep 0.1; done' sh \
        "unix:$folder/native"
}

if start; then
    export PULSE_SERVER=unix:$folder/native PULSE_COOKIE=$folder/cookie
else
    echo "with_sound_server.sh: no sound server: $(tail -n 1 "$folder/log")" >&2
fi
"$@"
