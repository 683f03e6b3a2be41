# SPDX-License-Identifier: GPL-3.0-or-later
"""Compiles the code in the guides, and follows their links.

A guide is one program: its blocks marked "cpp" follow one another, and so do comments that begin with
"cpp", which hold what a reader need not see.

Usage: test_guides.py PREFIX
"""

import re
import sys
import tempfile
import unittest
from pathlib import Path

from Development import ROOT, SDK, WARNINGS, include_flags, run, system_flags

prefix = None

GUIDES = ("writing-a-host", "building-forms", "filters")
BLOCK = re.compile(r"^(?:```cpp\n(.*?)^```|<!-- cpp\n(.*?)^-->)$", re.M | re.S)
LINK = re.compile(r"[^\[]\]\(([^)#:\s]+)(?:#[^)]*)?\)")
DOCUMENTS = ("README.md", "CONTRIBUTING.md", "CHANGELOG.md", "docs/*.md")


def program(text):
    """The blocks at the lines they have in the guide, so that errors point there."""
    lines = [""] * (text.count("\n") + 1)
    for match in BLOCK.finditer(text):
        first = text.count("\n", 0, match.start()) + 1
        for i, line in enumerate((match[1] or match[2]).splitlines()):
            lines[first + i] = line
    return "\n".join(lines) + "\n"


class GuidesTest(unittest.TestCase):
    def test_code_compiles(self):
        for guide in GUIDES:
            with self.subTest(guide), tempfile.TemporaryDirectory() as folder:
                text = (ROOT / f"docs/{guide}.md").read_text()
                self.assertGreater(len(re.findall("^```cpp", text, re.M)), 3)
                source = Path(folder) / f"{guide}.cpp"
                source.write_text(program(text))
                run("g++", "-std=c++20", "-fPIC", "-fsyntax-only", *WARNINGS, "-Wno-unused",
                    *include_flags(prefix), "-isystem", SDK,
                    *system_flags("Qt6Widgets", "Qt6Test"), source)

    def test_links_lead_somewhere(self):
        for document in (file for pattern in DOCUMENTS for file in ROOT.glob(pattern)):
            for link in LINK.findall(document.read_text()):
                with self.subTest(f"{document.name}: {link}"):
                    self.assertTrue((document.parent / link).exists())


if __name__ == "__main__":
    prefix = Path(sys.argv.pop())
    unittest.main()
