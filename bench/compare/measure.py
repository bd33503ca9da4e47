"""Runs drivers in turns and keeps every time that they report."""

import dataclasses
import os
import resource
import subprocess
import sys
import time

from figures import Cell


@dataclasses.dataclass
class Effort:
    clock: str  # wall, or cpu: what a busy machine disturbs less
    rounds: int
    seconds_a_round: float  # of timed passes, for one driver
    cut_off: float  # seconds; a driver whose first pass takes longer is left out
    most_seconds: float  # a driver's share of a row; a slow one gets fewer rounds
    most_repetitions: int = 300


FULL = Effort(clock="wall", rounds=7, seconds_a_round=0.25, cut_off=10, most_seconds=20)
QUICK = Effort(clock="cpu", rounds=3, seconds_a_round=0.1, cut_off=10, most_seconds=10)


def parse(output, clock="wall"):
    """What a driver prints: its counts and peak of memory, and its times in nanoseconds."""
    work, times = {}, []
    for line in output.splitlines():
        if line.startswith("work "):
            work = {key: int(value) for key, value in (word.split("=") for word in line.split()[1:])}
        elif line.startswith("peak "):
            work["peak"] = int(line.split()[1])
        elif line.startswith("ns "):
            times.append(int(line.split()[1 if clock == "wall" else 2]))
    return work, times


def run(driver, row, repetitions, warm_ms, clock, timeout=None):
    command = [*driver.command, str(row.path), str(repetitions), str(warm_ms)]
    done = subprocess.run(command, capture_output=True, text=True, timeout=timeout, check=True)
    return parse(done.stdout, clock)


def clock_of_children(clock):
    if clock == "wall":
        return time.perf_counter_ns()
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return int((usage.ru_utime + usage.ru_stime) * 1e9)


def time_process(driver, row, clock, timeout=None):
    start = clock_of_children(clock)
    work, _ = run(driver, row, 0, 0, clock, timeout)
    return work, [clock_of_children(clock) - start]


def calibrate(cell, driver, row, effort):
    """One run that tells what the driver does; answers how many rounds it can be asked for."""
    start = time.perf_counter()
    try:
        if driver.cold:
            cell.work, times = time_process(driver, row, effort.clock, effort.cut_off)
        else:
            cell.work, times = run(driver, row, 1, 0, effort.clock, 2 * effort.cut_off)
    except subprocess.TimeoutExpired:
        cell.trouble = f"over {effort.cut_off:.0f} s"
        return 0
    except subprocess.CalledProcessError as error:
        cell.trouble = "failed"
        print(f"{driver.name}: {row.name}: {error.stderr.strip()[-300:]}", file=sys.stderr)
        return 0
    process = time.perf_counter() - start
    one = max(times[0] / 1e9, 1e-6)
    if not driver.cold:
        cell.repetitions = max(1, min(effort.most_repetitions, int(effort.seconds_a_round / one)))
    a_round = process + (0 if driver.cold else driver.warm_ms / 1000 + (cell.repetitions - 1) * one)
    return max(1, min(effort.rounds, int(effort.most_seconds / a_round)))


def measure_row(row, drivers, effort, left_out):
    """Cells by driver name; those of the drivers left out stay empty. Rounds go through all drivers,
    to and fro, so that what slows the machine for a while slows all of them."""
    cells, rounds = {}, {}
    for driver in drivers:
        cell = cells[driver.name] = Cell(driver.title, driver.cold)
        if driver.name in left_out:
            cell.trouble = "not tried"
        rounds[driver.name] = 0 if cell.trouble else calibrate(cell, driver, row, effort)
    for number in range(effort.rounds):
        for driver in reversed(drivers) if number % 2 else drivers:
            if number >= rounds[driver.name]:
                continue
            cell = cells[driver.name]
            if driver.cold:
                _, times = time_process(driver, row, effort.clock)
            else:
                _, times = run(driver, row, cell.repetitions, driver.warm_ms, effort.clock)
            cell.rounds.append(times)
    return cells


def let_settle(paths):
    """A file changed a moment ago may not be remembered between calls, as it may change again
    within the same tick of its time stamp."""
    youngest = max((os.stat(path).st_ctime for path in paths), default=0)
    wait = youngest + 4 - time.time()
    if wait > 0:
        time.sleep(wait)
