#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how long zolta-host takes to send a sound file through the equalizer, beside two other
programs that run six filters of the same kind.

Usage: bench_render.py ZOLTA_HOST [SECONDS [RUNS]]

The file is stereo noise of 16 bits at 48 kHz, ten minutes unless told otherwise. The programs take
turns, each with one thread of processing, so that a machine whose speed drifts treats all alike; the
table shows medians of processor time and of elapsed time. zolta-host also brings its file to the
disk before it ends, which the others leave to the system.
"""

import math
import os
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

# Low and high shelf, four bells: Hz and dB; the bells' quality is 1.4.
LOW, HIGH = (80, 6), (8000, -4)
BELLS = [(200, -3), (800, 4), (2500, -5), (5600, 2)]


def raw_frequency(hertz):
    return round(400 * math.log10(hertz / 20))


def host_command(host, source, target):
    settings = ["fx_rackfx_prm_1=@2", "fx_rackfx_prm_21=@2",
                f"fx_rackfx_prm_2=@{raw_frequency(LOW[0])}", f"fx_rackfx_prm_3={LOW[1]:+}",
                f"fx_rackfx_prm_22=@{raw_frequency(HIGH[0])}", f"fx_rackfx_prm_23={HIGH[1]:+}"]
    for band, (hertz, decibels) in enumerate(BELLS):
        first = 5 + 4 * band
        settings += [f"fx_rackfx_prm_{first + 1}=@{raw_frequency(hertz)}",
                     f"fx_rackfx_prm_{first + 2}={decibels:+}"]
    options = [word for setting in settings for word in ("--set", setting)]
    return [host, "--render", source, target, "--overwrite", *options]


def sox_command(source, target):
    bells = [word for hertz, decibels in BELLS
             for word in ("equalizer", str(hertz), "1.4q", str(decibels))]
    return ["sox", "-D", "--single-threaded", source, target, "bass", str(LOW[1]), str(LOW[0]),
            *bells, "treble", str(HIGH[1]), str(HIGH[0])]


def ffmpeg_command(source, target):
    filters = [f"bass=g={LOW[1]}:f={LOW[0]}"]
    filters += [f"equalizer=f={hertz}:t=q:w=1.4:g={decibels}" for hertz, decibels in BELLS]
    filters += [f"treble=g={HIGH[1]}:f={HIGH[0]}"]
    return ["ffmpeg", "-v", "error", "-nostdin", "-y", "-threads", "1", "-filter_threads", "1",
            "-i", source, "-af", ",".join(filters), target]


def measure(command):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    start = time.perf_counter()
    subprocess.run(command, check=True, stderr=subprocess.DEVNULL)
    elapsed = time.perf_counter() - start
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    used = (after.ru_utime + after.ru_stime) - (before.ru_utime + before.ru_stime)
    return used, elapsed


# How many times zolta-host's processor time the others take, at least.
LIMITS = {"sox": 3.0, "ffmpeg": 2.0}


def print_table(results):
    reference = [statistics.median(column) for column in zip(*results["zolta-host"])]
    print("| program | processor | elapsed | against zolta-host | processor's limit |")
    print("|---|---|---|---|---|")
    for name, runs in results.items():
        used, elapsed = (statistics.median(column) for column in zip(*runs))
        print(f"| {name} | {used:.2f} s | {elapsed:.2f} s | "
              f"× {used / reference[0]:.2f}, × {elapsed / reference[1]:.2f} | "
              + (f"× {LIMITS[name]:.2f} |" if name in LIMITS else "|"))


def main(host, seconds=600.0, runs=5):
    with tempfile.TemporaryDirectory() as folder:
        source = str(Path(folder) / "in.wav")
        subprocess.run(["sox", "-n", "-r", "48000", "-c", "2", "-b", "16", source, "synth",
                        str(seconds), "pinknoise", "vol", "0.3"], check=True)
        commands = {"zolta-host": host_command(host, source, str(Path(folder) / "zolta.wav"))}
        if shutil.which("sox"):
            commands["sox"] = sox_command(source, str(Path(folder) / "sox.wav"))
        if shutil.which("ffmpeg"):
            commands["ffmpeg"] = ffmpeg_command(source, str(Path(folder) / "ffmpeg.wav"))
        results = {name: [] for name in commands}
        for _ in range(runs):
            for name, command in commands.items():
                results[name].append(measure(command))
                os.sync()  # what one leaves for the disk is not the next one's burden
        print(f"{seconds:g} s of stereo at 48 kHz, 16 bits; medians of {runs} turns\n")
        print_table(results)


if __name__ == "__main__":
    main(sys.argv[1], *(float(a) for a in sys.argv[2:3]), *(int(a) for a in sys.argv[3:4]))
