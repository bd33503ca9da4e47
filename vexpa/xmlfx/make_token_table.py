#!/usr/bin/env python3
"""Writes TokenTable.generated.cpp from namespaces.tsv and tokens.tsv.

    python3 vexpa/xmlfx/make_token_table.py           writes the file
    python3 vexpa/xmlfx/make_token_table.py --check   compares it, exit code 1 when it is stale
"""
import argparse
import csv
import pathlib
import re
import sys

FOLDER = pathlib.Path(__file__).resolve().parent
TABLE = FOLDER / "TokenTable.generated.cpp"

HEAD = """\
// Generated from namespaces.tsv and tokens.tsv. Do not edit: change those, then run
//     python3 vexpa/xmlfx/make_token_table.py
#include "vexpa/xmlfx/TokenTable.h"

namespace tarn::xmlfx {

namespace {

// clang-format off
"""

MIDDLE = """\
}  // namespace

constinit const NamespaceRegistration kNamespaceRegistrations[kNamespaceRegistrationCount] = {
"""

TAIL = """\
};
// clang-format on

}  // namespace tarn::xmlfx
"""


def read(name):
    with open(FOLDER / name, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE))


def literal(text):
    if not re.fullmatch(r"[ -!#-\[\]-~]*", text):
        raise ValueError(f"{text!r} needs escaping, which no name so far did")
    return f'u"{text}"'


def names_of(registration, rows):
    """The rows of one list, checked: they stand together, in list order, in one namespace."""
    names = [row for row in rows if row["registration"] == registration["registration"]]
    positions = [int(row["position"]) for row in names]
    if positions != list(range(1, int(registration["names"]) + 1)):
        raise ValueError(f"the list of {registration['label']} is incomplete or out of order")
    if any(row["namespace_id"] != registration["namespace_id"] for row in names):
        raise ValueError(f"the list of {registration['label']} strays into another namespace")
    return names


def token(row):
    namespace, index = int(row["namespace_id"]), int(row["index"])
    if namespace > 0xFFFF or index > 0xFFFF:
        raise ValueError(f"{row['name']}: namespace and index are 16 bits each")
    return f"0x{namespace:04X}{index:04X}"


def table():
    registrations, rows = read("namespaces.tsv"), read("tokens.tsv")
    out = [HEAD]
    for registration in registrations:
        out.append(f"constinit const NameEntry kNames{registration['registration']}[] = {{"
                   f"  // {registration['label']}\n")
        out += [f"    {{{literal(row['name'])}, {token(row)}}},\n"
                for row in names_of(registration, rows)]
        out.append("};\n\n")
    out.append(MIDDLE)
    for registration in registrations:
        out.append(f"    {{{literal(registration['uri'])}, kNames{registration['registration']}, "
                   f"{registration['names']}}},\n")
    out.append(TAIL)
    return "".join(out)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true", help="compare only")
    wanted = table()
    if not parser.parse_args().check:
        TABLE.write_text(wanted, encoding="utf-8")
    elif TABLE.read_text(encoding="utf-8") != wanted:
        sys.exit(f"{TABLE.name} is stale: run {pathlib.Path(__file__).name}")


if __name__ == "__main__":
    main()
