#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/setup.sh [run] [test] [bench] [windows] [package]

Installs from Debian and npm, by name, what the named commands need; scripts/packages.txt lists it.
Installs nothing that is there already, and needs to be root only when something is missing. Without
apt-get it says what is missing, and goes on when all is there. "windows" also prepares the cross
builds: GLEW for MinGW into build/glew-win32 and build/glew-win64. Without a name: run and test.
END
}

groups=(build)
viewer=page
windows=no
[ $# -gt 0 ] || set -- run test
for command in "$@"; do
    case $command in
    run | bench) groups+=("$command") ;;
    test)
        groups+=(test package windows)
        viewer=tests
        ;;
    package) groups+=(package windows) ;;
    windows) groups+=(windows) ;;
    -h | --help)
        usage
        exit 0
        ;;
    *)
        usage >&2
        exit 2
        ;;
    esac
done
case " ${groups[*]} " in *" windows "*) windows=yes ;; esac

# Headers of its own that it includes may need options.
has_header() {
    printf '#if !__has_include(<%s>)\n#error\n#endif\n' "$1" | c++ -E -x c++ - >/dev/null 2>&1
}

# is_there PROBE: as packages.txt explains it.
is_there() {
    local what=${1#*:}
    case $1 in
    command:*) command -v "$what" >/dev/null ;;
    header:*) has_header "$what" ;;
    file:*) [ -e "$what" ] ;;
    font:*) fc-list 2>/dev/null | grep -q "$what" ;;
    esac
}

# What is missing: Debian's names where Debian's package manager is, else what it is called.
missing=()
while read -r group package probe name; do
    case " ${groups[*]} " in *" $group "*) ;; *) continue ;; esac
    if command -v apt-get >/dev/null; then
        is_installed "$package" || missing+=("$package")
    else
        is_there "$probe" || missing+=("  $name")
    fi
done < <(grep -v -e '^#' -e '^$' scripts/packages.txt)
# Any Node with its npm will do; Debian's is taken when there is none.
if ! command -v npm >/dev/null; then
    if command -v apt-get >/dev/null; then missing+=(nodejs npm); else missing+=("  Node.js 18 or newer, with npm"); fi
fi

install_missing() {
    mapfile -t missing < <(printf '%s\n' "${missing[@]}" | sort -u)
    if ! command -v apt-get >/dev/null; then
        printf '%s\n' "${missing[@]}" >&2
        die "this machine has no apt-get; install the above in its own way, then try again"
    fi
    can_be_root ||
        die "missing packages, and no right to install them (be root, or have sudo): ${missing[*]}"
    say "installing ${missing[*]}"
    apt_quiet update ||
        warn "some package lists could not be fetched; going on with those that are there"
    apt_quiet install --no-install-recommends "${missing[@]}" ||
        die "could not install: ${missing[*]}"
}
[ ${#missing[@]} = 0 ] || install_missing

# What package.json names, from npm: for the page, or for the page and its tests.
npm_install() {
    local installed=viewer/node_modules/.package-lock.json needed=$1
    shift
    [ ! "$installed" -nt viewer/package-lock.json ] || [ ! -d "viewer/node_modules/$needed" ] || return 0
    mkdir -p build
    say "installing viewer/node_modules"
    npm ci --prefix viewer --no-audit --no-fund "$@" >build/npm.log 2>&1 || {
        tail -n 30 build/npm.log >&2
        die "npm could not install the packages of viewer/package.json"
    }
}
case $viewer in
page) npm_install gl-matrix --omit=dev ;;
tests) npm_install playwright-core ;;
esac

if [ "$windows" = yes ]; then
    scripts/glew_mingw.sh
fi
