# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the benchmark programs of a folder and prints their results as Markdown tables.

Usage: tabulate.py FOLDER [--json=FILE] [option of Google Benchmark ...]

Every program runs its benchmarks five times in random order, so that a machine whose speed drifts
treats all alike; the tables show medians. "Against ours" compares "chartRepaint/2", say, with
"graphRepaint/2": what the equalizer graph needs for the same at the same scale; "directKnobMove/2"
with "cachedKnobMove/2", "editorRepaint/2" with "pictureBlit/2", "graphMoved/2" with "graphBlit/2",
and "lv2Run/0" with "engine/0". "Noise" is how far the five runs lie from their median on average.
"Limit" is what a benchmark has to keep, and whether it is missed. The last column holds what else a
benchmark counted. With --json the samples are written to a file, too, which compare.py reads.
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
         "graphMovedWhole": "graphBlit", "graphMoved": "graphBlit", "lv2Run": "engine",
         "vst3Process": "engine"}
# What a benchmark has to keep: its time in ns, its ratio against its twin, or one of its counters.
LIMITS = (
    ("directMeterMove/1", "against ours", "≥", 10.0),
    ("directMeterMove/2", "against ours", "≥", 10.0),
    ("directMeterTick/1", "against ours", "≥", 10.0),
    ("directMeterTick/2", "against ours", "≥", 10.0),
    ("firstEditor/1", "time", "≤", 25e6),
    ("firstEditor/2", "time", "≤", 40e6),
    ("editorRepaint/1", "against ours", "≤", 4.0),
    ("editorRepaint/2", "against ours", "≤", 2.5),
    ("meterTickSwing/1", "time", "≤", 200e3),
    ("meterTickSwing/2", "time", "≤", 400e3),
    ("meters64/1", "counter core_%", "≤", 8.0),
    ("meters64/2", "counter core_%", "≤", 12.0),
    ("graphMoved/1", "against ours", "≤", 3.0),
    ("graphMoved/2", "against ours", "≤", 3.0),
    ("graphMoved/4", "against ours", "≤", 3.0),
    ("chartMoved/1", "against ours", "≥", 2.5),
    ("chartMoved/2", "against ours", "≥", 2.5),
    ("chartMoved/4", "against ours", "≥", 2.5),
    ("customPlotMoved/1", "against ours", "≥", 2.5),
    ("customPlotMoved/2", "against ours", "≥", 2.5),
    ("customPlotMoved/4", "against ours", "≥", 2.5),
    ("graphMoved/1", "time", "≤", 200e3),
    ("graphMoved/2", "time", "≤", 600e3),
    ("graphMoved/4", "time", "≤", 1.6e6),
)
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


def samples(results):
    """{name: {"time": [ns ...], counter: [value ...]}}, in the order in which the program lists
    them."""
    rows = defaultdict(lambda: defaultdict(list))
    to_ns = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
    for result in results:
        if result["run_type"] != "iteration":
            continue
        values = rows[(result["family_index"], result["per_family_instance_index"],
                       SETTINGS.sub("", result["run_name"]))]
        values["time"].append(result["real_time"] * to_ns[result["time_unit"]])
        if "items_per_second" in result:
            values["items"].append(result["items_per_second"])
        for field in result.keys() - FIELDS:
            if isinstance(result[field], (int, float)):
                values[COUNTER + field].append(result[field])
    return {key[2]: dict(rows[key]) for key in sorted(rows)}


def medians(rows):
    """{name: {"time": ns, counter: value, "noise": share of the time}} of samples."""
    return {name: {kind: statistics.median(v) for kind, v in values.items()} |
                  {"noise": noise(values["time"])}
            for name, values in rows.items()}


def noise(times):
    """How far the samples lie from their median on average, as a share of it."""
    middle = statistics.median(times)
    return statistics.fmean(abs(time - middle) for time in times) / middle


def duration(ns):
    for unit, size in (("ms", 1e6), ("µs", 1e3)):
        if ns >= size:
            return f"{ns / size:.3g} {unit}"
    return f"{ns:.3g} ns"


def against_twin(row, rows):
    twin = re.sub(f"^({'|'.join(TWINS)})(?![a-z])", lambda match: TWINS[match[0]], row)
    return rows[row]["time"] / rows[twin]["time"] if twin != row and twin in rows else None


def limits(row, rows):
    texts = []
    for name, kind, sign, bound in LIMITS:
        if name != row:
            continue
        value = against_twin(row, rows) if kind == "against ours" else rows[row].get(kind)
        text = duration(bound) if kind == "time" else f"{bound:g}"
        is_missed = value is not None and (value > bound if sign == "≤" else value < bound)
        texts.append(f"{sign} {text}{', missed' if is_missed else ''}")
    return "; ".join(texts)


def counted(values):
    counters = {name.removeprefix(COUNTER).replace("_", " "): value
                for name, value in sorted(values.items()) if name.startswith(COUNTER)}
    return ", ".join(f"{name}: {value:.4g}" for name, value in counters.items())


def print_table(name, rows):
    print(f"\n### {name}\n")
    print("| benchmark | time | noise | a second | against ours | limit | counted |")
    print("|---|---|---|---|---|---|---|")
    for row, values in rows.items():
        rate = f"{values['items'] / 1e6:.3g} M" if "items" in values else ""
        ratio = against_twin(row, rows)
        print(f"| `{row}` | {duration(values['time'])} | {100.0 * values['noise']:.0f} % | {rate} "
              f"| {f'× {ratio:.2f}' if ratio else ''} | {limits(row, rows)} | {counted(values)} |")


def main(folder, options):
    files = [option.removeprefix("--json=") for option in options if option.startswith("--json=")]
    options = [option for option in options if not option.startswith("--json=")]
    print(f"{processor()}, {os.cpu_count()} processors, {platform.system()}; release preset; "
          f"`./bench{''.join(' ' + o for o in options)}`; medians of five runs")
    programs = {}
    for program in sorted(Path(folder).glob("bench_*")):
        if program.is_file() and os.access(program, os.X_OK):
            programs[program.name] = samples(run(program, options))
            print_table(program.name, medians(programs[program.name]))
    for file in files:
        Path(file).write_text(json.dumps(programs, indent=1) + "\n")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
