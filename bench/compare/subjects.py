"""What is compared: the drivers, and the packages that they read."""

import dataclasses
import fnmatch
import pathlib
import sys

BENCH = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(BENCH / "work"))

import choose_documents  # noqa: E402
import make_packages  # noqa: E402
from figures import OURS, PYTHON, Row  # noqa: E402


@dataclasses.dataclass
class Driver:
    name: str
    title: str
    command: list
    warm_ms: int = 30  # untimed passes before the timed ones
    cold: bool = False  # the whole process is timed, from outside


def drivers(build):
    """Those that are built here."""
    folder = build / "bench" / "drivers"
    class_path = folder / "poi.classpath"
    poi = ["java", "-Xmx4g", "-cp", class_path.read_text() if class_path.exists() else "", "PoiDriver"]
    packaging = ["mono", str(folder / "PackagingDriver.exe")]
    python = [sys.executable, str(BENCH / "drivers" / "zipfile_driver.py")]
    native = {OURS: "this library", "libgsf": "libgsf", "libzip": "libzip + Expat",
              "minizip": "minizip + Expat", "karchive": "KArchive + Qt XML"}
    known = [Driver("limit-warm", "limit, warm memory", [str(folder / "limit")]),
             Driver("limit-fresh", "limit, fresh memory", [str(folder / "limit"), "--fresh"])]
    known += [Driver(name, title, [str(folder / name)]) for name, title in native.items()]
    known += [
        Driver(PYTHON, "Python zipfile", python, warm_ms=100),
        Driver("poi", "Apache POI, warm", poi, warm_ms=2_500),
        Driver("packaging", "mono Packaging, warm", packaging, warm_ms=500),
        Driver(OURS + "-cold", "this library, process", [str(folder / OURS)], cold=True),
        Driver("zipfile-cold", "Python zipfile, process", python, cold=True),
        Driver("poi-cold", "Apache POI, process", poi, cold=True),
        Driver("packaging-cold", "mono Packaging, process", packaging, cold=True),
    ]
    return [driver for driver in known if is_built(driver, class_path)]


def is_built(driver, class_path):
    if driver.name.startswith("poi"):
        return class_path.exists()
    program = driver.command[1] if driver.command[0] in ("mono", sys.executable) else driver.command[0]
    return pathlib.Path(program).exists()


def rows(work_folder, wanted):
    """The rows whose name one of the patterns fits; the packages are made if need be."""
    chosen = []
    for label, path in choose_documents.choose():
        chosen.append((label, "document", lambda path=path: path))
    for name in make_packages.PACKAGES:
        group = name.partition("-")[0]
        chosen.append((name, group if group in ("tree", "chain") else "large",
                       lambda name=name: make_packages.make(work_folder, name)))
    return [make_row(name, group, path()) for name, group, path in chosen
            if any(fnmatch.fnmatch(name, pattern) for pattern in wanted)]


def make_row(name, group, path):
    return Row(name, group, str(path), choose_documents.entry_count(path),
               choose_documents.unpacked_size(path), choose_documents.largest_entry(path))
