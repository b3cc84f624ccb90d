"""Runs the program korvat in a directory, and tells what came of it."""

from __future__ import annotations

import os
import re
import shutil
import subprocess
import tempfile
from dataclasses import dataclass, field
from pathlib import Path
from types import MappingProxyType, TracebackType
from typing import Callable, Mapping

from .deck import Deck
from .errors import ProgramNotFound, RunFailed
from .load_file import LoadFile, read_load
from .pile_file import PileFile, read_pile
from .plot_file import PlotFile, read_plot

DECK_NAME = "KORVAT.INP"
OUTPUT_NAMES = ("KORVAT.MLG", "KORVAT.LIS", "PILEPLOT.TXT", "PILE.07", "LOAD.09")

_WITH_LINE = re.compile(r"^korvat: KORVAT\.INP:(\d+): (.*)$")
_OF_DECK = re.compile(r"^korvat: KORVAT\.INP: (.*)$")
_OTHER = re.compile(r"^korvat: (.*)$")
_WARNING = "warning: "
_OLD_OUTPUT = re.compile(r"^cannot open (\S+): .*; what stands there is of an earlier run$")
_OLD_LOADS = "LOAD.09 is of an earlier run"
_STOPPED_ON_WINDOWS = 0xFFFFFFFF  # -1, which is 255 elsewhere


@dataclass(frozen=True)
class Message:
    """An error or a warning on standard error.

    text: without the place; line: number of the line in KORVAT.INP, from 1, comments counted, or None where the message is not about a
    line; deck_line: that line, where it is shown; column: of the value at fault in it, from 1, where it is one value.
    """

    text: str
    line: int | None = None
    deck_line: str | None = None
    column: int | None = None

    def __str__(self) -> str:
        return self.text if self.line is None else f"{DECK_NAME}:{self.line}: {self.text}"


@dataclass(frozen=True, eq=False)
class Run:
    """A run that has ended.

    exit_code: 0 fine, 1 or 2 an error in the deck, 255 stopped (also on Windows, where the system shows -1); below 0, on
        POSIX systems, ended by that signal.
    directory: in which the program ran. A private one lives as long as the Run: use it in a with statement, or keep the object.
    files: the outputs that are of this run, by their names ("PILE.07"); one that an earlier run left behind is not among them.
    errors: of the first error and of outputs that were lost, the first error first; empty with exit code 0.
    warnings: of a run with exit code 0; what an engineer must look at.
    standard_error: all of it, as text.
    """

    exit_code: int
    directory: Path
    files: Mapping[str, Path]
    errors: tuple[Message, ...]
    warnings: tuple[Message, ...]
    standard_error: str
    _private: tempfile.TemporaryDirectory[str] | None = field(default=None, repr=False)

    @property
    def error(self) -> Message | None:
        """The first error; None after a run with exit code 0."""
        return self.errors[0] if self.errors else None

    def check(self) -> Run:
        """Returns the run; raises RunFailed, with the first error and its line, when the exit code is not 0."""
        if self.exit_code != 0:
            raise RunFailed(f"exit code {self.exit_code}: {self.error or 'no message'}")
        return self

    def pile(self) -> PileFile:
        """PILE.07 of this run; FileNotFoundError when it wrote none."""
        return read_pile(self._file("PILE.07"))

    def load(self) -> LoadFile:
        """LOAD.09 of this run; FileNotFoundError when it wrote none: the deck has no load vectors."""
        return read_load(self._file("LOAD.09"))

    def plot(self) -> PlotFile:
        """PILEPLOT.TXT of this run; FileNotFoundError when it wrote none."""
        return read_plot(self._file("PILEPLOT.TXT"))

    def log(self) -> str:
        """The text of KORVAT.MLG; FileNotFoundError when it could not be made."""
        return self._file("KORVAT.MLG").read_text(encoding="utf-8", errors="backslashreplace")

    def listing(self) -> str:
        """The text of KORVAT.LIS; FileNotFoundError when it could not be made."""
        return self._file("KORVAT.LIS").read_text(encoding="utf-8", errors="backslashreplace")

    def close(self) -> None:
        """Removes the private directory of the run; a case that ran in place stays as it is."""
        if self._private is not None:
            self._private.cleanup()

    def __enter__(self) -> Run:
        return self

    def __exit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()

    def _file(self, name: str) -> Path:
        if name not in self.files:
            raise FileNotFoundError(f"{self.directory / name}: the run wrote none (exit code {self.exit_code})")
        return self.files[name]


def find_program(program: str | os.PathLike[str] | None = None) -> Path:
    """The program: the argument, else the environment variable KORVAT, else korvat on the PATH; raises ProgramNotFound."""
    asked = program if program is not None else os.environ.get("KORVAT") or "korvat"
    found = shutil.which(asked)
    if found is None:
        places = "the argument" if program is not None else "the environment variable KORVAT and the PATH"
        raise ProgramNotFound(f"no program {os.fspath(asked)!r}; looked at {places}")
    return Path(found).resolve()


def run(
    case: str | os.PathLike[str] | Deck,
    program: str | os.PathLike[str] | None = None,
    *,
    in_place: bool = True,
    timeout: float | None = None,
) -> Run:
    """Runs KORVAT and returns what came of it; an error in the deck is no exception, see Run.check.

    case: a directory with a KORVAT.INP, or a Deck, which always runs in a private directory.
    program: the program to run; without it, the one that find_program finds.
    in_place: run in the directory of the case, which gets the outputs and whose older ones become .bak files; files in it whose
        names begin with fem_io are deleted. False: run on a copy of KORVAT.INP in a private directory.
    timeout: seconds after which the program is ended and subprocess.TimeoutExpired raised.

    Raises ProgramNotFound, and FileNotFoundError when the case has no KORVAT.INP.
    """
    found = find_program(program)
    if isinstance(case, Deck):
        text = case.text()
        return _run_privately(found, timeout, lambda directory: directory.joinpath(DECK_NAME).write_bytes(text.encode()))
    directory = Path(case)
    deck = directory / DECK_NAME
    if not deck.is_file():
        raise FileNotFoundError(f"{deck}: there is no deck")
    if in_place:
        return _run_in(found, directory, timeout, None)
    return _run_privately(found, timeout, lambda copy: shutil.copyfile(deck, copy / DECK_NAME))


def _run_privately(program: Path, timeout: float | None, lay: Callable[[Path], object]) -> Run:
    private = tempfile.TemporaryDirectory(prefix="korvat-")
    try:
        lay(Path(private.name))
        return _run_in(program, Path(private.name), timeout, private)
    except BaseException:
        private.cleanup()
        raise


def _state(path: Path) -> tuple[int, int, int, int] | None:
    """What changes when a file is made or written anew; None where there is none."""
    try:
        found = path.stat()
    except OSError:
        return None
    return found.st_ino, found.st_size, found.st_mtime_ns, found.st_ctime_ns


def _run_in(
    program: Path, directory: Path, timeout: float | None, private: tempfile.TemporaryDirectory[str] | None
) -> Run:
    before = {name: _state(directory / name) for name in OUTPUT_NAMES}
    done = subprocess.run(
        [program],
        cwd=directory,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE,
        timeout=timeout,
        check=False,
    )
    exit_code = 255 if done.returncode == _STOPPED_ON_WINDOWS else done.returncode
    standard_error = done.stderr.decode("utf-8", "backslashreplace").replace("\r\n", "\n")
    messages = parse_messages(standard_error)
    warnings = tuple(message for is_warning, message in messages if is_warning)
    files = {}
    for name in OUTPUT_NAMES:
        path = directory / name
        if path.is_file() and _is_of_run(name, exit_code, warnings, before[name] != _state(path)):
            files[name] = path
    return Run(
        exit_code=exit_code,
        directory=directory,
        files=MappingProxyType(files),
        errors=tuple(message for is_warning, message in messages if not is_warning),
        warnings=warnings,
        standard_error=standard_error,
        _private=private,
    )


def _is_of_run(name: str, exit_code: int, warnings: tuple[Message, ...], is_changed: bool) -> bool:
    if exit_code != 0:
        return is_changed
    # A run that succeeds names each file that is not its own.
    for warning in warnings:
        old = _OLD_OUTPUT.match(warning.text)
        if old is not None and old[1] == name:
            return False
        if name == "LOAD.09" and warning.text.startswith(_OLD_LOADS):
            return False
    return True


def parse_messages(standard_error: str) -> list[tuple[bool, Message]]:
    """The messages on standard error, each with whether it is a warning.

    >>> parse_messages("korvat: KORVAT.INP:7: SR/READPI : NUMPIL PROBLEM\\n  201\\n  ^\\nsee KORVAT.MLG\\n")
    [(False, Message(text='SR/READPI : NUMPIL PROBLEM', line=7, deck_line='  201', column=3))]
    >>> parse_messages("korvat: KORVAT.INP:12: warning: SR/READPI :  JECHO=    2\\n")
    [(True, Message(text='SR/READPI :  JECHO=    2', line=12, deck_line=None, column=None))]
    """
    lines = standard_error.split("\n")
    messages: list[tuple[bool, Message]] = []
    at = 0
    while at < len(lines):
        with_line = _WITH_LINE.match(lines[at])
        other = with_line or _OF_DECK.match(lines[at]) or _OTHER.match(lines[at])
        at += 1
        if other is None:
            continue
        text = other[other.lastindex or 1]
        is_warning = text.startswith(_WARNING)
        deck_line, column = None, None
        if with_line is not None and not is_warning and at < len(lines):
            deck_line = lines[at]
            at += 1
            if at < len(lines) and re.fullmatch(r"\s*\^", lines[at]):
                column = len(lines[at])
                at += 1
        line = int(with_line[1]) if with_line is not None else None
        messages.append((is_warning, Message(text.removeprefix(_WARNING), line, deck_line, column)))
    return messages
