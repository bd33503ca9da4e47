#!/usr/bin/env python3
"""list_files.py FOLDER LIST   compares the files of a folder with a list of them."""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from support import published_list  # noqa: E402


def main():
    folder = pathlib.Path(sys.argv[1])
    found = {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}
    return 0 if published_list.compare(found, sys.argv[2]) else 1


if __name__ == "__main__":
    sys.exit(main())
