#!/usr/bin/env python3
"""Whether check_docs.py and check_contracts.py find what they are there to find."""

import contextlib
import io
import unittest

import check_contracts
import check_docs
from scratch_folder import FolderTest


class DocsTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.write("docs/kept-behaviour.md", "")

    def found(self, check):
        with contextlib.redirect_stdout(io.StringIO()) as output:
            status = check_docs.main(check, self.root)
        self.assertEqual(status, 1 if output.getvalue().strip() else 0)
        return output.getvalue().strip()

    def test_a_link_to_a_file_that_is_there(self):
        self.write("README.md", "[here](docs/design.md#the-layers)\n")
        self.write("docs/design.md", "# The layers\n")
        self.assertEqual(self.found("links"), "")

    def test_a_link_to_a_file_that_is_not_there(self):
        self.write("README.md", "[here](docs/design.md)\n")
        self.assertIn("a link to docs/design.md", self.found("links"))

    def test_a_link_to_a_heading_that_is_not_there(self):
        self.write("README.md", "[here](#layers)\n# The layers\n")
        self.assertIn("no such heading", self.found("links"))

    def test_a_file_between_backquotes(self):
        self.write("README.md", "`docs/kept-behaviour.md` and `docs/gone.md`\n")
        self.assertEqual(self.found("links"), "README.md: the file docs/gone.md is not there")

    def test_a_file_in_an_indented_block(self):
        self.write("scripts/there.sh", "true\n")
        self.write("README.md", "    scripts/there.sh FOLDER/a.txt word/document.xml\n    scripts/gone.sh\n")
        self.assertEqual(self.found("links"), "README.md: the file scripts/gone.sh is not there")

    def test_what_is_no_path_between_backquotes(self):
        self.write("README.md", "`./` and `/` and `..`\n")
        self.assertEqual(self.found("links"), "")

    def test_a_test_between_backquotes(self):
        self.write("tests/PartTest.cpp", "TEST(Part, IsThere) {}\n")
        self.write("README.md", "`Part.IsThere` and `Part.IsGone`\n")
        self.assertEqual(self.found("links"), "README.md: the test Part.IsGone is not there")

    def test_an_identifier_between_backquotes(self):
        self.write("vexpa/Part.h", "void GetName();\n")
        self.write("README.md", "`Part::GetName()` and `GetTitle`\n")
        self.assertEqual(self.found("links"), "README.md: the name GetTitle is not there")

    def test_a_snippet_that_stands_in_its_example(self):
        self.write("examples/Read.cpp", "int main() {\n    Read();\n    Write();\n}\n")
        self.write("README.md", "`examples/Read.cpp`\n```cpp\nRead();\nWrite();\n```\n")
        self.assertEqual(self.found("snippets"), "")

    def test_a_snippet_that_differs_from_its_example(self):
        self.write("examples/Read.cpp", "int main() {\n    Read();\n    Close();\n    Write();\n}\n")
        self.write("README.md", "`examples/Read.cpp`\n```cpp\nRead();\nWrite();\n```\n")
        self.assertIn("'Read();'", self.found("snippets"))

    def test_a_snippet_without_an_example(self):
        self.write("README.md", "```cpp\nRead();\n```\n")
        self.assertIn("'Read();'", self.found("snippets"))

    def test_what_is_kept_is_on_the_page(self):
        self.write("vexpa/Part.cpp", "// Kept: an oddity that\n// must stay. (Part.IsOdd, Part.IsOdder)\n")
        self.write("tests/PartTest.cpp", "TEST(Part, IsOdd) {}\nTEST(Part, IsOdder) {}\n")
        self.write("docs/kept-behaviour.md",
                   "| What | Why | Test |\n|---|---|---|\n| odd | so | `Part.IsOdd`, `Part.IsOdder` |\n")
        self.assertEqual(self.found("kept"), "")

    def test_what_is_kept_and_not_on_the_page(self):
        self.write("vexpa/Part.cpp", "// Kept: an oddity. (Part.IsOdd)\n")
        self.write("tests/PartTest.cpp", "TEST(Part, IsOdd) {}\n")
        self.assertIn("Part.IsOdd is not in docs/kept-behaviour.md", self.found("kept"))

    def test_what_is_kept_without_a_test(self):
        self.write("vexpa/Part.cpp", "// Kept: an oddity.\nint odd;\n")
        self.assertIn("without its test", self.found("kept"))

    def test_what_is_kept_with_a_test_that_does_not_exist(self):
        self.write("vexpa/Part.cpp", "// Kept: an oddity. (Part.IsOdd)\n")
        self.write("docs/kept-behaviour.md", "`Part.IsOdd`\n")
        self.assertIn("the test Part.IsOdd does not exist", self.found("kept"))

    def test_what_is_kept_with_a_test_without_its_suite(self):
        self.write("vexpa/Part.cpp", "// Kept: an oddity. (IsOdd)\n")
        self.write("tests/PartTest.cpp", "TEST(Part, IsOdd) {}\n")
        self.write("docs/kept-behaviour.md", "`Part.IsOdd`\n")
        self.assertEqual(self.found("kept"), "vexpa/Part.cpp: IsOdd without its suite")

    def test_what_is_kept_with_its_tests_in_two_lines(self):
        self.write("vexpa/Part.cpp", "// Kept: odd. (Part.IsOdd,\n// Part.IsOdder)\nint odd;\n")
        self.write("tests/PartTest.cpp", "TEST(Part, IsOdd) {}\nTEST(Part, IsOdder) {}\n")
        self.write("docs/kept-behaviour.md", "`Part.IsOdd`\n")
        self.assertEqual(self.found("kept"), "vexpa/Part.cpp: Part.IsOdder is not in docs/kept-behaviour.md")

    def test_an_oddity_of_the_page_that_the_code_does_not_mention(self):
        self.write("tests/PartTest.cpp", "TEST(Part, IsOdd) {}\n")
        self.write("docs/kept-behaviour.md", "## Oddities\n| What | Why | Test |\n|---|---|---|\n"
                   "| odd | so | `Part.IsOdd` |\n")
        self.assertIn("no comment in the code for 'odd", self.found("kept"))

    def test_a_decision_of_the_page_needs_no_comment(self):
        self.write("tests/PartTest.cpp", "TEST(Part, IsOdd) {}\n")
        self.write("docs/kept-behaviour.md", "## Oddities\n## Decisions\n| What | Why | Test |\n"
                   "|---|---|---|\n| odd | so | `Part.IsOdd` |\n")
        self.assertEqual(self.found("kept"), "")

    def test_a_row_of_the_page_without_a_test(self):
        self.write("docs/kept-behaviour.md", "| What | Why | Test |\n|---|---|---|\n| odd | so | none |\n")
        self.assertIn("no test for 'odd", self.found("kept"))


CLASS = """// vexpa/Part.h - a part.
#ifndef VEXPA_PART_H_

// A part.
//
// Lifetime  The package's.
// Errors    None.
// Threads   One.
class Part {
public:
    // [borrowed] Its name.
    virtual const char* GetName() = 0;

private:
    char* Hidden();
};
"""


class ContractsTest(unittest.TestCase):
    def found(self, text):
        return [problem for _, problem in check_contracts.problems(text)]

    def test_a_class_that_says_everything(self):
        self.assertEqual(self.found(CLASS), [])

    def test_a_class_that_does_not_say_who_may_use_it(self):
        self.assertEqual(self.found(CLASS.replace("Threads ", "Threading ")),
                         ["class Part {: nothing about Threads"])

    def test_a_pointer_without_an_owner(self):
        self.assertEqual(self.found(CLASS.replace("[borrowed] ", "")),
                         ["virtual const char* GetName() = 0;: whose is it?"])

    def test_a_second_pointer_below_the_same_comment(self):
        text = CLASS.replace("GetName() = 0;\n", "GetName() = 0;\n    virtual Part* Next() = 0;\n")
        self.assertEqual(self.found(text), [])
        self.assertEqual(len(self.found(text.replace("    virtual Part", "\n    virtual Part"))), 1)


if __name__ == "__main__":
    unittest.main()
