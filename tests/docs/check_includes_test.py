#!/usr/bin/env python3
"""Whether check_includes.py finds what it is there to find."""

import unittest

import check_includes
from scratch_folder import FolderTest

LAYERS = """## Layers

| code in | may include |
|---|---|
| `vexpa/base` | nothing |
| `vexpa/base/Start.cpp` | `vexpa/base`, `vexpa/opc` |
| `vexpa/opc` | `vexpa/base` |
| `tool` | public headers |

## More
"""


class IncludesTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.write("docs/design.md", LAYERS)
        for path in ("vexpa/base/Base.h", "vexpa/opc/Package.h", "vexpa/opc/PackageImpl.h", "tool/Main.cpp"):
            self.write(path, "")
        self.write("vexpa/base/Start.cpp", '#include "vexpa/opc/Package.h"\n')

    def found(self):
        return list(check_includes.problems(self.root, {"vexpa/opc/Package.h"}))

    def test_what_the_table_allows(self):
        self.write("vexpa/opc/PackageImpl.h", '#include "vexpa/base/Base.h"\n#include "vexpa/opc/Package.h"\n')
        self.write("tool/Main.cpp", '#include "vexpa/opc/Package.h"\n#include "tool/Other.h"\n')
        self.assertEqual(self.found(), [])

    def test_an_include_against_the_arrow(self):
        self.write("vexpa/base/Base.h", '#include "vexpa/opc/Package.h"\n')
        self.assertEqual(self.found(), ["vexpa/base/Base.h: includes vexpa/opc/Package.h"])

    def test_a_private_header_where_public_ones_may_go(self):
        self.write("tool/Main.cpp", "#include <vexpa/opc/PackageImpl.h>\n")
        self.assertEqual(self.found(), ["tool/Main.cpp: includes vexpa/opc/PackageImpl.h"])

    def test_a_file_that_no_row_is_about(self):
        self.write("vexpa/zip/Archive.h", "")
        self.assertEqual(self.found(), ["vexpa/zip/Archive.h: in no folder of the table"])

    def test_a_row_about_nothing(self):
        self.write("docs/design.md", LAYERS.replace("`tool`", "`tools`"))
        self.assertEqual(self.found(), ["docs/design.md: there is no tools"])

    def test_a_page_without_the_table(self):
        self.write("docs/design.md", "## Layers\n")
        self.assertEqual(self.found(), ["docs/design.md: no table of what may include what"])


if __name__ == "__main__":
    unittest.main()
