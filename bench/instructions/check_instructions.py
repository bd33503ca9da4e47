#!/usr/bin/env python3
"""Counts the instructions of fixed pieces of work and compares them with those kept.

    check_instructions.py --program FILE --document FILE --work FOLDER --build TEXT [--update]

Exit status 1 when a count grew by more than 5 %; 77, which CTest takes for skipped, where the
kept counts do not apply: they hold for the compiler, the libraries and the processor's
features that stand beside them. --update writes counts.tsv anew.
"""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "work"))

import make_packages  # noqa: E402

COUNTS = HERE / "counts.tsv"
SKIPPED = 77
MOST_GROWTH = 0.05
PACKAGES = ("libc6", "libdeflate0", "libexpat1", "libqt5core5a", "libstdc++6", "valgrind", "zlib1g")
FEATURES = ("avx2", "bmi2", "pclmulqdq")  # those that memory, CRC and inflate routines choose by


def environment(build):
    """What the counts depend on, as {name: value}."""
    found = {"build": build}
    for package in PACKAGES:
        done = subprocess.run(["dpkg-query", "-W", "-f=${Version}", package], capture_output=True,
                              text=True, check=False)
        found[package] = done.stdout or "absent"
    flags = re.search(r"^flags\s*:(.*)$", pathlib.Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    words = flags.group(1).split() if flags else []
    found["processor"] = " ".join(feature for feature in FEATURES if feature in words) or "plain"
    return found


def read_counts():
    kept, counts = {}, {}
    for line in COUNTS.read_text().splitlines() if COUNTS.exists() else []:
        name, _, value = line.partition("\t")
        if line.startswith("# "):
            kept[name.removeprefix("# ")] = value
        else:
            counts[name] = int(value)
    return kept, counts


def write_counts(found, counts):
    lines = [f"# {name}\t{value}" for name, value in found.items()]
    lines += [f"{name}\t{count}" for name, count in counts.items()]
    COUNTS.write_text("\n".join(lines) + "\n")


def let_settle(paths):
    """A file changed a moment ago is read afresh at each call, which costs instructions."""
    wait = max(path.stat().st_ctime for path in paths) + 4 - time.time()
    if wait > 0:
        time.sleep(wait)


def count(program, *arguments):
    """{case: instructions}, from the dump that callgrind writes after each."""
    with tempfile.TemporaryDirectory() as folder:
        command = ["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder}/out", str(program),
                   *map(str, arguments)]
        done = subprocess.run(command, capture_output=True, text=True, check=False,
                              env={**os.environ, "QT_HASH_SEED": "0", "LC_ALL": "C.UTF-8"})
        if done.returncode != 0:
            sys.exit(done.stderr)
        counts = {}
        for dump in sorted(pathlib.Path(folder).iterdir(), key=lambda path: int(path.suffix[1:] or 0)):
            text = dump.read_text()
            case = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.MULTILINE)
            if case:
                counts[case.group(1)] = int(re.search(r"^(?:totals|summary): (\d+)", text, re.MULTILINE).group(1))
        return counts


def compare(kept, counts):
    """Prints a line for each case; whether all are within bounds."""
    sound = True
    for name, now in counts.items():
        before = kept.get(name)
        if before is None:
            print(f"NEW    {now:>12,}  {name}: keep it with --update")
            sound = False
            continue
        change = now / before - 1
        word = "GREW" if change > MOST_GROWTH else "shrank" if change < -MOST_GROWTH else ""
        print(f"{word:6} {now:>12,}  {change:+7.1%}  {name}")
        sound = sound and change <= MOST_GROWTH
    for name in kept.keys() - counts.keys():
        print(f"GONE   {name}: drop it with --update")
        sound = False
    return sound


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for option in ("program", "document", "work"):
        parser.add_argument(f"--{option}", type=pathlib.Path, required=True)
    parser.add_argument("--build", required=True, help="compiler and build type")
    parser.add_argument("--update", action="store_true")
    options = parser.parse_args()

    if shutil.which("valgrind") is None:
        print("skipped: there is no valgrind here")
        return SKIPPED
    found, (kept, before) = environment(options.build), read_counts()
    others = [f"{name} was {kept.get(name, 'absent')}, is {value}" for name, value in found.items()
              if kept.get(name) != value]
    if others and not options.update:
        print("skipped: the counts were taken elsewhere:", "; ".join(others))
        return SKIPPED

    package = make_packages.make(options.work, "tree-100")
    let_settle([options.document, package])
    counts = count(options.program, options.document, package)
    sound = compare(before, counts)
    if options.update:
        write_counts(found, counts)
        return 0
    return 0 if sound else 1


if __name__ == "__main__":
    sys.exit(main())
