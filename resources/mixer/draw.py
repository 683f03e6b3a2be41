#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws the mixer's pictures with the tools of the editor's ones, so that both are of one system.

  draw.py           writes every picture beside this file
  draw.py --check   writes nothing; fails if a picture there differs from its drawing
"""

import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER.parent))
sys.dont_write_bytecode = True

import draw as art  # noqa: E402
from draw import Drawing, fade, mix  # noqa: E402

KEY, WIDE_KEY, KEY_HEIGHT = 38, 80, 22
CAP_WIDTH, CAP_HEIGHT = 34, 56
GROOVE_HEIGHT, TRAVEL = 280, 280 - CAP_HEIGHT
TICK_COUNT = 41  # one for every tenth position of the fader
STRONG_TICKS = (0, 10, 20, 30, 40)
LIT = {"blue": art.ACCENT, "red": "#e5383b", "amber": art.AMBER, "white": "#c3ccd6"}


def key(width, pressed=False):
    d = Drawing(width, KEY_HEIGHT)
    art.raised(d, 0, 0, width, KEY_HEIGHT - 1, 2.5, pressed)
    return d


def lit_key(width, color, pressed=False):
    """A key that glows from inside."""
    d = key(width, pressed)
    top = 2 if pressed else 1
    bottom = KEY_HEIGHT - 2 if pressed else KEY_HEIGHT - 3
    dim = 0.25 if pressed else 0.0
    light, base = mix(mix(color, art.WHITE, 0.25), art.BLACK, dim), mix(color, art.BLACK, 0.2 + dim)
    d.rect(1, top, width - 2, bottom - top, d.vertical(top, bottom, light, base), 2.5)
    middle = mix(color, art.BLACK, dim)
    d.rect(
        2, top + 1, width - 4, bottom - top - 2,
        d.vertical(top, bottom, middle, mix(color, art.BLACK, 0.3 + dim)), 1.8,
    )
    return d


def choice(pressed=False):
    """A field that opens a list: sunken glass with an arrow."""
    d = Drawing(WIDE_KEY, KEY_HEIGHT)
    d.rect(0, 1, WIDE_KEY, KEY_HEIGHT - 1, fade(art.EDGE_LIGHT, 0.7), 3)
    d.rect(0, 0, WIDE_KEY, KEY_HEIGHT - 1, "#060708", 3)
    fill = d.vertical(1, KEY_HEIGHT - 2, "#0e1114", "#171b1f") if not pressed else "#0a0c0e"
    d.rect(1, 1, WIDE_KEY - 2, KEY_HEIGHT - 3, fill, 2.3)
    x, y = WIDE_KEY - 12, 9
    d.fill(f"M{x} {y}L{x + 7} {y}L{x + 3.5} {y + 4}Z", art.ENGRAVING)
    return d


def fader_groove():
    """The slot that the cap slides in, and its ticks; the strip prints the numbers."""
    d = Drawing(CAP_WIDTH, GROOVE_HEIGHT)
    for i in range(TICK_COUNT):
        y = CAP_HEIGHT / 2 + TRAVEL * (1 - i / (TICK_COUNT - 1))
        y = round(y) - 0.5
        strong = i in STRONG_TICKS
        length = 9 if strong else 5
        color = fade("#8a9199", 0.75 if strong else 0.32)
        for x in (1, CAP_WIDTH - 1 - length):
            d.rect(x, y, length, 1, color)
    x, top, bottom = CAP_WIDTH / 2 - 3, CAP_HEIGHT / 2 - 14, GROOVE_HEIGHT - CAP_HEIGHT / 2 + 14
    d.rect(x - 1, top, 8, bottom - top + 1, fade(art.EDGE_LIGHT, 0.8), 4)
    d.rect(x - 1, top - 1, 8, bottom - top + 1, "#050607", 4)
    d.rect(x, top, 6, bottom - top - 1, d.horizontal(x, x + 6, "#08090b", "#15181b", "#0c0e10"), 3)
    return d


def fader_cap():
    """A machined cap: a waist of fine grooves and a white line at the value."""
    d = Drawing(CAP_WIDTH, CAP_HEIGHT)
    w, h, m = CAP_WIDTH, CAP_HEIGHT, CAP_HEIGHT / 2
    d.rect(2, 1, w - 4, h - 2, "#07080a", 4)
    body = d.vertical(2, h - 2, (0.0, "#7a828c"), (0.06, "#50575f"), (0.3, "#343a41"),
                      (0.5, "#23272c"), (0.7, "#3c434b"), (0.93, "#2c3137"), (1.0, "#15181b"))
    d.rect(3, 2, w - 6, h - 4, body, 3)
    d.rect(4, 3, w - 8, 1, fade(art.WHITE, 0.22))
    for i in range(1, 5):
        for y in (m - 4 - 4 * i, m + 3 + 4 * i):
            d.rect(5, y, w - 10, 1, fade(art.BLACK, 0.5))
            d.rect(5, y + 1, w - 10, 1, fade(art.WHITE, 0.1))
    d.rect(3, m - 2, w - 6, 4, "#0a0b0d")
    d.rect(3, m - 1, w - 6, 2, d.horizontal(3, w - 3, "#b9c2cb", art.WHITE, "#b9c2cb"))
    edge = fade(art.BLACK, 0.28)
    d.rect(3, 4, 1.5, h - 8, edge)
    d.rect(w - 4.5, 4, 1.5, h - 8, edge)
    return d


def fader_shadow():
    d = Drawing(CAP_WIDTH, CAP_HEIGHT + 10)
    for inset, alpha in ((0, 0.10), (1, 0.14), (2, 0.18), (3, 0.22)):
        d.rect(inset, 6 + inset, CAP_WIDTH - 2 * inset, CAP_HEIGHT + 4 - 2 * inset,
               fade(art.BLACK, alpha), 5)
    return d


def lamp(color, light):
    d = Drawing(14, 14)
    d.circle(7, 7.6, 6.4, fade(art.EDGE_LIGHT, 0.7))
    d.circle(7, 7, 6.4, "#050607")
    art.lens(d, 7, 7, 4.8, color, light)
    return d


def symbol(*paths):
    d = Drawing(18, 18)
    for path in paths:
        d.fill(path, art.LETTERING)
    return d


def circles(*centres):
    """Where a sound goes: to one place or to two."""
    d = Drawing(22, 18)
    for x in centres:
        d.fill(art.ring(x, 9, 5, 3.6), art.LETTERING, fill_rule="evenodd")
    return d


def pictures():
    found = {
        "fader_cap.svg": fader_cap(),
        "fader_groove.svg": fader_groove(),
        "fader_shadow.svg": fader_shadow(),
        "choice_up.svg": choice(),
        "choice_dw.svg": choice(True),
        "lamp_off.svg": lamp("#20252a", 0.1),
        "lamp_green.svg": lamp(art.GREEN, 1),
        "lamp_red.svg": lamp(art.RED, 1),
        "symbol_mono.svg": circles(11),
        "symbol_stereo.svg": circles(7.5, 14.5),
        "symbol_play.svg": symbol("M5 3L15 9L5 15Z"),
        "symbol_stop.svg": symbol("M4 4L14 4L14 14L4 14Z"),
        "symbol_open.svg": symbol("M2 4L7 4L9 6L15 6L15 8L5 8L2 14Z", "M6 9L17 9L14 15L3 15Z"),
    }
    for name, width in (("key", KEY), ("wide", WIDE_KEY)):
        found[f"{name}_up.svg"] = key(width)
        found[f"{name}_dw.svg"] = key(width, True)
        for color, code in LIT.items():
            found[f"{name}_{color}_up.svg"] = lit_key(width, code)
            found[f"{name}_{color}_dw.svg"] = lit_key(width, code, True)
    return {name: drawing.svg() for name, drawing in found.items()}


def write():
    for name, text in pictures().items():
        (FOLDER / name).write_text(text)


def check():
    wanted = pictures()
    there = {file.name: file.read_text() for file in FOLDER.glob("*.svg")}
    wrong = sorted(n for n in wanted.keys() | there.keys() if wanted.get(n) != there.get(n))
    for name in wrong:
        print(f"{name} differs from its drawing")
    print(f"{len(wanted)} pictures, {len(wrong)} wrong")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(check() if sys.argv[1:] == ["--check"] else write())
