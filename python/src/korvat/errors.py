"""The errors of the package; all of them are KorvatError."""

from __future__ import annotations

from pathlib import Path


class KorvatError(Exception):
    """Base of every error that the package raises on its own account."""


class DamagedFile(KorvatError, ValueError):
    """A file that KORVAT did not write, or did not write to its end.

    path: the file; offset: byte from the start of the file (0 is the first) of what is wrong, in a binary file of the
    record with it; reason: what is wrong there.
    """

    def __init__(self, path: Path, offset: int, reason: str) -> None:
        super().__init__(f"{path}: at byte {offset}: {reason}")
        self.path = path
        self.offset = offset
        self.reason = reason


class DeckError(KorvatError, ValueError):
    """A value that KORVAT would refuse in a deck, or would take for something else."""


class ProgramNotFound(KorvatError, FileNotFoundError):
    """The program korvat is in none of the places in which it is looked for."""


class RunFailed(KorvatError, RuntimeError):
    """A run that ended with an exit code other than 0, raised by Run.check()."""
