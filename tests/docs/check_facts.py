#!/usr/bin/env python3
"""check_facts.py CHECK ROOT: holds the numbers and lists in the documents to those of the tree.

    numbers   the limits in SECURITY.md are those of the code; the version and the numbers of names and
              types are those that the tree has
    lists     README.md names every public header, option, preset and package
    commands  the man page knows what the documents call vexpa with
"""

import json
import pathlib
import re
import sys

import check_docs

# What SECURITY.md calls a limit, and where it is set.
LIMITS = [
    ("1,032 times", "runtime/zip/EntryFormat.h", "kBestRatio"),
    ("64 KiB", "runtime/zip/EntryFormat.h", "kRatioSlack"),
    ("16 million steps", "runtime/zip/PatternSearch.h", "kFree"),
    ("64 for each byte", "runtime/zip/PatternSearch.h", "kForEachByte"),
    ("128 MiB", "runtime/xml/XmlLimits.h", "kMaxBytes"),
    ("2 million elements", "runtime/xml/XmlLimits.h", "kMaxNodes"),
    ("10,000 levels", "runtime/xml/XmlParser.h", "kMaxDepth"),
    ("1,000 entities", "runtime/xml/XmlParser.h", "kMaxDeclarations"),
    ("16 times", "runtime/xml/XmlParser.h", "kMaxGrowth"),
    ("1 MiB", "runtime/xml/XmlParser.h", "kGrowthThreshold"),
    ("512 MiB", "vexpa/opc/RelationshipAllowance.h", "kMostMemory"),
    ("16 MiB", "vexpa/opc/RelationshipAllowance.h", "kMostPadding"),
    ("16 names", "vexpa/opc/SpellingAllowance.h", "kMost"),
    ("2,048 levels", "runtime/com/CompoundCheck.h", "kMaxDirectoryDepth"),
    ("2,048 elements", "runtime/com/CompoundCheck.h", "kMaxStorageElements"),
    ("4 million table entries", "runtime/com/CompoundCheck.h", "kMaxTableEntries"),
    ("4 steps", "runtime/com/CompoundCheck.cpp", "kStepsPerSector"),
    ("1 million more", "runtime/com/CompoundCheck.cpp", "kFreeSteps"),
    ("32 MiB of freed large blocks", "runtime/memory/PagePool.cpp", "kMostKept"),
    ("32 MiB of parsed zip directories", "runtime/zip/DirectoryCache.cpp", "kMostBytes"),
]
UNITS = {"KiB": 1 << 10, "MiB": 1 << 20, "million": 10 ** 6}


def constant(source, name):
    """The value of a constant that is a number, a product or a shift."""
    set_to = re.search(rf"\b{name} = ([^,;]+)[,;]", source)
    if not set_to:
        return None
    product = 1
    for factor in re.sub(r"'|[uUlL]+\b", "", set_to[1]).split("*"):
        base, _, shift = factor.partition("<<")
        product *= int(base) << int(shift or 0)
    return product


def is_said(value, words):
    """Whether the number that the words begin with is this one, in its unit and without the rest."""
    number, unit = (words.split() + [""])[:2]
    return value is not None and value // UNITS.get(unit, 1) == int(number.replace(",", ""))


def count_problem(tree, name, pattern, count):
    """What is wrong with a number that a file states in words like these."""
    stated = re.search(pattern, re.sub(r"\s+", " ", tree.read(name)))
    if stated and int(stated[1].replace(",", "")) == count:
        return None
    return f"{name}: not {count:,}, as the tree has it, for '{pattern}'"


def check_numbers(tree):
    security = re.sub(r"\s+", " ", tree.read("SECURITY.md"))
    for words, name, limit in LIMITS:
        value = constant(tree.read(name), limit)
        if words not in security or not is_said(value, words):
            yield f"SECURITY.md: '{words}' is not there, or is not {limit} of {name}, {value}"

    version = re.search(r"^project\(\w+ VERSION ([\d.]+)", tree.read("CMakeLists.txt"), re.M)[1]
    released = re.search(r"^## ([\d.]+) - ", tree.read("CHANGELOG.md"), re.M)
    if not released or released[1] != version:
        yield f"CHANGELOG.md: its last version is not {version}"
    if f'"libvexpa {version}"' not in tree.read("docs/man/vexpa.1"):
        yield f"docs/man/vexpa.1: is not of version {version}"

    names = distinct_names(tree)
    types = tree.read("vexpa/opc/relationship-types.tsv").count("\n") - 1
    for name, pattern, count in (("README.md", r"([\d,]+) names with tokens", names),
                                 ("packaging/debian/control", r"([\d,]+) names with tokens", names),
                                 ("README.md", r"the (\d+) known relationship types", types),
                                 ("tool/check/FindingTable.cpp", r"numbers (\d+) relationship types", types)):
        if problem := count_problem(tree, name, pattern, count):
            yield problem


def distinct_names(tree):
    """Some URIs have several lists, and a name may stand in two of them."""
    def rows(name):
        return [line.split("\t") for line in tree.read(name).splitlines()[1:]]
    uris = {row[0]: row[3] for row in rows("vexpa/xmlfx/namespaces.tsv")}
    return len({(uris[row[0]], row[4]) for row in rows("vexpa/xmlfx/tokens.tsv")})


def listed(tree):
    """What the README has to name, with what it is."""
    for name in ("vexpa/CMakeLists.txt", "vexpa/platform/CMakeLists.txt"):
        for files in re.findall(r"FILE_SET HEADERS[^)]*FILES\s([^)]*)\)", tree.read(name)):
            for header in files.split():
                yield str(pathlib.Path(name).parent / header), "public header"
    for name in ("CMakeLists.txt", "cmake/VexpaInstall.cmake"):
        for option in re.findall(r"^(?:option\(|set\((?=\w+ [^\n]*(?:\n\s+)?CACHE))(VEXPA_\w+)",
                                 tree.read(name), re.M):
            yield option, "option"
    for preset in json.loads(tree.read("CMakePresets.json"))["configurePresets"]:
        if not preset.get("hidden"):
            yield preset["name"], "preset"
    for package in re.findall(r"^Package: (\S+)", tree.read("packaging/debian/control"), re.M):
        yield package, "package"


def check_lists(tree):
    wanted = dict(listed(tree))
    spans = set(check_docs.SPAN.findall(check_docs.FENCE.sub("", tree.read("README.md"))))
    for name, kind in wanted.items():
        if name not in spans:
            yield f"README.md: says nothing of the {kind} {name}"
    for span in sorted(spans):
        if re.fullmatch(r"vexpa/\w+/\w+\.h", span) and span not in wanted:
            yield f"README.md: {span} is no public header"


def check_commands(tree):
    page = tree.read("docs/man/vexpa.1").replace("\\-", "-")
    commands = set(re.findall(r'^\.B[IR] "(\w+) ', page, re.M))
    options = set(re.findall(r"(?<![\w-])--?[a-z0-9][\w-]*", page))
    for document in tree.documents:
        text = document.read_text(encoding="utf-8")
        code = "\n".join(check_docs.BLOCK.findall(text) + check_docs.SPAN.findall(text))
        for command, arguments in re.findall(r"(?:(?<![\w-])vexpa|\./run) ([a-z]+)\b([^|\n]*)", code):
            where = f"{document.relative_to(tree.root)}: vexpa {command}"
            if command not in commands:
                yield f"{where}: no such command"
            for option in re.findall(r"(?<=\s)--?[a-z0-9][\w-]*", re.sub(r"\s#.*|'.*", "", arguments)):
                if option not in options:
                    yield f"{where}: no such option as {option}"


CHECKS = {"numbers": check_numbers, "lists": check_lists, "commands": check_commands}


if __name__ == "__main__":
    sys.exit(check_docs.main(*sys.argv[1:], CHECKS))
