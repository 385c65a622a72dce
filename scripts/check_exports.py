#!/usr/bin/env python3
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
"""Compares what a built library exports with the list in the .def file.

Usage: check_exports.py LIBRARY DEF

A Windows library must also need no other module than those that Windows itself has: a host that
copies one file gets one file's worth of trouble.
"""
import re
import struct
import subprocess
import sys

SYSTEM_MODULES = {
    "advapi32.dll", "comdlg32.dll", "dinput8.dll", "gdi32.dll", "glu32.dll", "kernel32.dll",
    "msvcrt.dll", "ole32.dll", "opengl32.dll", "shell32.dll", "user32.dll", "winmm.dll",
}
MACHINES = {0x014C: 4, 0x8664: 8}


def listed_exports(path):
    """(name, function) pairs in the order of the .def file."""
    pairs = []
    with open(path, encoding="ascii") as lines:
        for line in lines:
            match = re.match(r'    "?([^" ]+)"?(?: = (\w+)(?:@\d+)?)?$', line.rstrip("\n"))
            if match:
                pairs.append((match[1], match[2] or match[1]))
    return pairs


class Pe:
    """The few fields of a PE file that say what it exports and imports."""

    def __init__(self, data):
        self.data = data
        header = self.u32(0x3C)
        if data[header:header + 4] != b"PE\0\0":
            raise ValueError("not a PE file")
        machine, sections = struct.unpack_from("<HH", data, header + 4)
        self.pointer_size = MACHINES[machine]
        optional_size = struct.unpack_from("<H", data, header + 20)[0]
        optional = header + 24
        directories = optional + (96 if self.pointer_size == 4 else 112)
        self.export_rva = self.u32(directories)
        self.import_rva = self.u32(directories + 8)
        table = optional + optional_size
        self.sections = [struct.unpack_from("<IIII", data, table + 40 * i + 8)
                         for i in range(sections)]

    def u32(self, offset):
        return struct.unpack_from("<I", self.data, offset)[0]

    def offset(self, rva):
        for size, address, raw_size, raw in self.sections:
            if address <= rva < address + max(size, raw_size):
                return rva - address + raw
        raise ValueError(f"no section holds address {rva:#x}")

    def text(self, rva):
        start = self.offset(rva)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii")

    def exports(self):
        """(names, number of exported addresses)."""
        if not self.export_rva:
            return [], 0
        directory = self.offset(self.export_rva)
        addresses, count, _, names = struct.unpack_from("<IIII", self.data, directory + 20)
        table = self.offset(names)
        return [self.text(self.u32(table + 4 * i)) for i in range(count)], addresses

    def modules(self):
        found = []
        entry = self.offset(self.import_rva) if self.import_rva else None
        while entry is not None and self.u32(entry + 12):
            found.append(self.text(self.u32(entry + 12)).lower())
            entry += 20
        return found


def check_pe(data, listed):
    pe = Pe(data)
    names, addresses = pe.exports()
    problems = compare(names, [name for name, _ in listed])
    if addresses != len(listed):
        problems.append(f"{addresses} exported addresses, {len(listed)} expected")
    problems += [f"needs {module}, which Windows does not have"
                 for module in pe.modules() if module not in SYSTEM_MODULES]
    return problems, f"{len(names)} exports, {8 * pe.pointer_size}-bit"


def check_elf(path, listed):
    output = subprocess.run(["nm", "--dynamic", "--defined-only", "--format=posix", path],
                            check=True, capture_output=True, text=True).stdout
    names = [line.split()[0] for line in output.splitlines()]
    return compare(names, [function for _, function in listed]), f"{len(names)} exports, ELF"


def compare(found, expected):
    problems = [f"exports {name}, which is not listed" for name in found if name not in expected]
    problems += [f"does not export {name}" for name in expected if name not in found]
    return problems


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__.strip())
    library, definition = sys.argv[1:]
    listed = listed_exports(definition)
    if not listed:
        sys.exit(f"{definition} lists nothing")
    with open(library, "rb") as file:
        data = file.read()
    if data[:4] == b"\x7fELF":
        problems, summary = check_elf(library, listed)
    else:
        problems, summary = check_pe(data, listed)
    for problem in problems:
        print(f"{library}: {problem}")
    if problems:
        sys.exit(1)
    print(f"{library}: {summary}, as listed")


if __name__ == "__main__":
    main()
