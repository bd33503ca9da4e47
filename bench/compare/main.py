#!/usr/bin/env python3
"""Compares this library with its peers; bench/compare.sh builds what it needs and calls it."""

import argparse
import fnmatch
import pathlib
import platform
import subprocess
import sys

import measure
import micro
import report
import subjects
from figures import MIB, OURS, Findings

CLOCKS = {"wall": "as they pass", "cpu": "of the processor, with the system's share"}
PARTS = ("walks", "extraction", "vocabulary", "tool", "memory")
QUICK_ROWS = ["* docx", "median *", "most parts", "largest p*", "tree-100", "tree-1000", "chain-1000",
              "tree-10000", "deflated-200m", "stored-64m"]
PACKAGES = ("libgsf-1-114", "libzip4", "libminizip1", "libkf5archive5", "libapache-poi-java",
            "libmono-windowsbase4.0-cil", "libqt5core5a", "libexpat1", "libdeflate0", "libxerces-c3.2")


def parse_arguments():
    parser = argparse.ArgumentParser(prog="bench/compare.sh", description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, default=pathlib.Path("build/bench"))
    parser.add_argument("--quick", action="store_true", help="few rows and rounds: a rough look")
    parser.add_argument("--clock", choices=("wall", "cpu"),
                        help="the time that passes, or the processor time; of --quick the latter")
    parser.add_argument("--rows", type=lambda text: text.split(","), help="patterns of rows, with commas")
    parser.add_argument("--drivers", type=lambda text: text.split(","), help="patterns of drivers")
    parser.add_argument("--only", choices=PARTS, nargs="+", default=PARTS, help="parts of the comparison")
    parser.add_argument("--render", type=pathlib.Path, help="write the report of kept findings again")
    parser.add_argument("--list", action="store_true", help="print rows and drivers")
    return parser.parse_args()


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def machine():
    model = next((line.partition(":")[2].strip() for line in open("/proc/cpuinfo")
                  if line.startswith("model name")), platform.machine())
    versions = output("dpkg-query", "-W", "-f=${Package} ${Version}, ", *PACKAGES).rstrip(", ")
    return {"processor": f"{model}, {output('nproc')} cores",
            "system": f"Linux {platform.release().split('-')[0]}, {' '.join(platform.libc_ver())}",
            "versions": versions + f", Python {platform.python_version()}",
            "commit": output("git", "-C", str(subjects.BENCH), "describe", "--always", "--dirty")}


def note(text):
    print(text, file=sys.stderr, flush=True)


def walk_rows(rows, drivers, effort):
    """A driver that was too slow for a row is not tried on the larger ones of its kind."""
    too_slow = {}
    for row in rows:
        left_out = too_slow.setdefault(row.group, set()) if row.is_many else set()
        row.cells = measure.measure_row(row, drivers, effort, left_out)
        left_out.update(name for name, cell in row.cells.items() if cell.trouble)
        note(f"{row.name}: " + ", ".join(f"{name} {report.cell_text(row, name)}" for name in row.cells))


def measure_memory(build, rows):
    driver = str(build / "bench" / "drivers" / OURS)
    found = []
    for row in rows:
        if not row.is_many and row.size < 4 * MIB:
            continue
        held, _ = measure.parse(output(driver, row.path, "0"))
        walk, _ = measure.parse(output(driver, "--walk-only", row.path, "0"))
        bound = 2 * held["largest"] + 16 * MIB + 1536 * held["parts"]
        found.append({"row": row.name, "parts": held["parts"], "walk": walk["peak"], "bound": bound,
                      "held": held["peak"], "held_bound": bound + held["bytes"] - held["largest"]})
    return found


def measure_extraction(build, rows, effort):
    chosen = [row for row in rows if row.group == "tree" or row.name.startswith(("smallest", "median"))]
    measured, entries = micro.measure_extraction(build, chosen, effort)
    by_row = {}
    for (what, row), peers in measured.items():
        by_row.setdefault(row, {})[what] = peers
    for row, added in micro.measure_unzip(chosen, entries, 8 * effort.rounds).items():
        by_row[row]["hit"]["unzip -p"] = added
    return by_row


def find(options, rows, drivers, effort):
    wanted, build = options.only, options.build
    measure.let_settle([row.path for row in rows])
    if "walks" in wanted:
        walk_rows(rows, drivers, effort)
    documents = [row for row in rows if row.group == "document"]
    how = {"times": CLOCKS[effort.clock],
           "rounds": f"{effort.rounds} at most, of {effort.seconds_a_round} s or one pass for each driver"}
    found = Findings({**machine(), **how}, rows, {}, {}, {}, [])
    if "memory" in wanted:
        found.memory = measure_memory(build, rows)
    if "extraction" in wanted:
        found.extraction = measure_extraction(build, rows, effort)
    if "vocabulary" in wanted:
        found.vocabulary = micro.measure_vocabulary(build, build / "work", effort,
                                                    micro.largest_document_part(documents))
    if "tool" in wanted and documents:
        smallest = min(documents, key=lambda row: row.size)
        found.tool = micro.measure_tool(build, smallest, 10 * effort.rounds)
    return found


def main():
    options = parse_arguments()
    whole = not (options.quick or options.clock or options.rows or options.drivers or options.only != PARTS)
    folder = subjects.BENCH.parent / "docs" if whole or options.render else options.build / "report"
    if options.render:
        report.write(Findings.load(options.render), folder)
        return
    effort = measure.QUICK if options.quick else measure.FULL
    effort.clock = options.clock or effort.clock
    rows = subjects.rows(options.build / "work", options.rows or (QUICK_ROWS if options.quick else ["*"]))
    drivers = [driver for driver in subjects.drivers(options.build)
               if any(fnmatch.fnmatch(driver.name, pattern + "*") for pattern in options.drivers or ["*"])]
    if options.list:
        print("rows:", *(row.name for row in rows), sep="\n  ")
        print("drivers:", *(driver.name for driver in drivers), sep="\n  ")
        return
    folder.mkdir(parents=True, exist_ok=True)
    findings = find(options, rows, drivers, effort)
    findings.save(options.build / "findings.json")
    report.write(findings, folder)
    note(f"written: {folder / 'performance.md'}; the findings: {options.build / 'findings.json'}")


if __name__ == "__main__":
    main()
