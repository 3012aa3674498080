#!/usr/bin/env bash
# wine.sh PREFIX FOLDERS PROGRAM [ARGUMENTS...]: runs a Windows program under Wine, on a machine of
# its own below the folder PREFIX, which is made on first use. FOLDERS, separated by colons, are
# where the program's libraries lie. Output and exit status are the program's.
# wine.sh PREFIX --stop: ends everything that runs on that machine.
set -euo pipefail

WINEPREFIX=$(realpath -m "$1")
export WINEPREFIX WINEDEBUG=-all

if [ "$2" = --stop ]; then
    [ ! -d "$WINEPREFIX" ] || wineserver --kill || true
    exit
fi

IFS=: read -ra folders <<<"$2"
shift 2
WINEPATH=
for folder in "${folders[@]}"; do
    WINEPATH+="Z:${folder//\//\\};"
done
export WINEPATH

# Wine keeps variables that begin with QT_ for the programs of the host.
export WINEQT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} WINEQT_FORCE_STDERR_LOGGING=1
# The offscreen platform knows no fonts of Windows'.
export WINEQT_QPA_FONTDIR=/usr/share/fonts/truetype/dejavu

# What a machine has beside its fixed drives C: and Z:, the fonts of the host, a network drive N: and
# a removable one R:.
furnish_machine() {
    local drive
    ln -sfn /usr/share/fonts "$WINEPREFIX/drive_c/windows/Fonts/host"
    for drive in n:network r:floppy; do
        mkdir -p "$WINEPREFIX/drive_${drive%%:*}"
        ln -sfn "../drive_${drive%%:*}" "$WINEPREFIX/dosdevices/${drive%%:*}:"
        wine reg add 'HKLM\Software\Wine\Drives' /v "${drive%%:*}:" /d "${drive#*:}" /f
    done
    wineserver --kill
    wineserver --persistent=30
    wine wineboot
    touch "$WINEPREFIX/furnished"
}

# Starts the machine unless it runs. What it starts with outlives this program for half a minute, so
# it must not hold this program's output.
start_machine() {
    wineserver --persistent=30 || return 0
    # Without the installers of .NET and HTML, which would ask for a download.
    WINEDLLOVERRIDES='mscoree,mshtml=' wine wineboot
    [ -e "$WINEPREFIX/furnished" ] || furnish_machine
}

mkdir -p "$WINEPREFIX"
trap 'cat "$WINEPREFIX/start.log" >&2' EXIT
{
    flock 9
    start_machine </dev/null >"$WINEPREFIX/start.log" 2>&1 9>&-
} 9>"$WINEPREFIX/lock"

# What Wine starts for the program on the way, such as a desktop, outlives it and would keep a pipe
# open: whoever reads the output would wait for the end of that.
output=$(mktemp -p "$WINEPREFIX")
trap 'rm -f "$output"' EXIT
wine "$@" </dev/null >"$output" 2>&1 &
tail -f -s 0.1 --pid=$! -c +1 "$output"
wait $!
