#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/check_tidy.sh [FILE...]

Runs clang-tidy with the checks of .clang-tidy over the sources that build/linux compiles, the
tests excepted, or over the files given.
END
}
case ${1:-} in
-h | --help)
    usage
    exit 0
    ;;
esac
[ -f build/linux/compile_commands.json ] || cmake --preset linux >/dev/null
if [ $# -gt 0 ]; then
    files=("$@")
else
    mapfile -t files < <(find src host apps -name '*.cpp' |
        grep -F -x -f <(sed -n "s|^ *\"file\": \"$root/\(.*\)\".*|\1|p" \
            build/linux/compile_commands.json) | sort)
fi
[ ${#files[@]} -gt 0 ] || die "there are no files to look at"
printf '%s\0' "${files[@]}" |
    xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/linux --quiet 2>/dev/null
