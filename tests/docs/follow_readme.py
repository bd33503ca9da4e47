#!/usr/bin/env python3
"""follow_readme.py WHAT ROOT BUILD FOLDER EXPECTED: does what the README tells somebody, with FOLDER
for a home and the library installed from BUILD.

    importer  an importer of one's own
    program   the program that the README begins with, built by its line for pkg-config

The commands, the CMakeLists.txt and the program are taken from the README as they stand, but for
the commands that build the library. What the last one prints has to be the bytes of the file EXPECTED.
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
PROGRAM = re.compile(r"^```cpp\n((?:.*\n)*?)```", re.M)
COMPILE = re.compile(r"^    export PKG_CONFIG_PATH=.*\n    c\+\+ .*\n", re.M)
OF_THE_LIBRARY = ("cmake --preset release", "cmake --build --preset release", "cmake --install ")


def run(command, folder, home, **options):
    print("$", command, flush=True)
    # The build of the tree may be one with options of its own.
    environment = {**os.environ, "HOME": str(home)}
    return subprocess.run(command, shell=True, cwd=folder, env=environment, check=True, **options)


def follow_to_importer(readme, root, home):
    printed = b""
    section = SECTION.search(readme)[1]
    section = re.sub(r"^```cpp\n(?:.*\n)*?```", "", section, flags=re.M)
    for cmake, commands in BLOCK.findall(section):
        if cmake:
            (home / "mine" / "CMakeLists.txt").write_text(cmake, encoding="utf-8")
        for command in textwrap.dedent(commands).splitlines():
            if not command.startswith(OF_THE_LIBRARY):
                printed = run(command, root, home, stdout=subprocess.PIPE).stdout
    return printed


def follow_to_program(readme, root, home):
    (home / "main.cpp").write_text(PROGRAM.search(readme)[1], encoding="utf-8")
    run(textwrap.dedent(COMPILE.search(readme)[0]), home, home)
    return run(f"~/a.out '{root}/samples/report.docx'", home, home, stdout=subprocess.PIPE).stdout


FOLLOW = {"importer": follow_to_importer, "program": follow_to_program}


def main(what, root, build, home, expected):
    root, home = pathlib.Path(root), pathlib.Path(home)
    shutil.rmtree(home, ignore_errors=True)
    home.mkdir(parents=True)
    run(f"cmake --install '{build}' --prefix ~/vexpa >/dev/null", root, home)
    printed = FOLLOW[what]((root / "README.md").read_text(encoding="utf-8"), root, home)
    if printed != pathlib.Path(expected).read_bytes():
        sys.exit(f"the last command printed\n{printed.decode()}")


if __name__ == "__main__":
    main(*sys.argv[1:])
