#!/usr/bin/env python3
"""Writes the forms of every error message of src, made from the FORMATs: tests/sweep/message_forms.py

Standard output, in the layout that message_forms.hpp describes.
"""
import pathlib
import re
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import formats

MARK = " **** "
# The one message that is not one FORMAT: its text, and the places that give it a section's name.
BLANK_LINE = " NO BLANK LINE "
SECTION = re.compile(r'require_blank_line\("([^"]*)"\)')
STOP = re.compile(r"fortran::stop\(\);")


def lines_of(text):
    """The lines of a message: literal characters, and for each item its descriptor in braces."""
    shown = {"text": lambda piece: piece.text, "item": lambda piece: f"{{{piece.letter}{piece.width}}}", "end": lambda _: "\n"}
    return "".join(shown[piece.kind](piece) for piece in formats.pieces(text)).split("\n")


def show(kind, lines):
    print(kind)
    for line in lines:
        print(f"|{line}")


def show_blank_line_messages(sources):
    text = "".join(sources)
    starts = [literal.text for literal in formats.literals(text) if literal.text.startswith(MARK) and BLANK_LINE in literal.text]
    for start in starts:
        for name in SECTION.findall(text):
            show("message", [f'{start}"{name}"', " {a80}"])


def main():
    sources = [(path, source) for path, source in formats.sources() if path.suffix == ".cpp"]
    show_blank_line_messages([source for _, source in sources])
    for path, source in sources:
        errors = [literal for literal in formats.literals(source) if literal.is_format() and MARK in literal.text]
        stops = [match.start() for match in STOP.finditer(source)]
        for i, error in enumerate(errors):
            lines = lines_of(error.text)
            while not lines[0]:
                del lines[0]
            # The capacity checks write to unit 0, standard error.
            show("console" if path.name == "capacity_check.cpp" else "message", lines)
            # The last message in front of a stop is the one that a stopped run ends with.
            end = errors[i + 1].position if i + 1 < len(errors) else len(source)
            if any(error.position < stop < end for stop in stops):
                show("stop", lines)


if __name__ == "__main__":
    main()
