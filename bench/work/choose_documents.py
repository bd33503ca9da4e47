#!/usr/bin/env python3
"""Chooses the real documents that the benchmarks read.

Of each kind the smallest, the median and the largest by the bytes they unpack to; of all packages
of any kind the one with the most entries and the one with the largest entry. The corpus is where the
tests look for it: the environment variable VEXPA_CORPUS, or else ../shared/corpus beside the source.
"""

import os
import pathlib
import sys
import zipfile

KINDS = ("docx", "pptx", "xlsx", "vsdx")


def corpus_folder():
    given = os.environ.get("VEXPA_CORPUS")
    source = pathlib.Path(__file__).resolve().parents[2]
    return pathlib.Path(given) if given else source.parent / "shared" / "corpus"


def unpacked_size(path):
    with zipfile.ZipFile(path) as archive:
        return sum(entry.file_size for entry in archive.infolist())


def entry_count(path):
    with zipfile.ZipFile(path) as archive:
        return len(archive.infolist())


def largest_entry(path):
    with zipfile.ZipFile(path) as archive:
        return max(entry.file_size for entry in archive.infolist())


def choose():
    """(label, path) of each; empty, with a line that says so, where there is no corpus."""
    folder = corpus_folder() / "good"
    chosen = {}
    everything = sorted(path for path in folder.glob("*") if zipfile.is_zipfile(path))
    for kind in KINDS:
        paths = sorted(folder.glob(f"*.{kind}"), key=lambda path: (unpacked_size(path), path.name))
        if not paths:
            continue
        for which, path in (("smallest", paths[0]), ("largest", paths[-1]),
                            ("median", paths[len(paths) // 2])):
            chosen.setdefault(path, f"{which} {kind}")
    if not everything:
        print(f"no corpus at {folder}: real documents are left out", file=sys.stderr)
        return []
    chosen.setdefault(max(everything, key=entry_count), "most parts")
    chosen.setdefault(max(everything, key=largest_entry), "largest part")
    order = {"smallest": 0, "median": 1, "largest": 2, "most": 3}
    kinds = {kind: place for place, kind in enumerate(KINDS)}
    return sorted(((label, path) for path, label in chosen.items()),
                  key=lambda row: (order[row[0].split()[0]], kinds.get(row[0].split()[1], 9)))


if __name__ == "__main__":
    for label, path in choose():
        print(f"{label}\t{unpacked_size(path)}\t{entry_count(path)}\t{path}")
