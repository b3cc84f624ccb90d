"""Tables from outside: a pandas DataFrame, a structured numpy array, or a sequence of mappings, as rows by column names."""

from __future__ import annotations

import inspect
from typing import Any, Callable, Iterable, Mapping, Union

import numpy as np

from .errors import DeckError

# A DataFrame is known by what it can do: pandas is never imported here.
Table = Union[Iterable[Mapping[str, Any]], "np.ndarray[Any, Any]", Any]


def _records(table: Table) -> list[dict[str, Any]]:
    if hasattr(table, "to_dict") and hasattr(table, "columns"):
        return [{str(name): value for name, value in row.items()} for row in table.to_dict("records")]
    if isinstance(table, np.ndarray) and table.dtype.names is not None:
        names = table.dtype.names
        return [dict(zip(names, row)) for row in table.tolist()]
    rows = list(table)
    if not all(isinstance(row, Mapping) for row in rows):
        raise DeckError("a table is a pandas DataFrame, a structured array, or a sequence of mappings")
    return [dict(row) for row in rows]


def _is_empty(value: object) -> bool:
    """An empty cell: None, or the not-a-number that pandas has in its place."""
    return value is None or (isinstance(value, float) and value != value)


def rows_of(table: Table) -> list[dict[str, Any]]:
    """The rows, each without its empty cells.

    >>> rows_of([{"diameter": 0.9, "fluid_weight": None}])
    [{'diameter': 0.9}]
    """
    return [{name: value for name, value in row.items() if not _is_empty(value)} for row in _records(table)]


def add_rows(add: Callable[..., int], table: Table) -> list[int]:
    """Calls a method with each row as its arguments; returns the numbers that it gave them.

    DeckError, with the number of the row, for a column that the method does not know and for one that it misses.
    """
    known = [name for name in inspect.signature(add).parameters if name != "self"]
    numbers = []
    for at, row in enumerate(rows_of(table), 1):
        for name in row:
            if name not in known:
                raise DeckError(f"row {at}: there is no column {name!r}; the columns are {', '.join(known)}")
        try:
            inspect.signature(add).bind(**row)
        except TypeError as error:
            raise DeckError(f"row {at}: {error}") from None
        try:
            numbers.append(add(**row))
        except DeckError as error:
            raise DeckError(f"row {at}: {error}") from None
    return numbers
