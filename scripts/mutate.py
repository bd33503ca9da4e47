#!/usr/bin/env python3
"""Changes one thing at a time in a source file and lists the changes that no test notices.

Usage: scripts/mutate.py [-j JOBS] FILE...

For each FILE of vexpa/ or runtime/ it makes mutants: an operator replaced, a constant moved by
one, a condition always true or false, a statement left out. It builds the test programs of the
same folder (vexpa/opc/ has tests/opc/) and runs them, without the corpus, plain and then under
AddressSanitizer and UndefinedBehaviorSanitizer. A mutant that they all pass has survived.

A survivor wants a test, or simpler code. A few change nothing that anyone could see; these
stand with the reason in scripts/equivalent_mutants.tsv and are not listed.

Works on copies in build/mutate, so the tree stays as it is. Exits with 1 when one survived.
"""

import argparse
import concurrent.futures
import csv
import os
import queue
import re
import shutil
import subprocess
import sys
import time
from collections import Counter, namedtuple

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SCRATCH = os.path.join(ROOT, "build", "mutate")
EQUIVALENT = os.path.join(ROOT, "scripts", "equivalent_mutants.tsv")

# A mutant may ask for more memory than there is. The sanitizers have a limit of their own, as
# they reserve address space without end.
MEMORY_LIMIT = 4 << 30
ASAN_OPTIONS = "hard_rss_limit_mb=4096"

# The quick one first: few mutants see the second.
BUILDS = {
    "plain": "-O0 -g0 -D_GLIBCXX_ASSERTIONS",
    "asan": "-O1 -g0 -D_GLIBCXX_ASSERTIONS -fsanitize=address,undefined -fno-sanitize=vptr"
            " -fno-sanitize-recover=all",
}

# What each binary operator is replaced by. The style puts blanks around them, and none into
# template arguments.
OPERATORS = {
    "==": ["!="], "!=": ["=="],
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
    "&&": ["||"], "||": ["&&"],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "&": ["|"], "|": ["&"], "^": ["&"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="],
    "&=": ["|="], "|=": ["&="], "^=": ["&="], "<<=": [">>="], ">>=": ["<<="],
    "?": ["&& false ?", "|| true ?"],
}
UNARY = {"!": "", "++": "--", "--": "++"}
WORDS = {"true": "false", "false": "true"}

TOKEN = re.compile(r"""
    (?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#[^\n]*|^[ \t]*(?:static_assert|using)\b[^;]*;)
  | (?P<text>(?:u8|[uUL])?"(?:\\.|[^"\\])*")
  | (?P<unit>(?:u8|[uUL])?'(?:\\.|[^'\\])+')
  | (?P<number>\b0[xX][0-9a-fA-F']+[uUlL]*|\b\d[\d']*[uUlL]*\b)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<operator><<=|>>=|->|::|\+\+|--|&&|\|\||[=!<>+\-*/%&|^]=|<<|>>|[!<>+\-*/%&|^?=(){}\[\];:,.~])
""", re.VERBOSE | re.MULTILINE | re.DOTALL)

Token = namedtuple("Token", "kind text start end")
# Replaces source[start:end] of the file by `new`.
Mutant = namedtuple("Mutant", "file start end new")


def tokens_of(source):
    for match in TOKEN.finditer(source):
        if match.lastgroup != "skip":
            yield Token(match.lastgroup, match.group(), match.start(), match.end())


def moved_numbers(text):
    """The number one up and one down, written as it was."""
    digits = text.rstrip("uUlL")
    suffix = text[len(digits):]
    is_hex = digits[:2] in ("0x", "0X")
    value = int(digits.replace("'", ""), 16 if is_hex else 10)
    for moved in (value + 1, value - 1):
        if moved >= 0:
            yield (f"0x{moved:X}" if is_hex else str(moved)) + suffix


def moved_unit(text):
    """A character constant that is another one."""
    quote = text.index("'")
    inner = text[quote + 1:-1]
    return text[:quote] + "'" + ("#" if inner.startswith("\\") else chr(ord(inner) + 1)) + "'"


def is_binary(source, token):
    return source[token.start - 1].isspace() and source[token.end:token.end + 1].isspace()


def token_mutants(source, tokens):
    for token in tokens:
        if token.kind == "number":
            news = moved_numbers(token.text)
        elif token.kind == "unit":
            news = [moved_unit(token.text)]
        elif token.kind == "text":
            news = [re.sub(r'(\\.|[^"\\])"$', '"', token.text)]
        elif token.kind == "word":
            news = [WORDS[token.text]] if token.text in WORDS else []
        elif token.text in OPERATORS and is_binary(source, token):
            news = OPERATORS[token.text]
        else:
            news = [UNARY[token.text]] if token.text in UNARY else []
        for new in news:
            if new != token.text:
                yield token.start, token.end, new


def closing(tokens, index):
    """The index of the parenthesis that closes the one at `index`."""
    depth = 0
    for i in range(index, len(tokens)):
        depth += {"(": 1, ")": -1}.get(tokens[i].text, 0)
        if depth == 0:
            return i
    raise ValueError("a parenthesis is not closed")


def condition_mutants(tokens):
    for i, token in enumerate(tokens[:-1]):
        if token.text not in ("if", "while", "for") or tokens[i + 1].text != "(":
            continue
        end = closing(tokens, i + 1)
        inside = tokens[i + 2:end]
        if token.text == "for":
            semicolons = [t for t in inside if t.text == ";"]
            if len(semicolons) == 2 and semicolons[0].end != semicolons[1].start:
                yield semicolons[0].end, semicolons[1].start, " false"
        elif not any(t.text in ("=", ";") for t in inside):
            for new in ("true", "false") if token.text == "if" else ("false",):
                yield inside[0].start, inside[-1].end, new


# The first tokens of what is no statement, or one that something after it needs.
NO_STATEMENT = {"return", "const", "constexpr", "constinit", "consteval", "static", "auto", "struct",
                "class", "enum", "namespace", "template", "explicit", "virtual", "if", "else", "for",
                "while", "do", "switch", "case", "public", "protected", "private", "friend", "inline",
                "extern", "throw", "typedef", "std"}


def statements(tokens):
    """The tokens of each statement up to its semicolon, without what it hangs on."""
    first = 0
    depths = [0]  # of parentheses, in each block around
    for i, token in enumerate(tokens):
        if token.text in "{}":
            if token.text == "{":
                depths.append(0)
            elif len(depths) > 1:
                depths.pop()
            first = i + 1
        elif token.text in "()":
            depths[-1] += 1 if token.text == "(" else -1
        elif token.text == ";" and depths[-1] == 0:
            words = tokens[first:i]
            first = i + 1
            while len(words) > 1 and words[0].text in ("if", "for", "while", "else"):
                words = words[1 if words[0].text == "else" else closing(words, 1) + 1:]
            if words:
                yield words


def is_declaration(words):
    """Two words in a row, maybe with a star or an ampersand between, before anything is done."""
    for i, word in enumerate(words[:-1]):
        if word.text in ("=", "(", "delete"):
            return False
        after = next((w for w in words[i + 1:] if w.text not in ("*", "&")), word)
        if word.kind == "word" and after.kind == "word":
            return True
    return False


def statement_mutants(tokens):
    """Each expression statement left out, and each step out of a loop."""
    for words in statements(tokens):
        if words[-1].text in ("default", "delete"):
            continue
        if words[0].text in ("break", "continue"):
            yield words[0].start, words[0].end, ""
        elif len(words) > 1 and words[0].text not in NO_STATEMENT and not is_declaration(words):
            yield words[0].start, words[-1].end, ""


def mutants_of(file):
    with open(os.path.join(ROOT, file), encoding="utf-8") as opened:
        source = opened.read()
    tokens = list(tokens_of(source))
    seen = set()
    for start, end, new in (*token_mutants(source, tokens), *condition_mutants(tokens),
                            *statement_mutants(tokens)):
        if (start, end, new) not in seen:
            seen.add((start, end, new))
            yield Mutant(file, start, end, new)


def describe(mutant, source):
    """The line number, and the changed lines before and after, without the blanks around them."""
    first = source.rfind("\n", 0, mutant.start) + 1
    last = source.find("\n", mutant.end)
    before = " ".join(source[first:last].split())
    after = " ".join((source[first:mutant.start] + mutant.new + source[mutant.end:last]).split())
    return source.count("\n", 0, mutant.start) + 1, before, after


class Workshop:
    """A copy of the tree in which one mutant at a time is built and tested."""

    def __init__(self, number, folders):
        self.tree = os.path.join(SCRATCH, str(number))
        self.seconds = {}
        self.copy_tree()
        for build, flags in BUILDS.items():
            subprocess.run(["cmake", "-G", "Ninja", "-S", self.tree, "-B", self.place(build),
                            "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={flags}",
                            "-DVEXPA_BUILD_TOOL=OFF"], check=True, stdout=subprocess.DEVNULL)
            for folder in folders:
                self.make_ready(build, folder)

    def place(self, build):
        return os.path.join(self.tree, "build", build)

    def make_ready(self, build, folder):
        """Builds and runs the tests of the unchanged tree, which tells how long they may take."""
        if not self.make(build, folder):
            sys.exit(f"{folder}, {build}: its tests do not build")
        for program in self.programs(build, folder):
            before = time.monotonic()
            if self.fails(build, program, None):
                sys.exit(f"{program} fails before anything is changed")
            self.seconds[program] = 10 + 5 * (time.monotonic() - before)

    def copy_tree(self):
        """Brings the copy up to date; files that are as they were keep their time."""
        listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True,
                                capture_output=True, text=True).stdout.splitlines()
        for name in listed:
            source, copy = os.path.join(ROOT, name), os.path.join(self.tree, name)
            if not os.path.isfile(source):
                continue
            os.makedirs(os.path.dirname(copy), exist_ok=True)
            if not os.path.exists(copy) or read_bytes(source) != read_bytes(copy):
                shutil.copy(source, copy)

    def make(self, build, folder):
        return subprocess.run(["ninja", "-C", self.place(build), "-j1", f"tests/{folder}/all"],
                              capture_output=True, check=False).returncode == 0

    def programs(self, build, folder):
        place = os.path.join(self.place(build), "tests", folder)
        return sorted(entry.path for entry in os.scandir(place)
                      if entry.name.endswith("_test") and entry.is_file())

    def fails(self, build, program, seconds):
        command = [program]
        if build == "plain":
            command = ["prlimit", f"--as={MEMORY_LIMIT}", program]
        environment = dict(os.environ, VEXPA_CORPUS="/nonexistent", GTEST_BRIEF="1",
                           GTEST_FAIL_FAST="1", ASAN_OPTIONS=ASAN_OPTIONS)
        try:
            return subprocess.run(command, env=environment, timeout=seconds, check=False,
                                  stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL).returncode != 0
        except subprocess.TimeoutExpired:
            return True

    def verdict(self, mutant):
        """"not built", "killed" or "survived"."""
        path = os.path.join(self.tree, mutant.file)
        with open(path, encoding="utf-8") as opened:
            source = opened.read()
        folder = test_folder(mutant.file)
        try:
            write(path, source[:mutant.start] + mutant.new + source[mutant.end:])
            for build in BUILDS:
                if not self.make(build, folder):
                    return "not built"
                for program in self.programs(build, folder):
                    if self.fails(build, program, self.seconds[program]):
                        return "killed"
            return "survived"
        finally:
            write(path, source)


def read_bytes(path):
    with open(path, "rb") as opened:
        return opened.read()


def write(path, text):
    with open(path, "w", encoding="utf-8") as opened:
        opened.write(text)


def test_folder(file):
    folder = os.path.dirname(file)
    return folder if folder.startswith("runtime/") else folder.removeprefix("vexpa/")


def read_equivalent():
    """(file, line before, line after) of the mutants that change nothing visible."""
    if not os.path.exists(EQUIVALENT):
        return set()
    with open(EQUIVALENT, encoding="utf-8", newline="") as opened:
        rows = csv.reader(opened, delimiter="\t", quoting=csv.QUOTE_NONE)
        return {tuple(row[:3]) for row in rows if row and not row[0].startswith("#")}


def examine(mutants, jobs):
    """Yields each mutant with its verdict, as they come."""
    folders = sorted({test_folder(mutant.file) for mutant in mutants})
    workshops = queue.Queue()
    for number in range(jobs):
        workshops.put(Workshop(number, folders))

    def work(mutant):
        workshop = workshops.get()
        try:
            return mutant, workshop.verdict(mutant)
        finally:
            workshops.put(workshop)

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        yield from (done.result() for done in concurrent.futures.as_completed(
            [pool.submit(work, mutant) for mutant in mutants]))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("-j", "--jobs", type=int, default=1, help="copies that work side by side")
    parser.add_argument("files", nargs="+", metavar="FILE")
    arguments = parser.parse_args()

    files = [os.path.relpath(os.path.abspath(file), ROOT) for file in arguments.files]
    sources = {file: read_bytes(os.path.join(ROOT, file)).decode() for file in files}
    equivalent = read_equivalent()
    mutants = []
    counts = {file: Counter() for file in files}
    for mutant in (mutant for file in files for mutant in mutants_of(file)):
        if (mutant.file, *describe(mutant, sources[mutant.file])[1:]) in equivalent:
            counts[mutant.file]["equivalent"] += 1
        else:
            mutants.append(mutant)

    for mutant, verdict in examine(mutants, arguments.jobs):
        counts[mutant.file][verdict] += 1
        if verdict == "survived":
            line, before, after = describe(mutant, sources[mutant.file])
            print(f"{mutant.file}:{line}\n    {before}\n    {after}", flush=True)

    columns = ("killed", "survived", "equivalent", "not built")
    print(f"\n{'':44}" + "".join(f"{column:>12}" for column in columns))
    for file, count in counts.items():
        print(f"{file:44}" + "".join(f"{count[column]:12}" for column in columns))
    total = sum(counts.values(), Counter())
    print(f"{'all':44}" + "".join(f"{total[column]:12}" for column in columns))
    sys.exit(1 if total["survived"] else 0)


if __name__ == "__main__":
    main()
