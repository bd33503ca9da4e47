#!/usr/bin/env python3
"""run_shown_commands.py TOOL ROOT: runs what README.md and docs/recipes.md show, and compares.

In a block that is indented by four, a line that begins with "$ " is a command, and the lines below
it are what it prints; "..." stands for any lines. A command goes on behind "|" or a backslash at its
end. What stands between backquotes and begins with "vexpa" is run as well, unless a word of it is
only a place to fill in (FILE).

A command may end with status 0, or with 1: findings, differences. One that needs a program which is
not there is left out.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import textwrap
import zipfile

BLOCK = re.compile(r"(?:^    .*\n|^\n(?=    ))+", re.M)
SPAN = re.compile(r"`(vexpa [^`]+)`")
PLACE = re.compile(r"\b[A-Z]{2,}\b(?![-\d])|\bId@PART\b|\.\.\.")
PROGRAMS = ("git", "jq", "zsh", "fish", "dot", "diff")
RELATIONSHIP = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/"


def repack(source, target, without=(), **changes):
    """A copy of a package with other bytes for some entries; names have "/" for "__"."""
    changes = {name.replace("__", "/"): change for name, change in changes.items()}
    with zipfile.ZipFile(source) as old, zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as new:
        for name in old.namelist():
            if name not in without:
                new.writestr(name, changes.pop(name, lambda data: data)(old.read(name)))
        for name, change in changes.items():
            new.writestr(name, change(b""))


def with_relationship(identifier, kind, target, mode=""):
    element = f'<Relationship Id="{identifier}" Type="{RELATIONSHIP}{kind}" Target="{target}"{mode}/>'

    def change(data):
        root = b'<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
        return (data or root + b"</Relationships>").replace(b"</Relationships>",
                                                            element.encode() + b"</Relationships>")
    return change


def make_documents(home, samples):
    """The documents that the recipes name, besides the samples."""
    shutil.copytree(samples, home / "samples")
    for sample in samples.iterdir():
        shutil.copy(sample, home)
    report = home / "report.docx"
    shutil.copy(report, home / "before.docx")
    repack(report, home / "after.docx", without=["word/comments.xml"], **{
        "word__styles.xml": lambda data: data + b"<!-- " + b"x" * 300 + b" -->",
        "word__media.png": lambda data: b"\x89PNG",
        "word___rels__document.xml.rels": with_relationship("rId77", "image", "media.png"),
        "[Content_Types].xml": lambda data: data.replace(
            b"<Override", b'<Default Extension="png" ContentType="image/png"/><Override', 1),
    })
    repack(report, home / "broken.docx", without=["docProps/custom.xml"])
    for folder in ("templates", "documents"):
        (home / folder).mkdir()
        shutil.copy(report, home / folder)
    shutil.copy(home / "after.docx", home / "templates" / "letter.docx")
    repack(report, home / "documents" / "memo.docx", **{
        "word___rels__settings.xml.rels": with_relationship(
            "rId1", "attachedTemplate", "https://example.org/memo.dotx", ' TargetMode="External"')})


def make_repository(home, environment):
    """letter.docx was committed, and has changed since."""
    shutil.copy(home / "before.docx", home / "letter.docx")
    for command in ("git init -q -b main .", "git add letter.docx", "git commit -q -m letter",
                    "git update-ref refs/remotes/origin/main HEAD"):
        subprocess.run(command, shell=True, cwd=home, env=environment, check=True)
    shutil.copy(home / "after.docx", home / "letter.docx")


def environment_for(tool, home):
    environment = {"PATH": f"{tool.parent}:{os.environ['PATH']}", "HOME": str(home), "LC_ALL": "C.UTF-8",
                   "GIT_CONFIG_GLOBAL": "/dev/null", "GIT_CONFIG_SYSTEM": "/dev/null"}
    for role in ("AUTHOR", "COMMITTER"):
        environment |= {f"GIT_{role}_NAME": "A", f"GIT_{role}_EMAIL": "a@example.org"}
    for name in ("LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"):
        if name in os.environ:
            environment[name] = os.environ[name]
    return environment


def sessions(text):
    """Pairs of a command and the lines that it prints; None for a command between backquotes."""
    for block in BLOCK.findall(text):
        command, lines = None, []
        for line in textwrap.dedent(block).splitlines():
            if command is not None and command.endswith(("|", "\\")):
                command += "\n" + line
            elif line.startswith("$ "):
                if command is not None:
                    yield command, lines
                command, lines = line[2:], []
            else:
                lines.append(line)
        if command is not None:
            yield command, lines
    for span in SPAN.findall(BLOCK.sub("", text)):
        if not PLACE.search(span):
            yield " ".join(span.split()), None


def agrees(lines, printed):
    """Whether the lines are what was printed, with anything in place of "..."."""
    pattern = "".join("(?:.*\n)*?" if line.strip() == "..." else re.escape(line.rstrip()) + "\n"
                      for line in "\n".join(lines).rstrip().split("\n") if lines)
    printed = "".join(line.rstrip() + "\n" for line in printed.splitlines())
    return re.fullmatch(pattern + "\n*", printed + "\n") is not None


def problem(command, lines, home, environment):
    done = subprocess.run(["bash", "-c", command], cwd=home, env=environment,
                          stdin=subprocess.DEVNULL, capture_output=True, timeout=300, check=False)
    printed = (done.stdout + done.stderr).decode("utf-8", "backslashreplace")
    if done.returncode not in (0, 1):
        return f"status {done.returncode}\n{printed}"
    # What fails at the beginning of a pipe does not show in its status.
    if re.search("^vexpa: ", printed, re.M):
        return "complains\n" + printed
    if lines is not None and not agrees(lines, printed):
        return "prints\n" + printed
    return None


def main(tool, root):
    tool, root = pathlib.Path(tool).resolve(), pathlib.Path(root)
    missing = [program for program in PROGRAMS if shutil.which(program) is None]
    failures = 0
    with tempfile.TemporaryDirectory() as folder:
        home = pathlib.Path(folder)
        environment = environment_for(tool, home)
        make_documents(home, root / "samples")
        if "git" not in missing:
            make_repository(home, environment)
        for name in ("README.md", "docs/recipes.md"):
            for command, lines in sessions((root / name).read_text(encoding="utf-8")):
                if any(re.search(rf"\b{program}\b", command) for program in missing):
                    print(f"{name}: left out: {command}")
                    continue
                what = problem(command, lines, home, environment)
                if what is not None:
                    failures += 1
                    print(f"{name}: $ {command}\n{what}")
    return 1 if failures else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
