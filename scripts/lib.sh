# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
#
# What the commands share. Sourced: sets `root` to the checkout, `caller_folder` to the current
# folder, and changes into the checkout.

set -euo pipefail
caller_folder=$(pwd -P)
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
cd "$root"

say() { printf '== %s\n' "$*"; }
warn() { printf 'warning: %s\n' "$*" >&2; }
die() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

can_be_root() { [ "$(id -u)" = 0 ] || command -v sudo >/dev/null; }

# Runs a command as the superuser, or says what it would have needed that for.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo --preserve-env=DEBIAN_FRONTEND,http_proxy,https_proxy,no_proxy "$@"
    else
        die "need to be root (or to have sudo) for: $*"
    fi
}

# apt-get with answers given; its output is shown only when it fails.
apt_quiet() {
    mkdir -p build
    if ! DEBIAN_FRONTEND=noninteractive as_root apt-get -y -q "$@" >build/apt.log 2>&1; then
        tail -n 30 build/apt.log >&2
        return 1
    fi
}

# in_namespace COMMAND...: as root, with mounts and processes that end with the command, and the
# command with this script. Where the root folder is no mount point (in a chroot, in some
# containers) the kernel does not let its mounts be made private; what then reaches the outside is
# undone by release_mounts.
in_namespace() {
    local propagation=private
    mountpoint -q / || propagation=unchanged
    as_root setpriv --pdeathsig KILL unshare --mount --propagation "$propagation" --pid --fork \
        --kill-child "$@"
}

# release_mounts FOLDER: takes away what is still mounted in it.
release_mounts() {
    local place
    while read -r place; do
        as_root umount --lazy "$place" 2>/dev/null || true
    done < <(awk -v folder="$1/" 'index($5, folder) == 1 { print $5 }' /proc/self/mountinfo | sort -r)
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Fields of this machine's own archive, the main suite: uri and suite.
debian_archive() {
    local codename
    codename=$(. /etc/os-release && printf '%s' "${VERSION_CODENAME:-}")
    [ -n "$codename" ] || die "this machine does not say which Debian release it runs"
    apt-get indextargets --format '$(ORIGIN) $(RELEASE) $(COMPONENT) $(SITE)' \
        'Created-By: Packages' |
        awk -v suite="$codename" '
            $1 == "Debian" && ($2 == suite || $2 == "stable") && $3 == "main" && !seen++ {
                print $4, $2
            }'
}

# build_with_progress PRESET [OPTIONS]: builds it; the output is for a log, and where standard error
# is a terminal or not, a line says there now and then how far it is.
build_with_progress() {
    local preset=$1 line said=-1 percent status
    shift
    NINJA_STATUS='[%p] ' cmake --build --preset "$preset" "$@" 2>&1 | while IFS= read -r line; do
        printf '%s\n' "$line"
        case $line in '['*%']'*) ;; *) continue ;; esac
        percent=${line#[}
        percent=$((${percent%%%*} / 10 * 10))
        [ "$percent" -le "$said" ] || printf '   %s: %s %%\n' "$preset" "$percent" >&2
        [ "$percent" -le "$said" ] || said=$percent
    done
    status=${PIPESTATUS[0]}
    return "$status"
}

# use_ccache: compilers run behind ccache where that is installed.
use_ccache() {
    command -v ccache >/dev/null || return 0
    export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
}

# start_display: gives the calling script an X server of its own; it ends with the script.
display_pid=
start_display() {
    local number_file
    command -v Xvfb >/dev/null || die "Xvfb is not installed; run scripts/setup.sh first"
    mkdir -p build
    number_file=$(mktemp build/display.XXXXXX)
    setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
    display_pid=$!
    trap stop_display EXIT
    for _ in $(seq 100); do
        [ -s "$number_file" ] && break
        kill -0 "$display_pid" 2>/dev/null || break
        sleep 0.1
    done
    [ -s "$number_file" ] || die "Xvfb did not start"
    export DISPLAY=":$(tr -d '[:space:]' <"$number_file")"
    unset XAUTHORITY WAYLAND_DISPLAY
    rm -f "$number_file"
}

stop_display() {
    [ -z "$display_pid" ] || kill "$display_pid" 2>/dev/null || true
    display_pid=
}
