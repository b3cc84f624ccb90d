"""The text of a deck: sections with their headings, records in aligned columns."""

from __future__ import annotations

from itertools import groupby
from typing import Sequence

from .columns import WIDTH, Row, comment, layout
from .deck_items import DeckPile, Loads, Material, NodeValues, Section, Segment, TubeValues
from .numbers import real_text

_VERSIONS = {4: "2006-06-11", 5: "2009-09-01"}
_MIRRORS = {"": 0, "y": 1, "x": 2}
_STIFFNESSES = ["EA", "EI", "GA", "GJ"]


def deck_text(
    *,
    label: str,
    revision: int,
    factors: tuple[float, float],
    levels: tuple[int, int],
    materials: Sequence[Material],
    sections: Sequence[Section],
    segments: Sequence[Segment],
    piles: Sequence[DeckPile],
    tips: Sequence[tuple[int, int]],
    node_values: Sequence[NodeValues],
    loads: Sequence[Loads],
) -> str:
    """The deck, checked before; tips: tip code and fixing of every pile. No heading begins with C, c, * or END."""
    lines = [label, f"KORVAT Version: {_VERSIONS[revision]}", "", "General values of the run"]
    controls = [
        (real_text(factors[0]), "force unit factor"),
        (real_text(factors[1]), "length unit factor"),
        (str(len(piles)), "piles"),
        (str(sections[-1].number), "cross sections"),
        (str(len(materials)), "material types"),
        (str(len(segments)), "pile segment types"),
        (str(len(loads)), "load vectors"),
        (str(levels[0]), "print level"),
        (str(levels[1]), "echo level"),
    ]
    width = max(len(value) for value, _ in controls)
    lines += [f"  {value.ljust(width)}  {meaning}" for value, meaning in controls]
    lines += _materials(materials, revision)
    lines += _sections_4(sections) if revision == 4 else _sections_5(sections)
    lines += _segments(segments)
    lines += _geometry(piles)
    lines += _segment_table(piles)
    lines += _tips(tips)
    lines += _node_values(node_values)
    lines += _loads(loads)
    return "\n".join([*lines, "END", ""])


def _table(titles: Sequence[str], names: Sequence[str], rows: Sequence[Row]) -> list[str]:
    heading, lines = layout(names, rows)
    return [*titles, *heading, *lines]


def _materials(materials: Sequence[Material], revision: int) -> list[str]:
    rows = [
        Row([n, m.elastic_modulus, m.shear_modulus, m.yield_stress, m.wall_weight, m.temperature_strain], m.note)
        for n, m in enumerate(materials, 1)
    ]
    third = ["  moduli and yield stress F/L2, weight of the wall F/L3, strain per degree"] if revision == 5 else []
    names = ["N", "E-modulus", "shear mod.", "yield", "unit weight", "temp. strain"]
    return _table(["", "Material types", *third], names, rows)


def _tube(tube: TubeValues) -> list[int | float]:
    return [
        tube.material,
        tube.diameter,
        tube.wall,
        tube.axial_stiffness,
        tube.bending_stiffness,
        tube.shear_stiffness,
        tube.torsional_stiffness,
        tube.fluid_weight,
    ]


def _sections_4(sections: Sequence[Section]) -> list[str]:
    rows = [Row([s.number, *_tube(s.tube)], s.note) for s in sections if s.tube is not None]
    return _table(["", "Tubular cross sections"], ["N", "mat", "diam", "wall", *_STIFFNESSES, "fluid"], rows)


def _sections_5(sections: Sequence[Section]) -> list[str]:
    has_composites = any(section.tubes for section in sections)
    rows: list[Row] = []
    for s in sections:
        own: list[int | float] = _tube(s.tube) if s.tube is not None else [0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0]
        # The number of a tube in its composite has a column that the other lines leave empty.
        sub: list[None] = [None] if has_composites else []
        rows.append(Row([s.number, *sub, len(s.tubes) or 1, s.code, *own, s.eccentricity, *s.miscellaneous], s.note))
        for j, tube in enumerate(s.tubes, 1):
            rows.append(Row([s.number, j, 1, 0, *_tube(tube), tube.eccentricity, *tube.miscellaneous]))
    names = ["N", *(["sub"] if has_composites else []), "type", "code", "mat", "diam", "wall"]
    names += [*_STIFFNESSES, "fluid", "ecc", "m1", "m2", "m3"]
    second = "  type: 1 plain, n composite of the n tubes that follow; code: yield curves"
    lines = _table(["", "Tubular cross sections", second], names, rows)
    points = [Row([s.number, i, *point]) for s in sections for i, point in enumerate(s.curve, 1)]
    if points:
        heading, rows_of_points = layout(["N", "I", "elastic N", "elastic M", "plastic N", "plastic M"], points)
        # No heading may stand before the points; a comment may.
        lines += comment("points of the yield curves, compression positive, stored units")
        lines += ["*" + line[1:] for line in heading]
        lines += rows_of_points
    return lines


def _segments(segments: Sequence[Segment]) -> list[str]:
    rows = [Row([n, s.start, s.end, s.length, s.elements], s.note) for n, s in enumerate(segments, 1)]
    return _table(["", "Pile segment types"], ["N", "start", "end", "length", "elements"], rows)


def _geometry(piles: Sequence[DeckPile]) -> list[str]:
    rows = []
    for pile in piles:
        if pile.head is None:
            continue
        # Of a copy the tip is not used, but it must not be above the shift.
        tip = pile.tip if pile.tip is not None else (0.0, 0.0, pile.head[2])
        rows.append(Row([pile.number, pile.source, _MIRRORS[pile.mirror], *pile.head, *tip], pile.note))
    names = ["NP", "gen", "sym", "x-head", "y-head", "z-head", "x-tip", "y-tip", "z-tip"]
    return _table(["", "Pile geometry, +z points downwards"], names, rows)


def _segment_table(piles: Sequence[DeckPile]) -> list[str]:
    """Records of any length, broken before column 80; no remark may stand in them."""
    given = [pile for pile in piles if not pile.source]
    width = max(len(str(number)) for pile in given for number in [*pile.segments, 0])
    lines = ["   NP  NSEG  segment types from head to tip"]
    for pile in given:
        line = f"{pile.number:5d}{len(pile.segments):6d} "
        margin = " " * len(line)
        for number in pile.segments:
            if len(line) + 1 + width > WIDTH:
                lines.append(line)
                line = margin
            line += f" {number:{width}d}"
        lines.append(line.rstrip())
    return lines


def _tips(tips: Sequence[tuple[int, int]]) -> list[str]:
    rows = []
    last = 0
    for (code, target), piles in groupby(tips):
        first = last + 1
        last += len(list(piles))
        rows.append(Row([first, last, code, target]))
    return _table([], ["NP1", "NP2", "tip", "fix"], rows)


def _node_values(node_values: Sequence[NodeValues]) -> list[str]:
    rows = [
        Row([r.first_pile, r.last_pile, r.first_node, r.last_node, r.code, *r.values], r.note) for r in node_values
    ]
    rows.append(Row([0, 0, 0, 0, 0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0]))
    names = ["NP1", "NP2", "ND1", "ND2", "code", "v1", "v2", "v3", "v4", "v5", "v6"]
    return _table(["", "Special pile node values"], names, rows)


def _loads(loads: Sequence[Loads]) -> list[str]:
    if not loads:
        return []
    lines = ["", "Load vectors: label, number of loaded piles, load factor, heading, loads"]
    for vector in loads:
        lines += [vector.label, f"  {len(vector.rows)}  loaded piles", f"  {real_text(vector.factor)}  load factor"]
        lines += _table([], ["NP", "Fx", "Fy", "Fz", "Mx", "My", "Mz"], [Row([pile, *six]) for pile, six in vector.rows])
    return lines
