#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the Debian packages of a build tree, unpacks them elsewhere, and uses what is in them.

Usage: test_package.py BUILD_FOLDER
"""

import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

build = None


def run(*command, **options):
    return subprocess.run([str(part) for part in command], capture_output=True, text=True,
                          check=True, **options).stdout


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        work = Path(cls.folder.name)
        run("cpack", "-G", "DEB", "--config", build / "CPackConfig.cmake", "-B", work, cwd=work)
        [cls.package] = work.glob("zolta_*.deb")
        [cls.development] = work.glob("zolta-dev_*.deb")
        cls.root = work / "root"
        run("dpkg-deb", "-x", cls.package, cls.root)

    def field(self, name, package=None):
        return run("dpkg-deb", "-f", package or self.package, name).strip()

    def host(self, *arguments):
        """Runs the unpacked host without a display and without this process's set-up of fonts."""
        home = self.root / "home"
        home.mkdir(exist_ok=True)
        environment = {"PATH": os.environ["PATH"], "HOME": str(home), "XDG_RUNTIME_DIR": str(home)}
        return run(self.root / "usr/bin/zolta-host", *arguments, env=environment)

    def test_holds_everything(self):
        files = {str(path.relative_to(self.root)) for path in self.root.rglob("*")
                 if path.is_file()}
        for name in ("usr/bin/zolta-host", "usr/bin/zolta-gallery", "usr/lib/zolta/libZolta.so",
                     "usr/lib/libZoltaControls.so.2.0.0", "usr/lib/lv2/zolta.lv2/zolta.so",
                     "usr/lib/lv2/zolta.lv2/zolta_ui.so", "usr/lib/zolta/zolta-editor",
                     "usr/lib/lv2/zolta.lv2/manifest.ttl",
                     "usr/lib/lv2/zolta.lv2/equalizer.ttl", "usr/lib/lv2/zolta.lv2/presets.ttl",
                     "usr/lib/vst3/zolta.vst3/Contents/Resources/moduleinfo.json",
                     "usr/share/zolta/fonts/fonts.conf",
                     "usr/share/fontconfig/conf.avail/60-zolta-fonts.conf",
                     "usr/share/applications/zolta-host.desktop",
                     "usr/share/applications/zolta-desktop.desktop",
                     "usr/share/pipewire/zolta-equalizer.conf",
                     "usr/lib/systemd/user/zolta-equalizer.service",
                     "usr/share/icons/hicolor/scalable/apps/zolta-host.svg",
                     "usr/share/bash-completion/completions/zolta-host",
                     "usr/share/doc/zolta/copyright"):
            self.assertIn(name, files)
        self.assertTrue(any(re.fullmatch(r"usr/lib/vst3/zolta.vst3/Contents/[\w]+-linux/zolta.so", name)
                            for name in files))
        self.assertTrue(any(name.startswith("usr/share/man/man1/zolta-host.1") for name in files))
        self.assertTrue(any(name.endswith("/qt6/plugins/designer/zoltacontrols.so")
                            for name in files))

    def test_names_what_it_needs(self):
        self.assertEqual(self.field("Package"), "zolta")
        depends = self.field("Depends")
        for package in ("libqt6widgets6", "libqt6svg6", "fonts-mplus", "fontconfig", "libc6",
                        "qt6-translations-l10n"):
            self.assertIn(package, depends)

    def test_development_package_needs_this_one(self):
        self.assertEqual(self.field("Package", self.development), "zolta-dev")
        self.assertIn(f"zolta (= {self.field('Version')})", self.field("Depends", self.development))
        self.assertIn("juce-modules-source-data", self.field("Recommends", self.development))

    def test_no_file_is_in_both(self):
        files = [{line.split(maxsplit=5)[5] for line in
                  run("dpkg-deb", "-c", package).splitlines() if not line.startswith("d")}
                 for package in (self.package, self.development)]
        self.assertFalse(files[0] & files[1])
        headers = {name for name in files[1] if name.endswith(".h")}
        self.assertIn("./usr/include/zolta/controls/KnobController.h", headers)
        self.assertFalse([name for name in files[0] if "/include/" in name or "/cmake/" in name])

    def test_host_opens_the_editor_from_there(self):
        picture = self.root / "editor.png"
        self.host("--screenshot", picture)
        self.assertTrue(picture.read_bytes().startswith(b"\x89PNG"))

    def test_host_lists_parameters(self):
        self.assertEqual(len(self.host("--list").splitlines()), 27)

    def test_editor_has_its_fonts(self):
        """Without the fonts' set-up the letters, and so the picture, would be others."""
        there, here = self.root / "there.png", self.root / "here.png"
        self.host("--screenshot", there)
        run(build / "bin/zolta-host", "--screenshot", here)
        self.assertEqual(there.read_bytes(), here.read_bytes())

    def test_manual_page_names_every_option(self):
        page = run("sh", "-c", f"cat {self.root}/usr/share/man/man1/zolta-host.1*")
        for line in self.host("--help").splitlines():
            if line.startswith("  --"):
                option = line.split()[0].replace("-", "\\-")
                self.assertIn(f".B {option}", page)

    def test_manual_page_names_the_files(self):
        page = run("sh", "-c", f"cat {self.root}/usr/share/man/man1/zolta-host.1*")
        for file in ("~/.local/share/zolta-host/session.json",
                     "~/.local/share/zolta-host/desktop.json",
                     "~/.local/share/zolta-host/presets/", "~/.config/zolta/editors.json"):
            self.assertIn(file, page.replace("\\-", "-"))

    def complete(self, *words):
        script = (f'PATH="{self.root}/usr/bin:$PATH"; '
                  f'source "{self.root}/usr/share/bash-completion/completions/zolta-host"; '
                  'COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _zolta_host; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        return run("bash", "-c", script, "bash", "zolta-host", *words).split()

    def test_completion(self):
        self.assertEqual(self.complete("--scr"), ["--screenshot"])
        self.assertEqual(self.complete("--render"), ["--render"])
        self.assertEqual(self.complete("--mono", "--scr"), ["--screenshot"])
        self.assertEqual(self.complete("--language", ""), ["en", "de", "ja"])
        self.assertEqual(self.complete("--channel", ""), [str(number) for number in range(32)])
        self.assertEqual(self.complete("--channels", "1"), ["10", "12", "14", "16", "18"])
        self.assertEqual(self.complete("--device", ""), [])
        self.assertIn("fx_rackfx_prm_27=", self.complete("--set", "fx_rackfx_prm_2"))
        sounds = self.root / "sounds"
        sounds.mkdir()
        for name in ("a.wav", "b.txt", "c.flac"):
            (sounds / name).touch()
        self.assertEqual(self.complete("--state", f"{sounds}/b"), [f"{sounds}/b.txt"])
        for words in (["--audio", f"{sounds}/"], ["--render", "in.wav", f"{sounds}/"],
                      [f"{sounds}/"]):
            self.assertEqual(sorted(self.complete(*words)), [f"{sounds}/a.wav", f"{sounds}/c.flac"])

    def test_desktop_entry_and_icon(self):
        entry = (self.root / "usr/share/applications/zolta-host.desktop").read_text()
        self.assertIn("Exec=zolta-host %f\n", entry)
        self.assertIn("Icon=zolta-host\n", entry)
        entry = (self.root / "usr/share/applications/zolta-desktop.desktop").read_text()
        self.assertIn("Exec=zolta-host --desktop\n", entry)


if __name__ == "__main__":
    build = Path(sys.argv.pop())
    unittest.main()
