# SPDX-License-Identifier: GPL-3.0-or-later
"""Installs what programs and their makers get into FOLDER/moved, by way of another folder: whatever
remembers where it was installed first is found out by those who use it.

Usage: install_development.py BUILD_FOLDER FOLDER
"""

import shutil
import subprocess
import sys
from pathlib import Path


def main(build, folder):
    first, moved = Path(folder, "first"), Path(folder, "moved")
    for place in (first, moved):
        shutil.rmtree(place, ignore_errors=True)
    for component in ("runtime", "development"):
        subprocess.run(["cmake", "--install", build, "--component", component, "--prefix", first],
                       check=True, stdout=subprocess.DEVNULL)
    first.rename(moved)


if __name__ == "__main__":
    main(*sys.argv[1:])
