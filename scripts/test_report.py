#!/usr/bin/env python3
# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
"""Adds up what the test command ran.

Usage: test_report.py [--prefix WORD:] CHECKS [STAGE=FOLDER ...]

CHECKS has one line per check that is no test program: "passed|failed|skipped", a tab, its name
and, when skipped, a tab and the reason. Each FOLDER holds ctest.xml, CTest's own report of the
stage, and beside it one NAME.xml per GoogleTest program, whose cases are counted one by one; a
CTest entry without such a file counts as one case. Ends with "N passed, N failed, N skipped";
behind WORD: when it is given; the exit status is 0 when nothing failed and something passed.
"""
import collections
import os
import sys
import xml.etree.ElementTree as ElementTree

Case = collections.namedtuple("Case", "outcome name reason")


def read_checks(path):
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            outcome, name, reason = (line.rstrip("\n").split("\t") + [""])[:3]
            yield Case(outcome, name, reason)


def program_cases(path):
    for case in ElementTree.parse(path).getroot().iter("testcase"):
        name = f"{case.get('classname')}.{case.get('name')}"
        if case.find("failure") is not None:
            yield Case("failed", name, "")
        elif case.get("status") == "notrun":
            yield Case("skipped", name, "disabled")
        elif case.get("result") == "skipped":
            message = case.find("skipped")
            text = (message.get("message") or "") if message is not None else ""
            # The first line is where in the sources the test gave up.
            lines = [line.strip() for line in text.splitlines() if line.strip()]
            yield Case("skipped", name, lines[-1] if lines else "no reason given")
        else:
            yield Case("passed", name, "")


def stage_cases(folder):
    report = os.path.join(folder, "ctest.xml")
    if not os.path.exists(report):
        yield Case("failed", "the test run", "CTest left no report")
        return
    for entry in ElementTree.parse(report).getroot().iter("testcase"):
        name = entry.get("name")
        outcome = {"run": "passed", "disabled": "skipped", "notrun": "skipped"}.get(
            entry.get("status"), "failed")
        path = os.path.join(folder, f"{name}.xml")
        if not os.path.exists(path):
            yield Case(outcome, name, "it did not run" if outcome == "skipped" else "")
            continue
        cases = list(program_cases(path))
        yield from (case._replace(name=f"{name}: {case.name}") for case in cases)
        if outcome == "failed" and not any(case.outcome == "failed" for case in cases):
            yield Case("failed", f"{name}: the program itself", "")


def main():
    arguments = sys.argv[1:]
    prefix = ""
    if arguments[:1] == ["--prefix"]:
        prefix = arguments[1] + " "
        arguments = arguments[2:]
    if not arguments:
        sys.exit(__doc__.strip())
    cases = list(read_checks(arguments[0]))
    for argument in arguments[1:]:
        stage, folder = argument.split("=", 1)
        cases += [case._replace(name=f"{stage}: {case.name}") for case in stage_cases(folder)]
    for outcome in ("skipped", "failed"):
        for case in cases:
            if case.outcome == outcome:
                print(f"{outcome}: {case.name}" + (f" ({case.reason})" if case.reason else ""))
    count = collections.Counter(case.outcome for case in cases)
    print(f"{prefix}{count['passed']} passed, {count['failed']} failed, {count['skipped']} skipped")
    sys.exit(0 if count["passed"] and not count["failed"] else 1)


if __name__ == "__main__":
    main()
