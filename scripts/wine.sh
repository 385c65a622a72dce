#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/wine.sh setup
       scripts/wine.sh kind
       scripts/wine.sh run [--timeout SECONDS] PROGRAM.exe [ARGUMENTS]

Runs Windows programs that lie in the checkout. "setup" takes the first of these that works and
remembers it in build/wine-kind:

  installed   wine32 of this machine, installed by name when that needs no other change
  tree        a private 32-bit Debian tree in build/wine-root, entered with chroot
  wine64      wine64 of this machine: 64-bit programs only
  none        nothing worked; build/wine-log says why

"kind" prints which one it is. "run" gives the program a Wine prefix of its own in build/, an X
server when DISPLAY is not set, and a time limit (default 300 seconds, then status 124). Whatever
the program leaves running ends with it. Mounts for the tree are made in a private mount namespace:
they are gone when the call ends, however it ends.

OGL_WINE_ROOT names another place for the tree, so that several checkouts can share one.
OGL_WINE_KIND (installed, tree or wine64) has "setup" take that one or none.
END
}

tree=${OGL_WINE_ROOT:-$root/build/wine-root}
tree_packages=(fonts-liberation libgl1 libgl1-mesa-dri libglu1-mesa libglx-mesa0 wine wine32)
log=build/wine-log

# The prefix is for one program at a time; it also starts empty when the kind changes.
prefix_of() { printf '%s/build/wine-prefix-%s' "$root" "$1"; }

run_installed() {
    local kind=$1 seconds=$2 status=0
    shift 2
    (cd "$caller_folder" && WINEPREFIX=$(prefix_of "$kind") timeout -k 10 "$seconds" \
        "${wine_program[@]}" "$@" </dev/null) || status=$?
    WINEPREFIX=$(prefix_of "$kind") timeout -k 10 30 wineserver -k 2>/dev/null || true
    return $status
}

# Runs inside the namespace, as root: mounts what the program needs into the tree and enters it.
enter_tree='
set -eu
tree=$1 checkout=$2 folder=$3 user=$4 authority=$5
shift 5
mount -t proc proc "$tree/proc" 2>/dev/null || mount --rbind /proc "$tree/proc"
mount --rbind /dev "$tree/dev"
mount -t tmpfs -o mode=1777 tmpfs "$tree/tmp"
if [ -d /tmp/.X11-unix ]; then
    mkdir -m 1777 "$tree/tmp/.X11-unix"
    mount --bind /tmp/.X11-unix "$tree/tmp/.X11-unix"
fi
if [ -n "$authority" ] && [ -f "$authority" ]; then
    install -m 600 -o "${user%:*}" "$authority" "$tree/tmp/.Xauthority"
    export XAUTHORITY=/tmp/.Xauthority
fi
mkdir -p "$tree$checkout"
mount --bind "$checkout" "$tree$checkout"
mkdir -p "$tree/tmp/home"
chown "$user" "$tree/tmp/home"
unset TMPDIR TEMP TMP XDG_RUNTIME_DIR
export HOME=/tmp/home PATH=/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin LC_ALL=C.UTF-8
exec chroot --userspec="$user" "$tree" /bin/sh -c "cd \"\$0\" && exec \"\$@\"" "$folder" "$@"
'

# A sudo that cleans the environment must not lose what the tests set.
kept_environment() {
    env -0 | while IFS= read -r -d '' pair; do
        case ${pair%%=*} in
        DISPLAY | WINE* | OGL_* | MESA_* | LIBGL_* | GALLIUM_* | LP_* | GTEST_* | ASAN_* | UBSAN_*)
            printf '%s\0' "$pair"
            ;;
        esac
    done
}

run_tree() {
    local seconds=$1 folder=$root status=0 pairs
    shift
    release_mounts "$tree"
    case $caller_folder/ in "$root"/*) folder=$caller_folder ;; esac
    mapfile -d '' -t pairs < <(kept_environment)
    in_namespace env "${pairs[@]}" WINEPREFIX="$(prefix_of tree)" \
        bash -c "$enter_tree" enter_tree "$tree" "$root" "$folder" "$(id -u):$(id -g)" \
        "${XAUTHORITY:-}" timeout -k 10 "$seconds" wine "$@" </dev/null || status=$?
    release_mounts "$tree"
    return $status
}

# run_kind KIND SECONDS PROGRAM ARGUMENTS...
run_kind() {
    local kind=$1
    shift
    export WINEDEBUG=${WINEDEBUG:--all}
    # No offer to install Mono or Gecko, and no debugger that waits for an answer after a crash.
    export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml,winedbg.exe=}
    case $kind in
    installed)
        wine_program=(wine)
        WINEARCH=win32 run_installed "$kind" "$@"
        ;;
    wine64)
        wine_program=(wine64)
        command -v wine64 >/dev/null || wine_program=(/usr/lib/wine/wine64)
        WINEARCH=win64 run_installed "$kind" "$@"
        ;;
    tree) WINEARCH=win32 run_tree "$@" ;;
    esac
}

# works KIND: starts the smallest program there is; makes the prefix on the way.
works() {
    local prefix said
    prefix=$(prefix_of "$1")
    rm -rf --one-file-system "$prefix"
    mkdir -p "$prefix"
    said=$(run_kind "$1" 120 cmd /c echo ready 2>>"$log" | tr -d '\r') || true
    printf 'trying %s: %s\n' "$1" "${said:-no answer}" >>"$log"
    [ "$said" = ready ]
}

# Installs wine32 for the machine when nothing has to be removed or downgraded for it.
install_wine32() {
    local added=no
    is_installed wine32:i386 && is_installed wine && return
    can_be_root || return 1
    if ! dpkg --print-foreign-architectures | grep -qx i386; then
        as_root dpkg --add-architecture i386
        added=yes
        apt_quiet update 2>>"$log" || true
    fi
    if apt-get --simulate --no-remove --no-install-recommends install wine wine32:i386 \
        libgl1-mesa-dri:i386 >>"$log" 2>&1 &&
        apt_quiet install --no-remove --no-install-recommends wine wine32:i386 \
            libgl1-mesa-dri:i386 libgl1:i386 2>>"$log"; then
        return
    fi
    if [ "$added" = yes ]; then
        as_root dpkg --remove-architecture i386
        apt_quiet update 2>>"$log" || true
    fi
    return 1
}

make_tree='
set -eu
tree=$1 suite=$2 uri=$3
shift 3
debootstrap --arch=i386 --variant=minbase "$suite" "$tree" "$uri"
apt-config dump | grep "^Acquire::" | grep -v -e "{$" -e IndexTargets \
    >"$tree/etc/apt/apt.conf.d/90machine" || true
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8
export PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin
chroot "$tree" apt-get -y -q -o Dpkg::Options::=--force-unsafe-io \
    --no-install-recommends install "$@"
chroot "$tree" apt-get clean
'

install_tree() {
    local uri suite
    can_be_root || return 1
    [ -L "$tree/usr/bin/wine" ] && return
    is_installed debootstrap || apt_quiet install --no-install-recommends debootstrap || return 1
    read -r uri suite <<<"$(debian_archive)"
    [ -n "${suite:-}" ] || return 1
    say "making a private 32-bit tree for Wine (a minute or two)"
    as_root rm -rf --one-file-system "$tree.partial"
    mkdir -p "$(dirname "$tree")"
    in_namespace bash -c "$make_tree" make_tree "$tree.partial" "$suite" "$uri" \
        "${tree_packages[@]}" >>"$log" 2>&1 || return 1
    as_root mv "$tree.partial" "$tree"
}

install_wine64() {
    is_installed wine64 || { can_be_root && apt_quiet install --no-remove --no-install-recommends wine64 2>>"$log"; }
}

wanted() { [ "${OGL_WINE_KIND:-$1}" = "$1" ]; }

setup() {
    local kind
    kind=$(cat build/wine-kind 2>/dev/null || true)
    if wanted "$kind"; then
        case $kind in
        installed | wine64) return ;;
        tree) [ ! -L "$tree/usr/bin/wine" ] || return 0 ;;
        esac
    fi
    mkdir -p build
    : >"$log"
    [ -n "${DISPLAY:-}" ] || start_display
    if wanted installed && install_wine32 && works installed; then
        kind=installed
    elif wanted tree && install_tree && works tree; then
        kind=tree
    elif wanted wine64 && install_wine64 && works wine64; then
        kind=wine64
    else
        kind=none
    fi
    echo "$kind" >build/wine-kind
    say "Wine: $kind"
}

run() {
    local seconds=300 kind program
    if [ "${1:-}" = --timeout ]; then
        seconds=$2
        shift 2
    fi
    [ $# -gt 0 ] || {
        usage >&2
        exit 2
    }
    kind=$(cat build/wine-kind 2>/dev/null) || die "run scripts/wine.sh setup first"
    [ "$kind" != none ] || die "there is no Wine here; build/wine-log says why"
    program=$(cd "$caller_folder" && realpath -e "$1") || die "there is no program $1"
    shift
    case $program in
    "$root"/*) ;;
    *) die "$program lies outside the checkout" ;;
    esac
    [ -n "${DISPLAY:-}" ] || start_display
    exec 9>build/wine-lock
    flock 9
    run_kind "$kind" "$seconds" "$program" "$@" 9>&-
}

case ${1:-} in
setup) setup ;;
kind) cat build/wine-kind 2>/dev/null || echo unknown ;;
run)
    shift
    run "$@"
    ;;
-h | --help) usage ;;
*)
    usage >&2
    exit 2
    ;;
esac
