"""What a comparison found, as it is kept in a file, and the statistics over it."""

import dataclasses
import json
import math
import pathlib
import statistics

OURS, LIMIT, PYTHON = "vexpa", "limit", "zipfile"
LIMITS = ("limit-warm", "limit-fresh")
MIB = 1024 * 1024


@dataclasses.dataclass
class Cell:
    """What one driver made of one row."""
    title: str
    cold: bool = False  # of whole processes
    work: dict = dataclasses.field(default_factory=dict)
    rounds: list = dataclasses.field(default_factory=list)  # of lists of nanoseconds
    trouble: str = ""
    repetitions: int = 1

    @property
    def samples(self):
        return [sample for times in self.rounds for sample in times]

    @property
    def is_timed(self):
        """Not where the clock, like the processor time of some machines, is too coarse."""
        return bool(self.rounds) and all(statistics.median(times) > 0 for times in self.rounds)

    @property
    def median(self):
        return statistics.median(self.samples)


@dataclasses.dataclass
class Row:
    """One package, and what the drivers made of it."""
    name: str
    group: str  # document, tree, chain or large
    path: str
    entries: int
    size: int  # unpacked
    largest: int
    cells: dict = dataclasses.field(default_factory=dict)

    @property
    def is_many(self):
        return self.group in ("tree", "chain")

    @property
    def parts(self):
        return self.cells[OURS].work.get("parts", 0) if OURS in self.cells else 0

    def measured(self, name):
        cell = self.cells.get(name)
        return cell if cell is not None and cell.is_timed else None

    @property
    def limit(self):
        """The better of the two ways to have memory."""
        cells = [cell for cell in map(self.measured, LIMITS) if cell]
        return min(cells, key=lambda cell: cell.median, default=None)

    @property
    def peers(self):
        return {name: cell for name, cell in self.cells.items()
                if name not in (OURS, *LIMITS) and not cell.cold and cell.is_timed}

    @property
    def fastest_peer(self):
        return min(self.peers.items(), key=lambda item: item[1].median, default=(None, None))


@dataclasses.dataclass
class Findings:
    machine: dict
    rows: list
    vocabulary: dict  # benchmark: times
    extraction: dict  # row: {what: {peer: times}}
    tool: dict  # process: times
    memory: list  # of dicts

    def save(self, path):
        pathlib.Path(path).write_text(json.dumps(dataclasses.asdict(self)))

    @staticmethod
    def load(path):
        findings = Findings(**json.loads(pathlib.Path(path).read_text()))
        findings.rows = [Row(**{**row, "cells": {name: Cell(**cell) for name, cell in row["cells"].items()}})
                         for row in findings.rows]
        return findings

    def rows_of(self, *groups):
        return [row for row in self.rows if row.group in groups]


def spread(values):
    """The quartiles; of few values the extremes."""
    if len(values) < 4:
        return min(values), max(values)
    low, _, high = statistics.quantiles(values, n=4, method="inclusive")
    return low, high


def ratio(cell, other):
    """(median, low, high) of what was measured in the same rounds, one divided by the other."""
    ratios = [statistics.median(a) / statistics.median(b) for a, b in zip(cell.rounds, other.rounds)]
    return (statistics.median(ratios), *spread(ratios))


def ratio_of_times(times, others):
    """The same for two lists whose values were taken in turns."""
    return ratio(Cell("", rounds=[[t] for t in times]), Cell("", rounds=[[t] for t in others]))


def geometric_mean(values):
    values = list(values)
    return math.exp(sum(map(math.log, values)) / len(values)) if values else None
