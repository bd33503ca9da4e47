#!/usr/bin/env python3
"""The task with zipfile and ElementTree. The protocol is that of bench/drivers/Driver.h."""

import posixpath
import sys
import time
import zipfile
import zlib
from collections import deque
from xml.etree import ElementTree

TYPES = "{http://schemas.openxmlformats.org/package/2006/content-types}"
RELATIONSHIP = "{http://schemas.openxmlformats.org/package/2006/relationships}Relationship"


def read_content_types(archive):
    overrides, defaults = {}, {}
    for element in ElementTree.fromstring(archive.read("[Content_Types].xml")):
        if element.tag == TYPES + "Override":
            overrides[element.get("PartName").lstrip("/")] = element.get("ContentType")
        elif element.tag == TYPES + "Default":
            defaults[element.get("Extension")] = element.get("ContentType")
    return overrides, defaults


def resolved(source, target):
    return posixpath.normpath(posixpath.join("/" + posixpath.dirname(source), target)).lstrip("/")


def one_pass(file):
    held, relationships, seen, waiting = {}, 0, set(), deque([""])
    with zipfile.ZipFile(file) as archive:
        overrides, defaults = read_content_types(archive)
        while waiting:
            source = waiting.popleft()
            folder, name = posixpath.split(source)
            try:
                rels = archive.read(posixpath.join(folder, "_rels", name + ".rels"))
            except KeyError:
                continue
            for element in ElementTree.fromstring(rels):
                if element.tag != RELATIONSHIP:
                    continue
                relationships += 1
                if element.get("TargetMode") == "External":
                    continue
                part = resolved(source, element.get("Target"))
                if part in seen:
                    continue
                seen.add(part)
                try:
                    content = archive.read(part)
                except KeyError:
                    continue
                kind = overrides.get(part) or defaults.get(part.rpartition(".")[2])
                held[part] = kind, content
                waiting.append(part)
    return [content for kind, content in held.values()], relationships


def show(work, checking):
    held, relationships = work
    print(f"work parts={len(held)} bytes={sum(map(len, held))}"
          f" largest={max(map(len, held), default=0)} relationships={relationships}"
          f" checksum={sum(map(zlib.crc32, held)) if checking else 0}")


def main():
    file, repetitions = sys.argv[1], int(sys.argv[2])
    show(one_pass(file), repetitions != 0)
    if repetitions == 0:
        return
    warm = time.perf_counter() + (int(sys.argv[3]) / 1000 if len(sys.argv) > 3 else 0)
    while time.perf_counter() < warm:
        one_pass(file)
    for _ in range(repetitions):
        start, processor_start = time.perf_counter_ns(), time.process_time_ns()
        one_pass(file)
        processor_end, end = time.process_time_ns(), time.perf_counter_ns()
        print("ns", end - start, processor_end - processor_start)


main()
