#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reference numbers for the filters, in 50-digit arithmetic.

Every design starts from its analog transfer function H(s). The coefficients come from mapping the
roots of H(s) one by one to the z plane, z = (c + s) / (c - s) with c = 2 fs, and from the gain of
H(s) at one point; the responses come from H(s) itself at s = j c tan(pi f / fs). Neither way uses
a closed formula for a digital coefficient.

Without arguments the table goes to standard output. `--check TABLE` compares it with a stored one.
"""

import sys
from itertools import product

from mpmath import mp, mpc, mpf

mp.dps = 50

EPSILON = mpf(2) ** -53

# The frequencies at which every design is evaluated.
PROBES = [mpf(30), mpf(440), mpf(3000), mpf(18000)]


class Analog:
    """A transfer function: two lists of coefficients in falling powers of s, of equal length."""

    def __init__(self, numerator, denominator):
        self.numerator = [mpf(c) for c in numerator]
        self.denominator = [mpf(c) for c in denominator]

    def inverse(self):
        return Analog(self.denominator, self.numerator)

    def at(self, s):
        return mp.polyval(self.numerator, s) / mp.polyval(self.denominator, s)

    def moved_to(self, corner):
        """The same function of s / corner."""
        return Analog(*[[c * corner ** (i + 1 - len(p)) for i, c in enumerate(p)]
                        for p in (self.numerator, self.denominator)])


def tail_roots(coefficients):
    """The finite roots of a polynomial of at most second degree."""
    c = list(coefficients)
    while c and c[0] == 0:
        c.pop(0)
    if len(c) == 3:
        root = mp.sqrt(mpc(c[1] ** 2 - 4 * c[0] * c[2]))
        return [(-c[1] + root) / (2 * c[0]), (-c[1] - root) / (2 * c[0])]
    return [mpc(-c[1] / c[0])] if len(c) == 2 else []


def polynomial(roots):
    """The monic polynomial in z^-1 with these roots in z."""
    c = [mpc(1)]
    for root in roots:
        c = [a - root * b for a, b in zip(c + [0], [0] + c)]
    return [x.real for x in c]


def digital(analog, fs):
    """(b, a) of the bilinear transform, both in powers of z^-1, a[0] = 1."""
    degree = len(analog.denominator) - 1

    def mapped(coefficients):
        finite = [(2 * fs + s) / (2 * fs - s) for s in tail_roots(coefficients)]
        return finite + [mpc(-1)] * (degree - len(finite))

    b = polynomial(mapped(analog.numerator))
    a = polynomial(mapped(analog.denominator))
    # The gain is taken at a quarter of the rate, where z = j and no root lies.
    z1 = mpc(0, -1)
    want = analog.at(mpc(0, 2 * fs))
    have = mp.polyval(b[::-1], z1) / mp.polyval(a[::-1], z1)
    return [x * (want / have).real for x in b], a


def warped(f, fs):
    """The analog angular frequency that the bilinear transform takes to f."""
    return 2 * fs * mp.tan(mp.pi * f / fs)


# Shelves of gain A with their corner at 1 rad/s, A where the poles lie and B where the zeros lie.
def shelf(name, a):
    root2, rootA = mp.sqrt(2), mp.sqrt(a)
    return {
        "LOWS_A": lambda: Analog([1, a], [1, 1]),
        "LOWS_B": lambda: Analog([1, 1], [1, 1 / a]),
        "HIGS_A": lambda: Analog([a, 1], [1, 1]),
        "HIGS_B": lambda: Analog([1, 1], [1 / a, 1]),
        "LOWS_2A": lambda: Analog([1, root2 * rootA, a], [1, root2, 1]),
        "LOWS_2B": lambda: Analog([1, root2, 1], [1, root2 / rootA, 1 / a]),
        "HIGS_2A": lambda: Analog([a, root2 * rootA, 1], [1, root2, 1]),
        "HIGS_2B": lambda: Analog([1, root2, 1], [1 / a, root2 / rootA, 1]),
    }[name]()


SHELVES = ["LOWS_A", "LOWS_B", "LOWS_2A", "LOWS_2B", "HIGS_A", "HIGS_B", "HIGS_2A", "HIGS_2B"]

PASSES = {
    "HPF1": Analog([1, 0], [1, 1]),
    "HPF2": Analog([1, 0, 0], [1, mp.sqrt(2), 1]),
    "LPF1": Analog([0, 1], [1, 1]),
    "LPF2": Analog([0, 0, 1], [1, mp.sqrt(2), 1]),
}


def decibels(h):
    return 20 * mp.log10(abs(h))


def corner_error(f, fs):
    """The relative error of a pre-warped corner when its angle is a few roundings off."""
    x = mp.pi * f / fs
    return 8 * EPSILON * x * (1 + mp.tan(x) ** 2) / mp.tan(x)


def rounding_error(coefficients, z1):
    """How far a few roundings of each coefficient move a polynomial, relative to its value."""
    terms = sum(abs(c) for c in coefficients)
    return 8 * EPSILON * terms / abs(mp.polyval(coefficients[::-1], z1))


def response_error(b, a, f, fs, corner):
    """The relative error that double precision may have in a response at f."""
    z1 = mp.expj(-2 * mp.pi * f / fs)
    return rounding_error(b, z1) + rounding_error(a, z1) + corner_error(corner, fs)


def coefficient_error(coefficients, fs, corner):
    """The absolute error that double precision may have in the coefficients."""
    return (8 * EPSILON + corner_error(corner, fs)) * max(abs(c) for c in coefficients)


def number(x):
    return mp.nstr(x, 17)


def bound(x):
    return mp.nstr(x, 3)


def section_row(name, prototype, f, g, fs):
    analog = prototype.moved_to(warped(f, fs))
    b, a = digital(analog, fs)
    padding = [mpf(0)] * (3 - len(b))
    coefficients = b + padding + [-x for x in a[1:]] + padding
    row = [name] + [number(x) for x in (f, g, fs, *coefficients)]
    row.append(bound(coefficient_error(coefficients, fs, f)))
    for probe in PROBES:
        h = analog.at(mpc(0, warped(probe, fs)))
        row += [number(decibels(h)), number(mp.arg(h)), bound(response_error(b, a, probe, fs, f))]
    return row


def section_rows():
    frequencies, rates = [mpf(40), mpf(1000), mpf(15000)], [mpf(44100), mpf(96000), mpf(384000)]
    for name, f, g, fs in product(SHELVES, frequencies, [-20, mpf("-0.5"), 0, 6, 20], rates):
        boost = shelf(name, mpf(10) ** (abs(mpf(g)) / 20))
        yield section_row(name, boost if g >= 0 else boost.inverse(), f, mpf(g), fs)
    for name, f, fs in product(PASSES, frequencies, rates):
        yield section_row(name, PASSES[name], f, mpf(0), fs)


# (first rate, first rate after the row, threshold, c0, c1, c2)
QUALITY = [
    ("0", "48000", "2000", "1.25513", "0.0301", "4.817e-05"),
    ("48000", "88200", "2000", "1.25686", "0.02143", "4.103e-05"),
    ("88200", "96000", "4000", "1.29486", "0.0317", "2.462e-05"),
    ("96000", "176400", "4000", "1.21531", "0.02382", "2.004e-05"),
    ("176400", "192000", "4000", "1.00361995066", "-0.00189199457524", "3.37063090936e-06"),
    ("192000", "352800", "4000", "1.00167207739", "-0.00155627136929", "2.61028430333e-06"),
    ("352800", "384000", "4000", "1.00088954901", "-0.000464497094809", "8.18066158909e-07"),
    ("384000", "384001", "4000", "1.00041829825", "-0.000395429657653", "6.56655493056e-07"),
]


def compensated(f, fs, q):
    for first, end, threshold, c0, c1, c2 in [[mpf(x) for x in row] for row in QUALITY]:
        if first <= fs < end and f > threshold:
            ratio = c0 - c1 * mp.log(q, 2) - c2 * f
            return max(q * ratio, mpf("0.1")) if ratio <= 1 else q
    return q


def peak_row(f, fs, q, g):
    top = fs / 2 - 10
    centre, gain = (top, mpf(0)) if f > top else (f, g)
    used = compensated(centre, fs, q)
    wa = warped(centre, fs)
    band_pass = Analog([0, wa / used, 0], [1, wa / used, wa ** 2])
    b, a = digital(band_pass, fs)
    k = mpf(10) ** (abs(gain) / 20) - 1
    row = ["PEAK"] + [number(x) for x in (f, fs, q, g, a[1], a[2], b[0], k)]
    row.append(bound(coefficient_error(a, fs, centre)))
    for probe in PROBES:
        value = band_pass.at(mpc(0, warped(probe, fs)))
        whole = 1 + k * value if g >= 0 else 1 / (1 + k * value)
        row += [number(x) for x in (value.real, value.imag, decibels(whole))]
        row.append(bound(response_error(b, a, probe, fs, centre)))
    return row


def peak_rows():
    rates = [32000, 44100, 47999, 48000, 88199, 88200, 96000, 176400, 192000, 352800, 384000,
             mpf("384000.9"), 384001, 768000]
    for fs, f, q, g in product(rates, [100, 2000, 2001, 4001, 15000, 22045],
                               ["0.11", "0.5", "1.5", "16"], ["-12", "7.5"]):
        if (q in ("0.11", "1.5")) == (g == "-12"):
            yield peak_row(mpf(f), mpf(fs), mpf(q), mpf(g))


def header(first, columns, each):
    return [first, *columns.split()] + [f"{x}{number(f)}" for f in PROBES for x in each.split()]


def table():
    yield header("section", "f g fs b0 b1 b2 a1 a2 bound", "level phase bound")
    yield from section_rows()
    yield header("peak", "f fs q g c0 c1 c2 k bound", "re im level bound")
    yield from peak_rows()


def main():
    text = "".join("\t".join(row) + "\n" for row in table())
    if sys.argv[1:2] != ["--check"]:
        sys.stdout.write(text)
        return 0
    with open(sys.argv[2], encoding="ascii") as stored:
        same = stored.read() == text
    print("the stored table is", "what this script computes" if same else "out of date")
    return 0 if same else 1


if __name__ == "__main__":
    sys.exit(main())
