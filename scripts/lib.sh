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
