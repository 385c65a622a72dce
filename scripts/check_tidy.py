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
import shlex
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.join(ROOT, "build", "tidy")
CLEAN = os.path.join(BUILD, "clean")
FOLDERS = ("src", "host", "apps")
INCLUDE = re.compile(rb'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
# Sources that are compiled as one are looked at as one: their headers, most of the work, are read
# once. The analyzer takes what such a file includes for code when the name has this word in it.
TOGETHER = "UnifiedSource"
# Said of every source that is included, and headers that two sources include.
NOT_TOGETHER = "-bugprone-suspicious-include,-readability-duplicate-include"


def read(path):
    with open(path, "rb") as file:
        return file.read()


def batches():
    """Lists of (source path, compile command): what a native build compiles as one."""
    subprocess.run(["cmake", "--preset", "linux", "-B", BUILD, "-DOGL_BUILD_TESTS=OFF"], cwd=ROOT,
                   check=True, stdout=subprocess.DEVNULL)
    entries = json.loads(read(os.path.join(BUILD, "compile_commands.json")))
    prefixes = tuple(os.path.join(ROOT, folder) + os.sep for folder in FOLDERS)
    for entry in entries:
        if " -w " in entry["command"]:
            continue  # a library's own code, which is compiled without warnings
        command = re.sub(r" -o \S+ -c \S+$", "", entry["command"])
        command = re.sub(r" -Winvalid-pch| -include \S*cmake_pch\S*", "", command)
        sources = [entry["file"]]
        if "/Unity/" in entry["file"]:
            sources = [name.decode() for name in INCLUDE.findall(read(entry["file"]))]
        ours = [(source, command) for source in sources if source.startswith(prefixes)]
        if ours:
            yield ours


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


def look_at(batch):
    """What clang-tidy says of the sources of a batch; remembers them when that is nothing."""
    _, command, key = batch[0]
    checks = []
    path = batch[0][0]
    if len(batch) > 1:
        path = os.path.join(BUILD, f"{TOGETHER}_{key}.cpp")
        checks = ["--checks=" + NOT_TOGETHER]
        with open(path, "w", encoding="utf-8") as file:
            file.writelines(f'#include "{source}"\n' for source, _, _ in batch)
    compiler_options = shlex.split(command)[1:]
    result = subprocess.run(["clang-tidy", "--quiet", *checks, path, "--", *compiler_options],
                            cwd=ROOT, capture_output=True, text=True)
    if len(batch) > 1:
        os.remove(path)
    if result.returncode == 0 and not result.stdout.strip():
        for _, _, key in batch:
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
    named = {os.path.abspath(name) for name in arguments if name != "--all"}
    os.makedirs(CLEAN, exist_ok=True)
    checks = version + read(os.path.join(ROOT, ".clang-tidy")).decode()
    pending = []
    known = set()
    for batch in batches():
        known.update(source for source, _ in batch)
        keyed = [(source, command, Contents(command).key(source, command, checks))
                 for source, command in batch if not named or source in named]
        left = [entry for entry in keyed
                if everything or not os.path.exists(os.path.join(CLEAN, entry[2]))]
        if left:
            pending.append(left)
    if named - known:
        sys.exit("error: no native build compiles " + ", ".join(sorted(named - known)))
    print(sum(map(len, pending)), "of", len(named or known), "sources to look at")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        said = [text for text in pool.map(look_at, pending) if text]
    print("".join(said), end="")
    return 1 if said else 0


if __name__ == "__main__":
    sys.exit(main())
