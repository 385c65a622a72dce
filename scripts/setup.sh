#!/usr/bin/env bash
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    cat <<'END'
Usage: scripts/setup.sh [run] [test] [bench] [windows] [package]

Installs from Debian and npm, by name, what the named commands need; installs nothing that is
there already. "windows" also prepares the cross builds: GLEW for MinGW into build/glew-win32 and
build/glew-win64. Without a name: run and test.
END
}

build_packages=(
    cmake
    fontconfig
    fonts-liberation
    g++
    libassimp-dev
    libcli11-dev
    libcpp-httplib-dev
    libfontconfig-dev
    libfreetype-dev
    libgl-dev
    libgl1-mesa-dri
    libglew-dev
    libglu1-mesa-dev
    libglx-mesa0
    libstb-dev
    libtinyobjloader-dev
    libx11-dev
    ninja-build
    nlohmann-json3-dev
    xvfb
)
run_packages=(assimp-testmodels)
test_packages=(
    chromium
    clang
    clang-format
    clang-tidy
    doxygen
    libgtest-dev
    libxtst-dev
    lld
    pkgconf
    python3
)
bench_packages=(libbenchmark-dev)
windows_packages=(
    dpkg-dev
    g++-mingw-w64-i686-posix
    g++-mingw-w64-x86-64-posix
    googletest
    llvm
)
package_packages=(dpkg-dev python3)

packages=("${build_packages[@]}")
# Any Node with its npm will do; Debian's is taken when there is none.
command -v npm >/dev/null || packages+=(nodejs npm)
windows=no
viewer=page
[ $# -gt 0 ] || set -- run test
for command in "$@"; do
    case $command in
    run) packages+=("${run_packages[@]}") ;;
    test)
        packages+=("${run_packages[@]}" "${test_packages[@]}" "${windows_packages[@]}")
        windows=yes
        viewer=tests
        ;;
    bench) packages+=("${bench_packages[@]}") ;;
    package)
        packages+=("${package_packages[@]}" "${windows_packages[@]}")
        windows=yes
        ;;
    windows)
        packages+=("${windows_packages[@]}")
        windows=yes
        ;;
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

command -v apt-get >/dev/null || die "the set-up needs a Debian machine (no apt-get here)"
missing=()
for package in "${packages[@]}"; do
    is_installed "$package" || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    say "installing ${missing[*]}"
    apt_quiet update || die "apt-get update failed"
    apt_quiet install --no-install-recommends "${missing[@]}" || die "could not install packages"
fi

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
