# Sourced by the commands of this project: installs the Debian packages that are missing, and says which; builds.
# With TRX_BUILT, the folder of a finished build, the commands use that one and install nothing: so their tests run them.

build_packages="cmake ninja-build g++ qt6-base-dev qt6-serialport-dev libsqlitecpp-dev libsqlite3-dev libcli11-dev libmuparser-dev fonts-dejavu-core"

packaging_packages="dpkg-dev file"

need() {
    [ -z "${TRX_BUILT:-}" ] || return 0
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if ! command -v apt-get >/dev/null; then
        echo "Please install these first (Debian's names): ${missing[*]}" >&2
        return 1
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "Needs root or sudo to install: ${missing[*]}" >&2; return 1; }
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -q >/dev/null &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
            "${missing[@]}" >/dev/null
}

# build PRESET [OPTION...]: configures in silence unless that fails, then builds. Its folder is $built from then on.
build() {
    local preset=$1 log
    shift
    built=${TRX_BUILT:-$PWD/build/$preset}
    [ -z "${TRX_BUILT:-}" ] || return 0
    log=$(mktemp)
    cmake --preset "$preset" >"$log" 2>&1 || { cat "$log"; rm -f "$log"; return 1; }
    rm -f "$log"
    cmake --build --preset "$preset" "$@"
}
