#!/usr/bin/env python3
"""check_exports.py LIBRARY LIST   compares the symbols that a library defines with a list of them,
versions included."""

import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from support import published_list  # noqa: E402


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", library], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    names = (line.split()[2] for line in lines)
    # Version nodes, and what sanitizers and coverage define on their own account.
    own = ("VEXPA_", "__asan", "__ubsan", "__lsan", "__odr_asan", "__tsan", "__gcov")
    return {name for name in names if not name.startswith(own)}


def main():
    library, published = sys.argv[1:]
    return 0 if published_list.compare(exported(library), published) else 1


if __name__ == "__main__":
    sys.exit(main())
