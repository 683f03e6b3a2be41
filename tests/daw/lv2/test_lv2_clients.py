#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Gives the LV2 bundle of a build tree to programs that check and use LV2 plug-ins, and compares what
they make of a sound with what zolta-host renders.

Usage: test_lv2_clients.py BUILD_FOLDER
"""

import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent))
import Sound

build = None
PLUGINS = {2: "urn:zolta:equalizer", 1: "urn:zolta:equalizer-mono"}
RATES = (44100, 48000, 96000)
FRAMES = 9001


def run(*command):
    # The vocabularies that descriptions refer to are plug-ins' neighbours; programs find them there.
    environment = dict(os.environ, LV2_PATH=f"{build}/lib/lv2:/usr/lib/lv2", LC_ALL="C",
                       QT_QPA_PLATFORM="offscreen")
    return subprocess.run([str(part) for part in command], capture_output=True, text=True,
                          check=True, env=environment).stdout


def ports(uri):
    """What lv2info says of each port: {field: text}, by index."""
    result = []
    for block in re.split(r"\n\tPort \d+:\n", run("lv2info", uri))[1:]:
        result.append(dict(re.findall(r"^\t\t(\w+): +(.*)$", block, re.M)) | {"text": block})
    return result


class Lv2Clients(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.work = Path(folder.name)
        cls.controls = [port["Symbol"] for port in ports(PLUGINS[2])
                        if "ControlPort" in port["text"] and "InputPort" in port["text"]][:27]
        lines = run(build / "bin/zolta-host", "--list").splitlines()
        cls.names = [line.split("\t")[0] for line in lines]

    def test_descriptions_are_valid(self):
        # Other plug-ins on this machine need not be valid.
        vocabularies = [manifest.parent for manifest in Path("/usr/lib/lv2").glob("*.lv2/manifest.ttl")
                        if re.search(r"a lv2:Spec\w+", manifest.read_text())]
        folders = [*vocabularies, Path("/usr/lib/lv2/schemas.lv2"), *build.glob("lib/lv2/*.lv2")]
        files = [file for folder in folders for file in folder.glob("*.ttl")]
        self.assertGreater(len(files), 40)
        result = subprocess.run(["sord_validate", *map(str, files)], capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def test_lists_every_port(self):
        ranges = {"frequency": ("20", "20000"), "quality": ("0.5", "16"), "gain": ("-20", "20"),
                  "level": ("-20", "20"), "type": ("0", "3"), "on": ("0", "1"),
                  "drive": ("0", "1"), "enabled": ("0", "1"), "latency": ("0", "78")}
        for channels, uri in PLUGINS.items():
            described = ports(uri)
            self.assertEqual(len(described), 4 * channels + 29)
            for port in described[2 * channels:]:
                lowest, highest = ranges.get(port["Symbol"].rsplit("_", 1)[-1], ("-127", "20"))
                if port["Symbol"].startswith("meter"):
                    lowest, highest = "-127", "20"
                with self.subTest(port=port["Symbol"]):
                    self.assertEqual(float(port["Minimum"]), float(lowest))
                    self.assertEqual(float(port["Maximum"]), float(highest))
                    if "InputPort" in port["text"]:
                        self.assertTrue(float(lowest) <= float(port["Default"]) <= float(highest))

    def test_ports_have_units(self):
        """lv2info does not show them, but hosts do."""
        text = (build / "lib/lv2/zolta.lv2/equalizer.ttl").read_text()
        for block in re.findall(r"\[\n(.*?)\n    \]", text, re.S):
            symbol = re.search(r'lv2:symbol "(\w+)"', block)[1]
            unit = re.search(r"units:unit units:(\w+)", block)
            kind = "meter" if symbol.startswith("meter") else symbol.rsplit("_", 1)[-1]
            expected = {"frequency": "hz", "gain": "db", "level": "db", "meter": "db",
                        "latency": "frame"}.get(kind)
            self.assertEqual(unit[1] if unit else None, expected, symbol)

    def test_offers_the_factory_presets(self):
        for uri in PLUGINS.values():
            self.assertIn("Vocal de-esser", run("lv2info", uri))
        self.assertEqual(set(run("lv2ls").split()) & set(PLUGINS.values()), set(PLUGINS.values()))

    def number(self, index, raw):
        """The number that a port takes for a raw value."""
        symbol = self.controls[index]
        if symbol.endswith("frequency"):
            return 20 * 10 ** (raw / 400)
        if symbol.endswith("quality"):
            return 0.5 * 2 ** (raw / 100)
        return raw / 10 if symbol.endswith(("gain", "level")) else raw

    def settings(self, values):
        return [(self.controls[number - 1], f"{self.number(number - 1, raw):.9g}")
                for number, raw in values.items()]

    def compare(self, apply):
        """Calls apply(channels, settings, in, out) for every combination."""
        for channels in PLUGINS:
            for rate in RATES:
                for values in (Sound.CLEAN, Sound.DRIVE):
                    with self.subTest(channels=channels, rate=rate, drive=27 in values):
                        self.compare_one(apply, channels, rate, values)

    def compare_one(self, apply, channels, rate, values):
        source, target, expected = (self.work / name for name in ("in.wav", "out.wav", "host.wav"))
        Sound.write(source, Sound.noise(FRAMES, channels), rate, channels)
        run(build / "bin/zolta-host", "--overwrite", "--render", source, expected, *Sound.host_options(values))
        target.unlink(missing_ok=True)
        apply(channels, self.settings(values), source, target)
        skipped = channels * Sound.latency_of(values)
        made, wanted = Sound.read(target), Sound.read(expected)
        self.assertEqual(len(wanted), channels * FRAMES)
        self.assertGreaterEqual(len(made), channels * FRAMES)
        self.assertEqual(made[skipped:channels * FRAMES].tobytes(),
                         wanted[:channels * FRAMES - skipped].tobytes())

    def test_lv2apply_gives_what_the_mixer_renders(self):
        def apply(channels, settings, source, target):
            options = [word for symbol, value in settings for word in ("-c", symbol, value)]
            run("lv2apply", "-i", source, "-o", target, *options, PLUGINS[channels])
        self.compare(apply)

    def test_ffmpeg_gives_what_the_mixer_renders(self):
        def apply(channels, settings, source, target):
            plugin = PLUGINS[channels].replace(":", "\\\\:")
            controls = "|".join(f"{symbol}={value}" for symbol, value in settings)
            run("ffmpeg", "-v", "error", "-i", source, "-af", f"lv2=p={plugin}:c={controls}",
                "-c:a", "pcm_f32le", target)
        self.compare(apply)


if __name__ == "__main__":
    build = Path(sys.argv.pop()).resolve()
    unittest.main()
