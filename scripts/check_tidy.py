#!/usr/bin/env python3
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
"""Runs clang-tidy with the checks of .clang-tidy over the sources of src, host and apps.

Usage: check_tidy.py [--all] [FILE ...]

Looks at the sources that a native build compiles, or at the files given. A file is left out when
nothing that it is made of (itself, what it includes of the checkout, its compile command, the
checks) has changed since clang-tidy last had nothing to say about it; --all looks at every file,
and so does CI=true. Prints what clang-tidy says and ends with status 1 when that is something,
with 77 when clang-tidy is not of version 14: others judge differently.
"""
import concurrent.futures
import hashlib
import json
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.join(ROOT, "build", "tidy")
CLEAN = os.path.join(BUILD, "clean")
FOLDERS = ("src", "host", "apps")
INCLUDE = re.compile(rb'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def read(path):
    with open(path, "rb") as file:
        return file.read()


def compile_commands():
    """Source path -> compile command, of a build that compiles each source by itself."""
    subprocess.run(["cmake", "--preset", "develop", "-B", BUILD, "-DOGL_BUILD_TESTS=OFF"], cwd=ROOT, check=True,
                   stdout=subprocess.DEVNULL)
    entries = json.loads(read(os.path.join(BUILD, "compile_commands.json")))
    prefixes = tuple(os.path.join(ROOT, folder) + os.sep for folder in FOLDERS)
    return {entry["file"]: entry["command"] for entry in entries
            if entry["file"].startswith(prefixes)}


class Contents:
    """Hashes of a source and of all that it includes of the checkout."""

    def __init__(self, command):
        self.folders = re.findall(r"-I(\S+)", command)

    def headers(self, path, seen):
        if path in seen:
            return
        text = read(path)
        seen[path] = hashlib.sha256(text).hexdigest()
        for name in INCLUDE.findall(text):
            for folder in [os.path.dirname(path), *self.folders]:
                header = os.path.normpath(os.path.join(folder, name.decode()))
                if os.path.isfile(header):
                    self.headers(header, seen)
                    break

    def key(self, path, command, checks):
        seen = {}
        self.headers(path, seen)
        parts = [checks, command] + [f"{name} {seen[name]}" for name in sorted(seen)]
        return hashlib.sha256("\n".join(parts).encode()).hexdigest()


def look_at(path, key):
    result = subprocess.run(["clang-tidy", "-p", BUILD, "--quiet", path], cwd=ROOT,
                            capture_output=True, text=True)
    if result.returncode == 0 and not result.stdout.strip():
        open(os.path.join(CLEAN, key), "w").close()
        return ""
    return result.stdout + (result.stderr if result.returncode else "")


def main():
    arguments = sys.argv[1:]
    if "-h" in arguments or "--help" in arguments:
        print(__doc__.strip())
        return 0
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True,
                             check=True).stdout
    if "version 14." not in version:
        print("clang-tidy 14 decides, this is", re.search(r"version (\S+)", version).group(1))
        return 77
    everything = "--all" in arguments or os.environ.get("CI") == "true"
    commands = compile_commands()
    wanted = [os.path.abspath(name) for name in arguments if name != "--all"] or sorted(commands)
    unknown = [path for path in wanted if path not in commands]
    if unknown:
        sys.exit("error: no native build compiles " + ", ".join(unknown))
    os.makedirs(CLEAN, exist_ok=True)
    checks = version + read(os.path.join(ROOT, ".clang-tidy")).decode()
    keys = {path: Contents(commands[path]).key(path, commands[path], checks) for path in wanted}
    pending = [path for path in wanted
               if everything or not os.path.exists(os.path.join(CLEAN, keys[path]))]
    print(f"{len(pending)} of {len(wanted)} sources to look at")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        said = [text for text in pool.map(lambda path: look_at(path, keys[path]), pending) if text]
    print("".join(said), end="")
    return 1 if said else 0


if __name__ == "__main__":
    sys.exit(main())
