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

# Starts the machine unless it runs. What it starts with outlives this program for half a minute, so
# it must not hold this program's output.
start_machine() {
    wineserver --persistent=30 || return 0
    # Without the installers of .NET and HTML, which would ask for a download.
    WINEDLLOVERRIDES='mscoree,mshtml=' wine wineboot
    local fonts=$WINEPREFIX/drive_c/windows/Fonts/host
    [ -e "$fonts" ] || ln -s /usr/share/fonts "$fonts"
}

mkdir -p "$WINEPREFIX"
{
    flock 9
    start_machine </dev/null >/dev/null 2>&1 9>&-
} 9>"$WINEPREFIX/lock"

exec wine "$@" </dev/null
