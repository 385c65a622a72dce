#!/usr/bin/env python3
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
"""Lists what is in the packages and fails when something is missing or does not belong there.

Usage: check_packages.py PACKAGE...
"""
import fnmatch
import io
import os
import re
import subprocess
import sys
import tarfile
import zipfile

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
HEADERS = ["include/ogl-*/ogl/%s.h" % name
           for name in ("host_records", "ogl", "platform_types", "ptr32")]
DOCS = ["share/doc/ogl/README.md", "share/doc/ogl/LICENSE", "share/doc/ogl/licences/*.txt",
        "share/doc/ogl/docs/architecture.md",
        "share/doc/ogl/docs/hosts-guide.md",
        "share/doc/ogl/docs/troubleshooting.md",
        "share/doc/ogl/examples/first_picture.cpp",
        "share/doc/ogl/examples/minimal_host/CMakeLists.txt",
        "share/doc/ogl/examples/minimal_host/linux/windows.h",
        "share/doc/ogl/examples/minimal_host/minimal_host.cpp",
        "share/doc/ogl/examples/minimal_host/trace.cpp",
        "share/doc/ogl/examples/minimal_host/trace.def"]
CMAKE = ["lib/cmake/ogl/%s.cmake" % name
         for name in ("OglLowMemory", "oglConfig", "oglConfigVersion", "oglTargets", "oglTargets-*")]
PAGE = ["oglview-page/index.html", "oglview-page/viewer/*"]
WINDOWS = (HEADERS + DOCS + CMAKE + ["bin/" + name for name in PAGE] +
           ["bin/ogl.dll", "bin/oglview.exe", "bin/oglview-modules/hx.dll", "bin/minimal_host.exe",
            "bin/hx.dll", "lib/libogl.dll.a", "lib/ogl.lib", "lib/ogl.def",
            "lib/pkgconfig/ogl.pc", "share/doc/ogl/licences/libglew-dev.txt"])
LINUX = (HEADERS + DOCS + CMAKE + ["lib/ogl/" + name for name in PAGE] +
         ["lib/libogl.so", "lib/ogl/oglview", "lib/ogl/oglview-modules/libhx.so", "bin/oglview",
          "include/ogl-*/host/*.h", "include/ogl-*/platform/*.h",
          "include/ogl-*/platform/x11/subset/*.h", "lib/pkgconfig/ogl.pc",
          "lib/pkgconfig/ogl-host.pc"] +
         ["lib/libogl_%s.a" % name for name in ("host", "memory32", "platform", "resources")])
TEXT = (".cmake", ".pc", ".h", ".md", ".txt", ".def", ".cpp")


class Zip:
    def __init__(self, path):
        archive = zipfile.ZipFile(path)
        top = os.path.basename(path)[:-len(".zip")] + "/"
        self.files = {name[len(top):]: archive.read(name)
                      for name in archive.namelist() if not name.endswith("/")}
        self.outside = [name for name in archive.namelist() if not name.startswith(top)]


class Tar:
    def __init__(self, archive, top):
        self.files, self.outside = {}, []
        for member in archive:
            name = re.sub(r"^\./", "", member.name)
            if member.isdir():
                continue
            if not name.startswith(top):
                self.outside.append(name)
                continue
            content = archive.extractfile(member) if member.isfile() else None
            self.files[name[len(top):]] = content.read() if content else b""


def opened(path):
    if path.endswith(".zip"):
        return Zip(path), WINDOWS
    if path.endswith(".tar.gz"):
        top = os.path.basename(path)[:-len(".tar.gz")] + "/"
        return Tar(tarfile.open(path), top), LINUX
    data = subprocess.run(["dpkg-deb", "--fsys-tarfile", path], check=True,
                          capture_output=True).stdout
    return Tar(tarfile.open(fileobj=io.BytesIO(data)), "usr/"), LINUX


def import_library_problems(files):
    """The MSVC library must offer each listed name, as that compiler decorates it."""
    names = re.findall(r'^    "?([^"\s]+)"?', files["lib/ogl.def"].decode("ascii"), re.M)
    if len(names) != 17:
        yield f"lib/ogl.def lists {len(names)} names"
    for name in names:
        symbol = name if name.startswith("?") else "_" + name
        if b"\0" + symbol.encode() + b"\0" not in files["lib/ogl.lib"]:
            yield f"lib/ogl.lib lacks {symbol}"
        if b"__imp_" not in files["lib/libogl.dll.a"] or name.encode() not in files[
                "lib/libogl.dll.a"]:
            yield f"lib/libogl.dll.a lacks {name}"


def debian_problems(path):
    fields = subprocess.run(["dpkg-deb", "--field", path], check=True, capture_output=True,
                            text=True).stdout
    for wanted in (r"^Package: ogl$", r"^Depends: .*libc6.*", r"^Depends: .*libglew", r"^Version: "):
        if not re.search(wanted, fields, re.M):
            yield f"no field {wanted}"


def check(path):
    package, expected = opened(path)
    problems = [f"lies outside its folder: {name}" for name in package.outside]
    matched = set()
    for pattern in expected:
        found = fnmatch.filter(package.files, pattern)
        matched.update(found)
        if not found:
            problems.append(f"lacks {pattern}")
    problems += [f"nobody asked for {name}" for name in sorted(set(package.files) - matched)
                 if not name.startswith("share/doc/ogl/docs/")]
    root = os.path.realpath(ROOT).encode()
    problems += [f"{name} names a folder of the machine that built it"
                 for name, content in package.files.items()
                 if name.endswith(TEXT) and root in content]
    if path.endswith(".zip") and not problems:
        problems += import_library_problems(package.files)
    if path.endswith(".deb"):
        problems += debian_problems(path)
    print(f"{os.path.basename(path)}: {len(package.files)} files, "
          f"{os.path.getsize(path) / 1e6:.1f} MB")
    for name in sorted(package.files):
        print(f"  {len(package.files[name]):9d}  {name}")
    for problem in problems:
        print(f"{os.path.basename(path)}: {problem}")
    return not problems


def main():
    paths = [path for path in sys.argv[1:] if not os.path.isdir(path)]
    if not paths:
        sys.exit(__doc__.strip())
    if not all([check(path) for path in paths]):
        sys.exit(1)


if __name__ == "__main__":
    main()
