#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/check_format.sh [--fix]

Compares every C++ file with .clang-format; --fix rewrites those that differ. Status 77 where
clang-format is not of version 14.
END
}
mode=(--dry-run --Werror)
case ${1:-} in
"") ;;
--fix) mode=(-i) ;;
*)
    usage
    exit 0
    ;;
esac
# Versions differ in details; Debian 12 has 14.
formatter=clang-format
! command -v clang-format-14 >/dev/null || formatter=clang-format-14
version=$("$formatter" --version)
case $version in
*"version 14."*) ;;
*)
    echo "clang-format 14 decides, this is ${version##* }"
    exit 77
    ;;
esac
find include src host apps examples tests benchmarks \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -r "$formatter" "${mode[@]}"
