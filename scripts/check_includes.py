#!/usr/bin/env python3
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
"""Checks that operating systems stay behind one door, and the library behind its interface.

Usage: check_includes.py [CHECKOUT]

System headers and conditionals on an operating system appear only under src/platform and in
include/ogl/platform_types.h; programs beside the library include what is public and little else.
Which folder of src/ includes which is the build's to say: others' headers are not found there.
"""
import os
import re
import sys

ROOMS = {"platform", "math", "scene", "image", "gpu", "render", "fixed", "deferred", "raytrace",
         "api"}
# What the folders outside src may include of it, besides their own files and include/ogl.
HOST_SIDE = {"host", "apps"}
HOST_SIDE_MAY_SEE = {"platform/memory32.h", "platform/win32.h", "scene/sun/sun_position.h"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
CONDITIONAL = re.compile(
    r"^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*\b"
    r"(?:_WIN32|_WIN64|WIN32|__MINGW\w*|_MSC_VER|__linux__|__linux|__unix__|__APPLE__|__CYGWIN__)\b")
SYSTEM_HEADER = re.compile(
    r"^(?:(?:windows|wingdi|winuser|dinput|dlfcn|unistd|fcntl|pthread|poll|spawn|ft2build)\.h"
    r"|(?:X11|sys|fontconfig|freetype2?|GL)/.*)$")
OS_DOORS = ("src/platform/", "include/ogl/platform_types.h")


def sources(checkout, *folders):
    for folder in folders:
        for where, _, names in os.walk(os.path.join(checkout, folder)):
            for name in sorted(names):
                if name.endswith((".cpp", ".h")):
                    yield os.path.relpath(os.path.join(where, name), checkout)


def target_problem(path, bracket, target):
    """What is wrong with the file at `path` including `target`, or None."""
    parts = path.split("/")
    first = target.split("/")[0]
    if parts[0] == "src":
        if path.startswith(OS_DOORS):
            if target.startswith("X11/") and "/x11/" not in path:
                return "Xlib's macros leak; keep them inside src/platform/x11"
        elif bracket == "<" and SYSTEM_HEADER.match(target):
            return "the door to the system is platform/win32.h"
    elif parts[0] in HOST_SIDE and first in ROOMS and target not in HOST_SIDE_MAY_SEE:
        return f"{parts[0]} sees of the library only its interface"
    elif parts[0] == "include" and bracket == '"' and first != "ogl":
        return "an interface header includes only interface headers"
    return None


def check(checkout, path):
    with open(os.path.join(checkout, path), encoding="utf-8") as lines:
        for number, line in enumerate(lines, 1):
            include = INCLUDE.match(line)
            problem = target_problem(path, *include.groups()) if include else None
            if not problem and CONDITIONAL.match(line) and not path.startswith(OS_DOORS):
                problem = "a conditional on the operating system outside src/platform"
            if problem:
                yield f"{path}:{number}: {problem}: {line.strip()}"


def main():
    checkout = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..")
    paths = list(sources(checkout, "include", "src", "host", "apps", "tests", "benchmarks"))
    problems = [problem for path in paths for problem in check(checkout, path)]
    for problem in problems:
        print(problem)
    if problems or not paths:
        sys.exit(1)
    print(f"{len(paths)} files include only what they may")


if __name__ == "__main__":
    main()
