#!/usr/bin/env python3
"""Writes the sources that namespaces.tsv and tokens.tsv are compiled from.

    python3 vexpa/xmlfx/make_token_table.py           writes them
    python3 vexpa/xmlfx/make_token_table.py --check   compares them, exit code 1 when one is stale

TokenTable.generated.cpp is the library's. The prefixes, which only people need, go into
tool/model/NamespacePrefixes.generated.cpp.
"""
import argparse
import csv
import pathlib
import re
import sys

FOLDER = pathlib.Path(__file__).resolve().parent
TABLE = FOLDER / "TokenTable.generated.cpp"
PREFIXES = FOLDER.parent.parent / "tool" / "model" / "NamespacePrefixes.generated.cpp"

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

PREFIXES_TEXT = """\
// Generated from vexpa/xmlfx/namespaces.tsv. Do not edit: change that, then run
//     python3 vexpa/xmlfx/make_token_table.py
#include "tool/model/NamespacePrefixes.h"

namespace vexpa_tool {{

// clang-format off
const std::array<NamespacePrefix, kNamespacePrefixCount> kNamespacePrefixes = {{{{
{rows}}}}};
// clang-format on

}}  // namespace vexpa_tool
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


def prefixes():
    rows = (f"    {{{literal(row['label'])}, {row['namespace_id']}, {literal(row['uri'])}}},\n"
            for row in read("namespaces.tsv"))
    return PREFIXES_TEXT.format(rows="".join(rows))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true", help="compare only")
    check = parser.parse_args().check
    for path, wanted in ((TABLE, table()), (PREFIXES, prefixes())):
        if not check:
            path.write_text(wanted, encoding="utf-8")
        elif path.read_text(encoding="utf-8") != wanted:
            sys.exit(f"{path.name} is stale: run {pathlib.Path(__file__).name}")


if __name__ == "__main__":
    main()
