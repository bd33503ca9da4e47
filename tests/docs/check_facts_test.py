#!/usr/bin/env python3
"""Whether check_facts.py finds what it is there to find."""

import unittest
import unittest.mock

import check_docs
import check_facts
from scratch_folder import FolderTest


class FactsTest(FolderTest):
    def setUp(self):
        super().setUp()
        for name, text in {
                "SECURITY.md": "A limit of 1,032 times, and of 2 million elements.\n",
                "runtime/Limits.h": "constexpr int kTimes = 1032, kMany = 2UL << 20;\n",
                "CHANGELOG.md": "## Unreleased\n## 1.2.0 - 2026-01-01\n## 1.1.0 - 2025-01-01\n",
                "CMakeLists.txt": 'project(vexpa VERSION 1.2.0)\noption(VEXPA_TOOL "The tool" ON)\n'
                                  'set(VEXPA_OTHER "" CACHE STRING "Another")\nset(VEXPA_ABI 1)\n',
                "cmake/VexpaInstall.cmake": 'set(VEXPA_FOLDER lib\n    CACHE STRING "A folder")\n',
                "CMakePresets.json": '{"configurePresets": [{"name": "base", "hidden": true},'
                                       ' {"name": "dev"}]}',
                "docs/man/vexpa.1": '.TH VEXPA 1 "" "libvexpa 1.2.0"\n.BI "check " FILE\n.B \\-\\-deep\n',
                "vexpa/xmlfx/namespaces.tsv": "registration\tid\tlabel\turi\tnames\n"
                                              "1\t1\ta\turn:a\t2\n2\t2\ta\turn:a\t1\n",
                "vexpa/xmlfx/tokens.tsv": "registration\tid\tposition\tindex\tname\n"
                                          "1\t1\t1\t1\tone\n1\t1\t2\t2\ttwo\n2\t2\t1\t1\ttwo\n",
                "vexpa/opc/relationship-types.tsv": "type\none\n",
                "packaging/debian/control": "Package: libvexpa1\nDescription: 2 names\n with tokens\n",
                "tool/check/FindingTable.cpp": "numbers 1 relationship types\n",
                "vexpa/CMakeLists.txt": "target_sources(vexpa PUBLIC FILE_SET HEADERS FILES\n    opc/Part.h)\n",
                "vexpa/platform/CMakeLists.txt": "FILE_SET HEADERS FILES Runtime.h)\n",
                "README.md": "2 names with tokens, the 1 known relationship types: `vexpa/opc/Part.h`, "
                             "`vexpa/platform/Runtime.h`, `VEXPA_TOOL`, `VEXPA_OTHER`, `VEXPA_FOLDER`, `dev`, "
                             "`libvexpa1`.\n\n    vexpa check --deep a.docx | wc --lines\n"}.items():
            self.write(name, text)
        limits = [("1,032 times", "runtime/Limits.h", "kTimes"), ("2 million", "runtime/Limits.h", "kMany")]
        patched = unittest.mock.patch.object(check_facts, "LIMITS", limits)
        patched.start()
        self.addCleanup(patched.stop)

    def found(self, check):
        return list(check_facts.CHECKS[check](check_docs.Tree(self.root)))

    def change(self, name, old, new):
        text = (self.root / name).read_text(encoding="utf-8")
        self.assertIn(old, text)
        self.write(name, text.replace(old, new))

    def expect_one(self, check, part):
        self.assertEqual(len(self.found(check)), 1)
        self.assertIn(part, self.found(check)[0])

    def test_facts_that_are_true(self):
        for check in check_facts.CHECKS:
            self.assertEqual(self.found(check), [])

    def test_a_limit_that_changed(self):
        self.change("runtime/Limits.h", "1032", "1'033")
        self.expect_one("numbers", "is not kTimes of runtime/Limits.h, 1033")

    def test_a_limit_that_is_not_said(self):
        self.change("SECURITY.md", "2 million", "3 million")
        self.expect_one("numbers", "'2 million' is not there")

    def test_a_version_that_the_changelog_does_not_have(self):
        self.change("CHANGELOG.md", "## 1.2.0", "## 1.2.1")
        self.expect_one("numbers", "CHANGELOG.md: its last version is not 1.2.0")

    def test_a_man_page_of_another_version(self):
        self.change("docs/man/vexpa.1", "1.2.0", "1.1.0")
        self.expect_one("numbers", "docs/man/vexpa.1: is not of version 1.2.0")

    def test_a_number_of_names_that_is_behind(self):
        self.change("packaging/debian/control", "2 names", "1 names")
        self.expect_one("numbers", "packaging/debian/control: not 2")

    def test_what_the_readme_does_not_list(self):
        for name in ("`vexpa/opc/Part.h`", "`VEXPA_TOOL`", "`VEXPA_OTHER`", "`VEXPA_FOLDER`", "`dev`",
                     "`libvexpa1`"):
            with self.subTest(name):
                self.change("README.md", name, name[1:-1])
                self.expect_one("lists", f" {name[1:-1]}")
                self.change("README.md", name[1:-1], name)

    def test_a_header_that_is_not_public(self):
        self.change("vexpa/CMakeLists.txt", "opc/Part.h", "")
        self.expect_one("lists", "vexpa/opc/Part.h is no public header")

    def test_a_command_that_is_not_there(self):
        self.change("README.md", "vexpa check", "vexpa checks")
        self.expect_one("commands", "vexpa checks: no such command")

    def test_an_option_that_is_not_there(self):
        self.change("README.md", "--deep", "--deeper")
        self.expect_one("commands", "no such option as --deeper")


if __name__ == "__main__":
    unittest.main()
