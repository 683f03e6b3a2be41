# SPDX-License-Identifier: GPL-3.0-or-later
"""Sound files of 32-bit floats, and settings of the equalizer, for tests with programs that load it."""

import array
import random
import struct
from pathlib import Path

# Raw values by the parameters' numbers; the others are at their defaults.
CLEAN = {1: 2, 2: 310, 3: 65, 5: 40, 6: 420, 7: -83, 9: 250, 10: 633, 11: 57, 14: 801, 15: -31,
         18: 950, 19: 42, 21: 2, 22: 1090, 23: -64, 25: 21, 26: -35}
DRIVE = {**CLEAN, 27: 1}


def latency_of(settings):
    return 78 if settings.get(27) else 0


def host_options(settings):
    """What zolta-host is told."""
    return [word for number, value in settings.items()
            for word in ("--set", f"fx_rackfx_prm_{number}=@{value}")]


def noise(frames, channels, seed=7):
    """Interleaved samples of full scale 0.5."""
    generator = random.Random(seed)
    return array.array("f", (generator.uniform(-0.5, 0.5) for _ in range(frames * channels)))


def write(path, samples, rate, channels):
    data = samples.tobytes()
    header = struct.pack("<4sI4s4sIHHIIHH4sI", b"RIFF", 36 + len(data), b"WAVE", b"fmt ", 16, 3,
                         channels, rate, rate * channels * 4, channels * 4, 32, b"data", len(data))
    Path(path).write_bytes(header + data)


def read(path):
    """The interleaved samples of a file, whichever program wrote it."""
    content = Path(path).read_bytes()
    at = 12
    while at + 8 <= len(content):
        kind, size = struct.unpack_from("<4sI", content, at)
        if kind == b"data":
            samples = array.array("f")
            samples.frombytes(content[at + 8:at + 8 + min(size, (len(content) - at - 8) // 4 * 4)])
            return samples
        at += 8 + size + size % 2
    raise ValueError(f"{path} holds no samples")
