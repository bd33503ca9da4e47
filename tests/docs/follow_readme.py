#!/usr/bin/env python3
"""follow_readme.py ROOT BUILD FOLDER EXPECTED: does what the README tells somebody who wants an
importer of their own, with FOLDER for a home and the library installed from BUILD.

The commands and the CMakeLists.txt are taken from the README as they stand, but for those that
build the library. The last one has to print the bytes of the file EXPECTED.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import textwrap

SECTION = re.compile(r"^## An importer of your own$(.*?)^## ", re.M | re.S)
BLOCK = re.compile(r"^```cmake\n((?:.*\n)*?)```|((?:^    .*\n)+)", re.M)
OF_THE_LIBRARY = ("cmake --preset release", "cmake --build --preset release", "cmake --install ")


def run(command, root, home, **options):
    print("$", command, flush=True)
    # The build of the tree may be one with options of its own.
    environment = {**os.environ, "HOME": str(home)}
    return subprocess.run(command, shell=True, cwd=root, env=environment, check=True, **options)


def main(root, build, home, expected):
    root, home = pathlib.Path(root), pathlib.Path(home)
    shutil.rmtree(home, ignore_errors=True)
    home.mkdir(parents=True)
    run(f"cmake --install '{build}' --prefix ~/vexpa >/dev/null", root, home)

    printed = b""
    section = SECTION.search((root / "README.md").read_text(encoding="utf-8"))[1]
    section = re.sub(r"^```cpp\n(?:.*\n)*?```", "", section, flags=re.M)
    for cmake, commands in BLOCK.findall(section):
        if cmake:
            (home / "mine" / "CMakeLists.txt").write_text(cmake, encoding="utf-8")
        for command in textwrap.dedent(commands).splitlines():
            if not command.startswith(OF_THE_LIBRARY):
                printed = run(command, root, home, stdout=subprocess.PIPE).stdout
    if printed != pathlib.Path(expected).read_bytes():
        sys.exit(f"the last command printed\n{printed.decode()}")


if __name__ == "__main__":
    main(*sys.argv[1:])
