# SPDX-License-Identifier: GPL-3.0-or-later
"""Shows the checks of a release, of the public interface and of the reference what is wrong.

Usage: test_release.py BUILD_FOLDER
"""

import contextlib
import functools
import io
import shutil
import sys
import tempfile
import unittest
from importlib.machinery import SourceFileLoader
from importlib.util import module_from_spec, spec_from_loader
from pathlib import Path

from Development import ROOT, run

build = None


def load(path):
    sys.dont_write_bytecode = True
    loader = SourceFileLoader(Path(path).stem.replace("-", "_"), str(ROOT / path))
    module = module_from_spec(spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


class ReleaseTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def test_every_place_of_the_version_is_found(self):
        release = load("packaging/check-release")
        version = release.re.search(release.PLACES["CMakeLists.txt"],
                                    (ROOT / "CMakeLists.txt").read_text())[1]
        self.assertEqual(list(release.places(version)), [])
        self.assertEqual(len(list(release.places("9.9.9"))), len(release.PLACES))

    def test_changelog_is_read(self):
        release = load("packaging/check-release")
        release.ROOT = self.folder
        head = "# Changelog\n\n## [Unreleased]\n\n"
        for text, problems in ((head + "## [1.2.3] - 2026-01-01\n", 0),
                               (head + "- More\n\n## [1.2.3] - 2026-01-01\n", 1),
                               (head + "- More\n\n## [1.2.2] - 2026-01-01\n", 2)):
            with self.subTest(text):
                (self.folder / "CHANGELOG.md").write_text(text)
                self.assertEqual(len(list(release.changelog("1.2.3"))), problems)

    def report(self, interface, lines):
        interface.STORED = self.folder / "interface.abi"
        interface.STORED.write_text("\n".join(lines) + "\n")
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            result = interface.main(build)
        return result, output.getvalue()

    def test_interface_that_changed_is_reported_until_it_is_renewed(self):
        interface = load("packaging/development/interface.py")
        interface.current = functools.cache(interface.current)
        lines = interface.STORED.read_text().splitlines()
        for kind in (".so: CommonController_MemAPI::KnobController::setInside", "IMemAPI: slot",
                     "FILTER2PEQ: size="):
            with self.subTest(kind):
                line = next(line for line in lines if kind in line)
                result, output = self.report(interface, [each for each in lines if each != line])
                self.assertEqual(result, 1)
                self.assertIn(f"+{line}", output)
                self.assertIn("--renew", output)
        with contextlib.redirect_stdout(io.StringIO()):
            interface.main(build, "--renew")
        self.assertEqual(self.report(interface, interface.STORED.read_text().splitlines())[0], 0)

    def test_what_is_not_described_is_an_error(self):
        for part in ("docs", "packaging", "CMakeLists.txt", "equalizer", "interfaces", "widgets",
                     "controls", "engine", "parameters"):
            copy = shutil.copytree if (ROOT / part).is_dir() else shutil.copy
            copy(ROOT / part, self.folder / part)
        run(self.folder / "docs/build", self.folder / "reference")
        self.assertTrue((self.folder / "reference/html/index.html").exists())
        header = self.folder / "equalizer/Decibels.h"
        header.write_text(header.read_text() + "\ninline int undescribed() { return 0; }\n")
        with self.assertRaisesRegex(AssertionError, "undescribed"):
            run(self.folder / "docs/build", self.folder / "reference")


if __name__ == "__main__":
    build = Path(sys.argv.pop())
    unittest.main()
