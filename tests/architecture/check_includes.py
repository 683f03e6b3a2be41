# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks the house rules that a compiler does not: which room includes which, and licence lines.

Usage: check_includes.py PROJECT_ROOT
"""

import re
import sys
from pathlib import Path

# Each room's floor; the longest matching prefix counts. A file may include its own floor and those
# below it, rooms of one floor only themselves unless they are listed as one room.
FLOORS = {
    "plugin": 8,
    "editor/zolta": 7,
    "graph": 6,
    "editor/base": 5,
    "controls": 4,
    "widgets": 3,
    "plugin/component": 2,
    "plugin/interfaces": 1,
    "graph/filters": 0,
    "editor/meters": 0,
}
# Beside the house. Nothing in it includes from these; what each may include of the house:
BESIDE = {
    "host": {"plugin/interfaces", "graph/filters", "controls", "widgets", "host", "host/engine"},
    "host/engine": {"graph/filters", "host", "host/engine"},
    "designer": set(FLOORS) | {"designer"},
    "tests": set(FLOORS) | {"host", "host/engine", "tests"},
    "benchmarks": set(FLOORS) | {"host", "host/engine", "benchmarks"},
    "fuzz": set(FLOORS) | {"host", "host/engine", "fuzz"},
}
# Rooms that know neither Qt nor the SDK.
PLAIN = {"graph/filters", "editor/meters", "host/engine"}
QT_ONLY = {"widgets"}

INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]', re.M)
OWN_OUTPUT = re.compile(r"^(moc_|ui_|tst_)|\.moc$")


def room_of(path):
    rooms = [*FLOORS, *BESIDE]
    matching = [room for room in rooms if path == room or path.startswith(room + "/")]
    return max(matching, key=len, default=None)


def is_plain_header(name):
    return re.fullmatch(r"[a-z_0-9]+(\.h)?", name) is not None


def problems_of(path, text):
    room = room_of(path)
    if room is None:
        yield "stands in no room"
        return
    for quote, name in INCLUDE.findall(text):
        if quote == "<":
            if room in PLAIN and not is_plain_header(name):
                yield f"includes <{name}>, but {room} knows only the standard library"
            if room in QT_ONLY and name.startswith(("pluginterfaces/", "public.sdk/", "base/")):
                yield f"includes <{name}>, but {room} knows only Qt"
            continue
        if OWN_OUTPUT.search(name):
            continue
        target = room_of(name)
        if target is None:
            yield f'includes "{name}", which begins with no room'
        elif room in BESIDE:
            if target not in BESIDE[room]:
                yield f'includes "{name}": {room} may not include {target}'
        elif target not in FLOORS:
            yield f'includes "{name}": the house includes nothing from {target}'
        elif target != room and FLOORS[target] >= FLOORS[room]:
            yield f'includes "{name}": {target} is no lower than {room}'


def main(root):
    paths = [p.relative_to(root) for p in Path(root).rglob("*") if p.suffix in (".h", ".cpp")]
    sources = [str(p) for p in paths if p.parts[0] != "build"]
    found = 0
    for path in sorted(sources):
        text = (Path(root) / path).read_text()
        problems = list(problems_of(path, text))
        if not text.startswith("// SPDX-License-Identifier: GPL-3.0-or-later\n"):
            problems.append("does not begin with the licence line")
        for problem in problems:
            print(f"{path}: {problem}")
            found += 1
    print(f"{len(sources)} files read, {found} problems")
    return 1 if found or not sources else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
