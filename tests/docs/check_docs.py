#!/usr/bin/env python3
"""check_docs.py CHECK ROOT: holds what the documents in a tree say to what is in the tree.

    links     every link leads somewhere; every file and test between backquotes exists, every other
              name there of four letters or more is a word somewhere in the sources, and every file
              of the tree that an indented block names exists
    snippets  every block of C++ in README.md and docs/guide.md stands in an example named near it
    kept      every "Kept:" in the sources names tests that exist and are in docs/kept-behaviour.md,
              and every oddity there has such a comment
"""

import os
import pathlib
import re
import sys
import textwrap

SKIPPED = {"build", ".git", ".cache", "__pycache__"}
FENCE = re.compile(r"^```(\w*).*?$\n(.*?)^```", re.M | re.S)
BLOCK = re.compile(r"^(?: {4}|\t).*$", re.M)
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
SPAN = re.compile(r"`([^`\n]+)`")
PATH = re.compile(r"[\w.+-]+(/[\w.+*-]+)*/?")
SUFFIX = re.compile(r"\.(cpp|h|py|sh|md|txt|tsv|map|in|json|dox|docx|pptx|xlsx)$")
TEST_NAME = re.compile(r"([A-Z]\w+)\.([A-Z]\w+)")
IDENTIFIER = re.compile(r"(?:\w+::)*(\w{4,})(?:\(\))?")
GTEST = re.compile(r"\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)")
NAMES = r"(?:\w+\.)?[A-Z]\w+(?:,\s*(?://\s*)?(?:\w+\.)?[A-Z]\w+)*"
KEPT = re.compile(rf"// Kept:(?:.*\n\s*//)*?.*?\(({NAMES})\)")
ROW = re.compile(r"^\| (?!What|-)(.*) \|$", re.M)


class Tree:
    """The files of a source tree, and what is in those that are not prose."""

    def __init__(self, root):
        self.root = pathlib.Path(root).resolve()
        self.files = []
        for folder, folders, files in os.walk(self.root):
            folders[:] = [name for name in folders if name not in SKIPPED]
            self.files += [pathlib.Path(folder, name) for name in files]
        self.documents = sorted(path for path in self.files if path.suffix == ".md")
        self.names = {path.name for path in self.files}
        self.sources = {path: path.read_text(encoding="utf-8", errors="replace") for path in self.files
                        if path.suffix in (".cpp", ".h", ".py", ".sh", ".tsv", ".txt", ".cmake", ".map",
                                           ".json", ".in", ".cs", ".java") or "." not in path.name}
        self.words = set()
        self.tests = set()
        for path, text in self.sources.items():
            self.words.update(re.findall(r"\w{4,}", text))
            if path.suffix == ".cpp":
                self.tests.update(GTEST.findall(text))

    def read(self, name):
        return (self.root / name).read_text(encoding="utf-8")

    def has_file(self, name, beside):
        """A path from the top, from a folder of code, or from where the document lies."""
        name = name.rstrip("/")
        if "/" not in name and name in self.names:
            return True
        tops = (self.root, self.root / "vexpa", self.root / "runtime", self.root / "tests", beside)
        return any(any(True for _ in top.glob(name)) for top in tops)

    def has_name(self, name):
        """A whole word, an end of one ("Impl"), or one of which CMake fills in the beginning."""
        ends = (name[i:] for i, letter in enumerate(name) if letter == "_")
        return (name in self.words or any(end in self.words for end in ends if end.count("_") > 1)
                or any(word.endswith(name) for word in self.words))

    def has_test(self, name):
        suite, dot, test = name.partition(".")
        return (suite, test) in self.tests if dot else any(name == found for _, found in self.tests)


def anchors(text):
    for heading in re.findall(r"^#+ (.*)$", text, re.M):
        yield re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def link_problem(tree, document, text, target):
    if re.match(r"[a-z]+:", target):
        return None
    name, _, anchor = target.partition("#")
    path = (document.parent / name) if name else document
    if not path.exists():
        return f"a link to {target}"
    if anchor and anchor not in anchors(text if not name else path.read_text(encoding="utf-8")):
        return f"a link to {target}: no such heading"
    return None


def span_problem(tree, document, span):
    if span.startswith(("build/", "std::")) or re.search(r"\b[A-Z]+\b(?!\.md)", span):
        return None  # made by a build, or with a place to fill in
    if TEST_NAME.fullmatch(span) and not SUFFIX.search(span):
        return None if tree.has_test(span) else f"the test {span}"
    is_path = PATH.fullmatch(span) and re.search(r"\w", span) and ("/" in span or SUFFIX.search(span))
    if is_path and (SUFFIX.search(span) or (tree.root / span.split("/")[0]).is_dir()):
        return None if tree.has_file(span, document.parent) else f"the file {span}"
    identifier = IDENTIFIER.fullmatch(span)
    if identifier and (identifier[1] != identifier[1].lower() or "_" in identifier[1]):
        return None if tree.has_name(identifier[1]) else f"the name {span}"
    return None


def word_problem(tree, document, word):
    """What is wrong with a word of a command, if it is the path of a file in the tree."""
    top = word.partition("/")[0]
    if top in SKIPPED or not (PATH.fullmatch(word) and SUFFIX.search(word) and re.search(r"\w", top)):
        return None
    if "/" not in word or not (tree.root / top).is_dir() or tree.has_file(word, document.parent):
        return None
    return f"the file {word}"


def check_links(tree):
    for document in tree.documents:
        text = document.read_text(encoding="utf-8")
        text = FENCE.sub("", text)
        for word in re.findall(r"\S+", "\n".join(BLOCK.findall(text))):
            if problem := word_problem(tree, document, word):
                yield f"{document.relative_to(tree.root)}: {problem} is not there"
        text = BLOCK.sub("", text)
        for target in LINK.findall(text):
            if problem := link_problem(tree, document, text, target):
                yield f"{document.relative_to(tree.root)}: {problem}"
        for span in SPAN.findall(text):
            if problem := span_problem(tree, document, span):
                yield f"{document.relative_to(tree.root)}: {problem} is not there"


def is_part_of(block, source):
    """Whether the lines stand in the source, one after the other, indented by as much or more."""
    wanted = textwrap.dedent(block).rstrip("\n").split("\n")
    lines = source.split("\n")
    for start in range(len(lines) - len(wanted) + 1):
        piece = "\n".join(lines[start:start + len(wanted)])
        if textwrap.dedent(piece).rstrip("\n").split("\n") == wanted:
            return True
    return False


def check_snippets(tree):
    for name in ("README.md", "docs/guide.md"):
        document = tree.root / name
        if not document.exists():
            continue
        for section in re.split(r"^(?=#+ )", document.read_text(encoding="utf-8"), flags=re.M):
            examples = set(re.findall(r"`(examples/[\w./]+)`", section))
            for language, block in FENCE.findall(section):
                if language != "cpp":
                    continue
                sources = [(tree.root / path).read_text(encoding="utf-8") for path in examples
                           if (tree.root / path).is_file()]
                if not any(is_part_of(block, source) for source in sources):
                    first = block.split("\n", 1)[0]
                    yield f"{name}: the block that begins with '{first}' is in no example named there"


def check_kept(tree):
    page = tree.read("docs/kept-behaviour.md")
    said = set()
    for path, text in tree.sources.items():
        top = path.relative_to(tree.root).parts[0]
        if top not in ("vexpa", "runtime") or path.suffix not in (".cpp", ".h"):
            continue
        where = path.relative_to(tree.root)
        named = KEPT.findall(text)
        if len(named) != text.count("Kept:"):
            yield f"{where}: a 'Kept:' without its test"
        for name in re.findall(r"[\w.]+", " ".join(named)):
            if "." not in name:
                yield f"{where}: {name} without its suite"
            said.add(name.rpartition(".")[2])
            if not tree.has_test(name):
                yield f"{where}: the test {name} does not exist"
            if not re.search(rf"\b{re.escape(name)}`", page):
                yield f"{where}: {name} is not in docs/kept-behaviour.md"
    oddities = re.search(r"^## Oddities$.*?(?=^## |\Z)", page, re.M | re.S)
    for row in ROW.finditer(page):
        tests = TEST_NAME.findall(row[1].rpartition(" | ")[2])
        if not tests:
            yield f"docs/kept-behaviour.md: no test for '{row[1][:50]}...'"
        elif (oddities and oddities.start() < row.start() < oddities.end()
              and said.isdisjoint(test for _, test in tests)):
            yield f"docs/kept-behaviour.md: no comment in the code for '{row[1][:50]}...'"


CHECKS = {"links": check_links, "snippets": check_snippets, "kept": check_kept}


def main(check, root, checks=None):
    found = list((checks or CHECKS)[check](Tree(root)))
    for problem in found:
        print(problem)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
