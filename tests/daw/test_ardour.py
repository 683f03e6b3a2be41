#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Loads the LV2 and the VST 3 bundle of a build tree into Ardour 7, exports a track through each, and
compares with what zolta-host renders. Needs the package "ardour", which is too large for every test
run, and no display.

Usage: test_ardour.py BUILD_FOLDER
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
import Sound

build = None
LIBRARIES = Path("/usr/lib/ardour7")
FRAMES = 9001
FORMATS = {("lv2", 1): ("LV2", "urn:zolta:equalizer-mono"), ("lv2", 2): ("LV2", "urn:zolta:equalizer"),
           ("vst3", 1): ("VST3", "56535464787042657175616C697A6572"),
           ("vst3", 2): ("VST3", "56535464787042657175616C697A6572")}
# Makes a session with one track and the plug-in on it, sets the controls by their names and says what
# is set.
SCRIPT = """
local engine = AudioEngine:set_backend("None (Dummy)", "", "")
engine:set_sample_rate({rate})
AudioEngine:start()
session = create_session("{folder}", "session", {rate})
local track = session:new_audio_track({channels}, {channels}, nil, 1, "Track", 0,
                                      ARDOUR.TrackMode.Normal, true):front()
local processor = ARDOUR.LuaAPI.new_plugin(session, "{plugin}", ARDOUR.PluginType.{kind}, "")
assert(not processor:isnil(), "There is no such plug-in.")
assert(track:add_processor_by_index(processor, 0, nil, true) == 0)
local plugin = processor:to_insert():plugin(0)
local values = {{ {values} }}
local control = 0
for i = 0, plugin:parameter_count() - 1 do
    if plugin:parameter_is_control(i) and plugin:parameter_is_input(i) then
        local value = values[plugin:parameter_label(i)]
        if value then
            assert(ARDOUR.LuaAPI.set_processor_param(processor, control, value))
            print("set " .. plugin:parameter_label(i))
        end
        control = control + 1
    end
end
-- A VST 3 processor learns of its values with the next block that it processes.
ARDOUR.LuaAPI.usleep(2000000)
session:save_state("")
close_session()
"""


def run(*command, **environment):
    result = subprocess.run([str(part) for part in command], capture_output=True, text=True,
                            env=dict(os.environ, **environment), timeout=40)
    if result.returncode:
        raise RuntimeError(f"{command[0]} says: {result.stdout}{result.stderr}")
    return result.stdout


def add_sound(file, sound, rate, channels):
    """Puts a sound file on the session's track, which Ardour has no command for."""
    text = file.read_text()
    second = int(re.search(r'superclocks-per-second="(\d+)"', text)[1])
    length = FRAMES * (second // rate)
    sources = "".join(f'<Source name="{sound}" type="audio" flags="" id="{90001 + c}" channel="{c}" '
                      'origin=""/>' for c in range(channels))
    used = " ".join(f'source-{c}="{90001 + c}" master-source-{c}="{90001 + c}"'
                    for c in range(channels))
    region = ('<Region name="sound" type="audio" opaque="1" external="1" start="a0" '
              f'length="a{length}@a0" sync-position="a0" stretch="1" shift="1" layering-index="0" '
              'fade-in-active="0" fade-out-active="0" default-fade-in="0" default-fade-out="0" '
              f'scale-amplitude="1" first-edit="nothing" channels="{channels}" {used} ')
    text = text.replace("<Sources/>", f"<Sources>{sources}</Sources>")
    text = text.replace("<Regions/>", f'<Regions>{region} id="90011"/></Regions>')
    text = re.sub(r'(<Playlist id="\d+" name="Track"[^>]*)/>',
                  lambda match: f'{match[1]}>{region} id="90012"/></Playlist>', text)
    text = text.replace("<Locations/>",
                        f'<Locations><Location id="90020" name="session" start="a0" end="a{length}" '
                        'flags="IsSessionRange" locked="0" timestamp="0"/></Locations>')
    file.write_text(text)


class ArdourTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.work = Path(folder.name)
        cls.environment = {"HOME": str(cls.work), "XDG_CONFIG_HOME": str(cls.work / ".config"),
                           "XDG_CACHE_HOME": str(cls.work / ".cache"),
                           "LV2_PATH": f"{build}/lib/lv2:/usr/lib/lv2"}
        cls.bundle = cls.work / ".vst3/zolta.vst3"
        shutil.copytree(build / "lib/vst3/zolta.vst3", cls.bundle)
        for file in cls.bundle.rglob("*"):  # Ardour uses a scan that is newer than the library
            os.utime(file, (1e9, 1e9))
        cls.scan = run(LIBRARIES / "ardour-vst3-scanner", "-f", "-v", cls.bundle,
                       LD_LIBRARY_PATH=str(LIBRARIES), **cls.environment)
        lines = run(build / "bin/zolta-host", "--list", QT_QPA_PLATFORM="offscreen").splitlines()
        cls.ranges = [tuple(map(int, line.split("\t")[2:4])) for line in lines]

    def test_scanner_accepts_the_bundle(self):
        self.assertIn("Found Plugin: Zolta Equalizer", self.scan)
        self.assertIn('category="Fx|EQ"', self.scan)

    def value(self, number, raw):
        """The number that a control is set to."""
        lowest, highest = self.ranges[number - 1]
        return {1200: 20 * 10 ** (raw / 400), 500: 0.5 * 2 ** (raw / 100),
                400: raw / 10}.get(highest - lowest, raw)

    def label(self, number):
        return self.labels[number - 1]

    labels = [f"{band} {field}" for band, first in
              (("Low", "type"), *((f"Middle {n}", "quality") for n in range(1, 5)), ("High", "type"))
              for field in (first, "frequency", "gain", "on")] + [
                  "Input level", "Output level", "Clean/drive"]

    def export(self, kind, channels, rate, values):
        """What comes out. Now and then Ardour 7.3's program for this crashes, hangs or exports silence,
        also without any plug-in; then it is asked again."""
        folder = self.work / "session"
        shutil.rmtree(folder, ignore_errors=True)
        plugin_type, plugin = FORMATS[kind, channels]
        table = ", ".join(f'["{self.label(number)}"] = {self.value(number, raw):.17g}'
                          for number, raw in values.items())
        script = self.work / "session.lua"
        script.write_text(SCRIPT.format(rate=rate, folder=folder, channels=channels, plugin=plugin,
                                        kind=plugin_type, values=table))
        said = run("ardour7-lua", script, **self.environment)
        self.assertEqual(said.count("set "), len(values), said)
        add_sound(folder / "session.ardour", self.work / "in.wav", rate, channels)
        for attempt in range(6):
            try:
                run("ardour7-export", "-b", "float", "-o", self.work / "out.wav", folder, "session",
                    **self.environment)
            except (RuntimeError, subprocess.TimeoutExpired):
                continue
            made = Sound.read(self.work / "out.wav")
            if any(made):
                return made
        self.fail("ardour7-export does not export.")

    def test_export_is_what_the_mixer_renders(self):
        for kind, channels in FORMATS:
            for rate in (44100, 48000, 96000):
                for values in (Sound.CLEAN, Sound.DRIVE):
                    with self.subTest(kind=kind, channels=channels, rate=rate, drive=27 in values):
                        Sound.write(self.work / "in.wav", Sound.noise(FRAMES, channels), rate,
                                    channels)
                        run(build / "bin/zolta-host", "--overwrite", "--render", self.work / "in.wav",
                            self.work / "host.wav", *Sound.host_options(values))
                        wanted = Sound.read(self.work / "host.wav")
                        # What Ardour has not exported when its range ends is the delay's length.
                        common = len(wanted) - channels * Sound.latency_of(values)
                        # A session that plays as soon as it is loaded can still be fading from the
                        # defaults to its settings when the export begins; the next one is not.
                        for attempt in range(3):
                            made = self.export(kind, channels, rate, values)
                            if channels == 1:  # the track feeds the first of the master's channels
                                made = made[::2]
                            if made[:common] == wanted[:common]:
                                break
                        self.assertGreaterEqual(len(made), common)
                        self.assertEqual(made[:common].tobytes(), wanted[:common].tobytes())


if __name__ == "__main__":
    build = Path(sys.argv.pop()).resolve()
    unittest.main()
