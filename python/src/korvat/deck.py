"""Deck: builds a deck of either revision, checks it, and writes it."""

from __future__ import annotations

import inspect
import os
from dataclasses import dataclass, replace
from pathlib import Path
from typing import Any, Iterable, Mapping, Sequence, Union

from . import deck_items as items
from .deck_checks import check_group
from .deck_items import DeckPile, Loads, Material, NodeValues, Point, Section, Segment, Six, TubeValues
from .deck_writer import deck_text
from .errors import DeckError
from .numbers import checked_real, checked_whole
from .tables import Table, add_rows, rows_of

Numbers = Union[int, Iterable[int]]

_NODE_CODES = {"springs": 1, "forces": 2, "displacements": 3, "temperature": 4}
_CURVE_COLUMNS = ("elastic_axial", "elastic_moment", "plastic_axial", "plastic_moment")
_LOAD_COLUMNS = ("fx", "fy", "fz", "mx", "my", "mz")
_LOWEST_TIP_CODE = -items.ELEMENTS


@dataclass(frozen=True)
class Tube:
    """A tube of a composite section. Units as in Deck.

    diameter: outer diameter; None: the inner diameter of the tube around it. Stiffnesses of 0 are computed by KORVAT.
    """

    material: int
    wall: float
    diameter: float | None = None
    axial_stiffness: float = 0.0
    bending_stiffness: float = 0.0
    shear_stiffness: float = 0.0
    torsional_stiffness: float = 0.0
    fluid_weight: float = 0.0
    eccentricity: float = 0.0
    miscellaneous: Sequence[float] = (0.0, 0.0, 0.0)


class Deck:
    """A deck of KORVAT.

    All values are in the units of the deck, F for force and L for length; KORVAT multiplies them by the two factors. Global axes x, y, z;
    +z points downwards. The methods that add something return its number, counted from 1, which later ones take. A note is a comment
    above the record. Every method raises DeckError for what KORVAT would refuse; what only the whole group shows, such as the length of
    a pile against that of its segments, is checked by text() and write().

    >>> deck = Deck("One vertical pile, kN and m")
    >>> steel = deck.add_material(2.1e8, 8.077e7, yield_stress=3.55e5, wall_weight=77.0)
    >>> tube = deck.add_section(steel, diameter=0.914, wall=0.025)
    >>> segment = deck.add_segment(tube, tube, length=20.0, elements=10)
    >>> deck.add_pile(head=(0.0, 0.0, 0.0), tip=(0.0, 0.0, 20.0), segments=[segment])
    1
    >>> print(deck.text())  # doctest: +ELLIPSIS
    One vertical pile, kN and m
    KORVAT Version: 2006-06-11
    ...
    Tubular cross sections
      N  mat   diam   wall  EA  EI  GA  GJ  fluid
      1    1  0.914  0.025  0.  0.  0.  0.     0.
    ...
    END
    <BLANKLINE>

    label: of the run, at most 80 bytes of UTF-8, not blank. revision: 4, or 5 for composites and yield curves. force_factor,
    length_factor: FACF and FACL. print_level: 0 to 2; echo_level: 0 or 1.
    """

    def __init__(
        self,
        label: str,
        revision: int = 4,
        *,
        force_factor: float = 1.0,
        length_factor: float = 1.0,
        print_level: int = 1,
        echo_level: int = 0,
    ) -> None:
        self.label = _checked_label(label, "the label of the run")
        if not self.label.strip():
            raise DeckError("the label of the run is blank")
        if revision not in (4, 5):
            raise DeckError(f"revision {revision}: there are 4 and 5")
        self.revision = revision
        self.force_factor = _checked_factor(force_factor, "force_factor")
        self.length_factor = _checked_factor(length_factor, "length_factor")
        self.print_level = _within(print_level, 0, 2, "print_level")
        self.echo_level = _within(echo_level, 0, 1, "echo_level")
        self._materials: list[Material] = []
        self._sections: list[Section] = []
        self._segments: list[Segment] = []
        self._piles: list[DeckPile] = []
        self._tip_codes: dict[int, int] = {}
        self._fixed_to: dict[int, int] = {}
        self._node_values: list[NodeValues] = []
        self._loads: list[Loads] = []

    # ---- materials and sections -------------------------------------------------------------------------------------------

    def add_material(
        self,
        elastic_modulus: float,
        shear_modulus: float,
        yield_stress: float = 0.0,
        wall_weight: float = 0.0,
        temperature_strain: float = 0.0,
        note: str = "",
    ) -> int:
        """Adds a material: moduli and yield stress in F/L2, unit weight of the wall in F/L3, strain for one unit of temperature."""
        stress = self.force_factor / self.length_factor**2
        material = Material(
            elastic_modulus=checked_real(elastic_modulus, "elastic_modulus"),
            shear_modulus=checked_real(shear_modulus, "shear_modulus"),
            yield_stress=checked_real(yield_stress, "yield_stress"),
            wall_weight=checked_real(wall_weight, "wall_weight"),
            temperature_strain=checked_real(temperature_strain, "temperature_strain"),
            note=_checked_note(note),
        )
        _require(material.elastic_modulus * stress > items.TINY, "elastic_modulus is not above 0")
        _require(material.shear_modulus * stress > items.TINY, "shear_modulus is not above 0")
        _require(material.temperature_strain >= 0.0, "temperature_strain is below 0")
        return _added(self._materials, material, items.MATERIALS, "materials")

    def add_materials(self, table: Table) -> list[int]:
        """Adds the rows of a table; its columns have the names of the arguments of add_material. Returns their numbers."""
        return add_rows(self.add_material, table)

    def add_section(
        self,
        material: int,
        diameter: float,
        wall: float,
        axial_stiffness: float = 0.0,
        bending_stiffness: float = 0.0,
        shear_stiffness: float = 0.0,
        torsional_stiffness: float = 0.0,
        fluid_weight: float = 0.0,
        number: int | None = None,
        check: str | None = None,
        curve: Table | None = None,
        eccentricity: float = 0.0,
        miscellaneous: Sequence[float] = (0.0, 0.0, 0.0),
        note: str = "",
    ) -> int:
        """Adds a plain tube: outer diameter and wall in L, EA and GA in F, EI and GJ in F L2, unit weight of the fluid in F/L3.

        Stiffnesses of 0 are computed by KORVAT. number: revision 4 only; the numbers that it leaves out are sections in between, which
        KORVAT makes from this one and the one before. Revision 5 only: check "norchk" or "isochk" lets KORVAT compute yield curves; curve
        gives them, a table with the columns elastic_axial, elastic_moment, plastic_axial, plastic_moment or a sequence of rows of
        these, 1 to 10 points, in *stored* F and F L, compression positive, from the largest compression to the largest tension;
        eccentricity and the three miscellaneous values are passed on.
        """
        tube = self._tube(
            Tube(
                material=material,
                wall=wall,
                diameter=diameter,
                axial_stiffness=axial_stiffness,
                bending_stiffness=bending_stiffness,
                shear_stiffness=shear_stiffness,
                torsional_stiffness=torsional_stiffness,
                fluid_weight=fluid_weight,
                eccentricity=eccentricity,
                miscellaneous=miscellaneous,
            ),
            None,
        )
        points = _checked_curve(curve)
        code = self._code_of(check, len(points), tube)
        if self.revision == 4:
            _require(code == 0, "yield curves need revision 5")
            _require(tube.eccentricity == 0.0 and not any(tube.miscellaneous), "eccentricity and miscellaneous need revision 5")
        next_number = self._section_count() + 1
        own = next_number if number is None else checked_whole(number, "number")
        _require(own >= next_number, f"section {own} is not above {next_number - 1}")
        _require(own == next_number or self.revision == 4, f"section {own} leaves out {next_number}: revision 5 knows no such sections")
        _require(own == next_number or bool(self._sections), "the first section has the number 1")
        return self._add_section(
            Section(own, code, tube, (), points, tube.eccentricity, tube.miscellaneous, _checked_note(note))
        )

    def add_sections(self, table: Table) -> list[int]:
        """Adds the rows of a table; its columns have the names of the arguments of add_section. Returns their numbers."""
        return add_rows(self.add_section, table)

    def add_composite(
        self,
        tubes: Iterable[Tube] | Table,
        curve: Table | None = None,
        eccentricity: float = 0.0,
        miscellaneous: Sequence[float] = (0.0, 0.0, 0.0),
        note: str = "",
    ) -> int:
        """Adds a composite of 2 to 12 tubes, the outer one first; each fits into the one around it without a gap. Revision 5 only.

        tubes: Tubes, or a table whose columns have the names of the fields of Tube.

        curve, eccentricity, miscellaneous: as in add_section. KORVAT gives the tubes numbers behind those of all sections.
        """
        _require(self.revision == 5, "composites need revision 5")
        values: list[TubeValues] = []
        for tube in _tubes(tubes):
            values.append(self._tube(tube, values[-1] if values else None))
            _require(values[-1].eccentricity <= 0.0, f"tube {len(values)}: the eccentricity is above 0")
        _require(2 <= len(values) <= items.TUBES, f"a composite has 2 to {items.TUBES} tubes, not {len(values)}")
        points = _checked_curve(curve)
        own = self._section_count() + 1
        ecc = checked_real(eccentricity, "eccentricity")
        three = _reals(miscellaneous, 3, "miscellaneous")
        return self._add_section(
            Section(own, len(points), None, tuple(values), points, ecc, (three[0], three[1], three[2]), _checked_note(note))
        )

    def _section_count(self) -> int:
        return self._sections[-1].number if self._sections else 0

    def _add_section(self, section: Section) -> int:
        tubes = sum(len(other.tubes) for other in self._sections) + len(section.tubes)
        _require(section.number + tubes <= items.SECTIONS, f"more than {items.SECTIONS} sections, tubes of composites included")
        self._sections.append(section)
        return section.number

    def _tube(self, tube: Tube, around: TubeValues | None) -> TubeValues:
        inner = None if around is None else around.diameter - 2.0 * around.wall
        if tube.diameter is not None:
            diameter = checked_real(tube.diameter, "diameter")
        else:
            _require(inner is not None, "the outermost tube has no diameter")
            # 1.829 - 2 * 0.045 shall stand in the deck as 1.739, not as 1.7389999999999999.
            diameter = float(f"{inner:.15g}")
        wall = checked_real(tube.wall, "wall")
        _require(diameter * self.length_factor > items.TINY, f"diameter {diameter} is not above 0")
        _require(wall * self.length_factor > items.TINY, f"wall {wall} is not above 0")
        _require(wall <= diameter / 2.0, f"wall {wall} is above half the diameter {diameter}")
        if inner is not None:
            _require(
                abs(diameter - inner) * self.length_factor < 0.9 * items.TINY,
                f"diameter {diameter} is not the inner diameter {inner:.15g} of the tube around it",
            )
        material = _within(tube.material, 1, len(self._materials), "material")
        three = _reals(tube.miscellaneous, 3, "miscellaneous")
        return TubeValues(
            material=material,
            diameter=diameter,
            wall=wall,
            axial_stiffness=_not_negative(tube.axial_stiffness, "axial_stiffness"),
            bending_stiffness=_not_negative(tube.bending_stiffness, "bending_stiffness"),
            shear_stiffness=_not_negative(tube.shear_stiffness, "shear_stiffness"),
            torsional_stiffness=_not_negative(tube.torsional_stiffness, "torsional_stiffness"),
            fluid_weight=checked_real(tube.fluid_weight, "fluid_weight"),
            eccentricity=checked_real(tube.eccentricity, "eccentricity"),
            miscellaneous=(three[0], three[1], three[2]),
        )

    def _code_of(self, check: str | None, points: int, tube: TubeValues) -> int:
        if check is None:
            return points
        _require(points == 0, "check and curve are both given")
        codes = {"norchk": -1, "isochk": -2}
        if check not in codes:
            raise DeckError(f"check {check!r}: there are norchk and isochk")
        _require(self._materials[tube.material - 1].yield_stress > 0.0, "a computed curve needs a yield stress")
        _require(tube.diameter / tube.wall <= 120.0, f"a computed curve needs D/t up to 120, not {tube.diameter / tube.wall:.1f}")
        return codes[check]

    # ---- piles ------------------------------------------------------------------------------------------------------------

    def add_segment(self, start: int, end: int, length: float, elements: int, note: str = "") -> int:
        """Adds a segment type: sections at its upper and lower end, length in L, elements of equal length."""
        count = self._section_count()
        segment = Segment(
            start=_within(start, 1, count, "start"),
            end=_within(end, 1, count, "end"),
            length=checked_real(length, "length"),
            elements=_within(elements, 1, items.ELEMENTS, "elements"),
            note=_checked_note(note),
        )
        _require(segment.length * self.length_factor > items.TINY, f"length {segment.length} is not above 0")
        return _added(self._segments, segment, items.SEGMENTS, "segment types")

    def add_segments(self, table: Table) -> list[int]:
        """Adds the rows of a table; its columns have the names of the arguments of add_segment. Returns their numbers."""
        return add_rows(self.add_segment, table)

    def add_pile(self, head: Sequence[float], tip: Sequence[float], segments: Iterable[int], note: str = "") -> int:
        """Adds a pile: head and tip x, y, z in L, and 1 to 20 segment types from head to tip.

        Their lengths must add up to the distance from head to tip, to 0.1 %.
        """
        types = self._segment_types(segments)
        _require(bool(types), "a pile has at least one segment; for a cap point see add_dummy")
        head_point, tip_point = _point(head, "head"), _point(tip, "tip")
        _require(tip_point[2] >= head_point[2], f"the tip, z {tip_point[2]}, is above the head, z {head_point[2]}: +z points downwards")
        return self._add_pile(head_point, tip_point, types, note=note)

    def add_piles(self, table: Table) -> list[int]:
        """Adds the rows of a table: columns x_head, y_head, z_head, x_tip, y_tip, z_tip, segments (a sequence, or text such as "1 2 3")
        and note. Returns the numbers of the piles."""

        def add(
            x_head: float,
            y_head: float,
            z_head: float,
            x_tip: float,
            y_tip: float,
            z_tip: float,
            segments: str | int | Iterable[int],
            note: str = "",
        ) -> int:
            listed = _numbers_in(segments) if isinstance(segments, str) else _listed(segments)
            return self.add_pile((x_head, y_head, z_head), (x_tip, y_tip, z_tip), listed, note)

        return add_rows(add, table)

    def add_dummy(self, head: Sequence[float], note: str = "") -> int:
        """Adds a dummy pile, such as a cap point: one node, x, y, z in L, to which other piles may be fixed."""
        point = _point(head, "head")
        return self._add_pile(point, point, (), note=note)

    def add_pile_between(self, segments: Iterable[int]) -> int:
        """Adds a pile that is left out of the geometry table: KORVAT places it, at equal distances with others, between the pile before
        and the next one, which must both be given, not generated. No segments: a dummy pile."""
        _require(bool(self._piles), "there is no pile before it")
        _require(not self._piles[-1].source, f"pile {len(self._piles)} before it is generated")
        return self._add_pile(None, None, self._segment_types(segments))

    def add_copy(self, source: int, shift: Sequence[float], note: str = "") -> int:
        """Adds a copy of an earlier pile, all of its nodes shifted by x, y, z in L."""
        return self._add_generated(source, "", _point(shift, "shift"), note)

    def add_mirror(self, source: int, axis: str, note: str = "") -> int:
        """Adds the mirror image of an earlier pile: axis "x" turns x into -x, "y" turns y into -y."""
        if axis not in ("x", "y"):
            raise DeckError(f"axis {axis!r}: there are x and y")
        return self._add_generated(source, axis, (0.0, 0.0, 0.0), note)

    def add_generated(self, table: Table) -> list[int]:
        """Adds copies and mirror images from a table: columns source, mirror ("x", "y", or empty for a copy), and of a copy x_shift,
        y_shift, z_shift; note. Returns the numbers of the piles."""

        def add(
            source: int, mirror: str = "", x_shift: float = 0.0, y_shift: float = 0.0, z_shift: float = 0.0, note: str = ""
        ) -> int:
            if not mirror:
                return self.add_copy(source, (x_shift, y_shift, z_shift), note)
            _require(not (x_shift or y_shift or z_shift), "KORVAT does not shift a mirror image")
            return self.add_mirror(source, mirror, note)

        return add_rows(add, table)

    def _add_generated(self, source: int, mirror: str, shift: Point, note: str) -> int:
        _require(bool(self._piles) and not self._is_open(), "a pile between two others must be followed by a given one")
        earlier = _within(source, 1, len(self._piles), "source")
        return self._add_pile(shift, None, (), earlier, mirror, note)

    def _add_pile(
        self,
        head: Point | None,
        tip: Point | None,
        segments: tuple[int, ...],
        source: int = 0,
        mirror: str = "",
        note: str = "",
    ) -> int:
        pile = DeckPile(len(self._piles) + 1, head, tip, segments, source, mirror, _checked_note(note))
        return _added(self._piles, pile, items.PILES, "piles")

    def _is_open(self) -> bool:
        return bool(self._piles) and self._piles[-1].head is None

    def _segment_types(self, segments: Iterable[int]) -> tuple[int, ...]:
        types = tuple(_within(number, 1, len(self._segments), "segment") for number in segments)
        _require(len(types) <= items.SEGMENTS_OF_PILE, f"a pile has at most {items.SEGMENTS_OF_PILE} segments, not {len(types)}")
        return types

    # ---- tips, fixings, node values, loads --------------------------------------------------------------------------------

    def set_tip(self, piles: Numbers, code: int) -> None:
        """Gives piles a tip code: 0 to 3, or -k with k up to the number of elements; a pile without one has 0."""
        checked = _within(code, _LOWEST_TIP_CODE, 3, "code")
        for number in self._pile_numbers(piles):
            self._tip_codes[number] = checked

    def fix(self, piles: Numbers, to: int) -> None:
        """Fixes piles to a pile, which should be a dummy one; to 0: to none, as every pile is at first."""
        target = _within(to, 0, len(self._piles), "to")
        numbers = self._pile_numbers(piles)
        _require(target not in numbers, f"pile {target} cannot be fixed to itself")
        for number in numbers:
            self._fixed_to[number] = target

    def set_tips(self, table: Table) -> None:
        """Tip codes and fixings from a table with the columns pile, tip_code and fixed_to."""

        def add(pile: int, tip_code: int = 0, fixed_to: int = 0) -> int:
            self.set_tip(pile, tip_code)
            self.fix(pile, fixed_to)
            return pile

        add_rows(add, table)

    def add_node_values(self, piles: Numbers, nodes: Numbers, kind: str, values: Sequence[float] | float, note: str = "") -> None:
        """Gives values to nodes of piles; node 1 is the head. Of two for the same node and kind, the later one counts.

        kind: "springs", F/L and F L, not below 0; "forces", F and F L; "displacements" of the soil, L and rad: six values each, along x, y,
        z and about x, y, z; "temperature": one value.
        """
        if kind not in _NODE_CODES:
            raise DeckError(f"kind {kind!r}: there are {', '.join(_NODE_CODES)}")
        if kind == "temperature":
            six: Six = (checked_real(values, "temperature"), 0.0, 0.0, 0.0, 0.0, 0.0)
        else:
            six = _six(values, kind)
        _require(kind != "springs" or min(six) >= 0.0, "a spring is below 0")
        records = [
            NodeValues(first_pile, last_pile, first_node, last_node, _NODE_CODES[kind], six, "")
            for first_pile, last_pile in _ranges(self._pile_numbers(piles))
            for first_node, last_node in _ranges(_node_numbers(nodes))
        ]
        _require(bool(records), "no pile or no node is named")
        room = items.NODE_VALUE_RECORDS - len(self._node_values)
        _require(len(records) <= room, f"more than {items.NODE_VALUE_RECORDS} records of node values")
        records[0] = replace(records[0], note=_checked_note(note))
        self._node_values += records

    def add_node_table(self, table: Table) -> None:
        """Adds node values from a table: columns first_pile, last_pile, first_node, last_node (without the last ones: one pile, one node),
        kind, and v1 to v6, of which those that are missing are 0; note."""

        def add(
            first_pile: int,
            first_node: int,
            kind: str,
            last_pile: int | None = None,
            last_node: int | None = None,
            v1: float = 0.0,
            v2: float = 0.0,
            v3: float = 0.0,
            v4: float = 0.0,
            v5: float = 0.0,
            v6: float = 0.0,
            note: str = "",
        ) -> int:
            six = (v1, v2, v3, v4, v5, v6)
            _require(kind != "temperature" or not any(six[1:]), "a temperature is one value, v1")
            piles = _span(first_pile, last_pile, len(self._piles), "pile")
            nodes = _span(first_node, last_node, items.ELEMENTS + 1, "node")
            self.add_node_values(piles, nodes, kind, v1 if kind == "temperature" else six, note)
            return len(self._node_values)

        add_rows(add, table)

    def add_load_vector(
        self, label: str, loads: Table | Mapping[int, Sequence[float]] | Iterable[tuple[int, Sequence[float]]], factor: float = 1.0
    ) -> int:
        """Adds a load vector: label, and forces in F and moments in F L, x, y, z each, on piles.

        loads: a table with the columns pile, fx, fy, fz, mx, my, mz (those that are missing are 0), a mapping from the number of a pile to
        six values, or pairs of these. factor: multiplies them. The label must not begin with C, c, * or END.
        """
        text = _checked_label(label, "the label of a load vector")
        if text[:1] in ("C", "c", "*"):
            raise DeckError(f"the label {text!r} of a load vector begins with {text[0]}: KORVAT takes it for a comment")
        rows = tuple((_within(pile, 1, len(self._piles), "pile"), _six(six, "loads")) for pile, six in _load_rows(loads))
        _require(1 <= len(rows) <= len(self._piles), f"a load vector of {len(rows)} loads; there are {len(self._piles)} piles")
        self._loads.append(Loads(text, checked_real(factor, "factor"), rows))
        return len(self._loads)

    def _pile_numbers(self, piles: Numbers) -> list[int]:
        return [_within(number, 1, len(self._piles), "pile") for number in _listed(piles)]

    # ---- the deck ---------------------------------------------------------------------------------------------------------

    def text(self) -> str:
        """The deck as text; DeckError when the group as a whole is not one that KORVAT accepts."""
        spring = self.force_factor / self.length_factor
        check_group(self._materials, self._sections, self._segments, self._piles, self._tip_codes, self._fixed_to, self._node_values, spring)
        return deck_text(
            label=self.label,
            revision=self.revision,
            factors=(self.force_factor, self.length_factor),
            levels=(self.print_level, self.echo_level),
            materials=self._materials,
            sections=self._sections,
            segments=self._segments,
            piles=self._piles,
            tips=[(self._tip_codes.get(pile.number, 0), self._fixed_to.get(pile.number, 0)) for pile in self._piles],
            node_values=self._node_values,
            loads=self._loads,
        )

    def write(self, directory: str | os.PathLike[str]) -> Path:
        """Writes the deck as KORVAT.INP into a directory, which is made when there is none; returns the path of the deck."""
        text = self.text()
        path = Path(directory) / "KORVAT.INP"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text.encode("utf-8"))
        return path


# ---- checks of single values ----------------------------------------------------------------------------------------------


def _require(condition: bool, otherwise: str) -> None:
    if not condition:
        raise DeckError(otherwise)


def _added(table: list[Any], item: object, most: int, name: str) -> int:
    _require(len(table) < most, f"more than {most} {name}")
    table.append(item)
    return len(table)


def _within(value: object, low: int, high: int, name: str) -> int:
    number = checked_whole(value, name)
    _require(low <= number <= high, f"{name} {number} is not within {low} to {high}" if high >= low else f"{name} {number}: there is none yet")
    return number


def _not_negative(value: object, name: str) -> float:
    number = checked_real(value, name)
    _require(number >= 0.0, f"{name} {number} is below 0")
    return number


def _checked_factor(value: object, name: str) -> float:
    number = checked_real(value, name)
    _require(number > items.TINY, f"{name} {number} is not above {items.TINY}: KORVAT counts it as 1.0")
    return number


def _reals(values: object, count: int, name: str) -> list[float]:
    try:
        listed = list(values)  # type: ignore[call-overload]
    except TypeError:
        raise DeckError(f"{name}: {count} values are needed, not {values!r}") from None
    _require(len(listed) == count, f"{name}: {count} values are needed, not {len(listed)}")
    return [checked_real(value, name) for value in listed]


def _point(values: object, name: str) -> Point:
    x, y, z = _reals(values, 3, name)
    return (x, y, z)


def _six(values: object, name: str) -> Six:
    a, b, c, d, e, f = _reals(values, 6, name)
    return (a, b, c, d, e, f)


def _listed(numbers: Numbers) -> list[int]:
    if isinstance(numbers, Iterable):
        return list(numbers)
    return [numbers]


def _numbers_in(text: str) -> list[int]:
    try:
        return [int(word) for word in text.split()]
    except ValueError:
        raise DeckError(f"segments: {text!r} is not a list of whole numbers") from None


def _node_numbers(nodes: Numbers) -> list[int]:
    return [_within(number, 1, items.ELEMENTS + 1, "node") for number in _listed(nodes)]


def _span(first: int, last: int | None, most: int, name: str) -> range:
    start = _within(first, 1, most, name)
    end = start if last is None else _within(last, 1, most, name)
    _require(start <= end, f"{name} {start} to {end}: the first is above the last")
    return range(start, end + 1)


def _ranges(numbers: list[int]) -> list[tuple[int, int]]:
    """The numbers as ranges without gaps, first and last.

    >>> _ranges([7, 1, 2, 3])
    [(1, 3), (7, 7)]
    """
    ranges: list[tuple[int, int]] = []
    for number in sorted(set(numbers)):
        if ranges and ranges[-1][1] == number - 1:
            ranges[-1] = (ranges[-1][0], number)
        else:
            ranges.append((number, number))
    return ranges


def _checked_text(text: object, name: str) -> str:
    if not isinstance(text, str) or any(ord(sign) < 32 or ord(sign) == 127 for sign in text):
        raise DeckError(f"{name}: {text!r} is not one line of text")
    try:
        text.encode("utf-8")
    except UnicodeEncodeError:
        raise DeckError(f"{name}: {text!r} cannot be written as UTF-8") from None
    return text.rstrip(" ")


def _checked_note(note: object) -> str:
    return _checked_text(note, "note")


def _checked_label(label: object, name: str) -> str:
    text = _checked_text(label, name)
    size = len(text.encode("utf-8"))
    _require(size <= 80, f"{name} has {size} bytes; 80 are kept")
    _require(not text.startswith("END"), f"{name} begins with END, which ends the deck")
    return text


def _checked_curve(curve: Table | None) -> tuple[tuple[float, float, float, float], ...]:
    if curve is None:
        return ()
    points: list[tuple[float, float, float, float]] = []
    for row in _curve_rows(curve):
        a, b, c, d = _reals(row, 4, "a point of the curve")
        points.append((a, b, c, d))
    _require(1 <= len(points) <= items.CURVE_POINTS, f"a curve has 1 to {items.CURVE_POINTS} points, not {len(points)}")
    first, last = points[0], points[-1]
    _require(first[0] <= first[2], "first point: the elastic axial force is above the plastic one")
    _require(max(first[1], first[3]) <= 0.0, "first point: a moment is above 0")
    for i, (before, point) in enumerate(zip(points, points[1:]), 2):
        _require(before[0] - point[0] > 2 * items.TINY, f"point {i}: the elastic axial force does not fall")
        _require(before[2] - point[2] > 2 * items.TINY, f"point {i}: the plastic axial force does not fall")
        _require(min(point[1], point[3]) >= 0.0, f"point {i}: a moment is below 0")
    if len(points) > 1:
        _require(last[2] <= last[0], "last point: the plastic axial force is above the elastic one")
        _require(max(last[1], last[3]) <= 0.0, "last point: a moment is above 0")
    return tuple(points)


def _is_table(data: object) -> bool:
    """Whether rows have names: a DataFrame, a structured array, or mappings; not a plain sequence of rows."""
    if hasattr(data, "columns") or getattr(getattr(data, "dtype", None), "names", None) is not None:
        return True
    return isinstance(data, Sequence) and bool(data) and isinstance(data[0], Mapping)


def _named_values(row: Mapping[str, Any], names: Sequence[str], others: Sequence[str], needs_all: bool) -> list[Any]:
    for name in row:
        _require(name in names or name in others, f"there is no column {name!r}; the columns are {', '.join([*others, *names])}")
    for name in names if needs_all else others:
        _require(name in row, f"the column {name!r} is missing")
    return [row.get(name, 0.0) for name in names]


def _tubes(tubes: Any) -> list[Tube]:
    if not _is_table(tubes):
        return list(tubes)
    found: list[Tube] = []

    def add(**values: Any) -> int:
        found.append(Tube(**values))
        return len(found)

    add.__signature__ = inspect.signature(Tube)  # type: ignore[attr-defined]
    add_rows(add, tubes)
    return found


def _curve_rows(curve: Any) -> list[Any]:
    if not _is_table(curve):
        return list(curve)
    return [_named_values(row, _CURVE_COLUMNS, (), True) for row in rows_of(curve)]


def _load_rows(loads: Any) -> list[tuple[Any, Any]]:
    if _is_table(loads):
        rows = rows_of(loads)
        return [(row.get("pile"), _named_values(row, _LOAD_COLUMNS, ("pile",), False)) for row in rows]
    pairs = list(loads.items() if isinstance(loads, Mapping) else loads)
    for pair in pairs:
        _require(isinstance(pair, (tuple, list)) and len(pair) == 2, f"{pair!r} is not a pile and its six values")
    return [(pile, six) for pile, six in pairs]
