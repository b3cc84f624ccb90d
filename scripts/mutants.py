"""Finds what can be changed in a C++ source, one small change at a time; used by scripts/mutate."""
import bisect
import dataclasses
import hashlib
import re

import formats

# A comparison becomes its neighbour at the boundary, and its opposite.
COMPARISONS = {"<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",)}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="}
OPENING = {"(": ")", "[": "]", "{": "}"}
CONTROL = {"if", "for", "while", "switch", "catch"}
STATEMENT_WORDS = {"return", "throw", "using", "if", "for", "while", "switch", "do", "else", "break", "continue",
                   "case", "default", "try", "const", "constexpr", "static", "auto", "static_assert", "template",
                   "public", "private", "namespace", "struct", "class", "enum", "explicit", "inline", "friend",
                   "operator"}  # fmt: skip


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str  # below the root of the project
    start: int  # of what is replaced, in the file's text
    end: int
    text: str  # what stands there instead
    kind: str
    line: str  # the line before and after, without indentation
    now: str
    copy: int  # which of several equal lines of the file, from 1

    @property
    def key(self):
        parts = [self.file, self.line, self.now, str(self.copy)]
        return hashlib.sha1("\0".join(parts).encode()).hexdigest()[:12]

    def applied(self, source):
        return source[: self.start] + self.text + source[self.end :]


@dataclasses.dataclass
class Token:
    kind: str
    text: str
    start: int
    spaced: bool  # a blank or a line end on both sides
    partner: int = -1  # of a bracket
    block: bool = False  # an opening brace of a statement, not of a function or a type

    @property
    def end(self):
        return self.start + len(self.text)


def tokens_of(source):
    tokens = []
    for match in formats.TOKEN.finditer(source):
        if match.lastgroup == "blank":
            continue
        left = source[match.start() - 1 : match.start()].isspace()
        right = source[match.end() : match.end() + 1].isspace()
        tokens.append(Token(match.lastgroup, match.group(), match.start(), left and right))
    stack = []
    for i, token in enumerate(tokens):
        if token.kind != "sign":
            continue
        if token.text in OPENING:
            stack.append(i)
        elif token.text in OPENING.values():
            j = stack.pop()
            tokens[i].partner, tokens[j].partner = j, i
    return tokens


def follows_condition(tokens, i):
    """Whether token i is the first behind `if (...)` or the like, or behind else or do."""
    before = tokens[i - 1]
    if before.text in ("else", "do", "try"):
        return True
    if before.text != ")":
        return False
    j = before.partner - 1
    if tokens[j].text == "constexpr":
        j -= 1
    return tokens[j].text in CONTROL


def mark_blocks(tokens):
    for i, token in enumerate(tokens):
        token.block = i > 0 and token.text == "{" and follows_condition(tokens, i)


def static_assertions(tokens):
    """The tokens inside static_assert(...)."""
    inside = set()
    for i, token in enumerate(tokens[:-1]):
        if token.text == "static_assert":
            inside.update(range(i, tokens[i + 1].partner + 1))
    return inside


def changed_real(text):
    """A little off and far off; zero becomes small and one."""
    suffix = text[-1] if text[-1] in "fF" else ""
    value = float(text.rstrip("fF").replace("'", ""))
    if value == 0.0:
        return [f"1.0e-6{suffix}", f"1.0{suffix}"]
    return [real_text(value * factor) + suffix for factor in (1.0001, 2.0)]


def real_text(value):
    text = f"{value:.12g}".replace("e-0", "e-")
    return text if "e" in text or "." in text else text + ".0"


def changed_integer(text):
    match = re.fullmatch(r"(0[xX][\da-fA-F']+|[\d']+)([uUlLzZ]*)", text)
    value = int(match.group(1).replace("'", ""), 0)
    return [f"{value + 1}{match.group(2)}", f"{value - 1}{match.group(2)}"]


def format_changes(text):
    """One descriptor's width and one literal character of a FORMAT: (offset, old, new)."""
    widths, letters = [], []
    for match in formats.DESCRIPTOR.finditer(text):
        number = "width" if match["letter"] else "count" if match["blanks"] else None
        if number and match[number]:
            widths.append((match.start(number), match[number]))
        start, end = match.span("quoted")
        letters += [i for i in range(start, end) if text[i].isalpha() and text[i - 1] != "\\"]
    changes = []
    # Which one is chosen by the text itself, so that all kinds of them come up.
    choice = int(hashlib.sha1(text.encode()).hexdigest(), 16)
    if widths:
        offset, width = widths[choice % len(widths)]
        changes.append((offset, width, str(int(width) + 1)))
    if letters:
        offset = letters[choice % len(letters)]
        new = chr(ord(text[offset]) ^ 0x20)
        changes.append((offset, text[offset], new))
    return changes


def dropped_call(tokens, i):
    """The end of the call that is a whole statement beginning at token i, or None."""
    if tokens[i].kind != "name" or tokens[i].text in STATEMENT_WORDS:
        return None
    before = tokens[i - 1].text
    if before not in (";", "{", "}") and not follows_condition(tokens, i):
        return None
    j, called = i, False
    while j < len(tokens) and tokens[j].text != ";":
        token, after = tokens[j], tokens[j + 1]
        if token.text in "([" and token.partner > j:
            called = token.text == "("
            j = token.partner
            if tokens[j + 1].text not in (";", ".", "->", "[", "("):
                return None
        elif token.kind == "name":
            if after.text not in ("(", "[", ".", "->", "::", "<"):
                return None
        elif token.text == "<":  # the arguments of a template
            while tokens[j].text != ">":
                j += 1
                if tokens[j].text in (";", "{"):
                    return None
        elif token.text not in (".", "->", "::"):
            return None
        j += 1
    return tokens[j].start if called else None


def changes_of(source):
    """Every change of the source: (start, end, text, kind)."""
    tokens = tokens_of(source)
    mark_blocks(tokens)
    skipped = static_assertions(tokens)
    blocks = []  # whether each open brace is that of a statement
    for i, token in enumerate(tokens):
        if token.text == "{" and token.kind == "sign":
            blocks.append(token.block)
        elif token.text == "}" and token.kind == "sign":
            blocks.pop()
        if i in skipped:
            continue
        start, end, text = token.start, token.end, token.text
        if token.kind == "string" and re.match(r'"\(.*\)"$', text):
            for offset, old, new in format_changes(text):
                yield start + offset, start + offset + len(old), new, "format"
        elif token.kind == "real":
            for new in changed_real(text):
                yield start, end, new, "real"
        elif token.kind == "int":
            for new in changed_integer(text):
                yield start, end, new, "integer"
        elif text in ("true", "false"):
            yield start, end, "false" if text == "true" else "true", "truth"
        elif token.kind == "sign" and token.spaced and text in COMPARISONS and tokens[i - 1].text != "operator":
            for new in COMPARISONS[text]:
                yield start, end, new, "comparison"
        elif token.kind == "sign" and token.spaced and text in ("&&", "||"):
            yield start, end, "||" if text == "&&" else "&&", "logic"
        elif token.kind == "sign" and token.spaced and text in ARITHMETIC:
            yield start, end, ARITHMETIC[text], "arithmetic"
        elif text in ("++", "--"):
            yield start, end, "--" if text == "++" else "++", "step"
        elif text in ("-", "!") and not token.spaced and tokens[i - 1].text != "operator":
            yield start, end, "", "sign" if text == "-" else "negation"
        elif text in ("return", "break", "continue"):
            if follows_condition(tokens, i) or (blocks and blocks[-1]):
                yield start, source.index(";", start), "", "exit"
        else:
            stop = dropped_call(tokens, i)
            if stop is not None:
                yield start, stop, "", "call"


def mutants_of(file, source):
    """The mutants of one file; those that would give the same text count once."""
    breaks = [m.start() for m in re.finditer("\n", source)]
    lines = [line.strip() for line in source.split("\n")]
    copies = [lines[:number].count(line) + 1 for number, line in enumerate(lines)]
    seen, found = set(), []
    for start, end, text, kind in changes_of(source):
        result = source[:start] + text + source[end:]
        if result in seen:
            continue
        seen.add(result)
        number = bisect.bisect_left(breaks, start)
        line_start = breaks[number - 1] + 1 if number else 0
        line_end = source.find("\n", end)
        now = (source[line_start:start] + text + source[end:line_end]).strip()
        found.append(Mutant(file, start, end, text, kind, lines[number], now, copies[number]))
    return found
