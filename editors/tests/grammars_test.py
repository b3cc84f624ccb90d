"""The grammars of Vim and of TextMate against what each character of a deck is: on the six examples and on a deck of everything that is wrong."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from deck_marks import marks_of
from textmate import Grammar

EDITORS = pathlib.Path(__file__).resolve().parent.parent
EXAMPLES = sorted((EDITORS.parent / "examples").glob("*/KORVAT.INP"))

VIM_MARKS = {
    **{"Label": "L", "Version": "V", "Comment": "C", "End": "E", "Rest": "U", "Tab": "T", "Beyond": "B", "WideBeyond": "B"},
    **{"Heading": "H", "WideHeading": "H", "Number": "N", "WideNumber": "N", "NotANumber": "X", "WideNotANumber": "X"},
    **{"Remark": "R", "WideRemark": "R", "Record": " ", "WideRecord": " ", "BlankWithTab": " ", "-": " "},
    **{"Revision5": " ", "Control": " ", "Materials": " ", "Sections": " ", "Segments": " "},
}
SCOPE_MARKS = {
    "entity.name.section.label.korvat": "L",
    "keyword.control.version.korvat": "V",
    "comment.line.korvat": "C",
    "markup.heading.korvat": "H",
    "constant.numeric.korvat": "N",
    "invalid.illegal.number.korvat": "X",
    "string.unquoted.remark.korvat": "R",
    "invalid.illegal.tab.korvat": "T",
    "invalid.illegal.beyond-column.korvat": "B",
    "keyword.control.end.korvat": "E",
    "comment.block.rest.korvat": "U",
    "": " ",
}


def wrong_deck(version):
    """Every kind of line, and everything that an editor must show."""
    return "\n".join(
        [
            "Caps and cranes: a label, no comment",
            version,
            "Current is a comment",
            "",
            "General values of the run",
            "  1.0     force unit factor, 60 inches",
            " -.5D-3   12abc 1,5 0x10 1.2.3 1+5 +3. .25 -.5 ..5 - 7",
            "\t13\tpiles",
            "  2 3" + " " * 72 + "1234567 8",
            "H" + "eading " * 12,
            "  heading with a\ttab",
            "",
            "Material types",
            "  1 2.1E8,3",
            "\t",
            "c comment behind a tab " + "x" * 80,
            "",
            "* comment between the blank line and its heading",
            "Tubes",
            "  1,2, 3 1.5x 1,remark, 2 of them",
            "  1\t2 " + "0.5 " * 26 + "123456789012345678 7",
            "  tubes " + "of steel " * 14,
            "",
            "Pile segment types",
            "  1 , 2 - dash",
            "  1, 2 " + "3.5 " * 19 + "7",
            "Cross sections: swallowed as a comment",
            "end of nothing",
            "  END is not in the first column",
            "ENDING here",
            "  1 2 3 below",
            "* below",
            "",
        ]
    )


class Grammars(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.directory = pathlib.Path(holder.name)

    def vim_marks(self, deck):
        """What Vim's own syntax items are, and the line with the settings."""
        path, out = self.directory / "KORVAT.INP", self.directory / "out"
        path.write_text(deck)
        out.unlink(missing_ok=True)
        settings = f"let g:deck='{path}' | let g:out='{out}' | let g:syntax='{EDITORS / 'vim'}'"
        subprocess.run(
            ["vim", "-es", "-u", "NONE", "-i", "NONE", "--cmd", settings, "-S", EDITORS / "tests/dump.vim"],
            check=True,
            timeout=120,
            stdin=subprocess.DEVNULL,
            env={**os.environ, "HOME": str(self.directory), "LC_ALL": "C.UTF-8", "TERM": "dumb"},
        )
        *lines, settings = out.read_text().rstrip("\n").split("\n")
        marks = ["".join(VIM_MARKS[name] * int(n) for name, n in re.findall(r"(\S+)\*(\d+)", line)) for line in lines]
        return marks, settings

    def textmate_marks(self, deck):
        grammar = Grammar(EDITORS / "vscode/syntaxes/korvat.tmLanguage.json")
        return ["".join(SCOPE_MARKS[scope] for scope in line) for line in grammar.scopes(deck.split("\n"))]

    def shown(self, deck, marks):
        """Lines of the deck, each with its marks below it, for a difference that can be read."""
        lines = deck.rstrip("\n").split("\n")
        self.assertEqual(len(marks), len(lines))
        return [f"{line!r:<30}|{mark}|" for line, mark in zip(lines, marks)]

    def check(self, deck, marks):
        self.assertEqual(self.shown(deck, marks), self.shown(deck, marks_of(deck.rstrip("\n"))))

    def test_vim_on_the_examples(self):
        self.assertEqual(len(EXAMPLES), 6)
        for path in EXAMPLES:
            with self.subTest(example=path.parent.name):
                deck = path.read_text()
                marks, settings = self.vim_marks(deck)
                self.check(deck, marks)
                self.assertEqual(settings, "filetype korvat colorcolumn 81 expandtab 1 list 1")
                self.assert_sound(marks)

    def test_textmate_on_the_examples(self):
        for path in EXAMPLES:
            with self.subTest(example=path.parent.name):
                deck = path.read_text()
                marks = self.textmate_marks(deck.rstrip("\n"))
                self.check(deck, marks)
                self.assert_sound(marks)

    def assert_sound(self, marks):
        """A sound deck has nothing that is shown as an error, and a good part of it is numbers."""
        text = "".join(marks)
        self.assertFalse(set(text) & set("XTB"))
        self.assertGreater(text.count("N"), len(text) // 8)
        self.assertIn("E", text)

    def test_vim_on_wrong_decks(self):
        for version in ("KORVAT Version: 2006-06-11", "KORVAT version:+2009-09-01", "Korvat version: 2009-09-01"):
            with self.subTest(version=version):
                deck = wrong_deck(version)
                self.check(deck, self.vim_marks(deck)[0])

    def test_textmate_on_wrong_decks(self):
        for version in ("KORVAT Version: 2006-06-11", "KORVAT version:+2009-09-01", "Korvat version: 2009-09-01"):
            with self.subTest(version=version):
                deck = wrong_deck(version).rstrip("\n")
                self.check(deck, self.textmate_marks(deck))

    def test_first_line_may_end_the_deck(self):
        deck = "END BEARING PILES\n  1 2"
        self.assertEqual(marks_of(deck), ["E" * 17, "U" * 5])
        self.check(deck, self.vim_marks(deck)[0])
        self.check(deck, self.textmate_marks(deck))

    def test_marks_themselves(self):
        """The measure, by hand, on the lines that differ between the revisions."""
        deck = "label\nKORVAT Version: {}\n\nh\n\nh\n\nh\n 1,2 12x\n" + " 1" * 62 + "\n\nh\n 1,2\n" + " 1" * 41 + "\nEND\nx"
        fourth = ["L" * 5, "V" * 26, "", "H", "", "H", "", "H", " XXX XXX", " N" * 40 + "B" * 44, "", "H", " XXX", " N" * 40 + "BB", "EEE", "U"]
        fifth = [*fourth[:8], " N N XXX", " N" * 60 + "BBBB", *fourth[10:]]
        self.assertEqual(marks_of(deck.format("2006-06-11")), fourth)
        self.assertEqual(marks_of(deck.format("2009-09-01")), fifth)


if __name__ == "__main__":
    unittest.main()
