"""The texts that the program writes, taken from the FORMATs and literal texts in src."""
import pathlib
import re

import formats

ROOT = formats.ROOT
# What a literal text is written with that has no FORMAT of its own: to the log, and by the program to standard error.
PLAIN = re.compile(r"(?:characters|EXMSG\.assign)\($")
PROGRAM = re.compile(r"korvat: [^\0]{2}|Exception ::")
# Units of the listing and of the plot file, which hold tables, not messages.
TABLE_UNIT = re.compile(r"write\(\s*(?:\w+\.)*(?:NF13|NF14)\s*,\s*$")
# '1' in the first column makes the printer begin a page of the listing.
NEW_PAGE = "('1'"
# A text says something when two letters stand together.
SAYS = re.compile(r"[A-Za-z]{2}")


class Message:
    """A text of src: its file, how it stands there, and its kind, "format", "table" (of an output), "plain" or "program"."""

    def __init__(self, path, text, kind):
        self.path, self.kind = path, kind
        self.text = text.replace(formats.INSERTED, "NAME")
        self.is_format = kind in ("format", "table")  # else the begin of a line
        self.items = items_of(text) if self.is_format else [("text", text)]

    def literal(self):
        return "".join(value for kind, value in self.items if kind == "text")

    def lines(self):
        """As the user sees it: numbers as NNN in their fields, texts of the run as (text)."""
        show = {"text": str, "number": lambda width: "NNN"[:width].rjust(width), "run": lambda _: "(text)", "end": lambda _: "\n"}
        lines = [line.rstrip() for line in "".join(show[kind](value) for kind, value in self.items).split("\n")]
        while not lines[0]:
            lines.pop(0)
        while not lines[-1]:
            lines.pop()
        return lines

    def pattern(self):
        """Matches the text in an output, whatever its numbers and texts are."""
        match = {"text": re.escape, "number": lambda _: r"[^\n]+?", "run": lambda _: r"[^\n]*?", "end": lambda _: r" *\n"}
        whole = "".join(match[kind](value) for kind, value in self.items)
        return re.compile("^ *" + whole + " *$" if self.is_format else whole, re.M)


def items_of(text):
    """The parts of a FORMAT: ("text", literal), ("number", width), ("run", None) or ("end", None)."""
    return [item_of(piece) for piece in formats.pieces(text)]


def item_of(piece):
    if piece.kind == "item" and piece.letter != "a":
        return "number", piece.width
    return {"text": ("text", piece.text), "end": ("end", None)}.get(piece.kind, ("run", None))


def kind_of(literal, source):
    """None when the literal is no text for the user."""
    before = source[: literal.position]
    if literal.is_format():
        return "table" if literal.text.startswith(NEW_PAGE) or TABLE_UNIT.search(before) else "format"
    if PROGRAM.match(literal.text):
        return "program"
    return "plain" if PLAIN.search(before) else None


def messages():
    """Every text of src, in the order of the files; a FORMAT that stands twice comes once."""
    found = {}
    for path, source in formats.sources():
        for literal in formats.literals(source):
            kind = kind_of(literal, source)
            if kind is None:
                continue
            # What the program puts in behind a text without a FORMAT is not part of it.
            text = literal.text if literal.is_format() else literal.text.split(formats.INSERTED)[0].strip("\n")
            message = Message(pathlib.Path("src") / path, text, kind)
            if SAYS.search(message.literal()):
                found.setdefault(message.text, message)
    return list(found.values())
