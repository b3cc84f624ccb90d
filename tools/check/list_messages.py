#!/usr/bin/env python3
"""Writes a C++ source with the entries of docs/messages.md and the texts in src that they explain.

tools/check/list_messages.py OUTPUT | --check. Fails where an error or a warning of src has no entry; --check writes nothing.
"""
import pathlib
import re
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import formats
import message_entries
import message_formats

# Lines that only follow an error, and are never the first of a run.
FOLLOWS = ("SR/CONTRL  ERROR",)
MARKS = (" **** ", " WARNING FROM ")


def literal(text):
    return f'"{formats.escaped(text)}"'


def pieces(message):
    """The fixed texts of a message, without blanks, in their order."""
    texts = [""]
    for kind, value in message.items:
        if kind == "text":
            texts[-1] += "".join(value.split())
        elif kind != "end":
            texts.append("")
    return texts


def pieces_of_text(lines):
    """The same of a text of the document that the program composes: NNN and (text) stand for what varies."""
    return ["".join(piece.split()) for piece in re.split(r"\(text\)|\bNNN\b", " ".join(lines))]


def array(kind, name, values):
    if not values:
        return ""
    return f"constexpr {kind} {name}[] = {{{', '.join(values)}}};\n"


def source(document):
    messages = [message for message in message_formats.messages() if message.is_format]
    explained, arrays, rows = set(), [], []
    for number, (heading, body) in enumerate(message_entries.entries(document)):
        blocks = message_entries.blocks(body)
        shown = [message for message in messages if any(message_entries.is_shown_by(message, block) for block in blocks)]
        forms = [pieces(message) for message in shown]
        forms = forms or [pieces_of_text(block) for block in blocks if block[0].startswith(MARKS)]
        if not forms:
            continue
        explained |= {message.text for message in shown}
        ierr = message_entries.numbers(body)
        arrays.append(array("Number", f"numbers_{number}", [f"{{{n}, {literal(text)}}}" for n, text in ierr]))
        texts = [literal(message_entries.field(body, name)) for name in ("Meaning", "Usual cause", "What to do")]
        for form, form_pieces in enumerate(forms):
            name = f"pieces_{number}_{form}"
            arrays.append(array("std::string_view", name, [literal(piece) for piece in form_pieces]))
            table = f"numbers_{number}" if ierr else "{}"
            rows.append("    {" + ", ".join([name, literal(heading), *texts, table]) + "},\n")
    missing = [
        message.text
        for message in messages
        if "\n".join(message.lines()).startswith(MARKS) and message.text not in explained and not any(text in message.text for text in FOLLOWS)
    ]
    if missing:
        sys.exit("no entry of docs/messages.md explains:\n" + "\n".join(missing))
    head = "// Made of docs/messages.md by tools/check/list_messages.py; changes are lost.\n#include \"check/message_table.hpp\"\n\n"
    return f"""{head}namespace korvat::check {{
namespace {{

using Number = MessageNumber;

{"".join(arrays)}
constexpr MessageEntry entries[] = {{
{"".join(rows)}}};

}} // namespace

std::span<const MessageEntry> message_entries() {{
    return entries;
}}

}} // namespace korvat::check
"""


def main():
    text = source(message_entries.DOCUMENT.read_text())
    if sys.argv[1] != "--check":
        pathlib.Path(sys.argv[1]).write_text(text)


if __name__ == "__main__":
    main()
