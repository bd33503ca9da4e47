#!/usr/bin/env python3
"""list_files.py FOLDER LIST   compares the files of a folder with a list of them."""

import pathlib
import sys


def main():
    folder = pathlib.Path(sys.argv[1])
    found = {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}
    with open(sys.argv[2], encoding="utf-8") as lines:
        listed = {line.strip() for line in lines if line.strip() and not line.startswith("#")}
    for name in sorted(found - listed):
        print(f"{name} is there and not listed")
    for name in sorted(listed - found):
        print(f"{name} is missing")
    return 0 if found == listed else 1


if __name__ == "__main__":
    sys.exit(main())
