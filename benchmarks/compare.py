#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares two benchmark tables and prints what has changed by more than the noise of their runs.

Usage: compare.py OLD NEW

OLD and NEW are tables that ./bench printed, files that it wrote by --json=FILE, or the JSON of a
benchmark program itself. A time counts as changed when the medians differ by more than twice the
noise of both together, at least by 5 %; a table that says nothing of noise counts as one of 10 %.
Ends with 1 if anything has become slower.
"""

import json
import re
import sys
from pathlib import Path

from tabulate import duration, medians, samples

LEAST = 0.05
UNKNOWN_NOISE = 0.1
UNITS = {"ns": 1.0, "µs": 1e3, "ms": 1e6, "s": 1e9}


def from_markdown(text):
    rows = {}
    columns = []
    for line in text.splitlines():
        cells = [cell.strip() for cell in line.split("|")[1:-1]]
        if cells and cells[0] == "benchmark":
            columns = cells
        time = re.fullmatch(r"([\d.e+]+) (\w+)", cells[1]) if len(cells) > 1 else None
        if not time or time[2] not in UNITS or not cells[0].startswith("`"):
            continue
        noise = cells[columns.index("noise")].removesuffix(" %") if "noise" in columns else ""
        rows[cells[0].strip("`")] = {"time": float(time[1]) * UNITS[time[2]],
                                     "noise": float(noise) / 100.0 if noise else UNKNOWN_NOISE}
    return rows


def from_json(text):
    data = json.loads(text)
    if "benchmarks" in data:
        return medians(samples(data["benchmarks"]))
    return {row: values for program in data.values() for row, values in medians(program).items()}


def read(path):
    text = Path(path).read_text(encoding="utf-8")
    return from_json(text) if text.lstrip().startswith("{") else from_markdown(text)


def changes(old, new):
    """(name, old time, new time) of what has changed, in the new table's order."""
    for name, values in new.items():
        before = old.get(name)
        if before is None:
            continue
        bound = max(LEAST, 2.0 * (before["noise"] + values["noise"]))
        if abs(values["time"] / before["time"] - 1.0) > bound:
            yield name, before["time"], values["time"]


def main(old_path, new_path):
    old, new = read(old_path), read(new_path)
    changed = list(changes(old, new))
    for name, before, now in changed:
        print(f"{name}: {duration(before)} -> {duration(now)}, {100.0 * (now / before - 1.0):+.0f} %")
    for name in [name for name in old if name not in new]:
        print(f"{name}: only in {old_path}")
    for name in [name for name in new if name not in old]:
        print(f"{name}: only in {new_path}")
    print(f"{len(changed)} of {len(old.keys() & new.keys())} changed")
    return 1 if any(now > before for _, before, now in changed) else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1], sys.argv[2]))
