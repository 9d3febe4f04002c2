# Sourced by the commands of this project: installs the Debian packages that are missing, and says which.

build_packages="cmake ninja-build g++ qt6-base-dev qt6-serialport-dev libsqlitecpp-dev libsqlite3-dev libcli11-dev fonts-dejavu-core"

need() {
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

# build PRESET [OPTION...]: configures in silence unless that fails, then builds.
build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    cmake --preset "$preset" >"$log" 2>&1 || { cat "$log"; rm -f "$log"; return 1; }
    rm -f "$log"
    cmake --build --preset "$preset" "$@"
}
