#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/reference.sh

Makes the reference of the public headers, with the guides, in build/reference/html. Fails when
Doxygen has something to warn about.
END
}
case ${1:-} in
-h | --help)
    usage
    exit 0
    ;;
esac
command -v doxygen >/dev/null || die "Doxygen is not installed; run scripts/setup.sh test"
rm -rf build/reference
mkdir -p build/reference
warnings=$(doxygen docs/Doxyfile 2>&1) || true
if [ -n "$warnings" ]; then
    printf '%s\n' "$warnings"
    exit 1
fi
[ -f build/reference/html/index.html ] || die "Doxygen made nothing"
html=build/reference/html
for page in "guide" Architecture Troubleshooting SCENE GEOMETRY VIEW MATERIAL CACHEENTRY; do
    grep -q "<title>.*$page\|$page.html" "$html"/*.html || die "the reference lacks $page"
done
for function in $(sed -n 's/^    \(d[3i]_[A-Za-z]*\)$/\1/p' src/api/ogl.def); do
    grep -q "$function" "$html"/ogl_8h.html || die "the reference lacks $function"
done
say "build/reference/html/index.html"
