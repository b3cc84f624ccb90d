"""The texts that the program writes, taken from the FORMATs and literal texts in src."""
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
STRING = r'"((?:[^"\\]|\\.)*)"'
FORMAT = re.compile(STRING)
# Literal texts that are written without a FORMAT of their own: to the log, and by the program to standard error.
PLAIN = re.compile(r"(?:characters|EXMSG\.assign)\(" + STRING)
PROGRAM = re.compile(r'"((?:korvat: [^"\\]{2,}|Exception ::)(?:[^"\\]|\\.)*)"')
# Units of the listing and of the plot file, which hold tables, not messages.
TABLE_UNIT = re.compile(r"write\(\s*(?:\w+\.)*(?:NF13|NF14)\s*,\s*$")
# '1' in the first column makes the printer begin a page of the listing.
NEW_PAGE = "('1'"
EDIT = re.compile(r"(\d*)([aief])(\d*)(?:\.\d+)?")
# A text says something when two letters stand together.
SAYS = re.compile(r"[A-Za-z]{2}")


class Message:
    """A text of src: its file, how it stands there, and its kind, "format", "table" (of an output), "plain" or "program"."""

    def __init__(self, path, text, kind):
        self.path, self.text, self.kind = path, text, kind
        self.is_format = kind in ("format", "table") and text.endswith(")")  # else the begin of a line
        self.items = items_of(text) if kind in ("format", "table") else [("text", text)]

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
    items, i = [], 1
    while i < len(text):
        rest = text[i:]
        repeated = re.match(r"(\d*)\(", rest)
        blanks = re.match(r"(\d*)x", rest)
        edit = EDIT.match(rest)
        if rest[0] == "'":
            literal = re.match(r"'((?:[^']|'')*)'", rest)
            if literal is None:  # the text goes on in another string of the source
                items.append(("text", rest[1:]))
                break
            items.append(("text", literal.group(1).replace("''", "'")))
            i += literal.end()
        elif rest[0] == "/":
            items.append(("end", None))
            i += 1
        elif repeated:
            inner, length = group_of(rest[repeated.end() - 1 :])
            items += items_of(inner) * int(repeated.group(1) or 1)
            i += repeated.end() - 1 + length
        elif blanks:
            items.append(("text", " " * int(blanks.group(1) or 1)))
            i += blanks.end()
        elif edit:
            count, kind, width = edit.groups()
            item = ("run", None) if kind == "a" else ("number", int(width))
            items += [item] * int(count or 1)
            i += edit.end()
        else:  # a comma, a scale factor, the closing bracket
            i += 1
    return items


def group_of(text):
    """A bracketed part of a FORMAT, and its length."""
    depth, quoted = 0, False
    for i, c in enumerate(text):
        if c == "'":
            quoted = not quoted
        elif not quoted and c in "()":
            depth += 1 if c == "(" else -1
            if depth == 0:
                return text[: i + 1], i + 1
    return text, len(text)


def unescaped(text):
    return text.replace('\\"', '"').replace("\\n", "\n").replace("\\\\", "\\")


def messages():
    """Every text of src, in the order of the files; a FORMAT that stands twice comes once."""
    found = {}
    for path in sorted((ROOT / "src").rglob("*.?pp")):
        source = re.sub(r"^\s*//.*$", "", path.read_text(), flags=re.M)
        name = path.relative_to(ROOT)
        for match in FORMAT.finditer(source):
            text = unescaped(match.group(1))
            if not text.startswith("("):
                continue
            is_table = text.startswith(NEW_PAGE) or TABLE_UNIT.search(source[: match.start()])
            message = Message(name, text, "table" if is_table else "format")
            if SAYS.search(message.literal()):
                found.setdefault(text, message)
        for kind, pattern in (("plain", PLAIN), ("program", PROGRAM)):
            for match in pattern.finditer(source):
                text = unescaped(match.group(1)).strip("\n")
                if SAYS.search(text):
                    found.setdefault(text, Message(name, text, kind))
    return list(found.values())
