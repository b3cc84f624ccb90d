"""Deck: what it refuses, what it writes, and tables as a source."""

import re
import subprocess
import sys
import unittest

import numpy as np

import korvat
from korvat import Deck, DeckError, Tube

STEEL = {"elastic_modulus": 2.1e8, "shear_modulus": 8.077e7, "yield_stress": 3.55e5, "wall_weight": 77.0}


def small(revision=4, **options):
    """Two piles of 20 m under a cap point: piles 1 (dummy), 2 and 3."""
    deck = Deck("Small", revision, **options)
    deck.add_material(**STEEL)
    deck.add_section(1, 0.914, 0.025)
    deck.add_segment(1, 1, 20.0, 10)
    deck.add_dummy((0, 0, -1))
    deck.add_pile((2, 0, 0), (2, 0, 20), [1])
    deck.add_mirror(2, "x")
    return deck


class Refused(unittest.TestCase):
    def refused(self, text, call):
        with self.assertRaises(DeckError) as caught:
            call()
        self.assertEqual(str(caught.exception), text)

    def test_labels(self):
        self.refused("the label of the run is blank", lambda: Deck("  "))
        self.refused("the label of the run begins with END, which ends the deck", lambda: Deck("END BEARING PILES"))
        self.refused("the label of the run has 81 bytes; 80 are kept", lambda: Deck("x" * 81))
        self.refused("the label of the run has 82 bytes; 80 are kept", lambda: Deck("ø" * 41))
        self.refused("the label of the run: 'a\\nb' is not one line of text", lambda: Deck("a\nb"))
        begins = "begins with C: KORVAT takes it for a comment"
        loads = {1: (1, 0, 0, 0, 0, 0)}
        self.refused(
            f"the label 'Current' of a load vector {begins}", lambda: small().add_load_vector("Current", loads)
        )

    def test_numbers(self):
        deck = Deck("x")
        self.refused("elastic_modulus: nan cannot stand in a deck", lambda: deck.add_material(float("nan"), 1.0))
        self.refused("elastic_modulus: 'abc' is not a number", lambda: deck.add_material("abc", 1.0))
        self.refused("elastic_modulus: 1e+301 is beyond 1e-300 to 1e+300", lambda: deck.add_material(1e301, 1.0))
        self.refused("shear_modulus is not above 0", lambda: deck.add_material(2.1e8, 0.0))
        self.refused("material 1: there is none yet", lambda: deck.add_section(1, 1.0, 0.1))
        self.refused("revision 6: there are 4 and 5", lambda: Deck("x", 6))
        self.refused("print_level 3 is not within 0 to 2", lambda: Deck("x", print_level=3))
        self.refused(
            "length_factor 0.0 is not above 1e-10: KORVAT counts it as 1.0", lambda: Deck("x", length_factor=0)
        )

    def test_sections(self):
        self.refused("wall 0.5 is above half the diameter 0.9", lambda: small().add_section(1, 0.9, 0.5))
        self.refused("section 1 is not above 1", lambda: small().add_section(1, 0.9, 0.05, number=1))
        self.refused("yield curves need revision 5", lambda: small().add_section(1, 0.9, 0.05, check="norchk"))
        self.refused("composites need revision 5", lambda: small().add_composite([Tube(1, 0.1, 1.0)] * 2))
        self.refused(
            "section 3 leaves out 2: revision 5 knows no such sections",
            lambda: small(5).add_section(1, 0.9, 0.05, number=3),
        )
        self.refused("check 'api': there are norchk and isochk", lambda: small(5).add_section(1, 0.9, 0.05, check="api"))
        self.refused(
            "a computed curve needs D/t up to 120, not 180.0",
            lambda: small(5).add_section(1, 0.9, 0.005, check="isochk"),
        )
        self.refused(
            "diameter 0.8 is not the inner diameter 0.9 of the tube around it",
            lambda: small(5).add_composite([Tube(1, 0.05, 1.0), Tube(1, 0.05, 0.8)]),
        )
        self.refused("a composite has 2 to 12 tubes, not 1", lambda: small(5).add_composite([Tube(1, 0.05, 1.0)]))

    def test_curves(self):
        def add(*points):
            return lambda: small(5).add_section(1, 0.9, 0.05, curve=points)

        self.refused("a curve has 1 to 10 points, not 0", add())
        self.refused("a point of the curve: 4 values are needed, not 3", add((1, 2, 3)))
        self.refused("first point: the elastic axial force is above the plastic one", add((11, 0, 10, 0)))
        self.refused("first point: a moment is above 0", add((9, 0, 10, 1)))
        self.refused("point 2: the plastic axial force does not fall", add((9, 0, 10, 0), (8, 1, 10, 2)))
        self.refused("point 2: a moment is below 0", add((9, 0, 10, 0), (0, -1, 0, 2)))
        self.refused("last point: the plastic axial force is above the elastic one", add((9, 0, 10, 0), (-9, 0, -8, 0)))
        self.refused("last point: a moment is above 0", add((9, 0, 10, 0), (-9, 1, -10, 0)))

    def test_piles(self):
        self.refused("segment 2 is not within 1 to 1", lambda: small().add_pile((0, 0, 0), (0, 0, 20), [2]))
        self.refused(
            "the tip, z -20.0, is above the head, z 0.0: +z points downwards",
            lambda: small().add_pile((0, 0, 0), (0, 0, -20), [1]),
        )
        self.refused("axis 'z': there are x and y", lambda: small().add_mirror(2, "z"))
        self.refused("source 4 is not within 1 to 3", lambda: small().add_copy(4, (1, 0, 0)))
        self.refused("pile 3 before it is generated", lambda: small().add_pile_between([1]))
        self.refused("head: 3 values are needed, not 2", lambda: small().add_dummy((0, 0)))
        self.refused("pile 1 cannot be fixed to itself", lambda: small().fix([1, 2], 1))
        self.refused("code 4 is not within -450 to 3", lambda: small().set_tip(2, 4))
        self.refused("kind 'loads': there are springs, forces, displacements, temperature",
                     lambda: small().add_node_values(1, 1, "loads", [0] * 6))
        self.refused("a spring is below 0", lambda: small().add_node_values(1, 1, "springs", [1, 0, 0, 0, 0, -1]))
        self.refused("loads: 6 values are needed, not 3", lambda: small().add_load_vector("wind", {1: (1, 2, 3)}))
        self.refused("pile 9 is not within 1 to 3", lambda: small().add_load_vector("wind", {9: [0] * 6}))

    def whole(self, text, change, revision=4):
        deck = small(revision)
        change(deck)
        self.refused(text, deck.text)

    def test_the_group_as_a_whole(self):
        self.refused("the deck has no material", Deck("x").text)
        self.whole(
            "pile 4: its segments add up to 20, and from head to tip it is 25",
            lambda deck: deck.add_pile((0, 0, 0), (15, 0, 20), [1]),
        )
        # In the middle between x = 0 and x = 60, 20 m deep: 30 m in x.
        def between(deck):
            deck.add_pile((0, 0, 0), (0, 0, 20), [1])
            deck.add_pile_between([1])
            deck.add_pile((0, 0, 0), (60, 0, 0), [1] * 3)

        self.whole("pile 5: its segments add up to 20, and from head to tip it is 31.6228", between)

        def left_open(deck):
            deck.add_pile((0, 0, 0), (0, 0, 20), [1])
            deck.add_pile_between([1])

        self.whole("pile 5 is to stand between two others, and no pile follows", left_open)
        self.whole("pile 3: the tip code -11 needs 11 elements, and it has 10", lambda deck: deck.set_tip(3, -11))
        self.whole("pile 1: the tip code -1 needs 1 elements, and it has 0", lambda deck: deck.set_tip(1, -1))

        def fixed(deck):
            deck.set_tip(3, -10)
            deck.fix(3, 2)

        self.whole("pile 3 has a tip code below 0 and is fixed to pile 2, which is not a dummy pile", fixed)
        self.whole(
            "pile 2 has 11 nodes, and node 12 is given values",
            lambda deck: deck.add_node_values(2, 12, "temperature", 10.0),
        )
        moved = [0.1, 0, 0, 0, 0, 0]
        self.whole(
            "pile 1, a dummy pile, has soil displacements and no springs along x, y or z",
            lambda deck: deck.add_node_values([1, 2], 1, "displacements", moved),
        )

    def test_what_stands_just_beside_is_accepted(self):
        deck = small()
        deck.add_pile((0, 0, 0), (0, 0, 20.0199), [1])  # 0.0995 % off
        deck.set_tip(3, -10)
        deck.fix([2, 3], 1)
        deck.add_node_values(2, 11, "temperature", 10.0)
        deck.add_node_values(1, 1, "displacements", [0.1, 0, 0, 0, 0, 0])
        deck.add_node_values(1, 1, "springs", [0, 0, 5.0, 0, 0, 0])
        deck.add_load_vector("urrent", {1: [0] * 6})
        with korvat.run(deck) as run:
            self.assertEqual((run.exit_code, run.errors, run.warnings), (0, (), ()))

    def test_limits_are_accepted_and_no_more(self):
        deck = Deck("Limits")
        for _ in range(20):
            deck.add_material(**STEEL)
        self.refused("more than 20 materials", lambda: deck.add_material(**STEEL))
        deck.add_section(1, 0.9, 0.05)
        deck.add_section(20, 0.9, 0.06, number=200)
        self.refused("more than 200 sections, tubes of composites included", lambda: deck.add_section(1, 0.9, 0.05))
        for _ in range(1000):
            deck.add_segment(1, 1, 1.0, 22)
        self.refused("more than 1000 segment types", lambda: deck.add_segment(1, 1, 1.0, 22))
        twenty = list(range(981, 1001))
        self.refused("a pile has at most 20 segments, not 21", lambda: deck.add_pile((0, 0, 0), (0, 0, 21), [*twenty, 1]))
        for _ in range(200):
            deck.add_pile((0, 0, 0), (0, 0, 20), twenty)
        self.refused("more than 200 piles", lambda: deck.add_dummy((0, 0, 0)))
        for _ in range(499):
            deck.add_node_values(range(1, 201), 441, "temperature", 1.0)
        self.refused("more than 499 records of node values", lambda: deck.add_node_values(1, 1, "temperature", 1.0))
        with korvat.run(deck) as run:
            self.assertEqual((run.exit_code, run.error), (0, None))
            self.assertEqual(len(run.pile().pile(200).elements), 440)

    def test_limits_of_revision_5(self):
        deck = Deck("Limits", 5)
        deck.add_material(**STEEL)
        for _ in range(15):
            deck.add_composite([Tube(1, 0.04, 1.0), *[Tube(1, 0.04) for _ in range(11)]])
        for _ in range(5):
            deck.add_section(1, 1.0, 0.05, check="norchk")
        self.refused("more than 200 sections, tubes of composites included", lambda: deck.add_section(1, 0.9, 0.05))
        deck.add_segment(1, 20, 450.0, 450)
        deck.add_pile((0, 0, 0), (0, 0, 450), [1])
        with korvat.run(deck) as run:
            self.assertEqual((run.exit_code, run.error), (0, None))
            self.assertEqual(run.pile().tubes[15], tuple(range(189, 201)))


class Written(unittest.TestCase):
    def test_numbers_read_back_exactly(self):
        from korvat.numbers import real_text

        chance = np.random.default_rng(5)
        values = np.concatenate([chance.normal(size=2000) * 10.0 ** chance.integers(-290, 290, 2000), np.round(chance.normal(size=2000), 3)])
        for value in [*values.tolist(), 0.0, -0.0, 1e300, -1e-300, 9999999.0, 1e7, 0.0001, 0.00009999]:
            text = real_text(value)
            self.assertEqual(float(text), value)
            self.assertLessEqual(len(text), 24)
            self.assertRegex(text, r"^-?\d+\.\d*(E-?\d+)?$")

    def test_numbers_are_written_as_an_engineer_does(self):
        from korvat.numbers import real_text

        cases = {1234567.0: "1234567.0", 12345678.0: "1.2345678E7", 1e7: "1.0E7", 0.0001: "0.0001", 0.00012: "0.00012", 9.9e-5: "9.9E-5"}
        self.assertEqual({value: real_text(value) for value in cases}, cases)

    def test_lines_are_filled_up_to_column_80_and_no_further(self):
        from korvat.columns import Row, layout

        # Eight columns with a gap of one: seven of nine digits and one of nine or ten.
        names = ["N"] * 8
        fits = [123456789] * 8
        self.assertEqual([len(line) for line in layout(names, [Row(fits)])[1]], [80])
        wide = [*fits[:7], 1234567890]
        self.assertEqual([len(line) for line in layout(names, [Row(wide)])[1]], [70, 11])

    def test_all_headings_of_a_deck(self):
        deck = small()
        deck.add_section(1, 0.914, 0.019, number=4, note="Carefully chosen " * 8)
        deck.add_pile((0.5, 0, 0), (0.5, 0, 20), [1])
        deck.add_copy(4, (0, 0, 2.5))
        deck.fix(range(2, 6), 1)
        deck.add_node_values([2, 3, 5], [1, 2, 11], "forces", [1, 2, 3, 4, 5, 6])
        deck.add_load_vector("Wind", {1: (100.5, 0, 0, 0, 0, -2e7)}, 1.35)
        expected = """\
Small
KORVAT Version: 2006-06-11

General values of the run
  1.0  force unit factor
  1.0  length unit factor
  5    piles
  4    cross sections
  1    material types
  1    pile segment types
  1    load vectors
  1    print level
  0    echo level

Material types
  N  E-modulus  shear mod.     yield  unit weight  temp. strain
  1      2.1E8     8.077E7  355000.0         77.0            0.

Tubular cross sections
  N  mat   diam   wall  EA  EI  GA  GJ  fluid
  1    1  0.914  0.025  0.  0.  0.  0.     0.
* Carefully chosen Carefully chosen Carefully chosen Carefully chosen Carefully
* chosen Carefully chosen Carefully chosen Carefully chosen
  4    1  0.914  0.019  0.  0.  0.  0.     0.

Pile segment types
  N  start  end  length  elements
  1      1    1    20.0        10

Pile geometry, +z points downwards
  NP  gen  sym  x-head  y-head  z-head  x-tip  y-tip  z-tip
   1    0    0      0.      0.    -1.0     0.     0.   -1.0
   2    0    0     2.0      0.      0.    2.0     0.   20.0
   3    2    2      0.      0.      0.     0.     0.     0.
   4    0    0     0.5      0.      0.    0.5     0.   20.0
   5    4    0      0.      0.     2.5     0.     0.    2.5
   NP  NSEG  segment types from head to tip
    1     0
    2     1  1
    4     1  1
  NP1  NP2  tip  fix
    1    1    0    0
    2    5    0    1

Special pile node values
  NP1  NP2  ND1  ND2  code   v1   v2   v3   v4   v5   v6
    2    3    1    2     2  1.0  2.0  3.0  4.0  5.0  6.0
    2    3   11   11     2  1.0  2.0  3.0  4.0  5.0  6.0
    5    5    1    2     2  1.0  2.0  3.0  4.0  5.0  6.0
    5    5   11   11     2  1.0  2.0  3.0  4.0  5.0  6.0
    0    0    0    0     0   0.   0.   0.   0.   0.   0.

Load vectors: label, number of loaded piles, load factor, heading, loads
Wind
  1  loaded piles
  1.35  load factor
  NP     Fx  Fy  Fz  Mx  My      Mz
   1  100.5  0.  0.  0.  0.  -2.0E7
END
"""
        self.assertEqual(deck.text(), expected)
        with korvat.run(deck) as run:
            self.assertEqual((run.exit_code, run.error, run.warnings), (0, None, ()))
            np.testing.assert_allclose(run.pile().pile(5).coordinates[-1], [0.5, 0.0, 22.5])

    def test_long_records_are_broken_at_the_same_columns(self):
        deck = small()
        third = 1.0 / 3.0
        deck.add_pile((third, -third, third), (third, -third, 20 + third), [1])
        lines = deck.text().split("\n")
        at = lines.index("Pile geometry, +z points downwards")
        self.assertRegex(lines[at + 1], r"^ +NP +gen +sym +x-head +y-head +z-head$")
        self.assertRegex(lines[at + 2], r"^\* +x-tip +y-tip +z-tip$")
        # Pile 1, 2, 3 take two lines each.
        self.assertEqual(lines[at + 9].split(), ["4", "0", "0", "0.3333333333333333", "-0.3333333333333333", "0.3333333333333333"])
        self.assertEqual(lines[at + 10].split(), ["0.3333333333333333", "-0.3333333333333333", "20.333333333333332"])
        with korvat.run(deck) as run:
            np.testing.assert_allclose(run.check().pile().pile(4).coordinates[0], [third, -third, third], rtol=1e-15)

    def test_long_segment_lists_and_twenty_of_them(self):
        deck = small()
        for _ in range(998):
            deck.add_segment(1, 1, 1.0, 1)
        deck.add_pile((0, 0, 0), (0, 0, 20), range(900, 920))
        text = deck.text()
        self.assertTrue(all(len(line) <= 80 for line in text.split("\n")))
        self.assertIn("\n    4    20  900 901 902 ", text)
        with korvat.run(deck) as run:
            self.assertEqual(len(run.check().pile().pile(4).elements), 20)

    def test_factors_convert(self):
        """The deck of docs/deck.md in N and mm whose values are stored in kN and m."""
        deck = Deck("N and mm", force_factor=0.001, length_factor=0.001)
        deck.add_material(2.1e5, 8.077e4, 355.0, 7.7e-5)
        deck.add_section(1, 1524.0, 50.0)
        deck.add_segment(1, 1, 20000.0, 10)
        deck.add_pile((0, 0, 0), (0, 0, 20000.0), [1])
        deck.add_node_values(1, 1, "springs", [2500.0, 0, 0, 0, 0, 0])
        deck.add_load_vector("push", {1: (0, 0, 0, 0, 5.0e8, 0)})
        with korvat.run(deck) as run:
            group = run.check().pile()
            section = group.section(1)
            found = [section[name] for name in ("diameter", "elastic_modulus", "wall_weight")]
            np.testing.assert_allclose(found, [1.524, 2.1e8, 77.0], rtol=1e-14)
            np.testing.assert_allclose(group.pile(1).nodes["springs"][0, 0], 2500.0, rtol=1e-14)
            np.testing.assert_allclose(run.load().vectors[0].loads["moment"], [[0.0, 500.0, 0.0]], rtol=1e-14)


class Tables(unittest.TestCase):
    def build(self, table):
        """A deck whose parts all come from tables; table turns a list of rows into one."""
        deck = Deck("Tables", 5)
        deck.add_materials(table([STEEL, {**STEEL, "yield_stress": 4.2e5}]))
        deck.add_sections(table([{"material": 1, "diameter": 0.9, "wall": 0.03}, {"material": 2, "diameter": 0.8, "wall": 0.02}]))
        curve = [(9, 0, 10, 0), (0, 3, 0, 4), (-9, 0, -10, 0)]
        names = korvat.CURVE_DTYPE.names
        tubes = [{"material": 1, "wall": 0.02, "diameter": 1.0}, {"material": 2, "wall": 0.03}]
        deck.add_composite(table(tubes), curve=table([dict(zip(names, map(float, point))) for point in curve]))
        deck.add_segments(table([{"start": 1, "end": 1, "length": 12.0, "elements": 4}, {"start": 3, "end": 3, "length": 8.0, "elements": 2}]))
        deck.add_dummy((0.0, 0.0, 0.0))
        ends = {"y_head": 0.0, "z_head": 0.0, "y_tip": 0.0, "z_tip": 20.0}
        deck.add_piles(table([{**ends, "x_head": x, "x_tip": x, "segments": "1 2"} for x in (2.0, 3.0)]))
        deck.add_generated(table([{"source": 2, "mirror": "x", "x_shift": None}, {"source": 2, "mirror": None, "x_shift": 7.5}]))
        deck.set_tips(table([{"pile": n, "tip_code": -6, "fixed_to": 1} for n in (2, 3, 4, 5)]))
        deck.add_node_table(
            table(
                [
                    {"first_pile": 2, "last_pile": 5, "first_node": 2, "last_node": None, "kind": "forces", "v1": 1.5, "v6": 2.5},
                    {"first_pile": 3, "last_pile": None, "first_node": 1, "last_node": 7, "kind": "temperature", "v1": 8.0, "v6": None},
                ]
            )
        )
        deck.add_load_vector("wind", table([{"pile": 1, "fx": 5.0, "mz": 2.0}, {"pile": 2, "fx": 6.0, "mz": 3.0}]))
        return deck

    def test_pandas(self):
        import pandas

        from_rows = self.build(lambda rows: rows).text()
        self.assertEqual(self.build(pandas.DataFrame).text(), from_rows)
        with korvat.run(self.build(pandas.DataFrame)) as run:
            group = run.check().pile()
            self.assertEqual(group.curves[3].tolist(), [(9, 0, 10, 0), (0, 3, 0, 4), (-9, 0, -10, 0)])
            self.assertEqual([pile.coordinates[0, 0] for pile in group.piles], [0.0, 2.0, 3.0, -2.0, 9.5])
            self.assertEqual([pile.tip_code for pile in group.piles], [0, -6, -6, -6, -6])
            self.assertEqual(group.pile(5).nodes["forces"][1].tolist(), [1.5, 0, 0, 0, 0, 2.5])
            np.testing.assert_allclose(group.section(3)["diameter"], 1.0)
            self.assertEqual(group.tubes[3], (4, 5))

    def test_structured_arrays(self):
        deck = small()
        rows = np.array([(1, 1, 5.0, 2), (1, 1, 15.0, 3)], [("start", "i4"), ("end", "i4"), ("length", "f8"), ("elements", "i4")])
        self.assertEqual(deck.add_segments(rows), [2, 3])
        other = small(5)
        curve = np.array([(9, 0, 10, 0), (-9, 0, -10, 0)], korvat.CURVE_DTYPE)
        self.assertEqual(other.add_section(1, 0.9, 0.03, curve=curve), 2)
        self.assertIn("  2  1        9.0         0.       10.0         0.\n", other.text())

    def test_refused_tables(self):
        def text_of(call):
            with self.assertRaises(DeckError) as caught:
                call()
            return str(caught.exception)

        deck = small()
        self.assertEqual(
            text_of(lambda: deck.add_segments([{"start": 1, "finish": 1}])),
            "row 1: there is no column 'finish'; the columns are start, end, length, elements, note",
        )
        rows = [{"start": 1, "end": 1, "length": 1.0, "elements": 1}, {"start": 1, "end": 1, "length": 1.0}]
        self.assertEqual(text_of(lambda: deck.add_segments(rows)), "row 2: missing a required argument: 'elements'")
        rows[1]["elements"] = 1.5
        self.assertEqual(text_of(lambda: deck.add_segments(rows)), "row 2: elements: 1.5 is not a whole number")
        self.assertEqual(
            text_of(lambda: deck.add_segments([(1, 1, 2.0, 1)])),
            "a table is a pandas DataFrame, a structured array, or a sequence of mappings",
        )
        self.assertEqual(text_of(lambda: deck.add_load_vector("wind", [{"fx": 1.0}])), "the column 'pile' is missing")
        ends = dict(x_head=0, y_head=0, z_head=0, x_tip=0, y_tip=0, z_tip=20)
        self.assertEqual(
            text_of(lambda: deck.add_piles([{**ends, "segments": "1,1"}])),
            "row 1: segments: '1,1' is not a list of whole numbers",
        )

    def test_pandas_is_not_imported(self):
        code = "import sys, korvat; sys.exit('pandas' in sys.modules)"
        self.assertEqual(subprocess.run([sys.executable, "-c", code], check=False).returncode, 0)


class Documents(unittest.TestCase):
    def test_every_public_name_is_described(self):
        for name in korvat.__all__:
            item = getattr(korvat, name)
            if isinstance(item, np.dtype):
                continue
            self.assertTrue(item.__doc__ and not item.__doc__.startswith(f"{name}("), name)
            for method, function in vars(item).items() if isinstance(item, type) else ():
                if not method.startswith("_") and (callable(function) or isinstance(function, property)):
                    self.assertTrue(re.search(r"\w", function.__doc__ or ""), f"{name}.{method}")


if __name__ == "__main__":
    unittest.main()
