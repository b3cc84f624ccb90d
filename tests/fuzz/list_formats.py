#!/usr/bin/env python3
"""Writes a C++ source with every FORMAT of src: tests/fuzz/list_formats.py SRC_DIR OUTPUT

A FORMAT is a string that can be read as one from its first to its last character. Where it is put together
around a text that the program inserts, NAME stands for that text.
"""
import pathlib
import re
import sys

PIECE = re.compile(r'//[^\n]*|"((?:[^"\\\n]|\\.)*)"')
JOINT = re.compile(r"\s*\+\s*std::string\(\w+\)\s*\+\s*")
EDIT = re.compile(r"'(?:[^']|'')*'|\d*/|\d+x|-?\d+p|\d*[aief](?:\d+(?:\.\d+)?)?|[,()]|\d+(?=[('])|:")


def strings(text):
    """The string literals of a source, those joined around an inserted text as one."""
    found, end = [], None
    for match in PIECE.finditer(text):
        if match.group(1) is None:
            continue
        if end is not None and JOINT.fullmatch(text[end : match.start()]):
            found[-1] += "NAME" + match.group(1)
        else:
            found.append(match.group(1))
        end = match.end()
    return found


def is_format(text):
    """Whether the text consists of descriptors between balanced parentheses."""
    if not (text.startswith("(") and text.endswith(")")):
        return False
    depth, position = 0, 0
    while position < len(text):
        match = EDIT.match(text, position)
        if not match:
            return False
        depth += (match.group() == "(") - (match.group() == ")")
        position = match.end()
        if depth == 0 and position < len(text):
            return False
    return depth == 0


def main():
    source, output = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    formats = set()
    for path in sorted(source.rglob("*.cpp")):
        formats.update(text for text in strings(path.read_text()) if is_format(text.replace('\\"', '"')))
    lines = [
        "// Every FORMAT of the program, as list_formats.py finds them.",
        '#include "format_oracle.hpp"',
        "",
        "#include <array>",
        "",
        "namespace korvat::test {",
        "",
        "std::span<const std::string_view> source_formats() {",
        "    static constexpr std::array<std::string_view, %d> formats{" % len(formats),
        *('        "%s",' % text for text in sorted(formats)),
        "    };",
        "    return formats;",
        "}",
        "",
        "} // namespace korvat::test",
    ]
    output.write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
