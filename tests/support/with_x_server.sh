#!/bin/bash
# with_x_server.sh COMMAND [ARGUMENTS...]: runs a command on an X server of its own. Where there is
# none to be had it says so and ends with 77. Output and exit status are the command's otherwise.
set -u

if ! command -v Xvfb >/dev/null; then
    echo "with_x_server.sh: skipped, there is no Xvfb (Debian package xvfb)"
    exit 77
fi
folder=$(mktemp -d)
mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp 3>"$folder/display" 2>"$folder/errors" &
server=$!
trap 'kill $server 2>/dev/null; wait $server 2>/dev/null; rm -rf "$folder"' EXIT

# The number comes once the server takes connections; nothing, when it does not start.
read -r display <"$folder/display"
if [ -z "$display" ]; then
    echo "with_x_server.sh: skipped, Xvfb does not start here"
    cat "$folder/errors"
    exit 77
fi
unset WAYLAND_DISPLAY
DISPLAY=":$display" QT_QPA_PLATFORM=xcb "$@"
