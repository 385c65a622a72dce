#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/pack.sh PRESET [FOLDER]

Makes the packages of a build that is complete, into build/PRESET/packages, looks whether all is in
them, and copies them into FOLDER.
END
}
case ${1:-} in
"" | -h | --help)
    usage
    exit 0
    ;;
esac
build=build/$1
rm -rf "$build/packages"
(cd "$build" && cpack) >"$build/pack.log" 2>&1 || {
    tail -n 30 "$build/pack.log" >&2
    die "cpack failed"
}
python3 scripts/check_packages.py "$build"/packages/ogl[-_]*
if [ $# -gt 1 ]; then
    mkdir -p "$2"
    cp "$build"/packages/ogl[-_]* "$2"
fi
