"""LOAD.09: the load vectors."""

from __future__ import annotations

import os
from dataclasses import dataclass
from pathlib import Path
from typing import Any

import numpy as np
import numpy.typing as npt

from .framing import Records, text_of

#: A load on a pile; see LoadVector.loads.
LOAD_DTYPE = np.dtype([("pile", "<i4"), ("force", "<f8", (3,)), ("moment", "<f8", (3,))])


@dataclass(frozen=True, eq=False)
class LoadVector:
    """A load vector in stored units, F and L: the values of the deck times the factor of the vector, FACF and FACL.

    label: of the vector.
    loads: shape (loads,), LOAD_DTYPE, in the order of the deck: pile, force along x, y, z in F, moment about x, y, z in F L. A pile
        that the deck lists twice is in it twice.
    """

    label: str
    loads: npt.NDArray[Any]


@dataclass(frozen=True, eq=False)
class LoadFile:
    """What LOAD.09 holds.

    vectors: in the order of the deck.
    """

    vectors: tuple[LoadVector, ...]


def read_load(path: str | os.PathLike[str]) -> LoadFile:
    """Reads LOAD.09.

    Raises DamagedFile, with the offset, for a file that is not a whole LOAD.09, and OSError where it cannot be read. The file of a run
    that failed before its loads holds no vector and is no damage: the exit code shows such a run.
    """
    records = Records(Path(path))
    vectors: list[LoadVector] = []
    while not records.ends():
        vectors.append(_read_vector(records, len(vectors) + 1))
    return LoadFile(tuple(vectors))


def _read_vector(records: Records, number: int) -> LoadVector:
    label = records.next(f"the label of vector {number}", 80)
    counted = records.next(f"the count of vector {number}", 4)
    count = int.from_bytes(counted.data, "little", signed=True)
    if count < 1:
        raise records.damage(counted.offset, f"vector {number} has {count} loads")
    # Collected one by one: the count alone is not to be believed.
    data = b"".join(
        records.next(f"load {i} of vector {number}", LOAD_DTYPE.itemsize).data for i in range(1, count + 1)
    )
    return LoadVector(text_of(label.data), np.frombuffer(data, LOAD_DTYPE))
