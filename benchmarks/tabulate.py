# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the benchmark programs of a folder and prints their results as Markdown tables.

Usage: tabulate.py FOLDER [option of Google Benchmark ...]

Every program runs its benchmarks five times in random order, so that a machine whose speed drifts
treats all alike; the tables show medians. "Against ours" compares "chartRepaint/2", say, with
"graphRepaint/2": what the equalizer graph needs for the same at the same scale; "directKnobMove/2"
with "cachedKnobMove/2", "editorRepaint/2" with "pictureBlit/2", and "lv2Run/0" with "engine/0". The
last column holds what else a benchmark counted.
"""

import json
import os
import platform
import re
import statistics
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

# What a benchmark's name begins with, and what that of its twin of ours does.
TWINS = {"chart": "graph", "customPlot": "graph", "direct": "cached", "editorRepaint": "pictureBlit",
         "lv2Run": "engine", "vst3Process": "engine"}
# What Google Benchmark appends to a name that says how it was run.
SETTINGS = re.compile(r"/(iterations:\d+|manual_time|real_time)")
COUNTER = "counter "
# The fields of a result that are no counters.
FIELDS = {"family_index", "per_family_instance_index", "repetitions", "repetition_index", "threads",
          "iterations", "real_time", "cpu_time", "items_per_second"}


def processor():
    for line in Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.split(":", 1)[1].strip()
    return platform.processor()


def run(program, options):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen",
                       FONTCONFIG_PATH=str(program.parent.parent / "share/zolta/fonts"),
                       QT_LOGGING_RULES="*=false")
    output = subprocess.run(
        [str(program), "--benchmark_format=json", "--benchmark_repetitions=5",
         "--benchmark_enable_random_interleaving=true", *options],
        env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout
    return json.loads(output)["benchmarks"] if output.strip() else []


def medians(results):
    """{name: {"time": ns, counter: value}}, in the order in which the program lists them."""
    samples = defaultdict(lambda: defaultdict(list))
    to_ns = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
    for result in results:
        if result["run_type"] != "iteration":
            continue
        values = samples[(result["family_index"], result["per_family_instance_index"],
                          SETTINGS.sub("", result["run_name"]))]
        values["time"].append(result["real_time"] * to_ns[result["time_unit"]])
        if "items_per_second" in result:
            values["items"].append(result["items_per_second"])
        for field in result.keys() - FIELDS:
            if isinstance(result[field], (int, float)):
                values[COUNTER + field].append(result[field])
    return {key[2]: {kind: statistics.median(v) for kind, v in samples[key].items()}
            for key in sorted(samples)}


def duration(ns):
    for unit, size in (("ms", 1e6), ("µs", 1e3)):
        if ns >= size:
            return f"{ns / size:.3g} {unit}"
    return f"{ns:.3g} ns"


def against_twin(row, rows):
    twin = re.sub(f"^({'|'.join(TWINS)})(?![a-z])", lambda match: TWINS[match[0]], row)
    return f"× {rows[row]['time'] / rows[twin]['time']:.2f}" if twin != row and twin in rows else ""


def counted(values):
    counters = {name.removeprefix(COUNTER).replace("_", " "): value
                for name, value in sorted(values.items()) if name.startswith(COUNTER)}
    return ", ".join(f"{name}: {value:.4g}" for name, value in counters.items())


def print_table(name, rows):
    print(f"\n### {name}\n\n| benchmark | time | a second | against ours | counted |")
    print("|---|---|---|---|---|")
    for row, values in rows.items():
        rate = f"{values['items'] / 1e6:.3g} M" if "items" in values else ""
        print(f"| `{row}` | {duration(values['time'])} | {rate} | {against_twin(row, rows)} "
              f"| {counted(values)} |")


def main(folder, options):
    print(f"{processor()}, {os.cpu_count()} processors, {platform.system()}; release preset; "
          f"`./bench{''.join(' ' + o for o in options)}`; medians of five runs")
    for program in sorted(Path(folder).glob("bench_*")):
        if program.is_file() and os.access(program, os.X_OK):
            print_table(program.name, medians(run(program, options)))


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
