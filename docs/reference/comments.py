#!/usr/bin/env python3
"""comments.py HEADER: a public header as Doxygen wants it, on standard output.

The headers carry plain comments. Here the comment above a declaration becomes its documentation,
and its first paragraph that of those in the lines right below, down to the next comment or empty
line; one beside a declaration becomes that of this one. A label in a comment ("Threads   ...") and
a row of a list ("  E_FAIL   ...") become items. Every line stays where it is, so that a warning
names the line of the header.
"""

import re
import sys
from typing import NamedTuple

LABEL = re.compile(r"([A-Z]\w*(?: \w+)?)\s\s+(\S.*)")
ROW = re.compile(r"  (\S+)\s+(\S.*)")
CODE = " " * 4
SCOPE = re.compile(r'\b(namespace|class|struct|enum|union)\b|extern "C"')
NO_DECLARATION = re.compile(r"(public|private|protected):|[{}]|#(?!define)|namespace |extern \"C\" \{")
BESIDE = re.compile(r"(\s*[^\s/].*?)\s+// (.*)")
# Nothing in a comment is markup, but for the backquotes around code.
MARKUP = {"\\": "\\\\", "*": "&lowast;", "<": "&lt;", ">": "&gt;", "#": "\\#", "@": "\\@",
          "&": "&amp;"}


class Declaration(NamedTuple):
    number: int    # of its first line
    start: int     # of the first line of the comment
    comment: list  # above it, without the slashes
    beside: str    # the comment in its line
    shared: list   # the comment that a declaration above left to it
    scope: tuple   # the openings of the scopes that it is in


class Scopes:
    """The braces that are open, what may be seen in each, and the statement that has not ended."""

    def __init__(self):
        self.stack = []
        self.access = []
        self.statement = ""
        self.is_macro = False

    def declares(self):
        return (not self.within_statement() and "private" not in self.access
                and all(SCOPE.search(opening) for opening in self.stack))

    def within_statement(self):
        return self.is_macro or bool(self.statement)

    def read(self, line):
        if self.is_macro or line.lstrip().startswith("#"):
            self.is_macro = line.endswith("\\")
            return
        code = re.sub(r'"(?!C")[^"]*"|\'[^\']*\'|//.*', "", line).strip()
        if code in ("public:", "private:", "protected:"):
            self.access[-1] = code[:-1]
            return
        for letter in code + " ":
            if letter == "{":
                self.stack.append(self.statement.strip())
                self.access.append("private" if re.search(r"\bclass\b", self.stack[-1]) else "public")
            elif letter == "}":
                self.stack.pop()
                self.access.pop()
            self.statement = "" if letter in "{};" else (self.statement + letter).lstrip()


def declarations(lines):
    """What a header declares for others, with the comments."""
    scopes = Scopes()
    start, comment, shared = 1, [], []
    for number, line in enumerate(lines):
        text = line.strip()
        if number == 0 or (text.startswith("//") and not scopes.within_statement()):
            start = start if comment else number
            comment.append(text[2:].removeprefix(" "))
            continue
        if scopes.declares():
            if not text or NO_DECLARATION.match(text):
                shared = shared if text.startswith("}") else []
                if text == "protected:":
                    shared = ["For derived classes."]
            else:
                shared = comment or shared
                beside = BESIDE.fullmatch(line)
                yield Declaration(number, start, comment, beside[2] if beside else "", shared,
                                  tuple(scopes.stack))
                # What documents a class does not document its first member.
                if text.endswith("{") and SCOPE.search(text):
                    shared = []
        comment = []
        scopes.read(line)


def plain(text):
    pieces = text.split("`")
    for i in range(0, len(pieces), 2):
        pieces[i] = "".join(MARKUP.get(letter, letter) for letter in pieces[i])
    return "`".join(pieces)


def documentation(comment):
    """The lines of a comment as Doxygen's."""
    lines, is_code, is_item = [], False, False
    for text in comment:
        is_code = text.startswith(CODE) and (is_code or (not is_item and lines[-1:] == [""]))
        label = LABEL.fullmatch(text) or (not text.startswith(CODE) and ROW.fullmatch(text))
        if is_code:
            lines.append(text)
        elif label:
            lines.append(f"- **{plain(label[1])}** {plain(label[2])}")
            is_item = True
        else:
            is_item = is_item and text.startswith(" ")
            lines.append(("  " if is_item else "") + plain(text.lstrip()))
    return lines


def first_paragraph(comment):
    lines = documentation(comment)
    ends = [i for i, line in enumerate(lines) if not line or line.startswith("- ")]
    return " ".join(lines[:ends[0]] if ends else lines)


def convert(lines):
    out = list(lines)
    head = list(lines[:next(i for i, line in enumerate(lines) if not line.startswith("//"))])
    name, _, brief = head[0].removeprefix("// ").partition(" - ")
    out[:len(head)] = ["/// " + line for line in documentation([line[3:] for line in head])]
    out[0] = f"/// \\file {name} \\brief {plain(brief)}"

    for number, start, comment, beside, shared, _ in declarations(lines):
        for offset, line in enumerate(documentation(comment)):
            out[start + offset] = "/// " + line
        if beside:
            out[number] = f"{BESIDE.fullmatch(lines[number])[1]}  ///< {plain(beside)}"
        elif shared and not comment:
            out[number] = f"/** {first_paragraph(shared)} */ {lines[number]}"
    return out


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as header:
        print("\n".join(convert(header.read().split("\n"))), end="")
