"""What a deck is made of, as it was added: values in the units of the deck, checked."""

from __future__ import annotations

from dataclasses import dataclass

Point = tuple[float, float, float]
Six = tuple[float, float, float, float, float, float]

# KORVAT's tables.
PILES = 200
SECTIONS = 200
TUBES = 12
CURVE_POINTS = 10
MATERIALS = 20
SEGMENTS = 1000
SEGMENTS_OF_PILE = 20
ELEMENTS = 450
NODE_VALUE_RECORDS = 499

# Below this a stored value counts as 0.
TINY = 1e-10


@dataclass(frozen=True)
class Material:
    elastic_modulus: float
    shear_modulus: float
    yield_stress: float
    wall_weight: float
    temperature_strain: float
    note: str


@dataclass(frozen=True)
class TubeValues:
    """The values of a tube; those of the stiffnesses are 0.0 where KORVAT computes them."""

    material: int
    diameter: float
    wall: float
    axial_stiffness: float
    bending_stiffness: float
    shear_stiffness: float
    torsional_stiffness: float
    fluid_weight: float
    eccentricity: float
    miscellaneous: Point


@dataclass(frozen=True)
class Section:
    """tube: of a plain section; tubes: of a composite, the outer one first; curve: elastic force and moment, plastic force and moment."""

    number: int
    code: int
    tube: TubeValues | None
    tubes: tuple[TubeValues, ...]
    curve: tuple[tuple[float, float, float, float], ...]
    eccentricity: float
    miscellaneous: Point
    note: str


@dataclass(frozen=True)
class Segment:
    start: int
    end: int
    length: float
    elements: int
    note: str


@dataclass(frozen=True)
class DeckPile:
    """A pile: given with head and tip, left out between two given ones (both None), or generated from a source.

    mirror: of a generated pile "" for a copy, "x" or "y"; head: of a copy its shift.
    """

    number: int
    head: Point | None
    tip: Point | None
    segments: tuple[int, ...]
    source: int
    mirror: str
    note: str


@dataclass(frozen=True)
class NodeValues:
    """A record of special pile node values."""

    first_pile: int
    last_pile: int
    first_node: int
    last_node: int
    code: int
    values: Six
    note: str


@dataclass(frozen=True)
class Loads:
    label: str
    factor: float
    rows: tuple[tuple[int, Six], ...]
