"""Rows of numbers in aligned columns, within the 80 columns that KORVAT reads."""

from __future__ import annotations

import textwrap
from typing import NamedTuple, Sequence

from .errors import DeckError
from .numbers import real_text

WIDTH = 80


class Row(NamedTuple):
    """values: an int, a float, or None for an empty place; note: a comment above the row."""

    values: Sequence[int | float | None]
    note: str = ""


def comment(text: str) -> list[str]:
    """Comment lines with the text; none where it is empty.

    >>> comment("legs of the jacket")
    ['* legs of the jacket']
    """
    return ["* " + line for line in textwrap.wrap(text, WIDTH - 2)]


def _cell(value: int | float | None) -> str:
    if value is None:
        return ""
    return str(value) if isinstance(value, int) else real_text(value)


def _fitted(widths: Sequence[int], gap: int) -> list[list[int]]:
    """The columns in the fewest lines: for each line, the indices of its columns."""
    lines: list[list[int]] = [[]]
    used = 0
    for i, width in enumerate(widths):
        if used + gap + width > WIDTH:
            lines.append([])
            used = 0
        lines[-1].append(i)
        used += gap + width
    return lines


def layout(names: Sequence[str], rows: Sequence[Row]) -> tuple[list[str], list[str]]:
    """The heading, its first line without a comment sign, and the lines of the rows with their notes.

    Where a row needs more than one line, all rows are broken at the same columns, and the names of the later ones are comments.

    >>> layout(["N", "wall"], [Row([1, 0.025]), Row([2, 0.5], "tip")])
    (['  N   wall'], ['  1  0.025', '* tip', '  2    0.5'])
    """
    cells = [[_cell(value) for value in row.values] for row in rows]
    widths = [max([len(name), *(len(row[i]) for row in cells)]) for i, name in enumerate(names)]
    gap = 2 if sum(widths) + 2 * len(widths) <= WIDTH else 1
    broken = _fitted(widths, gap)
    if any(gap + width > WIDTH for width in widths):
        raise DeckError("a number is wider than a line")

    def line(texts: Sequence[str], columns: Sequence[int]) -> str:
        return "".join(" " * gap + texts[i].rjust(widths[i]) for i in columns).rstrip()

    heading = [line(names, broken[0])]
    heading += ["*" + line(names, columns)[1:] for columns in broken[1:]]
    lines: list[str] = []
    for row, texts in zip(rows, cells):
        lines += comment(row.note)
        for columns in broken:
            text = line(texts, columns)
            if text:
                lines.append(text)
    return heading, lines
