"""What every character of a deck is, by the rules of docs/deck.md: the measure for the grammars of all editors.

A mark is one letter: L label, V version line, C comment, H heading, N number, X what is taken for a number and is none, R remark, T tab that separates
nothing, B beyond the columns that are read, E the END line, U below it; a blank is a character of no kind.
"""

from __future__ import annotations

import re

NUMBER = re.compile(r"[-+]?(\d+\.?\d*|\.\d+)([eEdD][-+]?\d+)?\Z")
LIKE_A_NUMBER = re.compile(r"[-+]?\.?\d")


def _cut(text: str, width: int, marks: str) -> str:
    """The marks of a line, those behind the width replaced."""
    return marks[:width] + "B" * (len(text) - width)


def _words(text: str, separators: str) -> list[tuple[int, str]]:
    return [(m.start(), m[0]) for m in re.finditer(f"[^{separators}]+", text)]


def _record(text: str, is_wide: bool) -> str:
    separators = r" \t," if is_wide else r" \t"
    marks = [" "] * len(text)
    if not is_wide:
        marks = ["T" if sign == "\t" else " " for sign in text]
    for at, word in _words(text, separators):
        if not LIKE_A_NUMBER.match(word):
            marks[at:] = "R" * (len(text) - at)
            break
        marks[at : at + len(word)] = ("N" if NUMBER.match(word) else "X") * len(word)
    return "".join(marks)


def _tabs(text: str, marks: str) -> str:
    return "".join("T" if sign == "\t" else mark for sign, mark in zip(text, marks))


def _line(text: str, is_wide: bool) -> str:
    if text[:1] in ("*", "C", "c"):
        return "C" * len(text)
    if not text.strip():
        return _tabs(text, " " * len(text)) if not is_wide else " " * len(text)
    if LIKE_A_NUMBER.match(text.lstrip()):
        width = 120 if is_wide else 80
        return _cut(text, width, _record(text[:width], is_wide))
    width = 120 if is_wide else 80
    marks = "H" * len(text)
    return _cut(text, width, marks if is_wide else _tabs(text, marks))


def marks_of(deck: str) -> list[str]:
    """The marks of each line, as many as it has characters."""
    found: list[str] = []
    is_revision_5 = False
    blank_lines = 0
    lines = deck.split("\n")
    for at, text in enumerate(lines):
        if text.startswith("END"):
            found.append("E" * len(text))
            return found + ["U" * len(below) for below in lines[at + 1 :]]
        if at == 0:
            found.append(_cut(text, 80, _tabs(text, "L" * len(text))))
        elif re.match(r"KORVAT [Vv]ersion", text):
            is_revision_5 = text[16:20] == "2009"
            found.append("V" * len(text))
        else:
            blank_lines += not text.strip(" ")
            # The title of the section, behind the blank line, may be read as any heading.
            found.append(_line(text, is_revision_5 and blank_lines == 3))
    return found
