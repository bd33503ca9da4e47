#!/usr/bin/env python3
"""expect_output.py EXPECTED COMMAND...   runs a command, which must succeed and print that file."""

import difflib
import subprocess
import sys


def main():
    expected_file, *command = sys.argv[1:]
    run = subprocess.run(command, stdout=subprocess.PIPE, text=True)
    with open(expected_file, encoding="utf-8") as lines:
        expected = lines.read()
    sys.stdout.writelines(difflib.unified_diff(
        expected.splitlines(keepends=True), run.stdout.splitlines(keepends=True),
        expected_file, command[0]))
    if run.returncode != 0:
        print(f"{command[0]} ended with {run.returncode}")
    return 0 if run.returncode == 0 and run.stdout == expected else 1


if __name__ == "__main__":
    sys.exit(main())
