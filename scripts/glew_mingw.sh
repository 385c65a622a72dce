#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/glew_mingw.sh

Compiles GLEW from Debian's source package for the Windows builds, as a static library, into
build/glew-win32 and build/glew-win64 (include/, lib/). Does nothing when both are there.
END
}
case ${1:-} in
-h | --help)
    usage
    exit 0
    ;;
esac

source=build/glew-apt/source

# Fetches and unpacks the source package into build/glew-apt without touching the machine's own
# package lists.
fetch_source() {
    local apt=build/glew-apt archive uri suite
    archive=$(debian_archive)
    if [ -z "$archive" ]; then
        apt_quiet update || die "apt-get update failed"
        archive=$(debian_archive)
    fi
    [ -n "$archive" ] || die "this machine's apt configuration names no Debian archive"
    read -r uri suite <<<"$archive"
    rm -rf "$apt"
    mkdir -p "$apt/lists/partial" "$apt/download"
    printf 'deb-src %s %s main\n' "$uri" "$suite" >"$apt/sources.list"
    local options=(
        -o "Dir::Etc::SourceList=$root/$apt/sources.list"
        -o "Dir::Etc::SourceParts=/dev/null"
        -o "Dir::State::Lists=$root/$apt/lists"
        -o "Dir::Cache=$root/$apt"
        -o "APT::Sandbox::User=root"
    )
    apt-get -q "${options[@]}" update >"$apt/log" 2>&1 &&
        (cd "$apt/download" &&
            apt-get -q "${options[@]}" source --download-only glew >>../log 2>&1) || {
        tail -n 20 "$apt/log" >&2
        die "could not fetch GLEW's source package"
    }
    dpkg-source --no-check -x "$apt"/download/glew_*.dsc "$source" >>"$apt/log"
}

# compile NAME TRIPLET
compile() {
    local out=build/glew-$1 prefix=$2 object
    rm -rf "$out"
    mkdir -p "$out/include" "$out/lib"
    cp -r "$source"/include/GL "$out/include/"
    object=$out/glew.o
    "$prefix-gcc-posix" -c -O2 -msse2 -DGLEW_STATIC -DWIN32_LEAN_AND_MEAN \
        -I"$out/include" "$source/src/glew.c" -o "$object"
    # Written last: its presence says that the folder is complete.
    "$prefix-ar" rcs "$out/lib/partial.a" "$object"
    mv "$out/lib/partial.a" "$out/lib/libglew32.a"
    rm "$object"
}

if [ -f build/glew-win32/lib/libglew32.a ] && [ -f build/glew-win64/lib/libglew32.a ]; then
    exit 0
fi
say "compiling GLEW for the Windows builds"
fetch_source
compile win32 i686-w64-mingw32
compile win64 x86_64-w64-mingw32
rm -rf build/glew-apt
