#!/usr/bin/env python3
"""check_contracts.py HEADER...: what a caller must know is said where it is declared.

A class says who ends it, how it reports failure and which threads may use it; an exported function
says the latter two. Whatever hands out a pointer or a handle says who owns it. Doxygen only knows
whether there is a comment at all.
"""

import itertools
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "docs" / "reference"))
import comments  # noqa: E402

CLASS = re.compile(r"(?:template .*)?\b(class|struct) (?:VEXPA_API )?(\w+)\b(?!.*;$)")
EXPORTED = re.compile(r"VEXPA_API (?!static).*\(")
HANDS_OUT = re.compile(r"(?:[\w>]\*+|Handle<.*>) (?:operator->|\w+)\(|\*\* out[,)]")
OWNERSHIP = re.compile(r"\[(borrowed|owned|shared)\]")
# Records and a base without operations: what they hold says it.
PLAIN = {"PartData", "RelationshipCursor", "RelationshipRange", "NameInfo", "Noncopyable"}


def labels(comment):
    return {match[1] for line in comment if (match := comments.LABEL.fullmatch(line))}


def problems(text):
    lines = text.split("\n")
    head = itertools.takewhile(lambda line: line.startswith("//"), lines)
    said_for_all = labels([line[3:] for line in head])
    for declared in comments.declarations(lines):
        statement = lines[declared.number].strip()
        following = lines[declared.number + 1].strip()
        if statement.startswith("template"):
            statement += " " + following
        said = "\n".join(declared.shared) + declared.beside
        is_member = any(re.search(r"\b(class|struct)\b", scope) for scope in declared.scope)
        needed = set()
        if match := CLASS.match(statement):
            needed = set() if is_member or match[2] in PLAIN else {"Lifetime", "Errors", "Threads"}
        elif EXPORTED.match(statement) and not is_member:
            needed = {"Errors", "Threads"}
        for label in sorted(needed - labels(declared.shared) - said_for_all):
            yield declared.number + 1, f"{statement}: nothing about {label}"
        if HANDS_OUT.search(statement) and "override" not in statement and not OWNERSHIP.search(said):
            yield declared.number + 1, f"{statement}: whose is it?"


def main(paths):
    found = 0
    for path in paths:
        for line, problem in problems(pathlib.Path(path).read_text(encoding="utf-8")):
            print(f"{path}:{line}: {problem}")
            found += 1
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
