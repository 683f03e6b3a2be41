#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Cuts the gallery's sheet into one picture for each control's section, named by their order.

Usage: split_gallery.py SHEET.png FOLDER NAME...
"""

import struct
import sys
import zlib
from pathlib import Path

CHANNELS = {2: 3, 6: 4}
MARK = b"\x89PNG\r\n\x1a\n"


def paeth(left, above, corner):
    estimate = left + above - corner
    return min((left, above, corner), key=lambda value: abs(estimate - value))


def unfilter(kind, line, above, step):
    """One line of bytes as it was before the PNG filter \\a kind."""
    result = bytearray(line)
    for i, value in enumerate(line):
        left = result[i - step] if i >= step else 0
        corner = above[i - step] if i >= step else 0
        add = (0, left, above[i], (left + above[i]) // 2, paeth(left, above[i], corner))[kind]
        result[i] = (value + add) & 255
    return bytes(result)


def read_png(file):
    """The bytes of a pixel, and the lines of pixels."""
    data, offset, packed = Path(file).read_bytes(), len(MARK), b""
    while offset < len(data):
        size, kind = struct.unpack(">I4s", data[offset:offset + 8])
        part = data[offset + 8:offset + 8 + size]
        if kind == b"IHDR":
            width, _, _, color = struct.unpack(">IIBB", part[:10])
        elif kind == b"IDAT":
            packed += part
        offset += size + 12
    step = CHANNELS[color]
    raw, row, lines = zlib.decompress(packed), width * step, []
    for start in range(0, len(raw), row + 1):
        above = lines[-1] if lines else bytes(row)
        lines.append(unfilter(raw[start], raw[start + 1:start + 1 + row], above, step))
    return step, lines


def write_png(file, step, lines):
    def chunk(kind, part):
        return struct.pack(">I", len(part)) + kind + part + struct.pack(">I", zlib.crc32(kind + part))

    color = {3: 2, 4: 6}[step]
    header = struct.pack(">IIBBBBB", len(lines[0]) // step, len(lines), 8, color, 0, 0, 0)
    body = zlib.compress(b"".join(b"\0" + line for line in lines), 9)
    Path(file).write_bytes(MARK + chunk(b"IHDR", header) + chunk(b"IDAT", body) + chunk(b"IEND", b""))


def sections(step, lines):
    """Runs of lines that are not only the ground, as the first line is."""
    ground, found, run = lines[0], [], []
    for line in [*lines, ground]:
        if line != ground:
            run.append(line)
        elif run:
            found.append(run)
            run = []
    return found


def main(sheet, folder, *names):
    step, lines = read_png(sheet)
    found = sections(step, lines)
    if len(found) != len(names):
        return f"the sheet has {len(found)} sections, not {len(names)}"
    for name, run in zip(names, found):
        write_png(Path(folder) / f"{name}.png", step, run)
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
