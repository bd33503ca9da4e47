#!/usr/bin/env python3
"""Writes the relationship types of relationship-types.tsv into the sources beside it.

    vexpa/opc/make_relationship_types.py            writes
    vexpa/opc/make_relationship_types.py --check    compares; status 1 when a source is behind

The enumerators go between two marks of RelationshipTypeId.h, the rows into
RelationshipTypeTable.generated.cpp, the names that the tool prints into
tool/model/RelationshipTypeNames.generated.cpp, and their number into the header of each. Types
are only ever appended: callers know them by number.
"""

import csv
import pathlib
import re
import sys

FOLDER = pathlib.Path(__file__).resolve().parent
SOURCE = FOLDER / "relationship-types.tsv"
HEADER = FOLDER / "RelationshipTypeId.h"
TABLE_HEADER = FOLDER / "RelationshipTypeTable.h"
TABLE = FOLDER / "RelationshipTypeTable.generated.cpp"
MODEL = FOLDER.parent.parent / "tool" / "model"
NAMES_HEADER = MODEL / "RelationshipTypeNames.h"
NAMES = MODEL / "RelationshipTypeNames.generated.cpp"

BEGIN = "    // Start of the list that make_relationship_types.py writes.\n\n"
END = "\n    // End of the list.\n"

TABLE_TEXT = """\
// Written by vexpa/opc/make_relationship_types.py from relationship-types.tsv; do not edit.
#include "vexpa/opc/RelationshipTypeTable.h"

namespace tarn::opc {{

// clang-format off
const std::array<RelationshipTypeRow, kRelationshipTypeCount> kRelationshipTypeRows = {{{{
{rows}}}}};
// clang-format on

}}  // namespace tarn::opc
"""

NAMES_TEXT = """\
// Written by vexpa/opc/make_relationship_types.py from relationship-types.tsv; do not edit.
#include "tool/model/RelationshipTypeNames.h"

namespace vexpa_tool {{

// clang-format off
const std::array<const char*, kRelationshipTypeNameCount> kRelationshipTypeNames = {{{{
{names}}}}};
// clang-format on

}}  // namespace vexpa_tool
"""


def read_rows():
    with SOURCE.open(encoding="utf-8", newline="") as source:
        rows = list(csv.DictReader(source, delimiter="\t", quoting=csv.QUOTE_NONE))
    for position, row in enumerate(rows):
        if int(row["id"]) != position:
            sys.exit(f"{SOURCE.name}: id {row['id']} stands where {position} belongs")
        if row["uri"] != row["uri"].lower():
            sys.exit(f"{SOURCE.name}: {row['uri']} is not in lower case, so nothing would match it")
    for field in ("enumerator", "uri"):
        if len({row[field] for row in rows}) != len(rows):
            sys.exit(f"{SOURCE.name}: a value of the column {field} is there twice")
    return rows


def short_uri(uri):
    for start in ("http://schemas.", "openxmlformats.org/", "officedocument/2006/relationships/"):
        uri = uri.removeprefix(start)
    return uri


def header_text(rows):
    text = HEADER.read_text(encoding="utf-8")
    before, rest = text.split(BEGIN)
    _, after = rest.split(END)
    lines = [f"    {row['enumerator']} = {row['id']}," for row in rows]
    width = max(len(line) for line in lines)
    enumerators = "".join(f"{line:{width}}  // {short_uri(row['uri'])}\n"
                          for line, row in zip(lines, rows))
    return before + BEGIN + enumerators + END + after


def counted_text(header, constant, rows):
    text, found = re.subn(rf"\b({constant} = )\d+;", rf"\g<1>{len(rows)};",
                          header.read_text(encoding="utf-8"))
    if found != 1:
        sys.exit(f"{header.name}: {constant} is not there once")
    return text


def table_text(rows):
    lines = (f"    {{u\"{row['uri']}\", {row['enumerator']}}},\n" for row in rows)
    return TABLE_TEXT.format(rows="".join(lines))


def names_text(rows):
    return NAMES_TEXT.format(names="".join(f"    \"{row['enumerator']}\",\n" for row in rows))


def main(arguments):
    rows = read_rows()
    texts = {HEADER: header_text(rows), TABLE: table_text(rows), NAMES: names_text(rows),
             TABLE_HEADER: counted_text(TABLE_HEADER, "kRelationshipTypeCount", rows),
             NAMES_HEADER: counted_text(NAMES_HEADER, "kRelationshipTypeNameCount", rows)}
    if arguments == ["--check"]:
        behind = [path.name for path, text in texts.items()
                  if not path.exists() or path.read_text(encoding="utf-8") != text]
        if behind:
            script = pathlib.Path(__file__).name
            sys.exit(f"{', '.join(behind)}: behind {SOURCE.name}; run {script}")
    elif not arguments:
        for path, text in texts.items():
            path.write_text(text, encoding="utf-8")
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
