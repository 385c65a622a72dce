#!/usr/bin/env python3
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
"""Draws the map of the rooms, docs/rooms.svg, from what the sources include.

Usage: room_map.py [--check]

A room is a folder with sources; an arrow goes from it to each room that its files include, but for
rooms that it reaches through another arrow anyway. The shaders hang on the room whose code names
them. Needs Graphviz; --check only says whether the map that is there tells the truth.
"""
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
MAP = os.path.join(ROOT, "docs", "rooms.svg")
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
# Where sources lie, and the folder that their includes start from.
PLACES = {"src": "src", "host": "", "apps": "apps", "include": "include", "examples": ""}
# Folders that belong to the room above them.
PARTS = ("platform/", "host/sample", "host/soup", "examples/")
RESOURCES = os.path.join(ROOT, "src", "platform", "resource_text.h")


def room_of(folder):
    for part in PARTS:
        if folder.startswith(part):
            return part.rstrip("/").split("/")[0]
    return folder


def sources():
    """Pairs of a source's path as includes name it, and its text."""
    for place, start in PLACES.items():
        for where, _, names in os.walk(os.path.join(ROOT, place)):
            for name in names:
                if name.endswith((".h", ".cpp")):
                    path = os.path.join(where, name)
                    with open(path, encoding="utf-8") as file:
                        yield os.path.relpath(path, os.path.join(ROOT, start)), file.read()


def arrows():
    texts = dict(sources())
    rooms = {path: room_of(os.path.dirname(path)) for path in texts}
    found = set()
    for path, text in texts.items():
        for target in INCLUDE.findall(text):
            if target in rooms and rooms[target] != rooms[path]:
                found.add((rooms[path], rooms[target]))
    found.add(("platform", "shaders"))  # embedded by the build, read by resource_text
    assert os.path.exists(RESOURCES)
    return found


def reaches(start, goal, found, without):
    seen, left = set(), [start]
    while left:
        room = left.pop()
        for source, target in found:
            if source == room and (source, target) != without and target not in seen:
                seen.add(target)
                left.append(target)
    return goal in seen


def drawn():
    found = arrows()
    return sorted(arrow for arrow in found if not reaches(*arrow, found, arrow))


def drawn_before():
    if not os.path.exists(MAP):
        return []
    with open(MAP, encoding="utf-8") as file:
        titles = re.findall(r"<title>([^<]+)&#45;&gt;([^<]+)</title>", file.read())
    return sorted((a.replace("&#45;", "-"), b.replace("&#45;", "-")) for a, b in titles)


def main():
    if "-h" in sys.argv or "--help" in sys.argv:
        print(__doc__.strip())
        return 0
    new = drawn()
    if "--check" in sys.argv:
        old = drawn_before()
        for arrow in sorted(set(new) ^ set(old)):
            print("docs/rooms.svg", "lacks" if arrow in new else "has", " -> ".join(arrow))
        return 0 if new == old else 1
    lines = [f'    "{source}" -> "{target}";' for source, target in new]
    text = "\n".join(["digraph rooms {", '    graph [rankdir=BT, ranksep=0.35, nodesep=0.3];',
                      '    node [shape=box, style=rounded, fontname="Liberation Sans"];', *lines, "}"])
    subprocess.run(["dot", "-Tsvg", "-o", MAP], input=text, text=True, check=True)
    print(f"{len(new)} arrows in docs/rooms.svg")
    return 0


if __name__ == "__main__":
    sys.exit(main())
