#!/usr/bin/env python3
"""Tests of scripts/formats.py, the one reader of C++ literals and FORMATs."""
import pathlib
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import formats
from formats import Piece


def texts(source):
    return [literal.text for literal in formats.literals(source)]


class Literals(unittest.TestCase):
    def test_text_and_position(self):
        self.assertEqual(formats.literals('f("ab", "c");'), [formats.Literal("ab", 2), formats.Literal("c", 8)])

    def test_escaped_characters(self):
        self.assertEqual(texts(r'"a\"b\\c\n"'), ['a"b\\c\n'])
        self.assertEqual(formats.escaped('a"b\\c\n'), r"a\"b\\c\n")

    def test_comments_have_none(self):
        self.assertEqual(texts('// "a"\n/* "b"\n"c" */ "d" // it\'s "e"'), ["d"])

    def test_includes_have_none(self):
        self.assertEqual(texts('#include "a.hpp"\nf("b");'), ["b"])

    def test_quotation_mark_of_a_character_begins_none(self):
        self.assertEqual(texts("""c == '"' ? "a" : "b";"""), ["a", "b"])

    def test_separators_of_digits_begin_no_character(self):
        self.assertEqual(texts("""1'000'000 + f("a'b");"""), ["a'b"])

    def test_literals_behind_each_other_are_one(self):
        self.assertEqual(texts('f("ab"\n  "cd");'), ["abcd"])

    def test_literals_around_a_text_of_the_program_are_one(self):
        self.assertEqual(texts('"a" + std::string(NAME) + "b"'), ["a\0b"])
        self.assertEqual(texts('"a" +\n name.view() + "b" + x + "c"'), ["a\0b\0c"])

    def test_literals_of_two_statements_or_arguments_stay_apart(self):
        self.assertEqual(texts('x = "a" + y; z = + "b"; f("c" + y, w + "d");'), ["a", "b", "c", "d"])


class IsFormat(unittest.TestCase):
    def test_descriptors_between_parentheses(self):
        for text in ("(a)", "(/,' x',i5)", "(i4,1p,4e12.3,0p,f8.3)", "(44x,8i4.3,/(44x,8i4.3))", "('it''s (',3(a,1x))", "(-2p,f8.1)", "(f50.0)"):
            self.assertTrue(formats.is_format(text), text)

    def test_other_texts(self):
        for text in ("", "()a", "a)", "(a", "(a))(", "(see below)", "(q5)", "('open)", "(a),(a)"):
            self.assertFalse(formats.is_format(text), text)


class Pieces(unittest.TestCase):
    def test_texts_blanks_lines_and_items(self):
        self.assertEqual(
            formats.pieces("(/,' it''s',3x,i4.3,f8.2,a,' ')"),
            [Piece("end"), Piece("text", " it's"), Piece("text", "   "), Piece("item", letter="i", width=4),
             Piece("item", letter="f", width=8), Piece("item", letter="a"), Piece("text", " ")],
        )  # fmt: skip

    def test_counts_are_written_out(self):
        i2, dash = Piece("item", letter="i", width=2), Piece("text", "-")
        self.assertEqual(formats.pieces("(2i2,2('-'),2(i2,'-'))"), [i2, i2, dash, dash, i2, dash, i2, dash])
        self.assertEqual(formats.pieces("(2(i2,2('-')))"), [i2, dash, dash, i2, dash, dash])

    def test_scale_factors_write_nothing(self):
        e12 = Piece("item", letter="e", width=12)
        self.assertEqual(formats.pieces("(1p,2e12.3,0p)"), [e12, e12])

    def test_text_that_the_program_puts_in(self):
        self.assertEqual(formats.pieces("('a\0b')"), [Piece("text", "a"), Piece("inserted"), Piece("text", "b")])

    def test_what_is_no_format_is_refused(self):
        with self.assertRaises(ValueError):
            formats.pieces("(see below)")


class OfTheProgram(unittest.TestCase):
    def test_known_ones_are_found_with_their_files(self):
        found = {(path.name, text) for path, text in formats.formats()}
        self.assertIn(("echo.cpp", "('1',/,10x,'ECHO PRINT OF INPUT DATA TO PROGRAM \"\0\"')"), found)
        self.assertIn(("sketch.cpp", "(2x,130a1)"), found)

    def test_each_can_be_taken_apart(self):
        for path, text in formats.formats():
            self.assertTrue(formats.pieces(text), f"{path}: {text}")


if __name__ == "__main__":
    unittest.main()
