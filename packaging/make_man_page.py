#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the manual page of zolta-host out of what the program itself says of its options.

Usage: make_man_page.py PROGRAM > zolta-host.1
"""

import re
import subprocess
import sys

HEAD = """.\\" SPDX-License-Identifier: GPL-3.0-or-later
.TH ZOLTA-HOST 1 "" "Zolta {version}" "User Commands"
.SH NAME
zolta-host \\- mixer host with a channel equalizer
.SH SYNOPSIS
.B zolta-host
.RI [ options ]
.RI [ SOUND ]
.br
.B zolta-host \\-\\-render
.I IN OUT
.RI [ options ]
.SH DESCRIPTION
A mixer that opens the channel equalizer's editor, plays sound files and inputs through it, and
renders files without a window.
"""

TAIL = """.SH FILES
.TP
.I ~/.local/share/zolta\-host/session.json
The last session: names, settings and open windows. A damaged one is kept beside it under another
name.
.TP
.I ~/.local/share/zolta\-host/desktop.json
The same for the desktop equalizer.
.TP
.I ~/.local/share/zolta\-host/presets/
The user's presets.
.TP
.I ~/.config/zolta/editors.json
How each channel's editor was set up last.
.SH EXAMPLES
.TP
.B zolta\\-host \\-\\-audio drums.wav
Play a file and open the editor of its channels.
.TP
.B zolta\\-host \\-\\-render voice.wav out.flac \\-\\-state voice.vstpreset
Send a file through saved settings.
.TP
.B zolta\\-host \\-\\-desktop
Equalize everything that the desktop plays.
.TP
.B zolta\\-host \\-\\-list
Show the names and ranges of all parameters for \\fB\\-\\-set\\fR.
"""


def escaped(text):
    return re.sub(r"^([.'])", r"\\&\1", text.replace("\\", "\\e").replace("-", "\\-"))


def body(help_text):
    """A section for each paragraph of the help that lists options."""
    section = "OPTIONS"
    for line in help_text.splitlines()[2:]:
        option = re.match(r"  (--\S+(?: \S+)*)(?:  +(.*))?$", line)
        if option:
            if section:
                yield f".SH {section}"
                section = ""
            yield ".TP"
            yield f".B {escaped(option[1])}"
            if option[2]:
                yield escaped(option[2])
        elif line.startswith("    "):
            yield escaped(line.strip())
        elif line.startswith("Exit codes:"):
            yield ".SH EXIT STATUS"
            yield escaped(line.removeprefix("Exit codes:").strip())
        elif line:
            yield ".PP"
            yield escaped(line)


def main(program, version):
    help_text = subprocess.run([program, "--help"], capture_output=True, text=True,
                               check=True).stdout
    print(HEAD.format(version=version) + "\n".join(body(help_text)) + "\n" + TAIL, end="")


if __name__ == "__main__":
    main(*sys.argv[1:3])
