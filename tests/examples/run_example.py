#!/usr/bin/env python3
"""run_example.py EXPECTED STATUS PROGRAM ARGUMENT...: the program ends with this exit status, and
prints the bytes of the file EXPECTED, or nothing when there is no such file. With the status 2 it
says how it is called. In an argument \\xff stands for that byte, which CMake cannot write."""

import os
import pathlib
import subprocess
import sys


def main(expected, status, *arguments):
    command = [os.fsencode(one).replace(b"\\xff", b"\xff") for one in arguments]
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    sys.stderr.buffer.write(run.stderr)
    known = pathlib.Path(expected).read_bytes() if pathlib.Path(expected).exists() else b""
    if run.returncode != int(status):
        return f"exit status {run.returncode} instead of {status}"
    if run.returncode == 2 and not run.stderr.startswith(b"usage: "):
        return "does not say how it is called"
    if run.stdout != known:
        return f"printed\n{run.stdout.decode()}\ninstead of\n{known.decode()}"
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
