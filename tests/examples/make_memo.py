#!/usr/bin/env python3
"""make_memo.py FILE DAMAGED: writes a text document with three headers, the second of them the
first in its relationship stream, and with a relationship to a part that is missing; and the same
document with a header whose bytes cannot be read."""

import pathlib
import sys
import zipfile

RELATIONSHIPS = "http://schemas.openxmlformats.org/package/2006/relationships"
OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
TYPES = "http://schemas.openxmlformats.org/package/2006/content-types"
WORD = "application/vnd.openxmlformats-officedocument.wordprocessingml"
W = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"


def relationships(*rows):
    elements = "".join(f'<Relationship Id="{id}" Type="{OFFICE}/{kind}" Target="{target}"/>'
                       for id, kind, target in rows)
    return f'<Relationships xmlns="{RELATIONSHIPS}">{elements}</Relationships>'


def content_types(**parts):
    elements = "".join(f'<Override PartName="/word/{name}.xml" ContentType="{WORD}.{kind}+xml"/>'
                       for name, kind in parts.items())
    return (f'<Types xmlns="{TYPES}"><Default Extension="rels" '
            f'ContentType="application/vnd.openxmlformats-package.relationships+xml"/>{elements}</Types>')


ENTRIES = {
    "[Content_Types].xml": content_types(document="document.main", styles="styles", header1="header",
                                         header2="header", header3="header"),
    "_rels/.rels": relationships(("rId1", "officeDocument", "word/document.xml")),
    "word/_rels/document.xml.rels": relationships(
        ("rId3", "header", "header2.xml"), ("rId2", "header", "header1.xml"),
        ("rId10", "header", "header3.xml"), ("rId1", "styles", "styles.xml"),
        ("rId4", "numbering", "numbering.xml")),
    "word/document.xml": f'<w:document xmlns:w="{W}"><w:body/></w:document>',
    "word/styles.xml": f'<w:styles xmlns:w="{W}"/>',
    **{f"word/header{n}.xml": f'<w:hdr xmlns:w="{W}"/>' for n in (1, 2, 3)},
}


def main(file, damaged):
    with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as package:
        for name, text in ENTRIES.items():
            package.writestr(zipfile.ZipInfo(name), text)
        header = package.getinfo("word/header2.xml")
    data = bytearray(pathlib.Path(file).read_bytes())
    data[header.header_offset + 30 + len(header.filename)] ^= 0xFF
    pathlib.Path(damaged).write_bytes(data)


main(*sys.argv[1:])
