#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws the editor's pictures.

  draw.py           writes every picture to zolta/ beside this file
  draw.py --check   writes nothing; fails if a picture there differs from its drawing

The pictures are SVG Tiny 1.2: rectangles, circles, paths and gradients, no text. One unit is one
pixel of the editor at scale 1. Light comes from straight above. Edges that run along the pixel grid
are filled shapes on whole coordinates, so that they are sharp at every whole scale.
"""

import math
import re
import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent / "zolta"

# ---------------------------------------------------------------------------------------- palette

PANEL_TOP, PANEL_BOTTOM = "#2a2e34", "#1b1e22"
EDGE_LIGHT, EDGE_DARK = "#3b4047", "#101214"
WELL = "#0b0d10"
ENGRAVING = "#8a9199@0.6"
LETTERING = "#d7dce1"
ACCENT = "#0394D0"
BLACK, WHITE = "#000000", "#ffffff"
AMBER, GREEN, YELLOW, RED = "#ff9d1e", "#2fd05f", "#f9d93a", "#ff4a48"

BANDS = {
    "LOW": "#ED1C24",
    "1": "#ED6B1C",
    "2": "#FEBA24",
    "3": "#11B519",
    "4": "#14A8AD",
    "HIGH": "#9519D0",
}
BUTTON_COLORS = dict(zip(("red", "orange", "yellow", "green", "blue", "purple"), BANDS.values()))


def channels(color):
    return [int(color[i : i + 2], 16) for i in (1, 3, 5)]


def mix(a, b, part):
    """The colour that lies `part` of the way from a to b."""
    return "#%02x%02x%02x" % tuple(
        round(p + (q - p) * part) for p, q in zip(channels(a), channels(b))
    )


def fade(color, alpha):
    return f"{color}@{alpha:g}"


# ---------------------------------------------------------------------------------------- drawing


def number(value):
    """At most two decimals, and no more digits than needed."""
    return f"{round(value, 2) + 0.0:.2f}".rstrip("0").rstrip(".")


def attributes(values):
    return "".join(
        f' {key.replace("_", "-")}="{number(value) if isinstance(value, (int, float)) else value}"'
        for key, value in values.items()
    )


def paint(role, color, opacity_role=None):
    """Attributes for a colour "#rrggbb", one with its opacity "#rrggbb@0.5", or a gradient."""
    name, _, alpha = color.partition("@")
    return {role: name, opacity_role or f"{role}_opacity": float(alpha)} if alpha else {role: name}


def stop(offset, color):
    values = {"offset": offset, **paint("stop_color", color, "stop_opacity")}
    return f"<stop{attributes(values)}/>"


class Drawing:
    """One picture; shapes are painted in the order in which they are added."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.gradients, self.shapes = [], []

    def gradient(self, kind, position, stops):
        body = "".join(stop(offset, color) for offset, color in stops)
        text = f'{attributes(position)} gradientUnits="userSpaceOnUse">{body}</{kind}>'
        entry = (kind, text)
        if entry not in self.gradients:
            self.gradients.append(entry)
        return f"url(#g{self.gradients.index(entry)})"

    def vertical(self, top, bottom, *colors):
        """A gradient from y = top to y = bottom; a colour, or a pair of offset and colour."""
        position = {"x1": 0, "y1": top, "x2": 0, "y2": bottom}
        return self.gradient("linearGradient", position, spread(colors))

    def horizontal(self, left, right, *colors):
        position = {"x1": left, "y1": 0, "x2": right, "y2": 0}
        return self.gradient("linearGradient", position, spread(colors))

    def radial(self, cx, cy, r, *colors):
        return self.gradient("radialGradient", {"cx": cx, "cy": cy, "r": r}, spread(colors))

    def shape(self, name, **values):
        self.shapes.append(f"<{name}{attributes(values)}/>")

    def rect(self, x, y, width, height, fill, radius=0):
        corner = {"rx": radius, "ry": radius} if radius else {}
        self.shape("rect", x=x, y=y, width=width, height=height, **corner, **paint("fill", fill))

    def circle(self, cx, cy, r, fill):
        self.shape("circle", cx=cx, cy=cy, r=r, **paint("fill", fill))

    def fill(self, path, color, **values):
        self.shape("path", d=path, **paint("fill", color), **values)

    def stroke(self, path, color, width, cap="round", **values):
        self.shape(
            "path", d=path, fill="none", **paint("stroke", color), stroke_width=width,
            stroke_linecap=cap, stroke_linejoin="round" if cap == "round" else "miter", **values
        )

    def svg(self):
        size = f'width="{self.width}" height="{self.height}"'
        lines = [
            "<!-- SPDX-License-Identifier: GPL-3.0-or-later -->",
            '<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
            f'{size} viewBox="0 0 {self.width} {self.height}">'
        ]
        if self.gradients:
            lines.append("<defs>")
            lines += [f'<{kind} id="g{i}"{text}' for i, (kind, text) in enumerate(self.gradients)]
            lines.append("</defs>")
        return "\n".join(lines + self.shapes + ["</svg>"]) + "\n"


def spread(colors):
    last = max(len(colors) - 1, 1)
    return [c if isinstance(c, tuple) else (i / last, c) for i, c in enumerate(colors)]


def coordinates(*pairs):
    return " ".join(f"{number(x)} {number(y)}" for x, y in pairs)


def points(*pairs):
    return "M" + "L".join(coordinates(pair) for pair in pairs)


def polygon(*pairs):
    return points(*pairs) + "Z"


def polar(cx, cy, r, degrees):
    """The point at an angle clockwise from 12 o'clock."""
    angle = math.radians(degrees)
    return cx + r * math.sin(angle), cy - r * math.cos(angle)


def ring(cx, cy, outer, inner):
    """A closed ring, to be filled by the even-odd rule."""
    def circle(r):
        return (f"M{number(cx - r)} {number(cy)}a{number(r)} {number(r)} 0 1 0 {number(2 * r)} 0"
                f"a{number(r)} {number(r)} 0 1 0 {number(-2 * r)} 0Z")
    return circle(outer) + circle(inner)


# --------------------------------------------------------------------------------------- surfaces


def recess(d, x, y, width, height, radius, fill, depth, shade=0.55):
    """A sunken area: dark edge, light lip below, and the shadow of its upper edge."""
    d.rect(x, y + 1, width, height, EDGE_LIGHT, radius)
    d.rect(x, y, width, height, EDGE_DARK, radius)
    inside = (x + 1, y + 1, width - 2, height - 2)
    d.rect(*inside, fill, radius - 1)
    shadow = d.vertical(y + 1, y + 1 + depth, fade(BLACK, shade), fade(BLACK, 0))
    d.rect(*inside, shadow, radius - 1)


def raised(d, x, y, width, height, radius, pressed=False):
    """The cap of a button in its dark cut-out; a pressed one sits a pixel lower and darker."""
    d.rect(x, y + 1, width, height, fade(EDGE_LIGHT, 0.8), radius + 1)
    d.rect(x, y, width, height, "#08090b", radius + 1)
    top, bottom = ("#272b30", "#1e2125") if pressed else ("#474d55", "#2b3036")
    light = "#30353b" if pressed else "#666d76"
    y0, y1 = (y + 2, y + height - 1) if pressed else (y + 1, y + height - 2)
    d.rect(x + 1, y0, width - 2, y1 - y0, d.vertical(y0, y1, light, bottom), radius)
    d.rect(x + 1, y0 + 1, width - 2, y1 - y0 - 1, d.vertical(y0, y1, top, bottom), radius)


def lens(d, cx, cy, r, color, light):
    """A lamp's glass: dark and tinted at light 0, glowing at 1."""
    if light > 0:
        core = mix(color, WHITE, 0.62 * light)
        rim = mix(color, BLACK, 0.25 + 0.4 * (1 - light))
        body = mix(color, BLACK, 0.45 * (1 - light))
        d.circle(cx, cy, r, d.radial(cx, cy - r * 0.15, r * 1.15, core, (0.55, body), rim))
    else:
        dark = mix(color, WELL, 0.86)
        d.circle(cx, cy, r, d.vertical(cy - r, cy + r, mix(color, "#15181c", 0.86),
                                       mix(dark, "#2a2f35", 0.35)))


def halo(d, cx, cy, inner, outer, color, alpha):
    d.circle(cx, cy, outer, d.radial(cx, cy, outer, (inner / outer, fade(color, alpha)),
                                     (inner / outer * 0.5 + 0.5, fade(color, alpha * 0.3)),
                                     (1, fade(color, 0))))


def screw(d, cx, cy, angle):
    d.circle(cx, cy + 0.75, 6.5, fade(EDGE_LIGHT, 0.8))
    d.circle(cx, cy, 6.5, "#0c0e10")
    d.circle(cx, cy, 5.5, d.vertical(cy - 5.5, cy + 5.5, "#5b626a", "#2a2e33"))
    d.circle(cx, cy, 4.5, d.vertical(cy - 4.5, cy + 4.5, "#3d4249", "#34393f"))
    a, b = polar(cx, cy, 3.4, angle), polar(cx, cy, 3.4, angle + 180)
    d.stroke(points(a, b), "#121416", 1.4)


# -------------------------------------------------------------------------------------- lettering

# Letters as an engraver cuts them: the centre line of one round tool, in a box of height 1.
# Each has its width and its path; curves are cubic, every number but the width is a coordinate.
GLYPHS = {
    "L": (0.50, "M0 0L0 1L.5 1"),
    "O": (0.86, "M.43 0C.7 0 .86 .2 .86 .5C.86 .8 .7 1 .43 1C.16 1 0 .8 0 .5C0 .2 .16 0 .43 0Z"),
    "W": (1.12, "M0 0L.28 1L.56 .1L.84 1L1.12 0"),
    "H": (0.68, "M0 0L0 1M.68 0L.68 1M0 .5L.68 .5"),
    "I": (0.0, "M0 0L0 1"),
    "G": (0.80, "M.78 .2C.7 .07 .58 0 .43 0C.16 0 0 .2 0 .5C0 .8 .16 1 .43 1C.66 1 .8 .86 .8 .56"
                "L.46 .56"),
    "1": (0.30, "M0 .2L.3 0L.3 1"),
    "2": (0.60, "M.03 .22C.08 .08 .18 0 .31 0C.48 0 .59 .12 .59 .28C.59 .42 .52 .5 .4 .62L.02 1"
                "L.62 1"),
    "3": (0.60, "M.05 .16C.11 .05 .2 0 .31 0C.47 0 .57 .1 .57 .25C.57 .39 .46 .47 .27 .47"
                "C.48 .47 .6 .57 .6 .73C.6 .9 .48 1 .31 1C.17 1 .06 .93 .01 .81"),
    "4": (0.66, "M.5 1L.5 0L0 .7L.68 .7"),
    "Q": (0.86, "M.43 0C.7 0 .86 .2 .86 .5C.86 .8 .7 1 .43 1C.16 1 0 .8 0 .5C0 .2 .16 0 .43 0Z"
                "M.56 .72L.86 1.04"),
    "U": (0.70, "M0 0L0 .62C0 .86 .13 1 .35 1C.57 1 .7 .86 .7 .62L.7 0"),
    "E": (0.56, "M.56 0L0 0L0 1L.56 1M0 .49L.5 .49"),
    "N": (0.72, "M0 1L0 0L.72 1L.72 0"),
    "T": (0.70, "M0 0L.7 0M.35 0L.35 1"),
    "A": (0.80, "M0 1L.4 0L.8 1M.13 .68L.67 .68"),
}


def place(path, x, y, scale):
    """A path whose numbers are all coordinates, scaled and moved."""
    values = iter(re.findall(r"[A-Z]|-?[\d.]+", path))
    text = ""
    for value in values:
        if value.isalpha():
            text += value
        else:
            text += f"{number(x + float(value) * scale)} {number(y + float(next(values)) * scale)} "
    return re.sub(r" (?=[A-Z]|$)", "", text)


def text_width(text, cap, tool, tracking):
    scale = cap - tool
    return sum(GLYPHS[c][0] * scale + tool for c in text) + tracking * (len(text) - 1)


def lettering(d, text, x, top, cap, tool, color, tracking):
    """A line of letters from x, `cap` pixels high, cut by a tool of the given width."""
    path = ""
    for letter in text:
        width, glyph = GLYPHS[letter]
        path += place(glyph, x + tool / 2, top + tool / 2, cap - tool)
        x += width * (cap - tool) + tool + tracking
    d.stroke(path, color, tool)


def centred_lettering(d, text, cx, top, cap, tool, color, tracking):
    x = cx - text_width(text, cap, tool, tracking) / 2
    lettering(d, text, x, top, cap, tool, color, tracking)


def wordmark(x, y, cap, width):
    """The product's name as outlines: even strokes, a dial for the O, an A without a bar."""
    stroke, slant = 3 / 23 * cap, 0.18 * cap
    widths = [part * cap for part in (0.90, 1.0, 0.66, 0.90, 1.08)]
    # Set by eye, not by ruler: L, T and A leave room of their own beside them.
    kerning = [part * cap for part in (0.0, 0.04, -0.16, -0.26)]
    gap = (width - sum(widths) - sum(kerning)) / len(kerning)
    lefts = [x]
    for letter, kern in zip(widths, kerning):
        lefts.append(lefts[-1] + letter + gap + kern)
    bottom, upper, lower = y + cap, y + stroke, y + cap - stroke

    left, right = lefts[0], lefts[0] + widths[0]
    z = polygon((left, y), (right, y), (right, upper), (left + slant, lower), (right, lower),
                (right, bottom), (left, bottom), (left, lower), (right - slant, upper),
                (left, upper))

    cx, cy, r = lefts[1] + widths[1] / 2, y + cap / 2, cap / 2
    o = ring(cx, cy, r, r - stroke)
    inner, outer = polar(cx, cy, r * 0.1, 40), polar(cx, cy, r * 0.56, 40)
    across = polar(0, 0, stroke * 0.42, 130)
    o += polygon(*[(px + sign * across[0], py + sign * across[1])
                   for (px, py), sign in ((inner, 1), (outer, 1), (outer, -1), (inner, -1))])

    left, right = lefts[2], lefts[2] + widths[2]
    l = polygon((left, y), (left + stroke, y), (left + stroke, lower), (right, lower),
                (right, bottom), (left, bottom))

    left, right = lefts[3], lefts[3] + widths[3]
    stem = (left + right - stroke) / 2
    t = polygon((left, y), (right, y), (right, upper), (stem + stroke, upper),
                (stem + stroke, bottom), (stem, bottom), (stem, upper), (left, upper))

    left, right = lefts[4], lefts[4] + widths[4]
    middle, apex, foot = (left + right) / 2, stroke * 0.56, stroke * 1.14
    peak = bottom - cap * (middle - left - foot) / (middle - left - apex)
    a = polygon((left, bottom), (middle - apex, y), (middle + apex, y), (right, bottom),
                (right - foot, bottom), (middle, peak), (left + foot, bottom))
    return z + o + l + t + a


# ------------------------------------------------------------------------------------------ knobs


class Cap:
    """What tells one role's knob from another's: its metal and its pointer."""

    def __init__(self, light, dark, sheen, pointer, glow):
        self.light, self.dark, self.sheen = light, dark, sheen
        self.pointer, self.glow = pointer, glow


# Name, metal in the light and in the dark, its sheen, pointer and its glow.
GRAPHITE = Cap("#565d66", "#191c20", 0.035, "#f2f5f7", WHITE)
SLATE = Cap("#47617a", "#141d26", 0.035, "#49c2fa", ACCENT)
SELECTOR = Cap("#47617a", "#141d26", 0.012, "#49c2fa", ACCENT)
SILVER = Cap("#bcc2c8", "#50565d", 0.06, "#f7f9fa", WHITE)
JET = Cap("#41454b", "#0b0c0e", 0.03, "#f2f5f7", WHITE)
DEAD = Cap("#25282c", "#15171a", 0.01, "#4a4f55", None)

FULL_SWEEP = [(210 + 30 * i) % 360 for i in range(11)]
TYPE_SWEEP = [300, 340, 20, 60]


def ticks(d, c, angles, inner, outer, strong=None, color=ENGRAVING, strong_color=LETTERING):
    def marks(chosen, start):
        return "".join(points(polar(c, c, start, a), polar(c, c, outer, a)) for a in chosen)
    d.stroke(marks([a for a in angles if a != strong], inner), color, 1.2, "butt")
    if strong is not None:
        d.stroke(marks([strong], inner - 1), strong_color, 1.8, "butt")


def knob_seat(d, c, r, cap, shadow=0.75):
    """The knob's shadow, its seat, and all of it that does not show its turning."""
    fall = r * 0.2
    reach = min(r * 1.22, c - fall)
    d.circle(c, c + fall, reach,
             d.radial(c, c + fall, reach, (0.66, fade(BLACK, shadow)),
                      (0.84, fade(BLACK, shadow * 0.4)), (1, fade(BLACK, 0))))
    light, dark = cap.light, cap.dark
    d.circle(c, c, r + 0.9, "#060708")
    d.circle(c, c, r, d.vertical(c - r, c + r, (0, mix(light, WHITE, 0.25)),
                                 (0.3, mix(light, dark, 0.4)), (1, mix(dark, BLACK, 0.3))))
    d.circle(c, c, r - 1, d.vertical(c - r, c + r, light, mix(light, dark, 0.5), dark))
    for half, middle in ((36, 0), (26, 0), (17, 0), (9, 0), (24, 180), (12, 180)):
        d.fill(sector(c, r - 2.5, middle - half, middle + half), fade(WHITE, cap.sheen))


def flutes(c, r, depth, count):
    """The outline of a cap with shallow grip flutes."""
    step = 360 / count
    path = "M" + coordinates(polar(c, c, r, -step * 0.27))
    for i in range(count):
        ridge_end, next_ridge = (i + 0.27) * step, (i + 0.73) * step
        groove = [polar(c, c, r - depth, (i + part) * step) for part in (0.39, 0.61)]
        path += f"A{number(r)} {number(r)} 0 0 1 {coordinates(polar(c, c, r, ridge_end))}"
        path += "C" + coordinates(*groove, polar(c, c, r, next_ridge))
    return path + "Z"


def sector(c, r, start, end):
    a, b = polar(c, c, r, start), polar(c, c, r, end)
    return points((c, c), a) + f"A{number(r)} {number(r)} 0 0 1 {coordinates(b)}Z"


def cap_face(d, c, r, cap, count):
    """The turning cap: all its shading is round, so that the light on it stays where it is."""
    d.fill(flutes(c, r, r * 0.06, count), fade(mix(cap.dark, BLACK, 0.3), 0.6))
    face, metal = r * 0.86, mix(cap.light, cap.dark, 0.35)
    d.circle(c, c, face, d.radial(c, c, face, (0, fade(metal, 0.55)), (0.84, fade(metal, 0.3)),
                                  (0.92, fade(mix(cap.light, WHITE, 0.2), 0.5)),
                                  (1, fade(cap.dark, 0.4))))


def pointer(d, c, top, bottom, width, cap):
    """A lit inlay at 12 o'clock, in its slot."""
    if cap.glow:
        glow = width + 4
        d.rect(c - glow / 2, top - 1.5, glow, bottom - top + 3, fade(cap.glow, 0.13), glow / 2)
    slot = width + 1.6
    d.rect(c - slot / 2, top - 0.8, slot, bottom - top + 1.6, fade("#050607", 0.8), slot / 2)
    d.rect(c - width / 2, top, width, bottom - top, cap.pointer, width / 2)


def knob_back(size, r, cap, angles, tick_outer, strong=None):
    d = Drawing(size, size)
    c = size / 2
    ticks(d, c, angles, r + (tick_outer - r) * 0.52, tick_outer, strong)
    knob_seat(d, c, r, cap)
    return d


def knob_cap(size, r, cap, count):
    d = Drawing(size, size)
    c = size / 2
    cap_face(d, c, r - 1.5, cap, count)
    pointer(d, c, c - r + 2.6, c - r * 0.3, size / 22, cap)
    return d


def handle(c, half, top, bottom):
    """A bar that narrows towards its top, with round ends."""
    right = [(c + half - 1.5, top + 3), (c + half, bottom - 4)]
    left = [(2 * c - x, y) for x, y in reversed(right)]
    return ("M" + coordinates(left[1]) + "Q" + coordinates((c - half + 2, top), (c, top))
            + "Q" + coordinates((c + half - 2, top), right[0]) + "L" + coordinates(right[1])
            + "Q" + coordinates((c + half, bottom), (c, bottom))
            + "Q" + coordinates((c - half, bottom), left[0]) + "Z")


def selector_cap(size, r, cap):
    """The type knob's cap: a bar handle across a plain disc."""
    d = Drawing(size, size)
    c = size / 2
    face = r - 1.5
    d.circle(c, c, face, d.radial(c, c, face, (0, fade(cap.dark, 0.5)), (1, fade(cap.dark, 0.25))))
    half, top, bottom = 5, c - r - 0.5, c + r - 1.5
    d.fill(handle(c, half + 1.2, top - 1.2, bottom + 1.2), "#07090b@0.55")
    d.fill(handle(c, half, top, bottom), mix(cap.light, cap.dark, 0.28))
    for x in (c - half + 1.6, c + half - 2.6):
        d.rect(x, top + 3, 1, 2 * r - 9, fade(WHITE, 0.12))
    pointer(d, c, top + 2, c - r * 0.32, 2.5, cap)
    return d


def knob_disabled(size, r):
    """The gain knob with its light out; ring and cap in one picture."""
    d = Drawing(size, size)
    c = size / 2
    ticks(d, c, FULL_SWEEP, r + 4.7, 29, 0, fade("#8a9199", 0.28), fade(LETTERING, 0.4))
    knob_seat(d, c, r, DEAD, 0.4)
    cap_face(d, c, r - 1.5, DEAD, 20)
    pointer(d, c, c - r + 2.6, c - r * 0.3, size / 22, DEAD)
    return d


def knobs():
    r, outer = 20.5, 29
    yield "knob_level_back", knob_back(76, 28, GRAPHITE, FULL_SWEEP, 37, 0)
    yield "knob_level", knob_cap(76, 28, GRAPHITE, 24)
    yield "knob_QLH_back", knob_back(60, 18.5, SELECTOR, TYPE_SWEEP, 26)
    yield "knob_QLH", selector_cap(60, 18.5, SELECTOR)
    for name, cap, strong in (("Q", SLATE, None), ("F", SILVER, None), ("G", JET, 0)):
        yield f"knob_{name}_back", knob_back(60, r, cap, FULL_SWEEP, outer, strong)
        yield f"knob_{name}", knob_cap(60, r, cap, 20)
    yield "knob_G_dis", knob_disabled(60, r)


# ------------------------------------------------------------------------------------- band icons


def smooth(corners, radius=1.1):
    """A line through corners that are rounded by a tool of the given radius."""
    path = points(corners[0])
    for before, (x, y), after in zip(corners, corners[1:], corners[2:]):
        def towards(end):
            length = math.dist((x, y), end)
            part = min(radius, length / 2) / length
            return x + (end[0] - x) * part, y + (end[1] - y) * part
        start, stop = towards(before), towards(after)
        path += "L" + coordinates(start) + "Q" + coordinates((x, y), stop)
    return path + "L" + coordinates(corners[-1])


def response(cx, top, run, plateau, feet):
    """A filter's response, alike on both sides: a plateau that falls within `run`, to feet or to
    nothing."""
    steps = [plateau, plateau + run] + ([plateau + run + feet] if feet else [])
    bottom = top + (4 if feet else 5)
    side = list(zip(steps, (top, bottom, bottom)))
    return smooth([(cx - x, y) for x, y in reversed(side)] + [(cx + x, y) for x, y in side])


def type_icon(mirrored):
    d = Drawing(66, 18)
    # Pass 12, pass 6, shelf 6, shelf 12.
    shapes = [(1.5, 3.5, 0), (4, 1.5, 0), (3, 1.5, 1.75), (1, 2.75, 2)]
    places = [(7.5, 11.5), (22.5, 2.5), (43.5, 2.5), (58.5, 11.5)]
    for shape, (cx, top) in zip(shapes, places):
        d.stroke(response(66 - cx if mirrored else cx, top, *shape), LETTERING, 1.2)
    return d


def bell(cx, bottom, height, half, foot):
    """A bell over half its width on either side, of which `foot` is flat."""
    top, spread_by = bottom - height, half - foot
    def side(sign):
        return [(cx + sign * part * spread_by, y)
                for part, y in ((1, bottom), (0.55, bottom), (0.5, top), (0, top))]
    left, right = side(-1), side(1)[::-1]
    curves = left[1:] + right[1:]
    return (points((cx - half, bottom), left[0]) + "C"
            + coordinates(*curves)
            + "L" + coordinates((cx + half, bottom)))


def icons():
    yield "icon_Q_Low", type_icon(False)
    d = Drawing(70, 10)
    d.stroke(bell(11, 8.5, 7, 7, 0), LETTERING, 1.2)
    d.stroke(bell(61, 8.5, 7, 7, 3.6), LETTERING, 1.2)
    yield "icon_Q_Mid", d
    yield "icon_Q_High", type_icon(True)


# ---------------------------------------------------------------------------------------- buttons


def key(symbol, pressed, color=LETTERING):
    """A square button, 26 x 26, with an engraved symbol."""
    d = Drawing(26, 26)
    raised(d, 2, 2, 22, 22, 3, pressed)
    shift = 1 if pressed else 0
    symbol(d, shift, mix(color, BLACK, 0.3) if pressed else color)
    return d


def plus(d, dy, color):
    d.rect(8, 12 + dy, 10, 2, color)
    d.rect(12, 8 + dy, 2, 10, color)


def minus(d, dy, color):
    d.rect(8, 12 + dy, 10, 2, color)


def flat(d, dy, color):
    d.rect(6, 12 + dy, 14, 2, color)


def bars(d, dy, color):
    for x, height in zip((6, 10, 14, 18), (5, 10, 7, 3)):
        d.rect(x, 18 - height + dy, 2, height, color)


def lamp_button(color, light, pressed=False):
    """A band's button, 28 x 28. Its centre is that of the column's knobs, one pixel left of its
    own rectangle's."""
    d = Drawing(28, 28)
    cx, cy = 13, 14
    dy = 1 if pressed else 0
    if light > 0:
        halo(d, cx, cy, 8, 13, mix(color, WHITE, 0.12), 0.7 * light)
    d.circle(cx, cy + 0.8, 9.4, fade(EDGE_LIGHT, 0.8))
    d.circle(cx, cy, 9.4, "#08090b")
    rim = ("#30353b", "#1a1d21") if pressed else ("#6a717a", "#22262b")
    d.circle(cx, cy + dy * 0.5, 8.5, d.vertical(cy - 8.5, cy + 8.5, *rim))
    d.circle(cx, cy + dy, 7, "#0a0b0d")
    lens(d, cx, cy + dy, 6.2, color, light)
    return d


def buttons():
    for state in ("up", "dw"):
        pressed = state == "dw"
        yield f"btn_plus_{state}", key(plus, pressed)
        yield f"btn_minus_{state}", key(minus, pressed)
        yield f"btn_spectrum_off_{state}", key(bars, pressed)
        yield f"btn_spectrum_on_{state}", key(bars, pressed, "#3cc0ff")
        yield f"btn_flat_{state}", key(flat, pressed)
        for name, color in BUTTON_COLORS.items():
            yield f"btn_{name}_{state}", lamp_button(color, 0.5 if pressed else 1, pressed)
    yield "btn_off_up", lamp_button("#8a9199", 0)


# ------------------------------------------------------------------------------- switch and lamps


def switch(top):
    """The lever of the drive switch, 37 x 48, with its cap from `top` on."""
    d = Drawing(37, 48)
    recess(d, 7, 0, 23, 47, 4, WELL, 8)
    d.rect(18, 6, 1, 36, fade("#8a9199", 0.25))
    height = 21
    d.rect(9, top, 19, min(height + 2, 46 - top), fade(BLACK, 0.55), 3)
    d.rect(9, top, 19, height, d.vertical(top, top + height, "#767e87", "#1d2024"), 3)
    d.rect(9, top + 1, 19, height - 2, d.vertical(top, top + height, "#555c64", "#282c31"), 3)
    for y in (5, 15):
        d.rect(12, top + y, 13, 1, "#16181b")
        d.rect(12, top + y + 1, 13, 1, fade(WHITE, 0.14))
    d.rect(12, top + 10, 13, 2, LETTERING)
    return d


def small_lamp(color, light):
    d = Drawing(20, 20)
    if light:
        halo(d, 10, 10, 4.5, 10, color, 0.6)
    d.circle(10, 10.8, 5.8, fade(EDGE_LIGHT, 0.8))
    d.circle(10, 10, 5.8, "#060708")
    lens(d, 10, 10, 4.5, color, light)
    return d


def switches():
    yield "sw_drive", switch(2)
    yield "sw_crean", switch(25)
    for name, color in (("drive", AMBER), ("clean", GREEN)):
        yield f"led_{name}_on", small_lamp(color, 1)
        yield f"led_{name}_off", small_lamp(color, 0)


# ----------------------------------------------------------------------------------------- meters


def led_meter(lit):
    """Eleven lamps, 10 x 94, of which the lower ones are lit."""
    d = Drawing(10, 94)
    for k in range(1, 12):
        color = RED if k == 11 else YELLOW if k >= 9 else GREEN
        y = 89 - 8.125 * (k - 1) - 3
        if k <= lit:
            d.rect(0, y - 1, 10, 8, fade(color, 0.28), 2)
            d.rect(1, y, 8, 6, d.horizontal(1, 9, color, mix(color, WHITE, 0.55), color), 1)
        else:
            d.rect(1, y, 8, 6, mix(color, "#14171a", 0.82), 1)
    return d


def meter_back(width):
    d = Drawing(width, 326)
    d.rect(0, 0, width, 326, EDGE_LIGHT, 6)
    d.rect(0, 0, width, 325, "#050607", 6)
    return d


def meters():
    yield "back_meter", meter_back(20)
    yield "back_meter_mono", meter_back(12)
    for lit in range(12):
        yield f"meter_{lit}", led_meter(lit)


# ------------------------------------------------------------------------------------- background

# Centres of the bands' knob columns and of their rows.
COLUMN_CENTRES = dict(zip(BANDS, (307, 398, 489, 580, 671, 762)))
COLUMN_TOP, COLUMN_BOTTOM, COLUMN_WIDTH = 238, 546, 70
ROWS = (294, 370, 455)
FIELD_ROWS = (316, 399, 484)

# The printed scale's places on the round meters.
SCALE_ROWS = [152 + y for y in (0, 28, 63, 99, 122, 140, 158, 182, 205, 247, 276, 294)]


def engraved(d, x, y, width):
    """A horizontal groove."""
    d.rect(x, y, width, 1, EDGE_DARK)
    d.rect(x, y + 1, width, 1, EDGE_LIGHT)


def field(d, cx, y):
    """The window behind a value, 60 x 16 around a text field of 56 x 14."""
    recess(d, cx - 30, y - 1, 60, 16, 3, WELL, 5)


def column(d, name, cx):
    left = cx - COLUMN_WIDTH // 2
    color = BANDS[name]
    recess(d, left, COLUMN_TOP, COLUMN_WIDTH, COLUMN_BOTTOM - COLUMN_TOP, 5,
           d.vertical(COLUMN_TOP, COLUMN_BOTTOM, "#15181b", "#1a1d21"), 12, 0.45)
    d.rect(left + 10, COLUMN_TOP + 4, COLUMN_WIDTH - 20, 2, color)
    centred_lettering(d, name, cx, 223, 10, 1.5, LETTERING, 1.8)
    for y in FIELD_ROWS if name not in ("LOW", "HIGH") else FIELD_ROWS[1:]:
        field(d, cx, y)


def guides(d):
    edges = [cx + side * COLUMN_WIDTH // 2 for cx in COLUMN_CENTRES.values() for side in (-1, 1)]
    for y in ROWS:
        for start, end in zip(edges[1:-1:2], edges[2::2]):
            d.rect(start + 2, y, end - start - 4, 1, ENGRAVING)


def display(d):
    recess(d, 46, 12, 752, 206, 6, d.vertical(12, 218, "#060708", "#0c0e11"), 14, 0.7)


def left_section(d):
    recess(d, 46, COLUMN_TOP, 218, COLUMN_BOTTOM - COLUMN_TOP, 5,
           d.vertical(COLUMN_TOP, COLUMN_BOTTOM, "#15181b", "#1a1d21"), 12, 0.45)
    mark = wordmark(57, 270, 23, 197)
    d.fill(mark, fade(BLACK, 0.6), fill_rule="evenodd", transform="translate(0 -0.8)")
    d.fill(mark, fade(WHITE, 0.12), fill_rule="evenodd", transform="translate(0 0.8)")
    d.fill(mark, LETTERING, fill_rule="evenodd")
    for y in (303, 370, 507):
        engraved(d, 57, y, 197)
    for y in (323, 346):
        d.rect(167, y, 24, 1, ENGRAVING)
    recess(d, 148, 403, 32, 97, 4, WELL, 8)
    for cx in (89, 224):
        field(d, cx, 484)


def meter_bay(d):
    recess(d, 872, 100, 95, 370, 6, d.vertical(100, 470, "#131518", "#171a1d"), 12)
    for y in SCALE_ROWS:
        d.rect(881, y, 4, 1, ENGRAVING)
        d.rect(954, y, 4, 1, ENGRAVING)


def background():
    d = Drawing(977, 559)
    d.rect(0, 0, 977, 559, d.vertical(0, 559, PANEL_TOP, PANEL_BOTTOM))
    d.rect(0, 0, 977, 1, mix(EDGE_LIGHT, WHITE, 0.1))
    d.rect(0, 1, 1, 557, EDGE_LIGHT)
    d.rect(976, 1, 1, 557, EDGE_DARK)
    d.rect(0, 558, 977, 1, EDGE_DARK)
    display(d)
    left_section(d)
    guides(d)
    for name, cx in COLUMN_CENTRES.items():
        column(d, name, cx)
    recess(d, 806, 55, 54, 100, 6, d.vertical(55, 155, "#15181b", "#1a1d21"), 10, 0.45)
    meter_bay(d)
    for cx, cy, angle in ((26, 26, 35), (951, 26, 110), (26, 533, 75), (951, 533, 20)):
        screw(d, cx, cy, angle)
    return d


# ------------------------------------------------------------------------------------------ about


def product_logo():
    d = Drawing(691, 88)
    d.fill(wordmark(0, 0, 88, 691), WHITE, fill_rule="evenodd")
    return d


def maker_logo():
    d = Drawing(135, 29)
    d.fill(ring(14.5, 14.5, 13, 10.4), WHITE, fill_rule="evenodd")
    d.stroke(points(polar(14.5, 14.5, 5, 135), polar(14.5, 14.5, 14.2, 135)), WHITE, 2.6)
    lettering(d, "QUENTA", 38, 7, 15, 2, WHITE, 4.2)
    return d


def about():
    yield "about_zolta_logo", product_logo()
    yield "about_quenta_logo", maker_logo()


# ------------------------------------------------------------------------------------------- main


def pictures():
    """Every picture's file name and text."""
    yield "back_zolta.svg", background().svg()
    for group in (meters, buttons, knobs, icons, switches, about):
        for name, drawing in group():
            yield f"{name}.svg", drawing.svg()


def write():
    FOLDER.mkdir(exist_ok=True)
    for name, text in pictures():
        (FOLDER / name).write_text(text, encoding="utf-8")


def check():
    """The names of the files that are missing, differ from their drawings, or have none."""
    drawn = dict(pictures())
    stored = {path.name: path.read_text(encoding="utf-8") for path in FOLDER.iterdir()}
    return sorted(name for name in drawn.keys() | stored.keys()
                  if drawn.get(name) != stored.get(name))


def main(arguments):
    if arguments == ["--check"]:
        wrong = check()
        for name in wrong:
            print(f"{FOLDER / name}: not what draw.py draws", file=sys.stderr)
        return 1 if wrong else 0
    if arguments:
        print(__doc__, file=sys.stderr)
        return 2
    write()
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
