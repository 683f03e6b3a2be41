# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks that the translations say everything that the sources ask for, and nothing else.

Usage: check_translations.py LUPDATE PROJECT_ROOT

Texts of the editor's forms that are the same in every language (numbers, units, image paths) must
be absent.
"""

import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

SAME_EVERYWHERE = re.compile(r"-?\d+|dB|Hz|:/.*|")
PLACE = re.compile(r"%\d")

# Every room whose texts somebody may read or hear, forms and accessible names included.
ROOMS = ("component", "controls", "daw", "editor", "effect", "graph", "host", "hosting",
         "parameters", "plugin", "widgets")


def messages_of(file):
    for context in ElementTree.parse(file).iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            yield (context.findtext("name"), message.findtext("source")), translation


def wanted_texts(lupdate, root):
    rooms = [root / name for name in ROOMS if (root / name).is_dir()]
    with tempfile.TemporaryDirectory() as folder:
        file = Path(folder) / "all.ts"
        command = [lupdate, "-silent", "-extensions", "cpp,h,ui", *rooms, "-ts", file]
        subprocess.run(command, check=True, stderr=subprocess.DEVNULL)
        texts = {key for key, _ in messages_of(file)}
    return {key for key in texts if not SAME_EVERYWHERE.fullmatch(key[1])}


def problems_of(file, wanted):
    found = {}
    for key, translation in messages_of(file):
        if key in found:
            yield f"{key} stands twice"
        found[key] = translation
    for key in sorted(wanted - found.keys()):
        yield f"{key} is missing"
    for key in sorted(found.keys() - wanted):
        yield f"{key} is asked for nowhere"
    for key, translation in sorted(found.items()):
        text = translation.text or ""
        if not text or translation.get("type"):
            yield f"{key} is not translated"
        if sorted(PLACE.findall(key[1])) != sorted(PLACE.findall(text)):
            yield f"{key} has other places to fill in than its translation"


def main(lupdate, root):
    root = Path(root)
    wanted = wanted_texts(lupdate, root)
    files = sorted((root / "resources" / "translations").glob("*.ts"))
    found = 0
    for file in files:
        for problem in problems_of(file, wanted):
            print(f"{file.name}: {problem}")
            found += 1
    print(f"{len(files)} translations of {len(wanted)} texts, {found} problems")
    return 1 if found or not files else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
