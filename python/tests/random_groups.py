"""Random pile groups: a Deck, and beside it the values that KORVAT must make of it, worked out here from the formulas of docs/theory.md."""

from __future__ import annotations

import math
import random
from dataclasses import dataclass, field
from typing import Any

from korvat import Deck, Tube

KINDS = ("springs", "forces", "displacements")


@dataclass
class ExpectedPile:
    nodes: list[list[float]]
    elements: list[tuple[float, int]]  # length, section
    fixed_to: int = 0
    tip_code: int = 0
    values: dict[tuple[str, int], list[float]] = field(default_factory=dict)  # by kind and node, from 1
    temperatures: dict[int, float] = field(default_factory=dict)


@dataclass
class Expected:
    """Stored values: sections by number with the fields of the reader."""

    label: str
    revision: int
    sections: list[dict[str, Any]] = field(default_factory=list)
    tubes: dict[int, tuple[int, ...]] = field(default_factory=dict)
    curves: dict[int, list[tuple[float, ...]]] = field(default_factory=dict)
    computed: list[int] = field(default_factory=list)  # sections with yield curves of KORVAT's own
    piles: list[ExpectedPile] = field(default_factory=list)
    loads: list[tuple[str, list[tuple[int, list[float]]]]] = field(default_factory=list)


class GroupMaker:
    """Makes one group; the same seed gives the same group."""

    def __init__(self, seed: int) -> None:
        self.random = random.Random(seed)
        self.revision = 4 + seed % 2
        # Every fourth group has numbers of all digits, whose records need several lines.
        self.has_all_digits = seed % 4 >= 2 and seed % 3 == 0
        facf, facl = self.random.choice([(1.0, 1.0), (1.0, 1.0), (0.001, 0.001), (4.448, 0.3048)])
        self.facf, self.facl = facf, facl
        label = f"Group {seed}, {'all' if self.has_all_digits else 'few'} digits"
        self.deck = Deck(
            label,
            self.revision,
            force_factor=facf,
            length_factor=facl,
            print_level=self.random.randint(0, 2),
            echo_level=self.random.randint(0, 1),
        )
        self.expected = Expected(label, self.revision)
        self.materials: list[dict[str, float]] = []
        self.segments: list[tuple[int, int, float, int]] = []
        self.lines: list[tuple[list[float], list[float]]] = []

    def real(self, low: float, high: float, decimals: int = 3) -> float:
        """In the units of the deck."""
        value = self.random.uniform(low, high)
        return value if self.has_all_digits else round(value, decimals)

    def size(self, low: float, high: float) -> float:
        """A length that is between low and high in stored units."""
        return self.real(low / self.facl, high / self.facl)

    def make(self) -> tuple[Deck, Expected]:
        for _ in range(self.random.randint(1, 4)):
            self.add_material()
        if self.revision == 4:
            self.add_sections_4()
        else:
            self.add_sections_5()
        for _ in range(self.random.randint(1, 6)):
            self.add_piles()
        if not self.segments:  # a deck has at least one type
            self.add_given(self.point(-5.0, 5.0), self.point(10.0, 60.0))
        self.add_tips()
        for _ in range(self.random.randint(0, 8)):
            self.add_node_values()
        for number in range(self.random.randint(0, 3)):
            self.add_loads(number)
        return self.deck, self.expected

    # ---- materials and sections

    def add_material(self) -> None:
        stress, weight = self.facf / self.facl**2, self.facf / self.facl**3
        given = {
            "elastic_modulus": self.real(1.9e8, 2.2e8) / stress,
            "shear_modulus": self.real(7.7e7, 8.2e7) / stress,
            "yield_stress": self.real(2.3e5, 4.6e5) / stress,
            "wall_weight": self.real(70.0, 80.0) / weight,
            "temperature_strain": self.random.choice([0.0, 1.2e-5, 1.15e-5]),
        }
        self.deck.add_material(**given, note=self.random.choice(["", "steel, as delivered"]))
        factors = {"wall_weight": weight, "temperature_strain": 1.0}
        self.materials.append({name: value * factors.get(name, stress) for name, value in given.items()})

    def tube(self, diameter: float, wall: float, number: int, material: int, given: dict[str, float]) -> dict[str, Any]:
        """The stored values of a tube from those of the deck."""
        m = self.materials[material - 1]
        d, t = diameter * self.facl, wall * self.facl
        area = math.pi * (d - t) * t
        inertia = math.pi * (d**4 - (d - 2 * t) ** 4) / 64
        bending = self.facf * self.facl**2
        values: dict[str, Any] = {
            "diameter": d,
            "wall": t,
            "area": area,
            "section_modulus": 2 * inertia / d,
            "axial_stiffness": m["elastic_modulus"] * area,
            "shear_stiffness": m["shear_modulus"] * area,
            "bending_stiffness": m["elastic_modulus"] * inertia,
            "torsional_stiffness": 2 * m["shear_modulus"] * inertia,
            "fluid_weight": given.get("fluid_weight", 0.0) * self.facf / self.facl**3,
            **m,
        }
        for name, factor in (
            ("axial_stiffness", self.facf),
            ("shear_stiffness", self.facf),
            ("bending_stiffness", bending),
            ("torsional_stiffness", bending),
        ):
            if given.get(name, 0.0) > 0.0:
                values[name] = given[name] * factor
        if self.revision == 5:
            values["axial_yield"] = area * m["yield_stress"]
            values["torsional_yield"] = area * m["yield_stress"] / 2 * (d - t) / 2
            values["type"] = 1
        return values

    def stiffnesses(self) -> dict[str, float]:
        """Some given, some left to KORVAT; and a fluid."""
        weight = self.facf / self.facl**3
        given = {"fluid_weight": self.real(9.0, 11.0) / weight}
        for name in ("axial_stiffness", "bending_stiffness", "shear_stiffness", "torsional_stiffness"):
            if self.random.random() < 0.15:
                given[name] = self.real(1.0e6, 9.0e6)
        return given

    def add_sections_4(self) -> None:
        last: dict[str, Any] = {}
        for _ in range(self.random.randint(1, 5)):
            skipped = self.random.randint(0, 3) if last else 0
            material = self.random.randint(1, len(self.materials))
            diameter = self.size(0.5, 2.0)
            wall = self.real(0.01 / self.facl, 0.06 / self.facl, 4)
            given = self.stiffnesses()
            number = self.deck.add_section(
                material, diameter, wall, number=len(self.expected.sections) + skipped + 1 if skipped else None, **given
            )
            assert number == len(self.expected.sections) + skipped + 1
            own = {"diameter": diameter, "wall": wall, "material": material, **given}
            for j in range(1, skipped + 1):
                self.add_left_out(last, own, (j - 0.5) / skipped)
            self.expected.sections.append(self.tube(diameter, wall, number, material, given))
            last = own

    def add_left_out(self, first: dict[str, Any], last: dict[str, Any], share: float) -> None:
        """The middle of a part of the range between two given sections, with the material of the first."""
        names = {*first, *last} - {"material"}
        between = {name: first.get(name, 0.0) + (last.get(name, 0.0) - first.get(name, 0.0)) * share for name in names}
        diameter, wall = between.pop("diameter"), between.pop("wall")
        number = len(self.expected.sections) + 1
        self.expected.sections.append(self.tube(diameter, wall, number, first["material"], between))

    def add_sections_5(self) -> None:
        tubes: list[tuple[int, dict[str, Any]]] = []
        count = self.random.randint(1, 6)
        for number in range(1, count + 1):
            if self.random.random() < 0.4:
                parts = self.add_composite(number)
                tubes += [(number, part) for part in parts]
            else:
                self.add_plain_5(number)
        for number, part in tubes:
            self.expected.sections.append(part)
            own = len(self.expected.sections)
            self.expected.tubes[number] = (*self.expected.tubes.get(number, ()), own)

    def extras(self) -> tuple[float, tuple[float, float, float]]:
        if self.random.random() < 0.6:
            return 0.0, (0.0, 0.0, 0.0)
        return self.real(-0.1, 0.1), (self.real(0, 1), self.real(-5, 5), self.real(0, 9))

    def add_plain_5(self, number: int) -> None:
        material = self.random.randint(1, len(self.materials))
        diameter = self.size(0.8, 2.0)
        wall = diameter / self.random.uniform(20.0, 90.0) if self.has_all_digits else round(diameter / self.random.randint(20, 90), 4)
        given = self.stiffnesses()
        ecc, misc = self.extras()
        kind = self.random.choice(["linear", "given", "norchk", "isochk"])
        values = self.tube(diameter, wall, number, material, given)
        values.update(eccentricity=ecc, miscellaneous=misc)
        curve = self.curve() if kind == "given" else None
        check = kind if kind in ("norchk", "isochk") else None
        self.deck.add_section(
            material, diameter, wall, check=check, curve=curve, eccentricity=ecc, miscellaneous=misc, **given
        )
        if curve is not None:
            self.expected.curves[number] = curve
        if check is not None:
            self.expected.computed.append(number)
        values["non_linear_code"] = 10 if check else len(curve or ())
        self.expected.sections.append(values)

    def curve(self) -> list[tuple[float, ...]]:
        count = self.random.randint(2, 10)
        points = []
        for i in range(count):
            axial = self.real(900.0, 1000.0) * (1 - 2 * i / (count - 1)) * count
            moment = 0.0 if i in (0, count - 1) else self.real(10.0, 500.0)
            points.append((0.9 * axial, 0.75 * moment, axial, moment))
        return points

    def add_composite(self, number: int) -> list[dict[str, Any]]:
        diameter = self.size(1.0, 2.0)
        tubes, parts = [], []
        for place in range(self.random.randint(2, 4)):
            wall = self.real(0.02 / self.facl, 0.05 / self.facl, 4)
            material = self.random.randint(1, len(self.materials))
            given = self.stiffnesses()
            tubes.append(Tube(material, wall, diameter if place == 0 else None, **given))
            parts.append(self.tube(diameter, wall, 0, material, given))
            diameter -= 2 * wall
        ecc, misc = self.extras()
        curve = self.curve() if self.random.random() < 0.5 else None
        self.deck.add_composite(tubes, curve=curve, eccentricity=ecc, miscellaneous=misc)
        sums = ("area", "axial_stiffness", "shear_stiffness", "bending_stiffness", "torsional_stiffness", "axial_yield", "torsional_yield")
        values: dict[str, Any] = {name: sum(part[name] for part in parts) for name in sums}
        values.update(diameter=parts[0]["diameter"], eccentricity=ecc, miscellaneous=misc, type=len(parts))
        values["non_linear_code"] = len(curve or ())
        if curve is not None:
            self.expected.curves[number] = curve
        self.expected.sections.append(values)
        return parts

    # ---- piles

    def point(self, low: float, high: float) -> list[float]:
        return [self.size(-50.0, 50.0), self.size(-50.0, 50.0), self.size(low, high)]

    def add_piles(self) -> None:
        kind = self.random.choice(["given", "given", "between", "copy", "mirror", "dummy"])
        piles = self.expected.piles
        if kind in ("copy", "mirror") and piles:
            self.add_generated(kind, self.random.randint(1, len(piles)))
        elif kind == "dummy":
            head = self.point(-5.0, 5.0)
            self.deck.add_dummy(head)
            self.append(head, head, [])
        elif kind == "between" and self.lines and self.lines[-1] is not None:
            self.add_between(self.random.randint(1, 3))
        else:
            self.add_given(self.point(-5.0, 5.0), self.point(10.0, 60.0))

    def add_given(self, head: list[float], tip: list[float]) -> None:
        types = self.add_segments(math.dist(head, tip))
        self.deck.add_pile(head, tip, types, note=self.random.choice(["", "driven"]))
        self.append(head, tip, types)

    def add_between(self, count: int) -> None:
        before = self.lines[-1]
        after = (self.point(-5.0, 5.0), self.point(10.0, 60.0))
        for j in range(1, count + 1):
            head, tip = ([a + j / (count + 1) * (b - a) for a, b in zip(p, q)] for p, q in zip(before, after))
            types = self.add_segments(math.dist(head, tip))
            self.deck.add_pile_between(types)
            self.append(head, tip, types)
        self.add_given(*after)

    def add_segments(self, distance: float) -> list[int]:
        count = self.random.randint(1, 4)
        shares = [self.random.uniform(1.0, 3.0) for _ in range(count)]
        types = []
        sections = self.deck._section_count()
        for share in shares:
            length = distance * share / sum(shares)
            # Rounded to a ten-thousandth of a stored unit at least: far within 0.1 %.
            length = length if self.has_all_digits else float(f"{length:.6g}")
            elements = self.random.randint(1, 6)
            start = self.random.randint(1, sections)
            end = self.random.randint(1, sections)
            # No element half-way between two sections.
            if any(((end - start) * (2 * k - 1) + elements) % (2 * elements) == 0 for k in range(1, elements + 1)):
                end = start
            types.append(self.deck.add_segment(start, end, length, elements))
            self.segments.append((start, end, length, elements))
        return types

    def append(self, head: list[float], tip: list[float], types: list[int]) -> None:
        self.lines.append((head, tip))
        h, t = [v * self.facl for v in head], [v * self.facl for v in tip]
        nodes = [h]
        elements: list[tuple[float, int]] = []
        total = sum(self.segments[k - 1][2] for k in types) * self.facl
        distance = math.dist(h, t)
        s = 0.0
        for start, end, length, count in (self.segments[k - 1] for k in types):
            for k in range(1, count + 1):
                at = s + length * self.facl * k / count
                nodes.append(
                    [
                        h[0] + at / distance * (t[0] - h[0]),
                        h[1] + at / distance * (t[1] - h[1]),
                        h[2] + at / total * (t[2] - h[2]),
                    ]
                )
                section = math.floor(start + (end - start) * (k - 0.5) / count + 0.5)
                elements.append((math.dist(nodes[-2], nodes[-1]), section))
            s += length * self.facl
        self.expected.piles.append(ExpectedPile(nodes, elements))

    def add_generated(self, kind: str, source: int) -> None:
        of = self.expected.piles[source - 1]
        if kind == "copy":
            shift = [self.size(-20.0, 20.0), self.size(-20.0, 20.0), self.size(-3.0, 3.0)]
            self.deck.add_copy(source, shift)
            nodes = [[v + d * self.facl for v, d in zip(node, shift)] for node in of.nodes]
        else:
            axis = self.random.choice("xy")
            self.deck.add_mirror(source, axis)
            signs = (-1, 1, 1) if axis == "x" else (1, -1, 1)
            nodes = [[v * sign for v, sign in zip(node, signs)] for node in of.nodes]
        self.lines.append(None)  # type: ignore[arg-type]
        self.expected.piles.append(ExpectedPile(nodes, list(of.elements)))

    # ---- tips, node values, loads

    def add_tips(self) -> None:
        piles = self.expected.piles
        dummies = [i for i, pile in enumerate(piles, 1) if not pile.elements]
        for number, pile in enumerate(piles, 1):
            if dummies and number not in dummies and self.random.random() < 0.7:
                pile.fixed_to = self.random.choice(dummies)
                self.deck.fix(number, pile.fixed_to)
            if self.random.random() < 0.5:
                pile.tip_code = self.random.randint(-len(pile.elements), 3)
                self.deck.set_tip([number], pile.tip_code)

    def add_node_values(self) -> None:
        piles = self.expected.piles
        first = self.random.randint(1, len(piles))
        last = self.random.randint(first, len(piles))
        fewest = min(len(piles[number - 1].nodes) for number in range(first, last + 1))
        start = self.random.randint(1, fewest)
        end = self.random.randint(start, fewest)
        kind = self.random.choice([*KINDS, "temperature"])
        named = range(first, last + 1)
        if kind == "displacements" and any(not piles[number - 1].elements for number in named):
            kind = "forces"
        if kind == "temperature":
            degrees = self.real(-20.0, 40.0)
            self.deck.add_node_values(named, range(start, end + 1), kind, degrees)
            for number in named:
                piles[number - 1].temperatures.update(dict.fromkeys(range(start, end + 1), degrees))
            return
        low = 0.0 if kind == "springs" else -500.0
        six = [self.real(low, 900.0) if self.random.random() < 0.6 else 0.0 for _ in range(6)]
        self.deck.add_node_values(named, range(start, end + 1), kind, six, note=self.random.choice(["", "of the slope"]))
        f, l = self.facf, self.facl
        factors = {"springs": (f / l, f * l), "forces": (f, f * l), "displacements": (l, 1.0)}[kind]
        stored = [value * factors[i // 3] for i, value in enumerate(six)]
        for number in named:
            for node in range(start, end + 1):
                piles[number - 1].values[kind, node] = stored

    def add_loads(self, number: int) -> None:
        label = f"Load vector {number + 1}, {'x' * self.random.randint(1, 60)}"
        factor = self.real(0.5, 2.0)
        rows = []
        for _ in range(self.random.randint(1, len(self.expected.piles))):
            rows.append((self.random.randint(1, len(self.expected.piles)), [self.real(-5e3, 5e3) for _ in range(6)]))
        self.deck.add_load_vector(label, rows, factor)
        f, l = self.facf, self.facl
        stored = [(pile, [v * factor * (f if i < 3 else f * l) for i, v in enumerate(six)]) for pile, six in rows]
        self.expected.loads.append((label, stored))
