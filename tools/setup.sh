# Sourced by ./run, ./test, tools/fuzz and .ci/run: installs the Debian packages that they name.

qt5_packages=(qtbase5-dev libqt5websockets5-dev)
qt6_packages=(qt6-base-dev qt6-websockets-dev)
qt_packages=("${qt5_packages[@]}")
[ "${PRESET:-}" != qt6 ] || qt_packages=("${qt6_packages[@]}")
build_packages=(cmake ninja-build g++ "${qt_packages[@]}" libsensors-dev libmnl-dev libpulse-dev libisal-dev)
run_packages=(fonts-roboto-unhinted)
test_packages=(fonts-dejavu-core fonts-wqy-microhei iproute2 util-linux pulseaudio pulseaudio-utils
    e2fsprogs btrfs-progs squashfs-tools procps faketime xvfb)
gate_packages=(clang-format clang-tidy git)
fuzz_packages=(clang libclang-rt-14-dev)
windows_packages=(g++-mingw-w64-x86-64-posix wine wine64 xvfb xauth iproute2 util-linux locales
    pulseaudio pulseaudio-utils nsis)
packaging_packages=(dpkg-dev lintian desktop-file-utils appstream man-db python3
    python3-license-expression)

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Abbrev}' "$1" 2>/dev/null)" = "ii " ]
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# install_packages NAME...: installs those that are missing; says nothing when there are none. Where it
# cannot, it leaves it to the build to find out what is missing.
install_packages() {
    local package missing=()
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if ! command -v apt-get >/dev/null; then
        echo "Here is no apt-get: \"Build by hand\" in README.md lists what to install" >&2
        return 0
    fi
    echo "Installing missing packages: ${missing[*]}"
    local install=(env DEBIAN_FRONTEND=noninteractive
        apt-get install --yes --quiet --no-install-recommends "${missing[@]}")
    # The lists of packages may be missing or old.
    as_root "${install[@]}" >/dev/null 2>&1 || {
        as_root apt-get update --quiet >/dev/null
        as_root "${install[@]}" >/dev/null
    }
}

# quietly COMMAND...: shows the command's output only when it fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 || status=$?
    [ $status -eq 0 ] || cat "$log" >&2
    rm -f "$log"
    return $status
}

# tenths WHAT: for every tenth of what the lines of standard input count, as in [N/M] or N/M, a line.
tenths() {
    local line tenth shown=0 start=$SECONDS
    while IFS= read -r line; do
        [[ $line =~ ^\[?\ *([0-9]+)/([0-9]+) ]] || continue
        tenth=$((10 * BASH_REMATCH[1] / BASH_REMATCH[2]))
        [ "$tenth" -gt "$shown" ] || continue
        shown=$tenth
        echo "  $1: ${tenth}0 % of ${BASH_REMATCH[2]} after $((SECONDS - start)) s"
    done
}

# counted WHAT COMMAND...: shows the tenths of what COMMAND counts, and what else it says if it fails.
counted() {
    local what=$1 log status=0
    shift
    log=$(mktemp)
    "$@" 2>&1 | tee "$log" | tenths "$what" || status=$?
    [ $status -eq 0 ] || grep -v '^\[[0-9]*/[0-9]*\] ' "$log" >&2 || true
    rm -f "$log"
    return $status
}

# Removes the build folder $1 if it was made for a checkout in another place, for CMake refuses it.
drop_moved_build() {
    local made_for
    [ -f "$1/CMakeCache.txt" ] || return 0
    made_for=$(sed -n 's/^CMAKE_CACHEFILE_DIR:INTERNAL=//p' "$1/CMakeCache.txt")
    [ "$made_for" -ef "$1" ] && return 0
    echo "$1 was made as $made_for: it is built anew"
    rm -rf "$1"
}

# build PRESET [TARGET...]: configures, with what $configure_options says beside the preset, and builds.
build() {
    local preset=$1
    shift
    drop_moved_build "build/$preset"
    echo "Building preset $preset"
    quietly cmake --preset "$preset" ${configure_options:+"$configure_options"} || return
    NINJA_STATUS="[%f/%t] " counted "$preset" cmake --build --preset "$preset" ${1:+--target "$@"}
}
