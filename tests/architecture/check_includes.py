# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks the house rules that a compiler does not: every file stands in a room, a room includes only
what it may, neither rooms nor files include one another in a circle, and licence lines.

Usage: check_includes.py PROJECT_ROOT
"""

import re
import sys
from pathlib import Path

# Every room and the rooms that it may include besides itself, the lowest first.
ROOMS = {
    "equalizer": [],
    "interfaces": [],
    "widgets": [],
    "component": ["equalizer", "interfaces"],
    "controls": ["widgets", "interfaces"],
    "effect": ["controls", "widgets", "interfaces"],
    "graph": ["effect", "controls", "widgets", "equalizer", "interfaces"],
    "editor": ["graph", "effect", "controls", "component", "widgets", "interfaces", "equalizer"],
    "plugin": ["editor", "interfaces"],
    "parameters": ["equalizer"],
    "engine": ["parameters", "equalizer"],
    "hosting": ["parameters", "component", "equalizer", "interfaces"],
    "host/audio": ["engine", "hosting", "parameters", "equalizer"],
    "host/analysis": ["engine", "parameters", "equalizer"],
    "host/model": ["host/audio", "hosting", "engine", "parameters", "equalizer"],
    "host/meters": ["host/model", "hosting", "engine", "parameters", "equalizer"],
    "host/files": ["host/model", "hosting", "engine", "parameters", "equalizer"],
    "host/desktop": ["hosting", "engine", "parameters", "equalizer"],
    "host/window": ["host/desktop", "host/files", "host/meters", "host/model", "host/analysis", "host/audio",
                    "hosting", "engine", "parameters", "equalizer", "interfaces", "controls", "widgets"],
    "host/program": ["host/window", "host/desktop", "host/files", "host/meters", "host/model", "host/analysis",
                     "host/audio", "hosting", "engine", "parameters", "equalizer", "interfaces"],
    "daw/window": ["parameters", "equalizer"],
    "daw/processor": ["engine", "parameters", "equalizer"],
    "daw/lv2": ["daw/processor", "daw/window", "engine", "parameters", "equalizer"],
    "daw/vst3": ["daw/processor", "daw/window", "engine", "parameters", "equalizer"],
    "daw/editor": ["daw/window", "hosting", "parameters", "equalizer", "interfaces"],
}
# Beside the house: they include what they need, and nothing includes them.
BESIDE = ["resources", "gallery", "designer", "tests", "benchmarks", "fuzz"]
# Programs outside the house, which include what is installed.
OUTSIDE = "examples/"
# Rooms that know neither Qt nor the SDK, those that know a format's headers but not Qt, and those
# that know Qt alone.
STANDARD_LIBRARY_ONLY = {"equalizer", "parameters", "engine", "daw/processor"}
FORMAT_HEADERS = {"daw/lv2": r"lv2/.+\.h", "daw/vst3": r"pluginterfaces/.+\.h"}
QT_ONLY = {"widgets"}

INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]', re.M)
GENERATED = re.compile(r"^(moc_|ui_|tst_)|\.moc$")
SDK = ("pluginterfaces/", "public.sdk/", "base/")


def room_of(path):
    matching = [room for room in [*ROOMS, *BESIDE] if path.startswith(room + "/")]
    return max(matching, key=len, default=None)


def problems_of(path, text):
    if not text.startswith("// SPDX-License-Identifier: GPL-3.0-or-later\n"):
        yield "does not begin with the licence line"
    if path.startswith(OUTSIDE):
        return
    room = room_of(path)
    if room is None:
        yield "stands in no room"
        return
    for quote, name in INCLUDE.findall(text):
        if quote == "<":
            plain = re.fullmatch(r"[a-z_0-9]+(\.h)?", name)
            if room in STANDARD_LIBRARY_ONLY and not plain:
                yield f"includes <{name}>, but {room} knows only the standard library"
            if room in FORMAT_HEADERS and not plain and not re.fullmatch(FORMAT_HEADERS[room], name):
                yield f"includes <{name}>, but {room} knows no more than its format"
            if room in QT_ONLY and name.startswith(SDK):
                yield f"includes <{name}>, but {room} knows only Qt"
        elif not GENERATED.search(name):
            yield from problems_of_include(room, name)


def problems_of_include(room, name):
    target = room_of(name)
    if target is None:
        yield f'includes "{name}", which begins with no room'
    elif room in ROOMS and target != room and target not in ROOMS[room]:
        yield f'includes "{name}": {room} may not include {target}'


def first_circle(arrows):
    """A list of nodes that lead back to its first one; empty if there is none."""
    finished, path = set(), []

    def visit(node):
        if node in path:
            return path[path.index(node):] + [node]
        if node in finished:
            return []
        path.append(node)
        for target in sorted(arrows.get(node, ())):
            if circle := visit(target):
                return circle
        path.pop()
        finished.add(node)
        return []

    for start in sorted(arrows):
        if circle := visit(start):
            return circle
    return []


def arrows_between(texts, node_of):
    """{node: the other nodes that it includes}, where \\a node_of gives a path's node."""
    arrows = {}
    for path, text in texts.items():
        if path.startswith(OUTSIDE):
            continue
        targets = {node_of(name) for quote, name in INCLUDE.findall(text)
                   if quote == '"' and not GENERATED.search(name)}
        arrows.setdefault(node_of(path), set()).update(targets - {node_of(path)})
    return arrows


def unit_of(path):
    """A header and its source are one."""
    return path.rsplit(".", 1)[0]


def main(root):
    paths = [p.relative_to(root) for p in Path(root).rglob("*") if p.suffix in (".h", ".cpp")]
    texts = {str(p): (Path(root) / p).read_text() for p in paths if p.parts[0] != "build"}
    problems = [f"{path}: {problem}" for path in sorted(texts)
                for problem in problems_of(path, texts[path])]
    for what, node_of in (("rooms", room_of), ("files", unit_of)):
        if circle := first_circle(arrows_between(texts, node_of)):
            problems.append(f"{what} include one another: " + " -> ".join(map(str, circle)))
    print(*problems, f"{len(texts)} files read, {len(problems)} problems", sep="\n")
    return 1 if problems or not texts else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
