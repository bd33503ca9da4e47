#!/usr/bin/env python3
"""check_includes.py ROOT PUBLIC_HEADER...: an #include goes only where docs/design.md lets it.

The table below "Layers" has a row for each folder, or file: what it may include besides itself, as
folders, or "public headers" for those given here. Of several rows the one of the longest path counts.
Folders without a row, as those of tests, may include anything.
"""

import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]((?:vexpa|runtime|tool|examples|bench|fuzz|tests)/[^>"]+)[>"]',
                     re.M)
ROW = re.compile(r"^\| (`.*) \| (.*) \|$", re.M)
SPAN = re.compile(r"`([^`]+)`")


def rules(page):
    """What each path of the table may include: folders, and whether the public headers."""
    section = re.search(r"^## Layers$(.*?)^## ", page, re.M | re.S)
    return {path: (SPAN.findall(allowed), "public headers" in allowed)
            for paths, allowed in (ROW.findall(section[1]) if section else [])
            for path in SPAN.findall(paths)}


def is_in(path, folder):
    return path == folder or path.startswith(folder + "/")


def problems(root, public):
    table = rules((root / "docs" / "design.md").read_text(encoding="utf-8"))
    if not table:
        yield "docs/design.md: no table of what may include what"
    for path in sorted(table):
        if not (root / path).exists():
            yield f"docs/design.md: there is no {path}"
    for source in sorted(path for top in {path.split("/")[0] for path in table}
                         for path in (root / top).rglob("*") if path.suffix in (".h", ".cpp")):
        name = str(source.relative_to(root))
        own = max((path for path in table if is_in(name, path)), key=len, default=None)
        if own is None:
            yield f"{name}: in no folder of the table"
            continue
        folders, may_use_public = table[own]
        for included in INCLUDE.findall(source.read_text(encoding="utf-8")):
            if not (any(is_in(included, folder) for folder in [own, *folders])
                    or may_use_public and included in public):
                yield f"{name}: includes {included}"


def main(root, *headers):
    root = pathlib.Path(root).resolve()
    public = {str(pathlib.Path(header).resolve().relative_to(root)) for header in headers}
    found = list(problems(root, public))
    for problem in found:
        print(problem)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
