"""Reads C++ sources: their tokens, their string literals, and the FORMATs among these. All scripts and tests use this reader."""
import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
SRC = ROOT / "src"

TOKEN = re.compile(
    r"""(?P<blank>\s+|//[^\n]*|/\*.*?\*/|(?<![^\n])[ ]*\#[^\n]*)
      |(?P<string>"(?:[^"\\\n]|\\.)*")
      |(?P<char>'(?:[^'\\\n]|\\.)+')
      |(?P<real>\d[\d']*\.\d*(?:[eE][+-]?\d+)?[fF]?|\d+[eE][+-]?\d+[fF]?)
      |(?P<int>0[xX][\da-fA-F']+[uU]?|\d[\d']*[uUlLzZ]*)
      |(?P<name>[A-Za-z_]\w*)
      |(?P<sign><=>|\.\.\.|::|->|\+\+|--|<<|>>|[<>=!+*/%&|^-]=|&&|\|\||.)""",
    re.VERBOSE | re.DOTALL,
)
# Between two literals: a text that the program puts in, or nothing but a new line.
JOINT = re.compile(r'\s*\+\s*[^"+;,]+?\s*\+\s*')
# Stands in a literal for the text that the program puts in.
INSERTED = "\0"

DESCRIPTOR = re.compile(
    r"""(?P<count>\d*)(?:'(?P<quoted>(?:[^']|'')*)'|(?P<end>/)|(?P<blanks>x)|(?P<open>\()
                        |(?P<letter>[aief])(?:(?P<width>\d+)(?:\.\d+)?)?)
      |(?P<close>\))|-?\d+p|,|:""",
    re.VERBOSE,
)


@dataclasses.dataclass(frozen=True)
class Literal:
    text: str
    position: int  # in the source

    def is_format(self):
        return is_format(self.text)


@dataclasses.dataclass(frozen=True)
class Piece:
    """A part of what a FORMAT writes."""

    kind: str  # "text", "inserted" (a text of the program within the FORMAT), "item" or "end" (of a line)
    text: str = ""
    letter: str = ""  # of an item: a, i, e or f
    width: int = 0  # of an item; 0: none given


def unescaped(text):
    return re.sub(r"\\(.)", lambda match: {"n": "\n", "t": "\t", "0": "\0"}.get(match.group(1), match.group(1)), text)


def escaped(text):
    """As it stands between the quotes of a C++ literal."""
    return text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n").replace("\t", "\\t")


def literals(source):
    """The string literals of a source; those joined around a text of the program are one."""
    found, end = [], None
    for token in TOKEN.finditer(source):
        if token.lastgroup != "string":
            continue
        text = unescaped(token.group()[1:-1])
        between = source[end : token.start()] if end is not None else ""
        if found and JOINT.fullmatch(between):
            found[-1] = Literal(found[-1].text + INSERTED + text, found[-1].position)
        elif found and between.isspace():
            found[-1] = Literal(found[-1].text + text, found[-1].position)
        else:
            found.append(Literal(text, token.start()))
        end = token.end()
    return found


def is_format(text):
    """Whether a text consists of descriptors between parentheses that belong together."""
    if not (text.startswith("(") and text.endswith(")")):
        return False
    depth, position = 0, 0
    while position < len(text):
        match = DESCRIPTOR.match(text, position)
        if not match:
            return False
        depth += (match["open"] is not None) - (match["close"] is not None)
        position = match.end()
        if depth == 0 and position < len(text):
            return False
    return depth == 0


def pieces(text):
    """What one pass through a FORMAT writes, with its repeat counts written out."""
    if not is_format(text):
        raise ValueError(f"not a FORMAT: {text}")
    stack = [[]]
    counts = []
    for match in DESCRIPTOR.finditer(text):
        count = int(match["count"] or 1)
        if match["open"]:
            stack.append([])
            counts.append(count)
        elif match["close"]:
            group = stack.pop()
            stack[-1] += group * counts.pop()
        elif match["quoted"] is not None:
            stack[-1] += quoted_pieces(match["quoted"].replace("''", "'")) * count
        elif match["end"]:
            stack[-1] += [Piece("end")] * count
        elif match["blanks"]:
            stack[-1].append(Piece("text", " " * count))
        elif match["letter"]:
            stack[-1] += [Piece("item", letter=match["letter"], width=int(match["width"] or 0))] * count
    return stack[0]


def quoted_pieces(text):
    first, *others = text.split(INSERTED)
    parts = [Piece("text", first)]
    for other in others:
        parts += [Piece("inserted"), Piece("text", other)]
    return [part for part in parts if part != Piece("text", "")]


def sources(src=SRC):
    """Path below src and text of every source."""
    for path in sorted(src.rglob("*.?pp")):
        yield path.relative_to(src), path.read_text()


def formats(src=SRC):
    """Path below src and text of every FORMAT, in the order in which they stand; a FORMAT that stands twice comes twice."""
    for path, source in sources(src):
        for literal in literals(source):
            if literal.is_format():
                yield path, literal.text
