#!/usr/bin/env python3
"""Compares the symbols that a shared library defines with the list that was published."""

import subprocess
import sys


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", library], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    names = (line.split()[2].split("@")[0] for line in lines)
    # Version nodes, and what sanitizers and coverage define on their own account.
    own = ("VEXPA_", "__asan", "__ubsan", "__lsan", "__odr_asan", "__tsan", "__gcov")
    return {name for name in names if not name.startswith(own)}


def main():
    library, published = sys.argv[1:]
    with open(published, encoding="ascii") as lines:
        expected = {line.strip() for line in lines if line.strip() and not line.startswith("#")}
    found = exported(library)
    for name in sorted(found - expected):
        print(f"{library} exports {name}, which {published} does not list")
    for name in sorted(expected - found):
        print(f"{library} no longer exports {name}")
    return 0 if found == expected else 1


if __name__ == "__main__":
    sys.exit(main())
