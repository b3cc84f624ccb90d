"""Checks of a group as a whole, as KORVAT makes them after it has read the deck."""

from __future__ import annotations

import math
from typing import Mapping, Sequence

from . import deck_items as items
from .deck_items import DeckPile, Material, NodeValues, Point, Section, Segment
from .errors import DeckError

# KORVAT allows 0.1 %; the rest is for its rounding.
_LENGTH_TOLERANCE = 0.001 * (1.0 - 1e-9)


def check_group(
    materials: Sequence[Material],
    sections: Sequence[Section],
    segments: Sequence[Segment],
    piles: Sequence[DeckPile],
    tip_codes: Mapping[int, int],
    fixed_to: Mapping[int, int],
    node_values: Sequence[NodeValues],
    spring_factor: float,
) -> None:
    """Raises DeckError for the first thing that KORVAT would refuse. spring_factor: from a spring of the deck to a stored one."""
    for table, name in ((materials, "material"), (sections, "section"), (segments, "segment type"), (piles, "pile")):
        if not table:
            raise DeckError(f"the deck has no {name}")
    if piles[-1].head is None:
        raise DeckError(f"pile {len(piles)} is to stand between two others, and no pile follows")
    _check_lengths(segments, piles)
    elements = element_counts(segments, piles)
    _check_tips(elements, tip_codes, fixed_to)
    _check_nodes(elements, node_values)
    _check_dummy_displacements(elements, node_values, spring_factor)


def element_counts(segments: Sequence[Segment], piles: Sequence[DeckPile]) -> list[int]:
    """The number of elements of each pile; a generated one has those of its source."""
    counts: list[int] = []
    for pile in piles:
        if pile.source:
            counts.append(counts[pile.source - 1])
        else:
            counts.append(sum(segments[number - 1].elements for number in pile.segments))
        if counts[-1] > items.ELEMENTS:
            raise DeckError(f"pile {pile.number} has {counts[-1]} elements; {items.ELEMENTS} are allowed")
    return counts


def given_lines(piles: Sequence[DeckPile]) -> dict[int, tuple[Point, Point]]:
    """Head and tip of every pile that is not generated; those between two given ones stand at equal distances.

    >>> def pile(number, z):
    ...     point = None if z is None else (0.0, 0.0, z)
    ...     return DeckPile(number, point, point, (), 0, "", "")
    >>> given_lines([pile(1, 0.0), pile(2, None), pile(3, 4.0)])[2]
    ((0.0, 0.0, 2.0), (0.0, 0.0, 2.0))
    """
    lines = {pile.number: (pile.head, pile.tip) for pile in piles if pile.head is not None and pile.tip is not None}
    found = dict(lines)
    for before, after in zip(sorted(lines), sorted(lines)[1:]):
        for number in range(before + 1, after):
            if piles[number - 1].source:
                continue
            share = (number - before) / (after - before)
            head, tip = (_part(a, b, share) for a, b in zip(lines[before], lines[after]))
            found[number] = (head, tip)
    return found


def _part(a: Point, b: Point, share: float) -> Point:
    x, y, z = (p + share * (q - p) for p, q in zip(a, b))
    return (x, y, z)


def _check_lengths(segments: Sequence[Segment], piles: Sequence[DeckPile]) -> None:
    for number, (head, tip) in given_lines(piles).items():
        types = piles[number - 1].segments
        if not types:
            continue
        total = sum(segments[k - 1].length for k in types)
        distance = math.dist(head, tip)
        if not abs(distance - total) <= _LENGTH_TOLERANCE * total:
            raise DeckError(f"pile {number}: its segments add up to {total:.6g}, and from head to tip it is {distance:.6g}")


def _check_tips(elements: Sequence[int], tip_codes: Mapping[int, int], fixed_to: Mapping[int, int]) -> None:
    for number, code in tip_codes.items():
        if code >= 0:
            continue
        if -code > elements[number - 1]:
            raise DeckError(f"pile {number}: the tip code {code} needs {-code} elements, and it has {elements[number - 1]}")
        target = fixed_to.get(number, 0)
        if target and elements[target - 1]:
            raise DeckError(f"pile {number} has a tip code below 0 and is fixed to pile {target}, which is not a dummy pile")


def _check_nodes(elements: Sequence[int], node_values: Sequence[NodeValues]) -> None:
    for record in node_values:
        for number in range(record.first_pile, record.last_pile + 1):
            nodes = elements[number - 1] + 1
            if record.last_node > nodes:
                raise DeckError(f"pile {number} has {nodes} nodes, and node {record.last_node} is given values")


def _check_dummy_displacements(elements: Sequence[int], node_values: Sequence[NodeValues], spring_factor: float) -> None:
    springs: dict[int, float] = {}
    moved: dict[int, bool] = {}
    for record in node_values:
        for number in range(record.first_pile, record.last_pile + 1):
            if record.code == 1:
                springs[number] = sum(record.values[:3]) * spring_factor
            elif record.code == 3:
                moved[number] = any(record.values[:3])
    for number, is_moved in moved.items():
        if is_moved and elements[number - 1] == 0 and springs.get(number, 0.0) <= items.TINY:
            raise DeckError(f"pile {number}, a dummy pile, has soil displacements and no springs along x, y or z")
