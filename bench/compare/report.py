"""Writes the findings down: performance.md and its charts."""

import pathlib
import statistics

import charts
from figures import LIMIT, LIMITS, MIB, OURS, geometric_mean, ratio, ratio_of_times, spread
from goals import all_goals
from micro import VOCABULARY

HOW = """## How to run it

    bench/compare.sh                          # everything, 35 minutes on two cores
    bench/compare.sh --quick                  # a rough look, a few minutes
    bench/compare.sh --rows 'tree-*,*docx' --drivers vexpa,limit,libgsf
    bench/compare.sh --render FILE            # this text again, from kept findings

It installs the peers (`bench/peers.txt`), builds everything into `build/bench`, makes the packages
it reads, and takes real documents from where the tests look for them. Only a whole run writes
this file; any other one writes to `build/bench/report`.
"""

TASK = """The task is the same for all: open the package, walk every relationship, read every part's bytes,
hold them until the end. Each driver (`bench/drivers/`) runs it again and again in one process; the
drivers take turns, to and fro, and a ratio is taken within a round. Shown are medians, and the
quartiles of the ratios in brackets (of fewer than four rounds the extremes); a median ratio need not
be the ratio of the two medians. Before the timing each driver reports what it read, as counts and
checksums; where a peer reads something else it says so below.

The limit maps or reads the file, goes through its directory once, inflates every entry with
libdeflate, checks the CRC and copies the bytes once, with the memory of the pass before or with
fresh huge pages, whichever is faster for the row. It parses nothing.
"""


READING = """libgsf checks no CRC and does not read the content types; it is given a file that it reads, for over
a mapped one it hands out stored entries unread. KArchive refuses zip64 archives: it fails where
there are more than 65,535 entries. POI parses the core properties and hands out no bytes of them: a
part less. The limit inflates also what no relationship leads to. Other counts than ours:
"""


WHY = """What stands in the way of those that are not met:

- *Small documents, and documents of many parts*: for each part there are names to parse and resolve,
  types, indexes, a call that looks whether the file has changed, and two copies. Of all instructions
  for the smallest workbook, as callgrind counts its driver's, a third are spent in Expat and what it
  calls, three in ten in libdeflate. The limit has only the latter, and the fastest peer has Expat, too,
  for the same relationships. What is left to this library is about as much as Expat takes.
- *10,000 parts and more*: besides, the objects no longer fit the processor's caches, so the time for a
  part grows. A part name is a record of 296 bytes by the binary interface, and each part of a chain has
  four of them: its own, and source, target and resolved target of its relationship. Those are 1.2 KB of
  the 3.4 KB that it takes; their texts, the part and its relationship, and the name of its entry in
  four tables are the rest.
- *One large part*: its bytes are copied once, from where they were unpacked to the block that its
  stream reads, and the reader copies them again. The limit copies once. Of the time for the part of
  200 MB, as perf samples it, a third is the system's, which clears the pages of both blocks; libdeflate
  takes a third and the copies a quarter. It weighs most where there is nothing to inflate: in the
  stored part, and in the largest pptx, which is stored pictures for the most part.
"""


def time_text(ns):
    if ns <= 0:
        return "lost in noise"
    for limit, unit, name in ((1e3, 1, "ns"), (1e6, 1e3, "µs"), (1e9, 1e6, "ms"), (float("inf"), 1e9, "s")):
        if ns < limit:
            value = ns / unit
            return f"{value:.0f} {name}" if value >= 100 else f"{value:.3g} {name}"


def ratio_text(values):
    middle, low, high = values
    return f"{middle:.2f} ({low:.2f}-{high:.2f})"


def table(head, rows):
    lines = ["| " + " | ".join(map(str, row)) + " |" for row in (head, ["---"] * len(head), *rows)]
    return "\n".join([*lines, ""])


def titles_of(findings, cold):
    """{driver: title} of those that appear in the rows."""
    found = {}
    for row in findings.rows:
        found.update({name: cell.title for name, cell in row.cells.items() if cell.cold == cold})
    return found


def cell_text(row, name):
    cell = row.cells.get(name)
    if cell is None:
        return ""
    return time_text(cell.median) if cell.rounds else cell.trouble


def times_table(findings):
    titles = titles_of(findings, cold=False)
    rows = [[row.name, pathlib.Path(row.path).name, f"{row.parts:,}", f"{row.size / 1e6:.3g}",
             *(cell_text(row, name) for name in titles)] for row in findings.rows]
    return table(["work", "file", "parts", "MB", *titles.values()], rows)


def ratios_table(findings):
    names = [name for name in titles_of(findings, cold=False) if name not in (OURS, *LIMITS)]
    titles = titles_of(findings, cold=False)
    rows = []
    for row in findings.rows:
        ours = row.measured(OURS)
        if ours is None:
            continue
        others = [row.limit, *map(row.measured, names)]
        rows.append([row.name, *(ratio_text(ratio(ours, other)) if other else "" for other in others)])
    return table(["this library's time, divided by that of", "the limit", *(titles[n] for n in names)], rows)


def cold_table(findings):
    titles = titles_of(findings, cold=True)
    rows = [[row.name, *(cell_text(row, name) for name in titles)] for row in findings.rows
            if any(row.measured(name) for name in titles)]
    return table(["work", *titles.values()], rows)


def extraction_table(findings):
    found = {peer for kinds in findings.extraction.values() for times in kinds.values() for peer in times}
    peers = [OURS, *sorted(found - {OURS})]
    entries = {row.name: row.entries for row in findings.rows}
    rows = [[row, f"{entries.get(row, 0):,}", what,
             *(time_text(statistics.median(times[peer])) if peer in times else "" for peer in peers)]
            for row, kinds in findings.extraction.items() for what, times in sorted(kinds.items())]
    return table(["archive", "entries", "name", *peers], rows)


def vocabulary_table(findings):
    rows = []
    for what, ours, peer, title in VOCABULARY:
        times, others = findings.vocabulary.get(ours), findings.vocabulary.get(peer)
        if not times:
            continue
        beside = [time_text(statistics.median(others)), ratio_text(ratio_of_times(times, others))] if others \
            else ["", ""]
        rows.append([what, time_text(statistics.median(times)), title if others else "", *beside])
    return table(["what", "this library", "beside", "its time", "ratio"], rows)


def tool_table(findings):
    return table(["process", "median", "quartiles"],
                 [[name, time_text(statistics.median(times)), " - ".join(map(time_text, spread(times)))]
                  for name, times in findings.tool.items()])


def memory_table(findings):
    rows = [[entry["row"], f"{entry['parts']:,}", *(f"{entry[key] / MIB:.1f}" for key in
             ("walk", "bound", "held", "held_bound"))] for entry in findings.memory]
    return table(["work", "parts", "walk, MiB", "allowed", "all bytes held, MiB", "allowed"], rows)


def differences(findings):
    """A line for each peer whose work was not ours in some rows."""
    others = {}
    for row in findings.rows:
        ours = row.measured(OURS)
        for cell in row.cells.values():
            if ours is None or cell.cold or not cell.work:
                continue
            if any(cell.work[key] != ours.work[key] for key in ("parts", "bytes", "checksum")):
                others.setdefault(cell.title, []).append(
                    f"{row.name} ({cell.work['parts'] - ours.work['parts']:+,} parts, "
                    f"{cell.work['bytes'] - ours.work['bytes']:+,} bytes)")
    lines = [f"- {title}: {', '.join(rows)}" for title, rows in others.items()]
    return "\n".join([READING, *(lines or ["Nothing else."]), ""])


def passes_table(findings):
    titles = {**titles_of(findings, cold=False), **titles_of(findings, cold=True)}
    rows = [[row.name, *(len(row.cells[name].samples) if name in row.cells else "" for name in titles)]
            for row in findings.rows]
    return table(["timed passes", *titles.values()], rows)


def draw(findings, folder):
    """Writes the charts and answers their file names with a caption."""
    folder.mkdir(parents=True, exist_ok=True)
    titles = {**titles_of(findings, cold=False), OURS: "this library", LIMIT: "the limit"}
    drawn = []
    for shape in ("tree", "chain"):
        series = {}
        for row in findings.rows_of(shape):
            cells = {LIMIT: row.limit, OURS: row.measured(OURS), **row.peers}
            for name, cell in cells.items():
                if cell is not None:
                    series.setdefault(name, []).append((row.parts, cell.median))
        if any(len(line) > 1 for line in series.values()):
            text = charts.log_log(f"A {shape} of parts: open, walk, read all", series, titles)
            (folder / f"{shape}.svg").write_text(text)
            drawn.append((f"{shape}.svg", f"time against the number of parts, {shape}"))
    groups = {}
    for title, kinds in (("real documents", ("document",)), ("100 to 50,000 parts", ("tree", "chain")),
                         ("one large part", ("large",))):
        measured = {}
        for row in findings.rows_of(*kinds):
            if row.measured(OURS):
                for name, cell in {LIMIT: row.limit, **row.peers}.items():
                    if cell is not None:
                        measured.setdefault(name, []).append(1 / ratio(row.cells[OURS], cell)[0])
        if measured:
            groups[title] = {OURS: 1.0, **{name: geometric_mean(v) for name, v in measured.items()}}
    if groups:
        text = charts.bars("Time as a multiple of this library's (geometric mean)", groups, titles)
        (folder / "peers.svg").write_text(text)
        drawn.append(("peers.svg", "time of each peer as a multiple of this library's"))
    return drawn


def write(findings, folder):
    """performance.md in the folder, its charts in performance/ beside it."""
    drawn = draw(findings, folder / "performance")
    machine = "\n".join(f"- {key}: {value}" for key, value in findings.machine.items())
    pictures = "\n\n".join(f"![{caption}](performance/{name})" for name, caption in drawn)
    sections = [
        "# Performance\n", TASK, "Measured on:\n\n" + machine + "\n",
        "## Goals\n", table(["goal", "allowed", "figure (worst row)", "verdict"], all_goals(findings)), WHY,
        "## Against peers and the limit\n", pictures + "\n", ratios_table(findings), times_table(findings)]
    optional = [
        ("## Whole processes\n", cold_table, any(titles_of(findings, cold=True))),
        ("## One extraction by name\n\nFrom the path of an archive to the bytes of an entry, nothing kept by "
         "the caller. There is no\nlibrary of the Info-ZIP engine in Debian; `unzip -p` is the time of its "
         "process less that of one\nthat only prints its version. CPU time.\n",
         extraction_table, findings.extraction),
        ("## Vocabulary\n\nCPU time.\n", vocabulary_table, findings.vocabulary),
        ("## The inspector\n\nOf the smallest document, process start included.\n", tool_table, findings.tool),
        ("## Memory\n\nPeak resident size of the process. Allowed: twice the largest part, 16 MiB, 1.5 KB "
         "for each part;\nwhere all bytes are held, those come in place of the largest part once.\n",
         memory_table, findings.memory)]
    for head, make, wanted in optional:
        if wanted:
            sections += [head, make(findings)]
    sections += ["## What peers read differently\n", differences(findings),
                 "## How often\n", passes_table(findings), HOW]
    (folder / "performance.md").write_text("\n".join(sections))
