#!/usr/bin/env python3
"""headers_alone.py COMPILER INCLUDE_FOLDER   compiles each installed header by itself."""

import concurrent.futures
import os
import pathlib
import subprocess
import sys

STANDARDS = ["c++17", "c++20", "c++2b"]
# What a strict caller compiles with.
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Wnon-virtual-dtor",
            "-Woverloaded-virtual", "-Wold-style-cast", "-Werror"]


def complaint(compiler, folder, header, standard):
    # Twice, for its guard, and from a source file, as a header is not compiled as such.
    line = f'#include "{header.relative_to(folder)}"\n'
    run = subprocess.run(
        [compiler, f"-std={standard}", "-fsyntax-only", *WARNINGS, "-I", str(folder), "-x", "c++", "-"],
        input=line * 2, stderr=subprocess.PIPE, text=True)
    return "" if run.returncode == 0 else f"{standard} {header}:\n{run.stderr}"


def main():
    compiler, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    headers = sorted(folder.rglob("*.h"))
    if not headers:
        sys.exit(f"no headers in {folder}")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = [pool.submit(complaint, compiler, folder, header, standard)
                for header in headers for standard in STANDARDS]
        complaints = [text for text in (job.result() for job in jobs) if text]
    print("\n".join(complaints))
    print(f"{len(headers)} headers, {len(STANDARDS)} standards, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
