"""The records of PILE.07 and LOAD.09, without a look at what they hold."""

from __future__ import annotations

from pathlib import Path
from typing import NamedTuple

from .errors import DamagedFile

_HEADER = 0x4B
_END = 0x82
_FULL = 0x81
_ONLY_FULL = 0x80  # opens a record of exactly one full segment
_SEGMENT = 128


class Record(NamedTuple):
    """offset: of the first length byte of the record in its file."""

    offset: int
    data: bytes


class Records:
    """The records of a file, handed out one by one; raises DamagedFile where the file goes wrong."""

    def __init__(self, path: Path) -> None:
        self._path = path
        self._bytes = path.read_bytes()
        self._at = 1
        if not self._bytes:
            raise self.damage(0, "the file is empty")
        if self._bytes[0] != _HEADER:
            raise self.damage(0, "the file does not begin with the letter K")

    def damage(self, offset: int, reason: str) -> DamagedFile:
        """The error to raise for what is wrong at the offset."""
        return DamagedFile(self._path, offset, reason)

    def ends(self) -> bool:
        """Whether the end byte is next; behind it there must be nothing."""
        if self._at == len(self._bytes):
            raise self.damage(self._at, "the file ends without its end byte")
        if self._bytes[self._at] != _END:
            return False
        if self._at + 1 < len(self._bytes):
            raise self.damage(self._at + 1, "there is more behind the end byte")
        return True

    def next(self, name: str, size: int | None = None) -> Record:
        """The next record, which must be there and, where a size is given, have that many bytes."""
        if self.ends():
            raise self.damage(self._at, f"{name} is missing: the file ends before it")
        record = self._read()
        if size is not None and len(record.data) != size:
            raise self.damage(record.offset, f"{name} has {len(record.data)} bytes, not {size}")
        return record

    def _read(self) -> Record:
        offset = self._at
        parts: list[bytes] = []
        opening = self._opening()
        is_of_one = opening == _ONLY_FULL
        while opening >= _SEGMENT:
            if opening == _ONLY_FULL and parts:
                raise self.damage(self._at, "no length of a segment")
            parts.append(self._segment(_SEGMENT, _FULL))
            opening = self._opening()
        if opening == 0 and not parts:
            raise self.damage(offset, "a record without data")
        parts.append(self._segment(opening, opening))
        data = b"".join(parts)
        if is_of_one != (len(data) == _SEGMENT):
            raise self.damage(offset, "the first length does not agree with the record's")
        return Record(offset, data)

    def _opening(self) -> int:
        if self._at >= len(self._bytes):
            raise self.damage(self._at, "the file ends inside a record")
        opening = self._bytes[self._at]
        if opening > _FULL:
            raise self.damage(self._at, "no length of a segment")
        return opening

    def _segment(self, length: int, closing: int) -> bytes:
        first = self._at + 1
        last = first + length
        if last >= len(self._bytes):
            raise self.damage(self._at, "the file ends inside a segment")
        if self._bytes[last] != closing:
            raise self.damage(last, "the length behind a segment is not the one before it")
        self._at = last + 1
        return self._bytes[first:last]


def text_of(data: bytes) -> str:
    """A text of a record, without the blanks at its end; bytes that are not UTF-8 are shown as escapes."""
    return data.decode("utf-8", "backslashreplace").rstrip(" ")
