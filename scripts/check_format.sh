#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/check_format.sh [--fix]

Compares every C++ file with .clang-format; --fix rewrites those that differ.
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
# Versions differ in details; Debian's bookworm has 14.
formatter=clang-format
! command -v clang-format-14 >/dev/null || formatter=clang-format-14
find include src host apps examples tests benchmarks \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -r "$formatter" "${mode[@]}"
