#!/usr/bin/env python3
"""Writes packages that are odd in every way that decides what a reader finds.

    make_odd_packages.py FOLDER COUNT [SEED]

Names, targets, Ids, types and content types are drawn from small sets, so that they meet:
repeats, other cases, both slashes, steps up beyond the root, patterns, blanks, absent
attributes, prefixes, entities, foreign encodings, damaged entries.
"""

import pathlib
import random
import sys
import zipfile
from xml.sax.saxutils import quoteattr

BASE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/"
TYPES = [BASE + "styles", BASE + "STYLES", BASE + "image", " \t" + BASE + "image rest",
         BASE.replace("/", "\\") + "header", BASE + "theme\u2003x", BASE + "theme\u00a0x", "", "urn:x",
         "http://schemas.openxmlformats.org/package/2006/relationships/metadata/thumbnail",
         "http://schemas.openxmlformats.org/drawingml/2006/chart", "\x85" + BASE + "image",
         BASE + "cu\u017ftomxml", BASE + "\u0130mage"]
FOLDERS = ["", "word/", "a/b/", "a/b/c/", "w.d/", "x y/", "gr\u00fc\u00df/", "\U0001f4d6/", "_rels/"]
FILES = ["a.xml", "b.XML", "a..b.xml", "c", "c.", ".xml", "e[1].xml", "e1.xml", "f*.xml", "f?.bin",
         "g%20h.png", "g h.png", "\u65e5\u672c.xml", "i~1.bin", "j#k", "!x.xml", "back\\slash.xml"]
IDS = ["rId1", "rId2", "rId10", "RID1", "", "\U0001f600", "\uff5e", "a b", "rId1 ", "\u00e9"]
MODES = [None] * 6 + ["Internal", "External", "EXTERNAL", "external ", "externals", ""]
CONTENT_TYPES = ["application/xml", "image/png", "", "a/b; c=d", "text/\u202ex"]


class Maker:
    def __init__(self, seed):
        self.random = random.Random(seed)

    def name(self):
        return self.random.choice(FOLDERS) + self.random.choice(FILES)

    def target(self, names):
        one, chance = self.random.choice(names + [self.name()]), self.random.random()
        if chance < 0.15:
            return self.random.choice(["/", "\\", "//", "./", "../", "../../", "..\\", "../../../../",
                                       "a/../", "x:", "http://h/", "#", "..", ".../"]) + one
        if chance < 0.25:
            return one.replace("/", "\\")
        if chance < 0.3:
            return self.random.choice(["", "/", "\\", "..", ".", ":", "x:y", "a/b:c", "mailto:a@b", "\ud7ff"])
        if chance < 0.35:
            return one.upper()
        if chance < 0.6:
            return one.rpartition("/")[2]
        return "/" + one if chance < 0.8 else one

    def relationship(self, names):
        values = [("Id", self.random.choice(IDS)), ("Type", self.random.choice(TYPES)),
                  ("Target", self.target(names)), ("TargetMode", self.random.choice(MODES))]
        self.random.shuffle(values)
        written = [f"{key}={quoteattr(value)}" for key, value in values
                   if value is not None and self.random.random() > 0.04]
        prefix = self.random.choice(["", "", "", "r:", "r:s:"])
        other = self.random.choice([prefix + "Relationship"] * 9 + ["relationship", "Relationships"])
        return f"<{other} {' '.join(written)}/>" if self.random.random() > 0.03 else f"<{other}/>"

    def relationships(self, names, last=None):
        found = [self.relationship(names) for _ in range(self.random.randint(0, 6))]
        if last is not None:
            found.append(f'<Relationship Id="last" Type="{BASE}officeDocument" Target={quoteattr(last)}/>')
        return self.document("Relationships", "".join(found))

    def document(self, root, body):
        text = f"<{root} xmlns='urn:x' xmlns:r='urn:y'>{body}</{root}>"
        chance = self.random.random()
        if chance < 0.1:
            return ("\ufeff" + text).encode("utf-16-le")
        if chance < 0.15:
            return ("\ufeff" + text).encode("utf-8")
        if chance < 0.2:
            declared = "<?xml version='1.0' encoding='ISO-8859-1'?>" + text
            return declared.encode("iso-8859-1", "xmlcharrefreplace")
        if chance < 0.25:
            return f"<!DOCTYPE {root} [<!ENTITY e 'x'>]>{text}".replace("a.xml", "a.&e;ml").encode()
        if chance < 0.28:
            return text[:-3].encode()
        return b"" if chance < 0.3 else text.encode()

    def content_types(self, names):
        rules = []
        for _ in range(self.random.randint(0, 8)):
            content_type = quoteattr(self.random.choice(CONTENT_TYPES))
            if self.random.random() < 0.5:
                name = self.random.choice(["", "/", "\\", "//"]) + self.random.choice(names)
                rules.append(f"<Override PartName={quoteattr(name)} ContentType={content_type}/>")
            else:
                extension = self.random.choice(["xml", "XML", ".xml", "bin", "c", "", "png", "rels"])
                rules.append(f"<Default Extension={quoteattr(extension)} ContentType={content_type}/>")
        self.random.shuffle(rules)
        return self.document("Types", "".join(rules))

    def write(self, path):
        names = [self.name() for _ in range(self.random.randint(1, 12))]
        entries = [(name, self.random.randbytes(self.random.randint(0, 40))) for name in names]
        for name in names:
            if self.random.random() < 0.6:
                folder, _, file_name = name.replace("\\", "/").rpartition("/")
                stream = f"{folder}/_rels/{file_name}.rels" if folder else f"_rels/{file_name}.rels"
                entries.append((stream, self.relationships(names)))
        entries.append(("[Content_Types].xml", self.content_types(names)))
        last = names[0] if self.random.random() < 0.9 else self.target(names)
        entries.append(("_rels/.rels", self.relationships(names, last)))
        self.random.shuffle(entries)
        with zipfile.ZipFile(path, "w") as archive:
            for name, content in entries:
                info = zipfile.ZipInfo(name)
                info.create_system = self.random.choice([0, 3, 3, 10])
                info.compress_type = self.random.choice([zipfile.ZIP_STORED, zipfile.ZIP_DEFLATED])
                if name not in archive.namelist():
                    archive.writestr(info, content)
        self.damage(path)

    def damage(self, path):
        """Changes a byte of some packages: of a header, of the data, of the directory."""
        if self.random.random() > 0.15:
            return
        data = bytearray(path.read_bytes())
        data[self.random.randrange(len(data))] ^= 1 << self.random.randrange(8)
        path.write_bytes(bytes(data))


def main(folder, count, seed=1):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for number in range(int(count)):
        Maker(int(seed) * 1_000_003 + number).write(folder / f"odd{number}.zip")


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
