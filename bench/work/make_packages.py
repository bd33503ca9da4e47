#!/usr/bin/env python3
"""Makes the packages that the benchmarks read; the same bytes on every machine with one zlib.

    make_packages.py FOLDER [NAME ...]

    tree-N      N parts; each relates to ten others, so that a tenth has relationships
    chain-N     N parts; each relates to the next, so that all but the last have relationships
    deflated-200m  one part of 200 MB, deflated
    stored-64m     one part of 64 MB that nothing compresses, stored

A package that is there already, made by this version, is left as it is.
"""

import pathlib
import random
import sys
import zipfile
import zlib

VERSION = "2"
COUNTS = (100, 1_000, 10_000, 50_000)
FAN_OUT = 10
IN_A_FOLDER = 100  # libgsf goes through a folder for each name in it
BASE = "http://schemas.openxmlformats.org/"
OFFICE_DOCUMENT = BASE + "officeDocument/2006/relationships/officeDocument"
SLIDE = BASE + "officeDocument/2006/relationships/slide"
SLIDE_TYPE = "application/vnd.openxmlformats-officedocument.presentationml.slide+xml"
WORDS = ("tide harbour gauge level morning station reading channel north survey metre depth chart "
         "signal record evening current sluice basin quay monthly average storm warning report").split()


def paragraphs(maker, count):
    """Runs of text as slides have them, 150 to 450 bytes each."""
    made = []
    for _ in range(count):
        words = " ".join(maker.choice(WORDS) for _ in range(maker.randint(5, 40)))
        size, colour = maker.choice((1000, 1200, 1400, 1800)), maker.randrange(1 << 24)
        made.append(f'<a:p><a:pPr lvl="{maker.randint(0, 3)}"/><a:r><a:rPr lang="en-GB" sz="{size}" dirty="0">'
                    f'<a:solidFill><a:srgbClr val="{colour:06X}"/></a:solidFill></a:rPr>'
                    f"<a:t>{words}</a:t></a:r></a:p>")
    return made


def slide(maker, pool, number):
    body = "".join(maker.choices(pool, k=maker.choice((2, 4, 6, 8, 12, 16, 32))))
    return (f'<p:sld xmlns:a="{BASE}drawingml/2006/main" xmlns:p="{BASE}presentationml/2006/main">'
            f'<p:cSld name="slide {number}"><p:txBody>{body}</p:txBody></p:cSld></p:sld>')


def relationships(targets):
    rows = "".join(f'<Relationship Id="rId{i}" Type="{kind}" Target="{target}"/>'
                   for i, (kind, target) in enumerate(targets, 1))
    return f'<Relationships xmlns="{BASE}package/2006/relationships">{rows}</Relationships>'


class Writer:
    def __init__(self, path):
        self.archive = zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=6)

    def add(self, name, content, stored=False):
        entry = zipfile.ZipInfo(name, (2000, 1, 1, 0, 0, 0))
        entry.compress_type = zipfile.ZIP_STORED if stored else zipfile.ZIP_DEFLATED
        self.archive.writestr(entry, content)

    def head(self, defaults, main):
        rows = "".join(f'<Default Extension="{extension}" ContentType="{kind}"/>'
                       for extension, kind in defaults.items())
        self.add("[Content_Types].xml",
                 f'<Types xmlns="{BASE}package/2006/content-types">{rows}</Types>')
        self.add("_rels/.rels", relationships([(OFFICE_DOCUMENT, main)]))


DEFAULTS = {"rels": "application/vnd.openxmlformats-package.relationships+xml", "xml": SLIDE_TYPE,
            "bin": "application/octet-stream"}


def many(writer, count, children):
    maker = random.Random(count)
    pool = paragraphs(maker, 200)
    writer.head(DEFAULTS, "ppt/0/slide0.xml")
    for i in range(count):
        folder = i // IN_A_FOLDER
        writer.add(f"ppt/{folder}/slide{i}.xml", slide(maker, pool, i))
        targets = [(SLIDE, f"../{child // IN_A_FOLDER}/slide{child}.xml") for child in children(i)
                   if child < count]
        if targets:
            writer.add(f"ppt/{folder}/_rels/slide{i}.xml.rels", relationships(targets))


def tree(count):
    return lambda writer: many(writer, count, lambda i: range(FAN_OUT * i + 1, FAN_OUT * (i + 1) + 1))


def chain(count):
    return lambda writer: many(writer, count, lambda i: (i + 1,))


def deflated(writer):
    maker = random.Random(200)
    pool = paragraphs(maker, 2_000)
    blocks = ["".join(maker.choices(pool, k=6_000)).encode()[:1_000_000] for _ in range(20)]
    writer.head(DEFAULTS, "word/document.bin")
    writer.add("word/document.bin", b"".join(blocks * 10))


def stored(writer):
    writer.head(DEFAULTS, "media/film.bin")
    maker = random.Random(64)
    writer.add("media/film.bin", b"".join(maker.randbytes(1 << 20) for _ in range(64)), stored=True)


PACKAGES = {f"tree-{count}": tree(count) for count in COUNTS}
PACKAGES |= {f"chain-{count}": chain(count) for count in COUNTS}
PACKAGES |= {"deflated-200m": deflated, "stored-64m": stored}


def make(folder, name):
    """The path of the package, made if need be."""
    path, stamp = folder / f"{name}.zip", folder / f"{name}.stamp"
    label = f"{VERSION} {zlib.ZLIB_RUNTIME_VERSION}"
    if path.exists() and stamp.exists() and stamp.read_text() == label:
        return path
    folder.mkdir(parents=True, exist_ok=True)
    part = path.with_suffix(".part")
    writer = Writer(part)
    PACKAGES[name](writer)
    writer.archive.close()
    part.rename(path)
    stamp.write_text(label)
    return path


if __name__ == "__main__":
    for wanted in sys.argv[2:] or PACKAGES:
        print(make(pathlib.Path(sys.argv[1]), wanted))
