#!/usr/bin/env python3
"""Writes the forms of every error message of src, made from the FORMATs: tests/sweep/message_forms.py

Standard output, in the layout that message_forms.hpp describes.
"""
import pathlib
import re

SRC = pathlib.Path(__file__).resolve().parent.parent.parent / "src"
STRING = re.compile(r'"(\((?:[^"\\]|\\.)*\))"')
PIECE = re.compile(r"'((?:[^']|'')*)'|(\d*)([iefa])(\d+)(?:\.\d+)?|(\d+)x|(/)|(,)")
MARK = " **** "
# The one message that is not one FORMAT: its text, and the places that give it a section's name.
BLANK_LINE = re.compile(r'"( \*\*\*\* [^"]* NO BLANK LINE [^"]*)"')
SECTION = re.compile(r'require_blank_line\("([^"]*)"\)')


def lines_of(text):
    """The lines of a message: literal characters, and for each item its descriptor in braces."""
    body, out, position = text[1:-1], "", 0
    while position < len(body):
        match = PIECE.match(body, position)
        if not match:
            raise SystemExit(f"message_forms.py: cannot read the FORMAT {text} at column {position + 2}")
        literal, repeat, letter, width, blanks, slash, _ = match.groups()
        if literal is not None:
            out += literal.replace("''", "'")
        elif letter:
            out += f"{{{letter}{width}}}" * int(repeat or 1)
        elif blanks:
            out += " " * int(blanks)
        elif slash:
            out += "\n"
        position = match.end()
    return out.split("\n")


def show(kind, lines):
    print(kind)
    for line in lines:
        print(f"|{line}")


def show_blank_line_messages(sources):
    text = "".join(path.read_text() for path in sources)
    for start in BLANK_LINE.findall(text):
        for name in SECTION.findall(text):
            show("message", [f'{start}"{name}"', " {a80}"])


def main():
    sources = sorted(SRC.rglob("*.cpp"))
    show_blank_line_messages(sources)
    for path in sources:
        text = path.read_text()
        stops = [match.start() for match in re.finditer(r"fortran::stop\(\);", text)]
        for match in STRING.finditer(text):
            if MARK not in match.group(1):
                continue
            lines = lines_of(match.group(1).replace('\\"', '"'))
            while not lines[0]:
                del lines[0]
            # The capacity checks write to unit 0, standard error.
            show("console" if path.name == "capacity_check.cpp" else "message", lines)
            # The last message in front of a stop is the one that a stopped run ends with.
            following = [stop for stop in stops if stop > match.start()]
            if following and not any(
                MARK in other.group(1) for other in STRING.finditer(text, match.end(), following[0])
            ):
                show("stop", lines)


if __name__ == "__main__":
    main()
