#!/usr/bin/env bash
# wine.sh MACHINES FOLDERS PROGRAM [ARGUMENTS...]: runs a Windows program under Wine, on a machine of
# its own with its own processes and ports: the first below the folder MACHINES that nobody uses, or
# else a new one. FOLDERS, separated by colons, are where the program's libraries lie. Output and exit
# status are the program's. Where this machine forbids network namespaces, it says why, and such
# programs run one at a time.
# wine.sh MACHINES --stop: ends everything that runs on these machines.
set -euo pipefail
# The tool that starts a network; a user's path lacks it.
PATH+=:/usr/sbin:/sbin

mkdir -p "$1"
machines=$(realpath "$1")
export WINEDEBUG=-all

if [ "$2" = --stop ]; then
    for machine in "$machines"/*/; do
        [ ! -d "$machine/dosdevices" ] || WINEPREFIX=$machine wineserver --kill || true
    done
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

# Wine takes a machine's code page from the language: this one's is UTF-8, and its digits are Latin.
languages=$machines/languages
language=ka_GE.UTF-8

make_language() {
    [ -d "$languages/$language" ] && return
    mkdir -p "$languages"
    localedef -i "${language%%.*}" -f "${language#*.}" "$languages/new" &&
        mv "$languages/new" "$languages/$language"
}

wine() {
    env LOCPATH="$languages" LC_ALL="$language" wine "$@"
}

# Starts the machine unless it runs. What it starts with outlives this program for half a minute, so
# it must not hold this program's output and locks.
start_machine() {
    "${network[@]}" wineserver --persistent=30 || return 0
    # Without the installers of .NET and HTML, which would ask for a download.
    WINEDLLOVERRIDES='mscoree,mshtml=' wine wineboot
}

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
    # Otherwise Wine tries ALSA as well, which says much on standard error.
    wine reg add 'HKCU\Software\Wine\Drivers' /v Audio /d pulse /f
    wineserver --kill
}

# Makes the machine that all others are copies of.
make_first_machine() {
    [ -e "$machines/first/furnished" ] && return
    make_language
    local WINEPREFIX=$machines/first
    rm -rf "$WINEPREFIX"
    mkdir "$WINEPREFIX"
    export WINEPREFIX
    start_machine
    furnish_machine
    touch "$WINEPREFIX/furnished"
}

# The system's files, which take most of the room, are the same ones in each machine.
copy_machine() {
    [ -e "$WINEPREFIX/furnished" ] && return
    rm -rf "$WINEPREFIX/drive_c"
    cp -a --link "$machines/first/drive_c" "$WINEPREFIX/"
    cp -a "$machines/first"/{drive_[!c],dosdevices,*.reg,.update-timestamp,furnished} "$WINEPREFIX/"
}

# Wine's server makes all sockets of a machine: its network is the machine's.
network=(unshare --net)
((EUID == 0)) || network+=(--map-current-user --keep-caps)
if reason=$("${network[@]}" ip link set lo up 2>&1); then
    network+=(sh -c 'ip link set lo up; exec "$@"' sh)
    number=1
    mkdir -p "$machines/$number"
    exec 8>"$machines/$number/lock"
    until flock --nonblock 8; do
        ((++number))
        mkdir -p "$machines/$number"
        exec 8>"$machines/$number/lock"
    done
else
    echo "wine.sh: no private network, waiting for its turn: ${reason%%$'\n'*}" >&2
    network=()
    number=1
    mkdir -p "$machines/$number"
    exec 8>"${TMPDIR:-/tmp}/port24509.lock"
    flock 8
fi

export WINEPREFIX=$machines/$number
trap 'cat "$WINEPREFIX/start.log" >&2' EXIT
{
    flock 9
    make_first_machine 8>&- 9>&-
    copy_machine
} 9>"$machines/lock" </dev/null >"$WINEPREFIX/start.log" 2>&1
start_machine </dev/null >>"$WINEPREFIX/start.log" 2>&1 8>&-

# What Wine starts for the program on the way, such as a desktop, outlives it and would keep a pipe
# open: whoever reads the output would wait for the end of that.
output=$(mktemp -p "$WINEPREFIX")
trap 'rm -f "$output"' EXIT
wine "$@" </dev/null >"$output" 2>&1 8>&- &
tail -f -s 0.1 --pid=$! -c +1 "$output"
wait $!
