#!/usr/bin/env python3
"""Writes a C++ source with every FORMAT of src, for source_formats.hpp: tests/support/list_formats.py SRC_DIR OUTPUT

NAME stands for a text that the program puts into a FORMAT.
"""
import pathlib
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import formats


def main():
    source, output = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    found = {(text.replace(formats.INSERTED, "NAME"), path.as_posix()) for path, text in formats.formats(source)}
    lines = [
        "// Every FORMAT of the program, as list_formats.py finds them.",
        '#include "support/source_formats.hpp"',
        "",
        "#include <array>",
        "",
        "namespace korvat::test {",
        "",
        "std::span<const SourceFormat> source_formats() {",
        "    static constexpr std::array<SourceFormat, %d> formats{{" % len(found),
        *('        {"%s", "%s"},' % (path, formats.escaped(text)) for text, path in sorted(found)),
        "    }};",
        "    return formats;",
        "}",
        "",
        "} // namespace korvat::test",
    ]
    output.write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
