"""PILE.07: sections, yield curves, and piles with their nodes and elements."""

from __future__ import annotations

import os
from dataclasses import dataclass
from pathlib import Path
from types import MappingProxyType
from typing import Any, Mapping

import numpy as np
import numpy.typing as npt

from .framing import Record, Records, text_of

Array = npt.NDArray[Any]

_SECTION_PLACES = 200  # of the section integers and the yield curves, whatever the number of sections is
_TUBE_PLACES = 12
_CURVE_POINTS = 10

_SLOTS: list[Any] = [
    ("diameter", "<f8"),
    ("wall", "<f8"),
    ("area", "<f8"),
    ("section_modulus", "<f8"),
    ("axial_stiffness", "<f8"),
    ("shear_stiffness", "<f8"),
    ("bending_stiffness", "<f8"),
    ("torsional_stiffness", "<f8"),
    ("wall_weight", "<f8"),
    ("fluid_weight", "<f8"),
    ("temperature_strain", "<f8"),
    ("yield_stress", "<f8"),
    ("elastic_modulus", "<f8"),
    ("shear_modulus", "<f8"),
    ("eccentricity", "<f8"),
    ("axial_yield", "<f8"),
    ("torsional_yield", "<f8"),
    ("miscellaneous", "<f8", (3,)),
]
_SLOT_DTYPE = np.dtype(_SLOTS)

#: A cross section; PileFile.sections says what the fields mean.
SECTION_DTYPE = np.dtype([*_SLOTS, ("type", "<i4"), ("non_linear_code", "<i4")])
#: A point of the yield curves of a section; see PileFile.curves.
CURVE_DTYPE = np.dtype(
    [("elastic_axial", "<f8"), ("elastic_moment", "<f8"), ("plastic_axial", "<f8"), ("plastic_moment", "<f8")]
)
#: A node of a pile; see Pile.nodes.
NODE_DTYPE = np.dtype(
    [
        ("x", "<f8"),
        ("y", "<f8"),
        ("z", "<f8"),
        ("springs", "<f8", (6,)),
        ("forces", "<f8", (6,)),
        ("displacements", "<f8", (6,)),
    ]
)
#: An element of a pile; see Pile.elements.
ELEMENT_DTYPE = np.dtype([("diameter", "<f8"), ("length", "<f8"), ("section", "<i4"), ("strain", "<f8")])


@dataclass(frozen=True, eq=False)
class Pile:
    """A pile from head to tip. F and L are the stored units of force and length; +z points downwards.

    number: from 1.
    fixed_to: number of the pile to which it is fixed; 0: none.
    tip_code: at most 3; its meaning is that of the analysis program.
    nodes: shape (n,), NODE_DTYPE; nodes[0] is the head (node 1). x, y, z in L. springs, forces and displacements have six
        components, along x, y, z and about x, y, z: springs in F/L and F L, forces in F and F L, displacements (of the soil)
        in L and rad.
    elements: shape (n - 1,), ELEMENT_DTYPE; elements[i] lies between nodes[i] and nodes[i + 1]. diameter (outer) and length in
        L, section from 1, strain: temperature strain; for an element of a composite section the mean temperature of its nodes.
    """

    number: int
    fixed_to: int
    tip_code: int
    nodes: Array
    elements: Array

    @property
    def is_dummy(self) -> bool:
        """Whether it has one node and no element."""
        return len(self.elements) == 0

    @property
    def coordinates(self) -> Array:
        """x, y, z of the nodes, shape (n, 3), in L."""
        return np.stack([self.nodes["x"], self.nodes["y"], self.nodes["z"]], axis=1)

    @property
    def length(self) -> float:
        """Sum of the lengths of the elements, L; 0.0 for a dummy pile."""
        return float(self.elements["length"].sum())


@dataclass(frozen=True, eq=False)
class PileFile:
    """What PILE.07 holds, in stored units: those of the deck times its factors FACF and FACL.

    revision: of the deck, 4 or 5.
    date: year, month and day of the revision; None in revision 4.
    label: of the run.
    sections: shape (sections,), SECTION_DTYPE; section 1 is sections[0]. The tubes of composites follow the sections of the deck.
        diameter (outer), wall: L; area: L2; section_modulus (elastic): L3; axial_stiffness EA, shear_stiffness GA: F;
        bending_stiffness EI, torsional_stiffness GJ: F L2; wall_weight, fluid_weight: F/L3; temperature_strain; yield_stress,
        elastic_modulus, shear_modulus: F/L2; eccentricity and the 3 miscellaneous values: as given; axial_yield: F;
        torsional_yield: F L; type: 1 plain tube, n composite of n tubes; non_linear_code: points of the yield curves.
        Of a composite, what only one tube can have is 0. In revision 4 everything behind shear_modulus is 0.
    tubes: of each composite, by its number: the numbers of the sections of its tubes, the outer one first.
    curves: of each section with yield curves, by its number: shape (points,), CURVE_DTYPE, from the largest compression to the
        largest tension. Axial forces in F, compression positive, moments in F L.
    piles: in the order of their numbers, dummy piles included.
    """

    revision: int
    date: tuple[int, int, int] | None
    label: str
    sections: Array
    tubes: Mapping[int, tuple[int, ...]]
    curves: Mapping[int, Array]
    piles: tuple[Pile, ...]

    def section(self, number: int) -> Any:
        """The section with that number, a record of SECTION_DTYPE; KeyError where there is none."""
        if not 1 <= number <= len(self.sections):
            raise KeyError(f"section {number}: there are {len(self.sections)}")
        return self.sections[number - 1]

    def pile(self, number: int) -> Pile:
        """The pile with that number; KeyError where there is none."""
        for pile in self.piles:
            if pile.number == number:
                return pile
        raise KeyError(f"pile {number}: there are {len(self.piles)}")


def read_pile(path: str | os.PathLike[str]) -> PileFile:
    """Reads PILE.07, of either revision.

    Raises DamagedFile, with the offset, for a file that is not a whole PILE.07 (also for the file of a run that failed, which has no
    records or not all), and OSError where it cannot be read.
    """
    records = Records(Path(path))
    first = records.next("the label")
    date = _integers(first) if len(first.data) == 12 else None
    label = records.next("the label", 80) if date is not None else first
    if len(label.data) != 80:
        raise records.damage(label.offset, f"the label has {len(label.data)} bytes, not 80")
    counts = records.next("the record of counts", 8)
    piles, section_count = _integers(counts)
    if piles < 0 or not 0 <= section_count <= _SECTION_PLACES:
        raise records.damage(counts.offset, f"a count that is none: {piles} piles, {section_count} sections")
    sections = _read_sections(records, section_count)
    tubes: dict[int, tuple[int, ...]] = {}
    curves: dict[int, Array] = {}
    if date is not None:
        tubes = _read_section_integers(records, sections)
        curves = _read_curves(records, sections)
    found = tuple(_read_one_pile(records, number, section_count) for number in range(1, piles + 1))
    if not records.ends():
        extra = records.next("the end")
        raise records.damage(extra.offset, "there are more records than the piles have")
    return PileFile(
        revision=4 if date is None else 5,
        date=None if date is None else (date[0], date[1], date[2]),
        label=text_of(label.data),
        sections=_frozen(sections),
        tubes=MappingProxyType(tubes),
        curves=MappingProxyType(curves),
        piles=found,
    )


def _frozen(array: Array) -> Array:
    array.flags.writeable = False
    return array


def _integers(record: Record) -> list[int]:
    return [int(value) for value in np.frombuffer(record.data, "<i4")]


def _read_sections(records: Records, count: int) -> Array:
    sections = np.zeros(count, SECTION_DTYPE)
    for i in range(count):
        record = records.next(f"section {i + 1}", _SLOT_DTYPE.itemsize)
        values = np.frombuffer(record.data, _SLOT_DTYPE)[0]
        for name in _SLOT_DTYPE.names or ():
            sections[name][i] = values[name]
    return sections


def _read_section_integers(records: Records, sections: Array) -> dict[int, tuple[int, ...]]:
    """Sets type and code of the sections; returns the tubes of the composites."""
    record = records.next("the record of section integers", 4 * _SECTION_PLACES * (2 + _TUBE_PLACES))
    integers = np.frombuffer(record.data, "<i4")
    count = len(sections)
    sections["type"] = integers[:count]
    sections["non_linear_code"] = integers[_SECTION_PLACES : _SECTION_PLACES + count]
    places = integers[2 * _SECTION_PLACES :].reshape(_SECTION_PLACES, _TUBE_PLACES)
    if (sections["type"] > _TUBE_PLACES).any():
        raise records.damage(record.offset, "a section of more than 12 tubes")
    if ((sections["non_linear_code"] < 0) | (sections["non_linear_code"] > _CURVE_POINTS)).any():
        raise records.damage(record.offset, "a number of points that no yield curve has")
    tubes: dict[int, tuple[int, ...]] = {}
    for i, kind in enumerate(sections["type"].tolist()):
        if kind < 2:
            continue
        listed = tuple(places[i, :kind].tolist())
        if not all(1 <= tube <= count for tube in listed):
            raise records.damage(record.offset, f"section {i + 1} has a tube that is no section")
        tubes[i + 1] = listed
    return tubes


def _read_curves(records: Records, sections: Array) -> dict[int, Array]:
    record = records.next("the record of yield curves", 8 * 4 * _SECTION_PLACES * _CURVE_POINTS)
    tables = np.frombuffer(record.data, "<f8").reshape(4, _SECTION_PLACES, _CURVE_POINTS)
    curves: dict[int, Array] = {}
    for i, points in enumerate(sections["non_linear_code"].tolist()):
        if points == 0:
            continue
        curve = np.zeros(points, CURVE_DTYPE)
        for table, name in zip(tables, CURVE_DTYPE.names or ()):
            curve[name] = table[i, :points]
        curves[i + 1] = _frozen(curve)
    return curves


def _read_one_pile(records: Records, number: int, section_count: int) -> Pile:
    head = records.next(f"pile {number}", 16)
    own_number, fixed_to, element_count, tip_code = _integers(head)
    if element_count < 0:
        raise records.damage(head.offset, f"pile {number} has {element_count} elements")
    if own_number != number:
        raise records.damage(head.offset, f"pile {number} has the number {own_number}")
    return Pile(
        number=number,
        fixed_to=fixed_to,
        tip_code=tip_code,
        nodes=_frozen(_read_nodes(records, number, element_count + 1)),
        elements=_frozen(_read_elements(records, number, element_count, section_count)),
    )


def _read_nodes(records: Records, number: int, count: int) -> Array:
    size = 8 * count
    # The first record shows whether there are as many nodes as the pile says, before room is made for them.
    columns = [records.next(f"{axis} of pile {number}", size) for axis in "XYZ"]
    nodes = np.zeros(count, NODE_DTYPE)
    for axis, column in zip("xyz", columns):
        nodes[axis] = np.frombuffer(column.data, "<f8")
    for component in range(6):
        for kind in ("springs", "forces", "displacements"):
            record = records.next(f"component {component + 1} of the {kind} of pile {number}", size)
            nodes[kind][:, component] = np.frombuffer(record.data, "<f8")
    return nodes


def _read_elements(records: Records, number: int, count: int, section_count: int) -> Array:
    elements = np.zeros(count, ELEMENT_DTYPE)
    if count == 0:
        return elements
    sizes = np.frombuffer(records.next(f"the element sizes of pile {number}", 16 * count).data, "<f8").reshape(count, 2)
    elements["diameter"], elements["length"] = sizes[:, 0], sizes[:, 1]
    record = records.next(f"the element sections of pile {number}", 12 * count)
    pairs = np.frombuffer(record.data, np.dtype([("section", "<i4"), ("strain", "<f8")]))
    elements["section"], elements["strain"] = pairs["section"], pairs["strain"]
    if ((pairs["section"] < 1) | (pairs["section"] > section_count)).any():
        raise records.damage(record.offset, f"pile {number} has an element of a section that is none")
    return elements
