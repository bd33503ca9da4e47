#!/usr/bin/env python3
"""Compares what every command prints about the samples with what it is known to print.

    golden.py TOOL            status 1 and the differences when there are any
    golden.py --quick TOOL    the same in one locale
    golden.py --update TOOL   writes the files in golden/ anew, to be read before they are kept

A file in golden/ is a list of sessions: a line with the command, then what went to standard
output, to standard error (after "! ") and the exit status unless it is 0. Output is the same
in every locale, so each command runs in two.
"""

import difflib
import os
import pathlib
import shlex
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
GOLDEN = HERE / "golden"
SAMPLES = HERE.parents[1] / "samples"

# What is in each file. Commands whose text and JSON say the same have both.
SESSIONS = {
    "cat": ["cat report.docx _rels/.rels", "cat --pretty report.docx settings.xml",
            "cat --hex ledger.xlsx oleObject1.bin | head -4", "cat report.docx rId3@main", "cat report.docx settings@main | head -c 80",
            "cat report.docx nothing.xml", "cat --pretty ledger.xlsx oleObject1.bin | head -c 4"],
    "check": ["check report.docx talk.pptx tides.xlsx ledger.xlsx", "check README.md",
              "check talk.pptx", "check --deep --all ledger.xlsx", "check --json ledger.xlsx README.md",
              "check --deep --json talk.pptx", "check --all talk.pptx ledger.xlsx", "check ."],
    "completion": ["completion bash", "completion zsh", "completion fish"],
    "diff": ["diff tides.xlsx ledger.xlsx", "diff --json tides.xlsx ledger.xlsx",
             "diff --rels --types tides.xlsx ledger.xlsx", "diff tides.xlsx tides.xlsx",
             "diff --json tides.xlsx tides.xlsx", "diff tides.xlsx README.md"],
    "dump": ["dump tides.xlsx", "dump README.md", "dump tides.xlsx ledger.xlsx"],
    "graph": ["graph report.docx", "graph --mermaid ledger.xlsx", "graph --json tides.xlsx",
              "graph --from slide1.xml --depth 2 talk.pptx", "graph --full --mermaid talk.pptx"],
    "help": ["help", "help check", "help tokens", "check --help | head -1", "help VX305", "help VX3",
             "help VX305 --json", "help nothing", "--version | tr 0-9 N",
             "--version --json | tr 0-9 N", "--json check report.docx", "check --bogus"],
    "info": ["info report.docx talk.pptx tides.xlsx ledger.xlsx", "info README.md",
             "info --json ledger.xlsx README.md"],
    "ls": ["ls ledger.xlsx", "ls -l ledger.xlsx", "ls --sort size report.docx", "ls --json tides.xlsx",
           "ls README.md", "ls --json README.md"],
    "parts": ["parts report.docx", "parts tides.xlsx ledger.xlsx", "parts --json tides.xlsx",
              "parts --json -r .", "parts README.md"],
    "rels": ["rels talk.pptx", "rels talk.pptx main", "rels talk.pptx slideMaster1.xml --type slideLayout",
             "rels --all --external report.docx", "rels --all --external -r .",
             "rels talk.pptx main --type slide", "rels report.docx styles.xml",
             "rels --json ledger.xlsx sheet1.xml", "rels --json report.docx styles.xml"],
    "storage": ["storage ledger.xlsx oleObject1.bin", "storage ledger.xlsx oleObject1.bin buoy.txt",
                "storage --json ledger.xlsx oleObject1.bin", "storage ledger.xlsx main"],
    "tokens": ["tokens w:val", "tokens 0x0007002D", "tokens --json val", "tokens tides.xlsx app.xml",
               "tokens --json tides.xlsx app.xml",
               "tokens --annotate tides.xlsx sharedStrings.xml", "tokens --namespaces | head -5",
               "tokens --types | head -5",
               "tokens w:nothing"],
    "tree": ["tree report.docx", "tree tides.xlsx ledger.xlsx", "tree --depth 1 talk.pptx",
             "tree --from slide2.xml --depth 2 talk.pptx", "tree --json tides.xlsx", "tree README.md"],
    "types": ["types ledger.xlsx", "types --json tides.xlsx", "types README.md"],
}


def run(tool, command, locale):
    """The session as text. Pipes end early on purpose, so the shell runs it."""
    first, *rest = command.split(" | ")
    line = " | ".join([shlex.quote(tool) + " " + first, *rest])
    environment = {"LC_ALL": locale, "PATH": os.environ["PATH"], "COLUMNS": "200"}
    for name in ("LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"):
        if name in os.environ:
            environment[name] = os.environ[name]
    done = subprocess.run(["sh", "-c", line], cwd=SAMPLES, env=environment, capture_output=True,
                          timeout=300, check=False)
    text = f"$ vexpa {command}\n" + done.stdout.decode("utf-8", "backslashreplace")
    if not text.endswith("\n"):
        text += "\n(no line feed)\n"
    for error in done.stderr.decode("utf-8").splitlines():
        text += f"! {error}\n"
    return text + (f"exit {done.returncode}\n" if done.returncode else "")


def sessions(tool, commands, locale):
    return "\n".join(run(tool, command, locale) for command in commands)


def main(arguments):
    update = arguments[0] == "--update"
    locales = ("C",) if arguments[0] == "--quick" else ("C.UTF-8", "C")
    tool = str(pathlib.Path(arguments[-1]).resolve())
    different = 0
    for name, commands in SESSIONS.items():
        path = GOLDEN / f"{name}.txt"
        if update:
            path.write_text(sessions(tool, commands, "C.UTF-8"), encoding="utf-8")
            continue
        expected = path.read_text(encoding="utf-8")
        for locale in locales:
            actual = sessions(tool, commands, locale)
            if actual == expected:
                continue
            different += 1
            sys.stdout.writelines(difflib.unified_diff(
                expected.splitlines(keepends=True), actual.splitlines(keepends=True),
                f"golden/{name}.txt", f"what is printed in {locale}"))
    return 1 if different else 0


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1:]))
