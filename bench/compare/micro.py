"""What is measured in one process (Google Benchmark), and the inspector as a whole process."""

import json
import os
import pathlib
import subprocess
import zipfile

from measure import clock_of_children


UNITS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def run_benchmarks(program, effort, arguments=(), pattern="", environment=None):
    """CPU times in nanoseconds by the benchmark's name, one of each repetition; where a
    benchmark counts something per item, the time of an item."""
    command = [str(program), f"--benchmark_repetitions={effort.rounds}", "--benchmark_format=json",
               "--benchmark_enable_random_interleaving=true",
               f"--benchmark_min_time={effort.seconds_a_round / 2}", f"--benchmark_filter={pattern}",
               *map(str, arguments)]
    done = subprocess.run(command, capture_output=True, text=True, check=True,
                          env={**os.environ, **(environment or {})})
    times = {}
    for run in json.loads(done.stdout)["benchmarks"]:
        if run["run_type"] != "iteration" or run.get("error_occurred"):
            continue
        an_item = run.get("per_attribute", run.get("per_element"))
        time_ns = run["cpu_time"] * UNITS[run["time_unit"]] if an_item is None else an_item * 1e9
        times.setdefault(run["run_name"], []).append(time_ns)
    return times


VOCABULARY = [  # what, ours, the peer, what the peer is
    ("Initialize + Terminate", "FillAndClear", "FillAndClearPlain", "two plain maps"),
    ("look-up, hit", "LookUpInRegistry/hit", "LookUpInPlain/hit", "two plain maps"),
    ("look-up, unknown name", "LookUpInRegistry/unknown_name", "LookUpInPlain/unknown_name",
     "two plain maps"),
    ("look-up, unknown URI", "LookUpInRegistry/unknown_uri", "LookUpInPlain/unknown_uri",
     "two plain maps"),
    *((f"Transform of {count}, an attribute", f"TransformAndRelease/{count}",
       f"TransformAndReleasePlain/{count}", "the plain version") for count in (1, 3, 8, 40)),
    *((f"parse + Transform, {text} text, an attribute", f"ParseAndTransform/{text}", f"{peer}/{text}", title)
      for text in ("made", "real")
      for peer, title in (("ParseAlone", "Xerces-C++ parse alone"),
                          ("ParseAndTransformPlain", "Xerces-C++ with the plain version"),
                          ("ParseWithExpat", "Expat parse alone"))),
    ("builder, an element", "Paragraphs/build/1000", None, ""),
    ("release of a tree, an element", "Paragraphs/release/1000", None, ""),
]


def measure_vocabulary(build, work, effort, document):
    program = build / "bench" / "xmlfx" / "xmlfx_bench"
    environment = {}
    if document:
        real = work / "document.xml"
        real.write_bytes(document)
        environment["VEXPA_BENCH_DOCUMENT"] = str(real)
    return run_benchmarks(program, effort, environment=environment,
                          pattern="FillAndClear|LookUp|Transform|Parse|Paragraphs")


def largest_document_part(rows):
    """The bytes of the largest word/document.xml among the real documents."""
    largest = b""
    for row in rows:
        if row.group != "document":
            continue
        with zipfile.ZipFile(row.path) as archive:
            if "word/document.xml" in archive.namelist():
                largest = max(largest, archive.read("word/document.xml"), key=len)
    return largest


ENTRY_SIZE = 2_000  # as near as there is one: what is compared over archives is to be alike in them


def entry_to_extract(path):
    """A small entry from the middle half of the directory, of about the same size in all archives."""
    with zipfile.ZipFile(path) as archive:
        entries = archive.infolist()
    quarter = len(entries) // 4
    fit = [(abs(entry.file_size - ENTRY_SIZE), entry.filename)
           for entry in entries[quarter:len(entries) - quarter]
           if 200 <= entry.file_size <= 8_000 and not set(entry.filename) & set("[]*?\\")]
    return min(fit)[1] if fit else None


def measure_extraction(build, rows, effort):
    """{(what, row name): {peer: times}}; and the entries that were extracted."""
    program = build / "bench" / "extraction" / "extraction_bench"
    arguments, entries = [], {}
    for row in rows:
        entry = entry_to_extract(row.path)
        if entry is None:
            continue
        entries[row.name] = entry
        arguments += [row.name, row.path, entry]
    if not program.exists() or not arguments:
        return {}, {}
    measured = {}
    for name, times in run_benchmarks(program, effort, arguments).items():
        what, row, peer = name.split("/")
        measured.setdefault((what, row), {})[peer] = times
    return measured, entries


def measure_processes(commands, count, clock="wall"):
    """{name: times} of whole processes, in turns."""
    times = {name: [] for name in commands}
    for _ in range(count):
        for name, command in commands.items():
            start = clock_of_children(clock)
            subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
            times[name].append(clock_of_children(clock) - start)
    return times


def measure_tool(build, row, count):
    tool = build / "tool" / "vexpa"
    if not pathlib.Path(tool).exists():
        return {}
    return measure_processes({"vexpa tree": [str(tool), "tree", str(row.path)],
                              "unzip -l": ["unzip", "-l", str(row.path)],
                              "an empty process": ["/bin/true"]}, count)


def measure_unzip(rows, entries, count):
    """What `unzip -p` adds to a process of it that does nothing; a stand-in for its engine."""
    added = {}
    for row in rows:
        if row.name not in entries:
            continue
        times = measure_processes({"with": ["unzip", "-p", str(row.path), entries[row.name]],
                                   "without": ["unzip", "-v"]}, count, "cpu")
        added[row.name] = [a - b for a, b in zip(times["with"], times["without"])]
    return added
