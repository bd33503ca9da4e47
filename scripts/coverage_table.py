#!/usr/bin/env python3
"""Prints the lines and branches reached by folder, of what `llvm-cov export` writes.

Usage: llvm-cov export ... | coverage_table.py UNREACHED

A branch is one way out of one condition: `a && b` has four. A line or branch counts as reached
when any instance of its template reaches it. What none reaches is listed in the file UNREACHED.
Exits with 1 when a bar below is missed.
"""

import fnmatch
import json
import os
import sys
from collections import defaultdict

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FOLDERS = ("vexpa", "runtime")

LEAST_LINES = 95.0
LEAST_BRANCHES = 90.0

# What decides which part, entry or attribute is meant: every branch of it is reached.
EVERY_BRANCH = (
    "vexpa/opc/PartNameKey.h", "vexpa/opc/PartUri.*", "vexpa/opc/Uri*",
    "vexpa/opc/TargetResolution.*", "vexpa/opc/NormalizeRelationshipType.*",
    "vexpa/opc/ContentTypes.*", "vexpa/zip/EntryNameSet*", "vexpa/xmlfx/*XmlRoAttr*",
    "vexpa/xmlfx/XmlAttrValue.*", "vexpa/xmlfx/ValueList.h", "runtime/zip/EntryName.*",
)


class Tally:
    """Lines and branches, how many there are and how many are reached."""

    def __init__(self):
        self.lines = self.reached_lines = self.branches = self.reached_branches = 0

    def add(self, other):
        for name, count in vars(other).items():
            setattr(self, name, getattr(self, name) + count)

    def line_rate(self):
        return 100.0 * self.reached_lines / self.lines if self.lines else 100.0

    def branch_rate(self):
        return 100.0 * self.reached_branches / self.branches if self.branches else 100.0


def line_counts(segments):
    """The count of each line with code, by the rule of llvm-cov's own line figures.

    A segment says what holds from its position on: [line, column, count, has count, begins a
    region, is a gap between statements].
    """
    by_line = defaultdict(list)
    for segment in segments:
        by_line[segment[0]].append(segment)

    counts = {}
    around = None  # the segment that reaches into the line
    for line in range(min(by_line, default=0), max(by_line, default=-1) + 1):
        here = by_line[line]
        begun = [s for s in here if s[3] and s[4] and not s[5]]
        is_skipped = bool(here) and not here[0][3] and here[0][4]
        if not is_skipped and (begun or (around and around[3])):
            counts[line] = max([s[2] for s in begun] + ([around[2]] if around else []))
        if here:
            around = here[-1]
    return counts


def branch_counts(branches):
    """How often each condition was true and false; instances of a template share a place."""
    counts = defaultdict(lambda: [0, 0])
    for line, column, _, _, times_true, times_false, *_ in branches:
        counts[line, column][0] += times_true
        counts[line, column][1] += times_false
    return counts


def examine(name, file, unreached):
    tally = Tally()
    for line, count in line_counts(file["segments"]).items():
        tally.lines += 1
        tally.reached_lines += count > 0
        if count == 0:
            unreached.append((name, line, "not reached"))
    for (line, column), times in branch_counts(file["branches"]).items():
        for count, outcome in zip(times, ("true", "false")):
            tally.branches += 1
            tally.reached_branches += count > 0
            if count == 0:
                unreached.append((name, line, f"column {column} is never {outcome}"))
    return tally


def read_tallies(data, unreached):
    tallies = {}
    for file in data["files"]:
        name = os.path.relpath(os.path.normpath(file["filename"]), ROOT)
        if name.split(os.sep)[0] in FOLDERS:
            tallies[name] = examine(name, file, unreached)
    return tallies


def print_table(tallies):
    folders = defaultdict(Tally)
    for name, tally in tallies.items():
        folders[os.path.dirname(name)].add(tally)
        folders[" all"].add(tally)
    print(f"{'':16}{'lines':>8}{'reached':>10}{'branches':>10}{'reached':>10}")
    for folder in sorted(folders, key=lambda f: (f == " all", f)):
        tally = folders[folder]
        print(f"{folder.strip():16}{tally.lines:8}{tally.line_rate():9.1f}%"
              f"{tally.branches:10}{tally.branch_rate():9.1f}%")
    return folders[" all"]


def missed_bars(tallies, total):
    if total.line_rate() < LEAST_LINES:
        yield f"lines: {total.line_rate():.1f} %, not {LEAST_LINES:.0f}"
    if total.branch_rate() < LEAST_BRANCHES:
        yield f"branches: {total.branch_rate():.1f} %, not {LEAST_BRANCHES:.0f}"
    for name, tally in sorted(tallies.items()):
        if any(fnmatch.fnmatch(name, pattern) for pattern in EVERY_BRANCH):
            left = tally.branches - tally.reached_branches
            if left:
                yield f"{name}: {left} of {tally.branches} branches not reached"


def main():
    unreached = []
    tallies = read_tallies(json.load(sys.stdin)["data"][0], unreached)
    if not tallies:
        sys.exit("no counts for " + " and ".join(FOLDERS))
    with open(sys.argv[1], "w", encoding="utf-8") as out:
        for name, line, what in sorted(unreached):
            out.write(f"{name}:{line}: {what}\n")

    missed = list(missed_bars(tallies, print_table(tallies)))
    for bar in missed:
        print("below the bar:", bar)
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
