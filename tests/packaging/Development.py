# SPDX-License-Identifier: GPL-3.0-or-later
"""What the tests of the installed development files share."""

import os
import subprocess
from pathlib import Path

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Wconversion", "-Werror"]
ROOT = Path(__file__).resolve().parents[2]
SDK = "/usr/share/juce/modules/juce_audio_processors/format_types/VST3_SDK"


def run(*command, **options):
    """The standard output; what went wrong is in the exception's text."""
    result = subprocess.run([str(part) for part in command], capture_output=True, text=True,
                            errors="replace", **options)
    if result.returncode:
        raise AssertionError(f"{' '.join(map(str, command))}\n{result.stdout}{result.stderr}")
    return result.stdout


def public_headers():
    """[(component, header, whether it is a detail of others)], as in the list."""
    lines = (ROOT / "packaging/development/interface.txt").read_text().splitlines()
    words = [line.split() for line in lines if line and not line.startswith("#")]
    return [(line[0], line[1], line[2:] == ["detail"]) for line in words]


def system_flags(*packages):
    """The compiler's flags for libraries that are not ours, with their warnings off."""
    flags = run("pkg-config", "--cflags", *packages).split()
    return [part for flag in flags
            for part in (["-isystem", flag[2:]] if flag.startswith("-I") else [flag])]


def include_flags(prefix):
    return [f"-I{prefix}/include", f"-I{prefix}/include/zolta"]


def environment(prefix, **more):
    """Without a display, and without this process's set-up of fonts."""
    keep = {name: os.environ[name] for name in ("PATH", "HOME") if name in os.environ}
    return {**keep, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8",
            "PKG_CONFIG_PATH": f"{prefix}/lib/pkgconfig", **more}
