"""PILEPLOT.TXT: the coordinates of the nodes, to three decimals."""

from __future__ import annotations

import os
import re
from dataclasses import dataclass
from pathlib import Path
from typing import Any, NoReturn

import numpy as np
import numpy.typing as npt

from .errors import DamagedFile
from .framing import text_of

# A value with three decimals. One that is too wide for its column has no blank before it, and its text may be missing.
_NODE_VALUE = rb" *(-?\d+\.\d{3}|-?inf|-?nan|\*{10})"
_SIZE_VALUE = rb" *(-?\d+\.\d{3}|-?inf|-?nan|\*{7})"
_COUNT_LINE = re.compile(rb"^ *(\d+)  Number of piles$")
_PILE_LINE = re.compile(
    rb"^ *(\d+) +(\d+)" + 2 * _SIZE_VALUE + rb" *(\d)  Pile,nodes,diam,wall,'material \(1=steel 2=concrete\)$"
)
_HEADING = b"  Node     X         Y         Z"
_NODE_LINE = re.compile(rb"^ *(\d+)" + 3 * _NODE_VALUE + rb"$")


@dataclass(frozen=True, eq=False)
class PlotPile:
    """A pile with elements. L is the stored unit of length.

    number: from 1.
    diameter, wall: of the section at the tip, as read, L; 0.0 for a composite section.
    material: 1 steel, 2 concrete; right for decks in kN and m only.
    nodes: shape (n, 3), float64: x, y, z from head to tip, L, to three decimals. nan where the file has asterisks.
    """

    number: int
    diameter: float
    wall: float
    material: int
    nodes: npt.NDArray[np.float64]


@dataclass(frozen=True, eq=False)
class PlotFile:
    """What PILEPLOT.TXT holds.

    label: of the run.
    pile_count: the number of piles of the group, dummy piles included.
    piles: those that have elements, in the order of their numbers.
    """

    label: str
    pile_count: int
    piles: tuple[PlotPile, ...]


class _Lines:
    """The lines of a file, one by one, each with its offset."""

    def __init__(self, path: Path) -> None:
        self._path = path
        self._bytes = path.read_bytes()
        self._at = 0
        self.offset = 0  # of the line that was handed out last

    def ends(self) -> bool:
        return self._at == len(self._bytes)

    def fail(self, reason: str) -> NoReturn:
        raise DamagedFile(self._path, self.offset, reason)

    def next(self, name: str) -> bytes:
        self.offset = self._at
        end = self._bytes.find(b"\n", self._at)
        if end < 0:
            self.fail(f"the file ends before {name}" if self.ends() else f"the file ends inside {name}")
        line = self._bytes[self._at : end]
        self._at = end + 1
        return line.rstrip(b"\r ")

    def expect(self, text: bytes, name: str) -> None:
        if self.next(name) != text:
            self.fail(f"this is not {name}")

    def match(self, form: re.Pattern[bytes], name: str) -> re.Match[bytes]:
        found = form.match(self.next(name))
        if found is None:
            self.fail(f"this is not {name}")
        return found


def read_plot(path: str | os.PathLike[str]) -> PlotFile:
    """Reads PILEPLOT.TXT.

    Raises DamagedFile, with the offset of the line, for a file that is not one, that is empty (the run failed), or that ends inside a
    pile; OSError where it cannot be read. The file does not say which piles have elements, so that one that was cut between two
    piles is read as it is.
    """
    lines = _Lines(Path(path))
    if lines.ends():
        lines.fail("the file is empty")
    label = text_of(lines.next("the label"))
    lines.expect(b"", "the empty line below the label")
    count = int(lines.match(_COUNT_LINE, "the number of piles")[1])
    piles: list[PlotPile] = []
    while not lines.ends():
        piles.append(_read_pile(lines, piles[-1].number if piles else 0, count))
    return PlotFile(label, count, tuple(piles))


def _read_pile(lines: _Lines, last: int, count: int) -> PlotPile:
    lines.expect(b"", "the empty line before a pile")
    line = lines.match(_PILE_LINE, "the line of a pile")
    number, node_count = int(line[1]), int(line[2])
    if not last < number <= count or node_count < 2:
        lines.fail(f"pile {number} with {node_count} nodes, behind pile {last} of {count}")
    lines.expect(b"", "the empty line above the nodes")
    lines.expect(_HEADING, "the heading of the nodes")
    nodes = np.zeros((node_count, 3))
    for i in range(node_count):
        values = lines.match(_NODE_LINE, f"node {i + 1} of pile {number}")
        if int(values[1]) != i + 1:
            lines.fail(f"this is not node {i + 1} of pile {number}")
        nodes[i] = [_value(text) for text in values.groups()[1:]]
    nodes.flags.writeable = False
    return PlotPile(number, _value(line[3]), _value(line[4]), int(line[5]), nodes)


def _value(text: Any) -> float:
    return float("nan") if text.startswith(b"*") else float(text)
