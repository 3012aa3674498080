#!/bin/bash
# isolated.sh COMMAND [ARGUMENTS...]: runs a command where it sees no process and no port but its
# own, for the plugin ends leftovers of its name and serves a fixed port. Where the machine forbids
# such namespaces, says why and runs the command plainly, one such at a time. Output and exit status
# are the command's.
set -u
# The tools that make file systems; a user's path lacks them.
PATH+=:/usr/sbin:/sbin

enter=(unshare --net --pid --fork --mount-proc --kill-child)
((EUID == 0)) || enter+=(--map-root-user)

if reason=$("${enter[@]}" sh -c 'ip link set lo up' 2>&1); then
    # The shell stays as the first process: signals to a first process are not what tests expect.
    exec "${enter[@]}" sh -c 'ip link set lo up; "$@"; exit $?' sh "$@"
fi
echo "isolated.sh: no private namespaces, running plainly: ${reason%%$'\n'*}" >&2
exec flock --close "${TMPDIR:-/tmp}/port24509.lock" "$@"
