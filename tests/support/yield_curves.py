#!/usr/bin/env python3
"""Writes the decks and the PILE.07 of the cases tests/cases/yield-curves-*.

tests/support/yield_curves.py [--check]

The curves are calculated here from the formulas that docs/theory.md gives, operation by operation in
their order, so that every bit of PILE.07 is determined. --check writes nothing: it compares the files
with what is calculated, and shows for each other way to calculate that it would give other bytes.
"""
import math
import pathlib
import struct
import sys

CASES = pathlib.Path(__file__).resolve().parent.parent / "cases"
SLOTS = 200  # cross sections that PILE.07 has room for
POINTS = 10
NORCHK, ISOCHK = -1, -2


def single(value):
    """A single-precision constant, widened."""
    return struct.unpack("<f", struct.pack("<f", value))[0]


PI = 4.0 * math.atan(1.0)
PI_OF_CHECKS = single(PI)


def converted(text):
    """A number of the deck as the runtime converts it: a sum of its digits, times a power of ten."""
    mantissa, _, exponent = text.partition("E")
    whole, _, fraction = mantissa.partition(".")
    digits = (whole + fraction).lstrip("0")
    value = 0.0
    for place, digit in enumerate(digits):
        value += int(digit) * float(f"1e-{place}")
    power = int(exponent or 0) + len(digits) - len(fraction) - 1
    return value * 10.0 ** power if power >= 0 else value / 10.0 ** -power


def square(x):
    return x * x


class Tube:
    """A tube in the units of the analysis, with its yield stress and modulus of elasticity."""

    def __init__(self, D, t, fy, E):
        self.D, self.t, self.fy, self.E = D, t, fy, E
        self.d = D - 2.0 * t

    def difference_of_squares(self):
        return square(self.D) - square(self.d)

    def difference_of_cubes(self):
        return square(self.D) * self.D - square(self.d) * self.d

    def difference_of_fourth_powers(self):
        return square(square(self.D)) - square(square(self.d))


class Strength:
    """What both checks work with; their constants are of single precision."""

    def __init__(self, tube):
        D, t, fy, E = tube.D, tube.t, tube.fy, tube.E
        self.fy = fy
        self.A = tube.difference_of_squares() * PI_OF_CHECKS / 4.0
        self.W = tube.difference_of_fourth_powers() * PI_OF_CHECKS / D / 32.0
        shape = tube.difference_of_cubes() / 6.0 / self.W
        self.fxe = single(0.6) * E * t / D
        self.r = fy / self.fxe
        slenderness = fy * D / (E * t)
        if slenderness < single(0.0517):
            self.Fb = fy * shape
        elif slenderness < single(0.1034):
            self.Fb = fy * (single(1.13) - single(2.58) * fy * D / (E * t)) * shape
        else:
            self.Fb = fy * (single(0.94) - single(0.76) * fy * D / (E * t)) * shape

    def buckling(self):
        return (single(1.047) - single(0.274) * self.r) * self.fy

    def isochk(self, N, M):
        if N < 0.0:
            Fc = -self.fy
        else:
            Fc = self.fy if self.r < single(0.17) else self.buckling()
        return single(1.05) * (M / self.W) / self.Fb + single(1.18) * (N / self.A) / Fc

    def norchk(self, N, M):
        if N < 0.0 or self.r < single(0.17):
            Fc = self.fy
        else:
            Fc = self.buckling() if self.r < single(1.911) else self.fxe
        stress = M / self.W + N / self.A
        lambda_ = abs(stress) * math.sqrt(self.r) / Fc
        if lambda_ < 0.5:
            gamma = single(1.15)
        elif lambda_ < 1.0:
            gamma = single(0.85) + single(0.6) * lambda_
        else:
            gamma = single(1.45)
        n = abs(N) / (Fc * self.A / gamma)
        m = M / (self.Fb * self.W / gamma)
        combined = (math.pow(n, 1.75) if N < 0.0 else n) + m
        return max(combined, abs(N) / (self.A * self.fy / gamma))


class Method:
    """The steps of the generation. Each other way, below, has one of them changed."""

    start = single(0.9)
    force_tolerance = single(0.001)
    moment_tolerance = single(0.001)
    nearest_below = 1.0e6

    def area(self, tube):
        return tube.difference_of_squares() * PI * 0.25

    def modulus(self, tube):
        return tube.difference_of_fourth_powers() * PI / tube.D * 0.03125

    def next_force(self, N, U):
        return N * (1.0 / math.sqrt(U))

    def level(self, top, bottom, step, k):
        return top - (k - 1) * step

    def first_yield(self, fy, stress, W):
        return (fy - stress) * W

    def search(self, value, tolerance, utilisation, following):
        for _ in range(200):
            U = utilisation(value)
            if abs(U - 1.0) < tolerance:
                return value
            value = following(value, U)
        raise ValueError("the search does not end")

    def zero_the_nearest(self, levels):
        nearest, smallest = None, self.nearest_below
        for k, level in enumerate(levels):
            if abs(level) < smallest:
                nearest, smallest = k, abs(level)
        if nearest is not None:
            levels[nearest] = 0.0

    def curves(self, tube, code):
        """Axial levels, elastic moments, plastic moments."""
        strength = Strength(tube)
        check = strength.norchk if code == NORCHK else strength.isochk
        A, W = self.area(tube), self.modulus(tube)
        bottom = -A * tube.fy
        top = self.search(-self.start * bottom, self.force_tolerance, lambda N: check(N, 0.0), self.next_force)
        step = (top - bottom) / 9.0
        levels = [self.level(top, bottom, step, k) for k in range(1, POINTS + 1)]
        self.zero_the_nearest(levels)
        elastic, plastic = [0.0] * POINTS, [0.0] * POINTS
        for k in range(1, POINTS - 1):
            N = levels[k]
            plastic[k] = self.search(tube.fy * 0.5 * W, self.moment_tolerance, lambda M: check(N, M), lambda M, U: M / U)
            stress = abs(N) / A
            assert tube.fy - stress >= 0.0
            elastic[k] = min(plastic[k], self.first_yield(tube.fy, stress, W))
        return levels, elastic, plastic


def other_way(name, **changes):
    return type(name, (Method,), changes)()


OTHER_WAYS = {
    "the search of the capacity starts from 0.9 in double precision": other_way("Start", start=0.9),
    "the next force is N / U": other_way("Quotient", next_force=lambda self, N, U: N / U),
    "the next force is N / sqrt(U)": other_way("Root", next_force=lambda self, N, U: N / math.sqrt(U)),
    "the levels are counted from the other end": other_way("End", level=lambda self, top, bottom, step, k: bottom + (POINTS - k) * step),
    "each level is the one before less a step": other_way("Falling", level=lambda self, top, bottom, step, k: top if k == 1 else self.level(top, bottom, step, k - 1) - step),
    "the area is (D - t) PI t": other_way("Ring", area=lambda self, tube: (tube.D - tube.t) * PI * tube.t),
    "the area of the checks is used": other_way("Shared", area=lambda self, tube: Strength(tube).A),
    "(fy - stress) W is multiplied out": other_way("Out", first_yield=lambda self, fy, stress, W: fy * W - stress * W),
}
TOLERANCES = {
    "the tolerance of the capacity is 0.001 in double precision": other_way("Force", force_tolerance=0.001),
    "the tolerance of the moments is 0.001 in double precision": other_way("Moment", moment_tolerance=0.001),
}
ZERO_LEVEL = {"a level is set to zero however large it is": other_way("Always", nearest_below=math.inf)}


class Deck:
    """A deck of one vertical pile. Its numbers are texts."""

    LENGTH, ELEMENTS = "10", 2
    WEIGHT = "77"

    def __init__(self, label, FACF, FACL, materials, sections):
        self.label, self.FACF, self.FACL = label, FACF, FACL
        self.materials = materials  # E, G, yield stress
        self.sections = sections  # code, material, D, t

    def text(self):
        lines = [self.label, "KORVAT Version: 2009-09-01", "", " Control values", f"{self.FACF} force factor",
                 f"{self.FACL} length factor", "1 pile", f"{len(self.sections)} cross sections", f"{len(self.materials)} materials",
                 "1 segment type", "0 load vectors", "0 print level", "0 echo level", "", " Materials", " N  E  G  Yield stress  Weight  Strain", ""]
        lines += [f"{n} {E} {G} {fy} {self.WEIGHT} 0" for n, (E, G, fy) in enumerate(self.materials, 1)]
        lines += ["", " Cross sections", " N Type Code Mat  Diameter Wall", ""]
        lines += [f"{n} 1 {code} {m}  {D} {t}  0 0 0 0 0  0 0 0 0" for n, (code, m, D, t) in enumerate(self.sections, 1)]
        lines += ["", " Segment types", " N Start End Length Elements", f"1 1 1 {self.LENGTH} {self.ELEMENTS}",
                  "", " Piles", " NP NGEN NSYM  Head  Tip", f"1 0 0  0 0 0  0 0 {self.LENGTH}", " NP NSEG Segments", "1 1 1",
                  " NP1 NP2 ITIP IFIX", "1 1 0 0", "", " Special values", " NP1 NP2 ND1 ND2 Code Values", "0 0 0 0 0  0 0 0 0 0 0", "END", ""]
        return "\n".join(lines)

    def length(self, text):
        return converted(text) * converted(self.FACL)

    def stress_factor(self):
        FACL = converted(self.FACL)
        return converted(self.FACF) / FACL / FACL

    def stress(self, text):
        return converted(text) * self.stress_factor()

    def tube(self, section):
        _, m, D, t = section
        E, _, fy = self.materials[m - 1]
        return Tube(self.length(D), self.length(t), self.stress(fy), self.stress(E))

    def values(self, section):
        """The 20 values of a cross section."""
        tube = self.tube(section)
        E, fy = tube.E, tube.fy
        G = self.stress(self.materials[section[1] - 1][1])
        A = (tube.D - tube.t) * PI * tube.t
        I = tube.difference_of_fourth_powers() * PI * 0.015625
        weight = converted(self.WEIGHT) * (self.stress_factor() / converted(self.FACL))
        return [tube.D, tube.t, A, 2.0 * I / tube.D, A * E, A * G, I * E, 2.0 * I * G, weight, 0.0, 0.0, fy, E, G, 0.0,
                A * fy, A * (0.5 * fy) * ((tube.D - tube.t) * 0.5), 0.0, 0.0, 0.0]

    def pile_file(self, method):
        """The bytes of PILE.07."""
        count = len(self.sections)
        records = [integers(2009, 9, 1), self.label.ljust(80).encode(), integers(1, count)]
        records += [reals(*self.values(section)) for section in self.sections]
        unused = SLOTS - count
        records.append(integers(*[1] * count, *[0] * unused, *[POINTS] * count, *[0] * unused, *[0] * 12 * SLOTS))
        curves = [method.curves(self.tube(section), section[0]) for section in self.sections]
        nothing = [0.0] * POINTS * unused
        tables = [[value for curve in curves for value in curve[kind]] + nothing for kind in (0, 1, 0, 2)]
        records.append(reals(*(value for table in tables for value in table)))
        step = self.length(self.LENGTH) / self.ELEMENTS
        nodes = [n * step for n in range(self.ELEMENTS + 1)]
        zeros = reals(*[0.0] * len(nodes))
        records += [integers(1, 0, self.ELEMENTS, 0), zeros, zeros, reals(*nodes)] + [zeros] * 18
        records.append(reals(*[self.tube(self.sections[0]).D, step] * self.ELEMENTS))
        records.append((integers(1) + reals(0.0)) * self.ELEMENTS)
        return b"K" + b"".join(framed(record) for record in records) + b"\x82"


def integers(*values):
    return struct.pack(f"<{len(values)}i", *values)


def reals(*values):
    return struct.pack(f"<{len(values)}d", *values)


def framed(record):
    """A record in segments of 128 bytes, each between two bytes of its length; 129 where one goes on."""
    if len(record) < 128:
        return bytes([len(record)]) + record + bytes([len(record)])
    full, rest = divmod(len(record), 128)
    text = b"\x80" if len(record) == 128 else b"\x81"
    for n in range(full):
        text += record[128 * n:128 * n + 128] + b"\x81"
        text += b"\x81" if n + 1 < full else bytes([rest])
    return text + record[128 * full:] + bytes([rest])


# Three steels and an aluminium, in kN/m2.
MATERIALS = [("2.1E8", "8.1E7", "355000"), ("2.1E8", "8.1E7", "500000"), ("2.1E8", "8.1E7", "690000"), ("7E7", "2.6E7", "250000")]
# Material, diameter and wall: D/t from 20 to 119. In N, some of the large ones have no level below 1.0e6.
LARGE = [(1, "0.762", "0.0381"), (2, "0.508", "0.0188"), (1, "1.0668", "0.0323"), (3, "1.219", "0.0297"), (4, "0.914", "0.019"),
         (1, "1.397", "0.0254"), (2, "1.626", "0.0254"), (3, "0.813", "0.0113"), (1, "2.108", "0.0254"), (2, "1.829", "0.01925"),
         (1, "2.4", "0.0224"), (2, "3", "0.02521")]
SMALL = [(1, "0.168", "0.0084"), (2, "0.2191", "0.0081"), (1, "0.273", "0.0083"), (3, "0.3239", "0.0079"), (4, "0.3556", "0.0074"),
         (1, "0.4064", "0.0074"), (2, "0.457", "0.00714"), (3, "0.508", "0.00705"), (1, "0.559", "0.00673"), (2, "0.61", "0.00642"),
         (1, "0.66", "0.00617"), (2, "0.711", "0.00597")]
# Moduli with which a search comes to |U - 1| between 0.001 and its single-precision value: that of the
# capacity with the first, that of a moment with the second.
BORDERLINE = [("158916046.4", "6.2E7", "355000"), ("194504126.01", "7.2E7", "355000")]


def decks():
    """By the name of each case: its deck, and the other ways that must give other bytes."""
    result = {"yield-curves-tolerance": (
        Deck("Searches that end at the tolerance", "1", "1", BORDERLINE, [(ISOCHK, m, "0.508", "0.0102") for m in (1, 2)]), TOLERANCES)}
    for code, name, end in ((ISOCHK, "isochk", ""), (NORCHK, "norchk", "-on-posix")):
        large, small = ([(code, *tube) for tube in tubes] for tubes in (LARGE, SMALL))
        result[f"yield-curves-{name}-kn-m{end}"] = Deck(f"Curves of {name} in kN and m", "1", "1", MATERIALS, large), OTHER_WAYS
        result[f"yield-curves-{name}-n-m{end}"] = Deck(f"Curves of {name} in N and m, large tubes", "1000", "1", MATERIALS, large), OTHER_WAYS | ZERO_LEVEL
        result[f"yield-curves-{name}-n-mm{end}"] = Deck(f"Curves of {name} in N and mm", "1000", "1000", MATERIALS, small), OTHER_WAYS
    return result


def check(folder, deck, others):
    """What is wrong with a case: files that are not as calculated, and other ways that give the same bytes."""
    due = deck.pile_file(Method())
    faults = [f"{path} is not what is calculated" for path, content in (("KORVAT.INP", deck.text().encode()), ("expected/PILE.07", due))
              if (folder / path).read_bytes() != content]
    return faults + [f"gives the same bytes: {way}" for way, method in others.items() if deck.pile_file(method) == due]


def main():
    faults = 0
    for name, (deck, others) in decks().items():
        folder = CASES / name
        if "--check" not in sys.argv:
            (folder / "expected").mkdir(parents=True, exist_ok=True)
            (folder / "KORVAT.INP").write_bytes(deck.text().encode())
            (folder / "expected/PILE.07").write_bytes(deck.pile_file(Method()))
        for fault in check(folder, deck, others):
            print(f"{name}: {fault}")
            faults += 1
        print(f"{name}: {len(deck.sections)} cross sections, {len(others)} other ways")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
