# SPDX-License-Identifier: GPL-3.0-or-later
"""Builds each example against the installed package and uses it.

Usage: test_examples.py PREFIX
"""

import array
import csv
import math
import sys
import tempfile
import unittest
import wave
from pathlib import Path

from Development import WARNINGS, environment, run

prefix = None


class ExamplesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.environment = environment(prefix, XDG_RUNTIME_DIR=folder.name)

    def build(self, name):
        """The folder of the example's programs."""
        folder = self.folder / name
        if not folder.exists():
            run("cmake", "-S", prefix / "share/doc/zolta-dev/examples" / name, "-B", folder,
                f"-DCMAKE_PREFIX_PATH={prefix}", f"-DCMAKE_CXX_FLAGS={' '.join(WARNINGS)}",
                env=self.environment)
            run("cmake", "--build", folder, "--parallel", env=self.environment)
        return folder

    def host(self, *arguments):
        return run(self.build("minimal-host") / "minimal-host", *arguments, env=self.environment)

    def test_minimal_host_keeps_a_state_and_shows_it(self):
        saved, flat, kept = (self.folder / name for name in ("saved", "flat", "kept"))
        run(prefix / "bin/zolta-host", "--set", "fx_rackfx_prm_11=+6", "--set",
            "fx_rackfx_prm_4=Off", "--save-state", saved, env=self.environment)
        self.host("--load", saved, "--save", kept, "--picture", self.folder / "saved.png")
        self.host("--save", flat, "--picture", self.folder / "flat.png")
        self.assertEqual(len(kept.read_bytes()), 116)
        self.assertEqual(kept.read_bytes()[:4], b"2620")
        self.assertEqual(kept.read_bytes(), saved.read_bytes())
        self.assertNotEqual(flat.read_bytes(), saved.read_bytes())
        pictures = [(self.folder / f"{name}.png").read_bytes() for name in ("saved", "flat")]
        self.assertTrue(all(picture.startswith(b"\x89PNG") for picture in pictures))
        self.assertNotEqual(*pictures)

    def test_minimal_host_refuses_what_is_no_state(self):
        damaged = self.folder / "damaged"
        damaged.write_bytes(b"2620" + bytes(40))
        with self.assertRaisesRegex(AssertionError, "cannot be loaded"):
            self.host("--load", damaged, "--save", self.folder / "none")

    def test_control_panel(self):
        folder = self.build("control-panel")
        run("ctest", "--test-dir", folder, "--output-on-failure", env=self.environment)
        picture = self.folder / "panel.png"
        run(folder / "control-panel", picture, env=self.environment)
        self.assertTrue(picture.read_bytes().startswith(b"\x89PNG"))

    def test_response_prints_the_curve_that_its_filters_have(self):
        program = self.build("response") / "response"
        rows = list(csv.DictReader(run(program).splitlines()))
        self.assertEqual(len(rows), 61)
        self.assertEqual([rows[0]["frequency"], rows[-1]["frequency"]], ["20.00", "20000.00"])
        self.assertLess(float(rows[0]["level"]), -15.0)
        self.assertLess(max(abs(float(row["phase"])) for row in rows), 180.0)
        for frequency in (60, 250, 1000, 6000, 15000):
            words = run(program, "--sine", frequency).split()
            self.assertAlmostEqual(float(words[2]), float(words[5]), delta=0.005)

    def sine(self, name, seconds=1, rate=44100):
        samples = array.array("h", (round(8000 * math.sin(2 * math.pi * 1000 * i / rate))
                                    for i in range(seconds * rate) for _ in range(2)))
        with wave.open(str(self.folder / name), "wb") as file:
            file.setparams((2, 2, rate, 0, "NONE", ""))
            file.writeframes(samples.tobytes())
        return self.folder / name

    def levels(self, file):
        """The effective values of both channels' second halves, of 32-bit floats."""
        data = file.read_bytes()
        samples = array.array("f", data[data.index(b"data") + 8:])
        return [math.sqrt(sum(x * x for x in half) / len(half))
                for half in (samples[len(samples) // 2::2], samples[len(samples) // 2 + 1::2])]

    def test_offline_runs_both_channels_through_the_equalizer(self):
        program, sound = self.build("offline") / "offline", self.sine("sine.wav")
        out = {name: self.folder / f"{name}.wav" for name in ("flat", "loud")}
        run(program, sound, out["flat"])
        run(program, sound, out["loud"], "fx_rackfx_prm_10=1k", "fx_rackfx_prm_11=+6")
        for flat, loud in zip(self.levels(out["flat"]), self.levels(out["loud"])):
            self.assertAlmostEqual(flat, 8000 / 32768 / math.sqrt(2), places=4)
            self.assertAlmostEqual(20 * math.log10(loud / flat), 6.0, delta=0.01)

    def test_offline_refuses_unknown_settings(self):
        with self.assertRaisesRegex(AssertionError, '"prm=1" is no setting'):
            run(self.build("offline") / "offline", "a", "b", "prm=1")


if __name__ == "__main__":
    prefix = Path(sys.argv.pop())
    unittest.main()
