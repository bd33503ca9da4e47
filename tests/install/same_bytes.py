#!/usr/bin/env python3
"""same_bytes.py OBJCOPY A B FOLDER...   whether two builds of a library are one.

All that is loaded must be the same, byte by byte. Debug information may write the paths of
sources in more than one way (a compiler cache makes them relative), but names no folder.
"""

import pathlib
import subprocess
import sys
import tempfile


def loaded_bytes(objcopy, library):
    with tempfile.NamedTemporaryFile() as stripped:
        # The build id is a digest over the whole file.
        subprocess.run([objcopy, "--strip-debug", "--remove-section=.note.gnu.build-id",
                        library, stripped.name], check=True)
        return pathlib.Path(stripped.name).read_bytes()


def main():
    objcopy, first, second, *folders = sys.argv[1:]
    complaints = []
    if loaded_bytes(objcopy, first) != loaded_bytes(objcopy, second):
        complaints.append(f"{first} and {second} differ")
    for library in (first, second):
        whole = pathlib.Path(library).read_bytes()
        complaints += [f"{library} names {folder}" for folder in folders if folder.encode() in whole]
    print("\n".join(complaints))
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
