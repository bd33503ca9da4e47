#!/usr/bin/env python3
"""Compares `vexpa dump` with a second reading of the same packages.

    independent_model.py TOOL PATH...     a PATH is a file, or a folder with files;
                                          corpus:good is a folder of the corpus

The model below reads packages with Python's zlib and expat and shares nothing with the
library but its table of relationship types. Every difference is printed; status 1 when
there is one, 77 when no PATH exists.
"""

import csv
import hashlib
import json
import os
import pathlib
import re
import struct
import subprocess
import sys
import xml.parsers.expat
import zlib

SOURCE = pathlib.Path(__file__).resolve().parents[2]
TYPES = SOURCE / "vexpa" / "opc" / "relationship-types.tsv"
THUMBNAIL, CUSTOM_PROPERTIES = 34, 33
SEPARATORS = "/\\"


def units(text):
    """UTF-16 as text of single units: what orders names and counts their length."""
    return text.encode("utf-16-be", "surrogatepass")


def unit_count(text):
    return len(units(text)) // 2


class Failure(Exception):
    """Something that the reader of a package does not get."""


# ---------------------------------------------------------------------------------------
# The container


class Entry:
    """One header of the directory (APPNOTE 4.3.12)."""

    def __init__(self, data, at):
        if data[at:at + 4] != b"PK\1\2" or at + 46 > len(data):
            raise Failure("no header")
        (host, self.flags, self.method, self.crc, self.packed_size, self.size, name_size, extra_size,
         comment_size, self.disk, self.offset) = struct.unpack(
             "<5xB2xHH4xIIIHHHH6xI", data[at:at + 46])
        name_end = at + 46 + name_size
        self.end = name_end + extra_size + comment_size
        if self.end > len(data):
            raise Failure("cut off")
        self.read_zip64(data[name_end:name_end + extra_size])
        self.name = entry_name(data[at + 46:name_end], host)

    def read_zip64(self, extra):
        """Only what the header leaves at all ones stands there (APPNOTE 4.5.3)."""
        while len(extra) >= 4:
            kind, size = struct.unpack("<HH", extra[:4])
            if kind == 1 and size <= len(extra) - 4:
                wide = extra[4:4 + size]
                for field in ("size", "packed_size", "offset"):
                    if getattr(self, field) == 0xFFFFFFFF and len(wide) >= 8:
                        setattr(self, field, struct.unpack("<Q", wide[:8])[0])
                        wide = wide[8:]
                if self.disk == 0xFFFF and len(wide) >= 4:
                    self.disk = struct.unpack("<I", wide[:4])[0]
                return
            extra = extra[4 + size:]


def entry_name(raw, host):
    """UTF-8 wherever it is UTF-8, flagged or not."""
    try:
        name = raw.decode("utf-8")
    except UnicodeDecodeError:
        name = raw.decode("cp437")
    if host in (0, 10, 11, 14) and "/" not in name:
        name = name.replace("\\", "/")
    return name.replace("\0", "\ufffd")


def read_headers(data, start):
    entries = []
    while start < len(data) and data[start:start + 4] == b"PK\1\2":
        entries.append(Entry(data, start))
        start = entries[-1].end
    return entries, start


def read_directory(data, end):
    """The entries, and how far their offsets are off, by the end record at `end`."""
    disk, count, size, offset = struct.unpack("<4xH4xHII2x", data[end:end + 22])
    locator = data[end - 20:end] if end >= 20 else b""
    if locator[:4] == b"PK\6\7":
        for at in (end - 76, struct.unpack("<8xQ4x", locator)[0]):
            if 0 <= at <= end - 76 and data[at:at + 4] == b"PK\6\6":
                wide = struct.unpack("<16xI12xQQQ", data[at:at + 56])
                disk = wide[0] if disk == 0xFFFF else disk
                count = wide[1] if count == 0xFFFF else count
                size = wide[2] if size == 0xFFFFFFFF else size
                offset = wide[3] if offset == 0xFFFFFFFF else offset
                end = at
                break
    try:
        entries, reached = read_headers(data[:end], end - size if size <= end else end)
        if reached == end and (entries or count == 0):
            return entries, end - size - offset, disk
    except Failure:
        pass
    # With a size that misleads, a directory counts that begins where the record says and
    # has as many entries.
    entries, _ = read_headers(data[:end], offset)
    if offset > end or count not in (len(entries), len(entries) & 0xFFFF):
        raise Failure("damaged directory")
    return entries, 0, disk


class Archive:
    def __init__(self, path):
        self.data = path.read_bytes()
        self.shift = self.disk = 0
        self.entries = {}
        if self.data.startswith(bytes.fromhex("D0CF11E0A1B11AE1")):
            return
        end = len(self.data)
        while (end := self.data.rfind(b"PK\5\6", max(0, len(self.data) - 65557), end)) >= 0:
            try:
                entries, self.shift, self.disk = read_directory(self.data, end)
            except (Failure, struct.error):
                continue
            for entry in entries:
                self.entries.setdefault(entry.name, entry)
            return

    def __contains__(self, name):
        return name in self.entries

    def read(self, request):
        """The bytes of the entry of this name, or else of the first that it matches."""
        entry = self.entries.get(request)
        if entry is None and re.search(r"[*?\[\\]", request):
            pattern = compiled_pattern(request)
            entry = next((self.entries[name] for name in self.entries if pattern.fullmatch(name)), None)
        if entry is None:
            raise Failure("no entry")
        return self.extract(entry)

    def extract(self, entry):
        if entry.flags & 1 or entry.disk != self.disk or entry.size > 1032 * entry.packed_size + 65536:
            raise Failure("encrypted, elsewhere, or impossibly small")
        at = entry.offset + self.shift
        if at < 0 or self.data[at:at + 4] != b"PK\3\4" or at + 30 > len(self.data):
            raise Failure("no local header")
        start = at + 30 + sum(struct.unpack("<26xHH", self.data[at:at + 30]))
        packed = self.data[start:start + entry.packed_size]
        if len(packed) < entry.packed_size:
            raise Failure("runs out of the file")
        content = self.unpack(entry, packed)
        if len(content) != entry.size or zlib.crc32(content) != entry.crc:
            raise Failure("size or check sum")
        return content

    @staticmethod
    def unpack(entry, packed):
        if entry.method == 0:
            return packed
        if entry.method != 8:
            raise Failure("method")
        if not packed and entry.size == 0:
            return b""
        inflater = zlib.decompressobj(-15)
        try:
            content = inflater.decompress(packed, entry.size + 1)
            content += inflater.flush()
        except zlib.error as error:
            raise Failure(str(error)) from error
        if not inflater.eof:
            raise Failure("cut off")
        return content


def compiled_pattern(request):
    """An Info-ZIP pattern as a regular expression."""
    expression, at = "", 0
    while at < len(request):
        one = request[at]
        if one == "*":
            expression += ".*"
        elif one == "?":
            expression += "."
        elif one == "\\" and at + 1 < len(request):
            at += 1
            expression += re.escape(request[at])
        elif one == "[" and "]" in request[at + 1:]:
            end = request.index("]", at + 1)
            body = request[at + 1:end]
            negated = body[:1] in ("!", "^")
            body = re.sub(r"([\\\[\]^&~|])", r"\\\1", body[1:] if negated else body)
            expression += f"[{'^' if negated else ''}{body}]" if body else ("." if negated else "(?!)")
            at = end
        elif one in "[\\":
            return re.compile("(?!)")
        else:
            expression += re.escape(one)
        at += 1
    return re.compile(expression, re.DOTALL)


# ---------------------------------------------------------------------------------------
# XML


def elements(document):
    """(local name, attributes) of every element, in document order."""
    found = []
    parser = xml.parsers.expat.ParserCreate()
    parser.StartElementHandler = lambda name, attributes: found.append(
        (name.split(":", 1)[-1], attributes))
    try:
        parser.Parse(document, True)
    except (xml.parsers.expat.ExpatError, LookupError, ValueError) as error:
        raise Failure(str(error)) from error
    return found


# ---------------------------------------------------------------------------------------
# Names, types and targets


def key_of(name):
    return name[1:] if name[:1] in ("/", "\\") else name


def read_types():
    with TYPES.open(encoding="utf-8", newline="") as source:
        rows = list(csv.DictReader(source, delimiter="\t", quoting=csv.QUOTE_NONE))
    names = {int(row["id"]): row["enumerator"] for row in rows}
    ids = {row["uri"]: int(row["id"]) for row in rows}
    # A thumbnail answers as custom properties.
    ids = {uri: CUSTOM_PROPERTIES if number == THUMBNAIL else number for uri, number in ids.items()}
    return ids, names


TYPE_IDS, TYPE_NAMES = read_types()

# What the C library takes for white space: the breaking kinds.
WHITE_SPACE = set("\t\n\v\f\r \u1680\u2028\u2029\u205f\u3000") | {
    chr(code) for code in range(0x2000, 0x200B) if code != 0x2007}


def folded(type_uri):
    result = ""
    for one in type_uri.lstrip("\t\n\r "):
        if one in WHITE_SPACE:
            break
        # The C library maps to one character: to i for the dotted capital I.
        result += "/" if one == "\\" else one.lower()[0]
    return result


def directory_of(name):
    return name[:max(name.rfind("/"), name.rfind("\\")) + 1]


def is_absolute(target):
    if ":" not in target:
        return False
    separator = "/" if "/" in target else "\\"
    return separator not in target or target.index(":") < target.index(separator)


def climbed(directory, steps):
    """Searches backwards `steps` times, literally; see the two odd cases."""
    cut, bound = 0, len(directory)
    for _ in range(steps):
        found = max(directory.rfind("/", 0, bound), directory.rfind("\\", 0, bound))
        if found < 0:
            break
        cut = found
        bound = found if found > 0 else len(directory)
    return directory[:cut]


def resolved(source, target):
    if not source:
        return target
    if target.startswith("/"):
        return target[1:]
    if is_absolute(target):
        return target
    directory = directory_of(source)
    if unit_count(directory) >= 4096:
        directory = ""
    if directory[-1:] in ("/", "\\"):
        directory = directory[:-1]
    steps = [match.end() for match in re.finditer(r"\.\.", target)]
    if steps:
        result = climbed(directory, len(steps)) + target[steps[-1]:]
    else:
        result = directory + "/" + target
    return result[1:] if result[:1] in ("/", "\\") else result


def relationship_entry(name):
    directory = directory_of(name)
    file_name = name[len(directory):]
    dot = file_name.rfind(".") if "." in file_name else len(file_name)
    entry = directory.replace("\\", "/") + "_rels/" + file_name + ".rels"
    if (unit_count(directory) >= 12288 or unit_count(file_name[:dot]) >= 12288
            or unit_count(file_name[dot:]) >= 768 or unit_count(entry) >= 12288):
        return None
    return key_of(entry).replace("\\", "/")


# ---------------------------------------------------------------------------------------
# The package


class Relationship:
    def __init__(self, attributes, source):
        self.id = attributes.get("Id", "")
        self.type = attributes.get("Type", "")
        self.target = attributes.get("Target", "")
        self.source = source
        self.external = attributes.get("TargetMode", "").lower() == "external"
        self.resolved = resolved(source, self.target)


def read_relationships(document, source):
    """In document order; an element without attributes is none."""
    return [Relationship(attributes, source) for name, attributes in elements(document)
            if name == "Relationship" and attributes]


def by_id(relationships):
    first = {}
    for one in relationships:
        first.setdefault(one.id, one)
    return [first[key] for key in sorted(first, key=units)]


class Part:
    def __init__(self, package, name):
        self.name = name
        self.entry = key_of(name).replace("\\", "/")
        self.content_type = package.content_type(key_of(name))
        self.relationships = []
        entry = relationship_entry(name)
        if entry is None:
            return
        try:
            self.relationships = by_id(read_relationships(package.archive.read(entry), name))
        except Failure:
            pass


class Package:
    """Raises Failure for a package that does not open."""

    def __init__(self, path):
        self.archive = Archive(path)
        self.parts = {}
        self.read_content_types(self.archive.read(r"\[Content_Types\].xml"))
        relationships = read_relationships(self.archive.read("_rels/.rels"), "")
        last = True
        for one in relationships:
            last = self.part(one.target) is not None
        if not last:
            raise Failure("the last relationship has no part")
        self.relationships = by_id(relationships)

    def read_content_types(self, document):
        self.overrides, self.defaults = {}, {}
        for name, attributes in elements(document):
            content_type = attributes.get("ContentType")
            if content_type is None:
                continue
            if name == "Override" and "PartName" in attributes:
                self.overrides.setdefault(key_of(attributes["PartName"]), content_type)
            if name == "Default" and "Extension" in attributes:
                self.defaults.setdefault(attributes["Extension"], content_type)

    def content_type(self, key):
        if key in self.overrides:
            return self.overrides[key]
        return self.defaults.get(key.rpartition(".")[2], "")

    def part(self, name):
        key = key_of(name)
        if key not in self.parts:
            if key.replace("\\", "/") not in self.archive:
                return None
            self.parts[key] = Part(self, name)
        return self.parts[key]

    def target(self, relationship):
        return None if relationship.external else self.part(relationship.resolved)


# ---------------------------------------------------------------------------------------
# The dump


def dump_relationship(package, one):
    number = TYPE_IDS.get(folded(one.type), -1)
    part = package.target(one)
    return {"id": one.id, "type": one.type, "type_id": number,
            "type_name": TYPE_NAMES.get(number, "RelTypeUnknown"),
            "target_mode": "external" if one.external else "internal",
            "source": one.source, "target": one.target, "resolved_target": one.resolved,
            "part": part.name if part else None}


def dump_part(package, part):
    size = digest = None
    try:
        content = package.archive.read(part.entry)
        size, digest = len(content), hashlib.sha256(content).hexdigest()
    except Failure:
        pass
    return {"name": part.name, "content_type": part.content_type, "size": size, "sha256": digest,
            "relationships": [dump_relationship(package, one) for one in part.relationships]}


def dump(path, given):
    try:
        package = Package(path)
    except Failure:
        return {"package": given, "opened": False, "status": 3, "relationships": [], "parts": []}
    reached = []
    sources = [package]
    for source in sources:
        for one in source.relationships:
            part = package.target(one)
            if part is not None and part not in reached:
                reached.append(part)
                sources.append(part)
    return {"package": given, "opened": True, "status": 0,
            "relationships": [dump_relationship(package, one) for one in package.relationships],
            "parts": [dump_part(package, part) for part in reached]}


# ---------------------------------------------------------------------------------------
# The comparison


BATCH = 100  # starting the tool takes longer than a dump


def printed_by(tool, files):
    """For each of the files the object that the tool prints, or in words what is wrong with it."""
    run = subprocess.run([tool, "dump", *map(str, files)], capture_output=True, timeout=600, check=False)
    text = run.stdout.decode("utf-8", errors="replace")
    try:
        # Dictionaries keep the order of the keys, so that it is compared, too.
        objects = [json.loads(one) for one in (text.splitlines() if len(files) > 1 else [text])]
    except ValueError as error:
        objects = [f"no JSON (status {run.returncode}): {error}"]
    if len(files) == 1:
        right = not isinstance(objects[0], dict) or run.returncode == objects[0]["status"]
        return objects if right else [f"status {run.returncode}, not {objects[0]['status']}"]
    if len(objects) == len(files) and run.returncode == max(one["status"] for one in objects):
        return objects
    return [printed_by(tool, [file])[0] for file in files]


def compare(printed, path):
    """The differences, as text; empty when there are none."""
    if not isinstance(printed, dict):
        return printed
    expected = json.dumps(dump(path, str(path)), indent=1, ensure_ascii=False)
    # Why a file does not open is the tool's own conclusion.
    if (printed.pop("error") is None) != printed["opened"]:
        return "an error of a package that opens, or none of one that does not"
    actual = json.dumps(printed, indent=1, ensure_ascii=False)
    if actual == expected:
        return ""
    pairs = zip(expected.splitlines() + ["(end)"], actual.splitlines() + ["(end)"])
    return "".join(f"\n    model {want}\n    tool  {got}" for want, got in
                   [pair for pair in pairs if pair[0] != pair[1]][:4])


def place(path):
    """The corpus lies beside the sources unless VEXPA_CORPUS names another place."""
    if not path.startswith("corpus:"):
        return pathlib.Path(path)
    given = os.environ.get("VEXPA_CORPUS")
    corpus = pathlib.Path(given) if given else SOURCE.parent / "shared" / "corpus"
    return corpus / path.removeprefix("corpus:")


def main(arguments):
    tool, *paths = arguments
    files = []
    for path in map(place, paths):
        if not path.exists():
            print(f"skipped: {path} is not there")
        files += sorted(one for one in path.rglob("*") if one.is_file()) if path.is_dir() else (
            [path] if path.is_file() else [])
    if not files:
        return 77
    different = 0
    for start in range(0, len(files), BATCH):
        batch = files[start:start + BATCH]
        for path, printed in zip(batch, printed_by(tool, batch)):
            if difference := compare(printed, path):
                different += 1
                print(f"{path}: {difference}")
    print(f"{len(files)} files, {different} different")
    return 1 if different else 0


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1:]))
