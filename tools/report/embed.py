#!/usr/bin/env python3
"""Makes a source of the viewer's files, with their hashes for the page's policy: embed.py DIRECTORY OUTPUT

DIRECTORY holds viewer.js, viewer-small.js, viewer.css and licences.txt. What stands within an element of the page
must not end it; what the page's reader would change would not have its hash.
"""
import base64
import hashlib
import pathlib
import sys

FILES = {
    "viewer.js": ("viewer_script", "</script", "<!--"),
    "viewer-small.js": ("small_viewer_script", "</script", "<!--"),
    "viewer.css": ("viewer_style", "</style", "<!--"),
}
PIECE = 4000  # bytes on a line of the source


def literal(data):
    """A string literal of bytes, in pieces: plain characters as they are, all others as octal codes."""
    plain = set(range(0x20, 0x7F)) - set(b'"\\?')
    pieces = [data[i : i + PIECE] for i in range(0, len(data), PIECE)]
    lines = ["".join(chr(byte) if byte in plain else f"\\{byte:03o}" for byte in piece) for piece in pieces]
    return "\n".join(f'    "{line}"' for line in lines) or '    ""'


def checked(path, ends):
    data = path.read_bytes()
    text = data.decode("utf-8")
    for end in ends:
        if end in text.lower():
            raise SystemExit(f"embed.py: {path.name} holds {end}, which the page cannot have inside")
    if "\r" in text or "\0" in text:
        raise SystemExit(f"embed.py: {path.name} holds characters that a reader of HTML changes")
    return data


def resource(function, data):
    name = "sha256-" + base64.b64encode(hashlib.sha256(data).digest()).decode()
    return (
        f"const Resource& {function}() {{\n    static constexpr Resource resource{{std::string_view(\n{literal(data)},\n"
        f'    {len(data)}),\n    "{name}"}};\n    return resource;\n}}\n'
    )


def main():
    directory, output = map(pathlib.Path, sys.argv[1:])
    parts = ['#include "report/resources.hpp"', "", "namespace korvat::report {", ""]
    for name, (function, *ends) in FILES.items():
        parts.append(resource(function, checked(directory / name, ends)))
    licences = (directory / "licences.txt").read_bytes()
    licences.decode("utf-8")
    parts.append(
        f"std::string_view viewer_licences() {{\n    return std::string_view(\n{literal(licences)},\n    {len(licences)});\n}}\n"
    )
    parts.append("} // namespace korvat::report")
    output.write_text("\n".join(parts) + "\n")


if __name__ == "__main__":
    main()
