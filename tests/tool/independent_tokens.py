#!/usr/bin/env python3
"""Compares `vexpa tokens --json` with a second reading of the same parts.

    independent_tokens.py [--shares] TOOL PATH...   PATHs as for independent_model.py

The model reads packages with Python's zipfile and expat, and tokens from the source tables.
Every difference is printed; status 1 when there is one, 77 when no PATH exists. Parts whose
names all came before are passed over: starting the tool for each of thousands takes long.
--shares compares them all and adds a table: how many elements and attributes of each namespace
have a token.
"""

import collections
import csv
import json
import subprocess
import sys
import xml.parsers.expat
import zipfile

from independent_model import SOURCE, place

XMLFX = SOURCE / "vexpa" / "xmlfx"
SEPARATOR = "\n"


def read(name):
    with open(XMLFX / name, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE))


def read_vocabulary():
    """{uri: {name: token}}; the first of several rows for one name counts."""
    uris = {row["registration"]: row["uri"] for row in read("namespaces.tsv")}
    vocabulary = collections.defaultdict(dict)
    for row in read("tokens.tsv"):
        token = int(row["namespace_id"]) << 16 | int(row["index"])
        vocabulary[uris[row["registration"]]].setdefault(row["name"], token)
    return vocabulary


VOCABULARY = read_vocabulary()


class Shares:
    def __init__(self):
        self.counts = collections.defaultdict(lambda: [0, 0, 0, 0])

    def add(self, uri, column, token):
        if uri in VOCABULARY:
            self.counts[uri][column] += 1
            self.counts[uri][column + 1] += token != 0

    def print(self):
        def row(label, elements, with_token, attributes, attributes_with_token):
            def share(part, whole):
                return f"{100 * part / whole:6.2f} %" if whole else "       -"
            print(f"{label:8} {elements:9} {share(with_token, elements)}"
                  f" {attributes:9} {share(attributes_with_token, attributes)}")

        print(f"{'':8} {'elements':>9} {'token':>8} {'attributes':>9} {'token':>7}")
        labels = {}
        for one in read("namespaces.tsv"):
            labels.setdefault(one["uri"], one["label"])
        for uri, label in labels.items():
            if uri in self.counts:
                row(label, *self.counts[uri])
        row("all", *(sum(column) for column in zip(*self.counts.values())))


def split(name):
    uri, _, local = name.rpartition(SEPARATOR)
    return uri, local


def token_of(uri, name):
    return VOCABULARY.get(uri, {}).get(name, 0)


def model(content, shares):
    """What the tool prints; None for malformed XML."""
    lines, depth = [], 0
    parser = xml.parsers.expat.ParserCreate(namespace_separator=SEPARATOR)
    parser.ordered_attributes = True

    def start(name, attributes):
        nonlocal depth
        uri, local = split(name)
        element = {"depth": depth, "uri": uri, "name": local, "token": token_of(uri, local),
                   "attributes": []}
        shares.add(uri, 0, element["token"])
        for name, value in zip(attributes[::2], attributes[1::2]):
            own, local = split(name)
            token = token_of(own or uri, local)
            shares.add(own or uri, 2, token)
            element["attributes"].append({"uri": own, "name": local, "token": token, "value": value})
        lines.append(element)
        depth += 1

    def end(_):
        nonlocal depth
        depth -= 1

    parser.StartElementHandler, parser.EndElementHandler = start, end
    try:
        parser.Parse(content, True)
    except xml.parsers.expat.ExpatError:
        return None
    return lines


def names_of(lines):
    """Each element in its namespace with one of its attributes, or with none."""
    return {(line["uri"], line["name"], *attribute) for line in lines for attribute in
            [(), *((one["uri"], one["name"]) for one in line["attributes"])]}


def compare(tool, path, part, expected):
    run = subprocess.run([tool, "tokens", "--json", path, part], capture_output=True, check=False)
    if expected is None:
        return None if run.returncode == 5 else f"status {run.returncode} for malformed XML"
    if run.returncode != 0:
        return f"status {run.returncode}: {run.stderr.decode()}"
    found = [json.loads(line) for line in run.stdout.decode("utf-8").splitlines()]
    for want, got in zip(expected, found):
        if list(want.items()) != list(got.items()):
            return f"\n    model {want}\n    tool  {got}"
    return None if len(expected) == len(found) else f"{len(found)} elements, not {len(expected)}"


def xml_parts(path):
    with zipfile.ZipFile(path) as package:
        for name in package.namelist():
            if name.endswith((".xml", ".rels", ".vml")):
                yield name, package.read(name)


def main(arguments):
    with_shares = arguments[:1] == ["--shares"]
    tool, *paths = arguments[with_shares:]
    files = [file for path in map(place, paths) if path.is_dir()
             for file in sorted(path.iterdir()) if zipfile.is_zipfile(file)]
    if not files:
        print("skipped: no package is there")
        return 77
    shares, parts, different = Shares(), 0, 0
    seen = set()
    for path in files:
        for part, content in xml_parts(path):
            expected = model(content, shares)
            if not with_shares and expected is not None and names_of(expected) <= seen:
                continue
            seen |= names_of(expected or [])
            parts += 1
            difference = compare(tool, path, part, expected)
            if difference:
                different += 1
                print(f"{path}: {part}: {difference}")
    print(f"{parts} parts of {len(files)} files, {different} different")
    if with_shares:
        shares.print()
    return 1 if different else 0


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1:]))
