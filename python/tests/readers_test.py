"""The readers: the six examples against the figures of their pages, and files that were cut or changed at every place."""

import math
import os
import pathlib
import random
import tempfile
import unittest

import numpy as np

import korvat

EXAMPLES = pathlib.Path(os.environ["KORVAT_EXAMPLES"])

# D = 1.0, t = 0.25, E = 2.0E8, G = 8.0E7: A = pi 0.75 0.25, I = pi (1 - 0.5^4) / 64.
TINY_AREA = math.pi * 0.1875
TINY_INERTIA = math.pi * 0.9375 / 64
TINY_SECTION = (
    *(1.0, 0.25, TINY_AREA, 2 * TINY_INERTIA),
    *(2.0e8 * TINY_AREA, 8.0e7 * TINY_AREA, 2.0e8 * TINY_INERTIA, 1.6e8 * TINY_INERTIA),
)


# One pile, with values that are too wide for their columns, and such that are no numbers.
PLOT = b"""Wide

        1  Number of piles

   1   2*******  0.020   2  Pile,nodes,diam,wall,'material (1=steel 2=concrete)

  Node     X         Y         Z
    1-10000.000-20000.000       inf
    2     1.000**********      -nan
"""


def run_example(name):
    run = korvat.run(EXAMPLES / name, in_place=False).check()
    assert not run.warnings, run.warnings
    return run


class Examples(unittest.TestCase):
    def test_jacket(self):
        with run_example("jacket") as run:
            group, plot = run.pile(), run.plot()
            self.assertEqual(run.files["PILE.07"].stat().st_size, 32026)
            self.assertNotIn("LOAD.09", run.files)
        self.assertEqual((group.revision, group.date), (4, None))
        self.assertEqual(group.label, "Jacket platform, four battered main piles 1524 mm, kN and m")
        self.assertEqual([pile.number for pile in group.piles], [1, 2, 3, 4])
        # Section 2: A = (1.524 - 0.063) pi 0.063 = 0.28916 m2, EA = A 2.1E8 kN.
        area = (1.524 - 0.063) * math.pi * 0.063
        self.assertAlmostEqual(group.section(2)["area"], area, places=12)
        self.assertAlmostEqual(group.section(2)["axial_stiffness"] / 6.0724e7, 1.0, places=5)
        pile = group.pile(1)
        self.assertEqual((len(pile.nodes), len(pile.elements), pile.fixed_to, pile.tip_code), (39, 38, 0, 0))
        self.assertAlmostEqual(pile.length, 57.0, places=10)
        # Node 4 lies 3 m from the head; node 39 is the tip.
        np.testing.assert_allclose(pile.coordinates[3], [12 + 8 * 3 / 57, 10 + 7 * 3 / 57, 56 * 3 / 57], rtol=1e-13)
        np.testing.assert_allclose(pile.coordinates[38], [20, 17, 56], rtol=1e-13)
        lengths = [1.0] * 15 + [1.5] * 10 + [2.0] * 9 + [2.5] * 3 + [1.5]
        np.testing.assert_allclose(pile.elements["length"], lengths, rtol=1e-12)
        self.assertEqual(pile.elements["section"].tolist(), [1] * 3 + [2] * 12 + [1] * 10 + [3] * 9 + [4] * 3 + [5])
        for number, signs in ((2, (1, -1, 1)), (3, (-1, 1, 1)), (4, (-1, -1, 1))):
            np.testing.assert_array_equal(group.pile(number).coordinates, pile.coordinates * signs)
        self.assertEqual(plot.pile_count, 4)
        self.assertEqual([plot.piles[0].diameter, plot.piles[0].wall, plot.piles[0].material], [1.524, 0.045, 1])
        self.assertEqual(plot.piles[0].nodes[3].tolist(), [12.421, 10.368, 2.947])

    def test_dolphin(self):
        with run_example("dolphin") as run:
            group, plot = run.pile(), run.plot()
            self.assertEqual(run.files["PILE.07"].stat().st_size, 49674)
        self.assertEqual(sum(len(pile.nodes) for pile in group.piles), 241)
        walls = [0.025, 0.023, 0.019, 0.015, 0.013, 0.020, 0.017, 0.014]
        np.testing.assert_allclose(group.sections["wall"], walls, rtol=1e-12)
        sections = [1] * 6 + [1, 2, 2, 2, 3, 3, 4, 4, 4, 5] + [5] * 4 + [3]
        self.assertEqual(group.pile(2).elements["section"].tolist(), sections)
        cap = group.pile(1)
        self.assertTrue(cap.is_dummy)
        self.assertEqual(cap.nodes["springs"].tolist(), [[2500.0, 2500.0, 0.0, 0.0, 0.0, 40000.0]])
        self.assertEqual(cap.nodes["forces"].tolist(), [[600.0, -250.0, -150.0, 500.0, 1200.0, 0.0]])
        self.assertEqual([pile.fixed_to for pile in group.piles], [0] + [1] * 12)
        # The slope moves 30 mm in x at nodes 13 to 17 of the front row, piles 2 to 5.
        for number in range(2, 14):
            moved = np.zeros((len(group.pile(number).nodes), 6))
            if number <= 5:
                moved[12:17, 0] = 0.030
            np.testing.assert_allclose(group.pile(number).nodes["displacements"], moved, rtol=1e-14)
        # 15 degrees at nodes 1 to 5: four elements whole, the fifth half.
        np.testing.assert_allclose(group.pile(2).elements["strain"][:6], [1.8e-4] * 4 + [0.9e-4, 0.0], rtol=1e-13)
        self.assertEqual([pile.number for pile in plot.piles], list(range(2, 14)))
        self.assertEqual([pile.wall for pile in plot.piles], [0.019, 0.013, 0.013, 0.019] + [0.014] * 4 + [0.019, 0.013, 0.013, 0.019])

    def test_insert_piles(self):
        with run_example("insert-piles") as run:
            group, plot = run.pile(), run.plot()
            self.assertEqual(run.files["PILE.07"].stat().st_size, 152542)
        self.assertEqual((group.revision, group.date), (5, (2009, 9, 1)))
        self.assertEqual(sum(len(pile.nodes) for pile in group.piles), 369)
        self.assertEqual(len(group.sections), 15)
        self.assertEqual(dict(group.tubes), {3: (11, 12, 13), 9: (14, 15)})
        self.assertEqual({n: len(curve) for n, curve in group.curves.items()}, {1: 10, 2: 10, 3: 7, 4: 10, 5: 10, 6: 10, 8: 5, 10: 10})
        self.assertEqual(group.sections["type"].tolist(), [1, 1, 3, 1, 1, 1, 1, 1, 2] + [1] * 6)
        lap = group.section(3)
        for name, value in (("area", 0.98968), ("axial_stiffness", 1.03696e8), ("bending_stiffness", 3.5739e7), ("axial_yield", 165335)):
            self.assertAlmostEqual(lap[name] / value, 1.0, delta=1e-5, msg=name)
        self.assertEqual((lap["wall"], lap["yield_stress"], lap["diameter"]), (0.0, 0.0, 1.829))
        points = [(148500.0, 0.0, 165000.0, 0.0), (99000.0, 19000.0, 110000.0, 43200.0), (49500.0, 38000.0, 55000.0, 74800.0)]
        points += [(0.0, 57000.0, 0.0, 86400.0)] + [(-a, b, -c, d) for a, b, c, d in reversed(points)]
        np.testing.assert_allclose(group.curves[3].tolist(), points, rtol=1e-15)
        computed = group.curves[4]
        self.assertAlmostEqual(computed["plastic_axial"][9], -78324, delta=0.5)
        self.assertAlmostEqual(computed["plastic_axial"][0], 66376, delta=67)
        self.assertEqual(computed["plastic_axial"][4], 0.0)
        self.assertAlmostEqual(computed["plastic_moment"][4], 32897, delta=33)
        self.assertAlmostEqual(computed["elastic_moment"][4], 28316, delta=0.5)
        self.assertEqual((group.section(7)["eccentricity"], group.section(7)["miscellaneous"].tolist()), (0.02, [1.0, 2.0, 3.0]))
        # Over the lap, nodes 17 to 25, the strain is given itself: a composite has the factor 1.
        np.testing.assert_allclose(group.pile(2).elements["strain"][16:24], [9.6e-5] * 8, rtol=1e-13)
        heads = sum(pile.nodes["z"][0] for pile in group.piles)
        tips = sum(pile.nodes["z"][-1] for pile in group.piles if not pile.is_dummy)
        self.assertAlmostEqual(heads, 14.0, places=9)
        self.assertAlmostEqual(tips, 664.0, places=9)
        self.assertEqual({pile.wall for pile in plot.piles}, {0.022, 0.050})

    def test_barge_impact(self):
        with run_example("barge-impact") as run:
            group, loads = run.pile(), run.load()
            self.assertEqual(run.files["PILE.07"].stat().st_size, 53354)
            self.assertEqual(run.files["LOAD.09"].stat().st_size, 1468)
        self.assertEqual(sum(len(pile.nodes) for pile in group.piles), 263)
        self.assertEqual([len(vector.loads) for vector in loads.vectors], [1, 2, 3, 12, 1])
        self.assertEqual(loads.vectors[0].label, "Vector 1: dead weight of cap, fenders and walkway")
        self.assertEqual(loads.vectors[0].loads["force"].tolist(), [[0.0, 0.0, 5250.0]])
        third = loads.vectors[2]
        self.assertEqual(len(third.label), 80)
        self.assertEqual(third.loads["pile"].tolist(), [12, 12, 1])
        self.assertEqual(third.loads["force"][1].tolist(), [0.0, -600.0, 180.0])
        self.assertEqual(third.loads["moment"][1].tolist(), [0.0, 0.0, 300.0])
        fourth = loads.vectors[3].loads
        self.assertEqual(fourth["pile"].tolist(), list(range(2, 14)))
        self.assertEqual((fourth["force"][10].tolist(), fourth["moment"][10].tolist()), ([21.0, 4.5, 0.0], [0.0, -52.5, 0.0]))

    def test_limits(self):
        with run_example("limits") as run:
            group, plot = run.pile(), run.plot()
            self.assertEqual(run.files["PILE.07"].stat().st_size, 3805900)
        self.assertEqual(sum(len(pile.nodes) for pile in group.piles), 18943)
        self.assertEqual(sum(pile.is_dummy for pile in group.piles), 20)
        self.assertEqual((len(group.piles), len(group.sections), len(plot.piles)), (200, 200, 180))
        last = group.pile(200)
        self.assertEqual((len(last.elements), last.tip_code, last.fixed_to), (450, -450, 191))
        self.assertEqual(plot.piles[-1].nodes[-1].tolist(), [198.0, 158.0, 90.0])

    def test_limits_of_revision_5(self):
        with run_example("limits-revision-5") as run:
            group = run.pile()
            self.assertEqual(run.files["PILE.07"].stat().st_size, 3882292)
            self.assertEqual(len(run.plot().piles), 180)
        self.assertEqual(sum(len(pile.nodes) for pile in group.piles), 18943)
        self.assertEqual((len(group.sections), len(group.tubes[5]), len(group.tubes)), (200, 12, 62))
        self.assertEqual(group.tubes[5], tuple(range(67, 79)))
        self.assertEqual(sorted(group.curves), [1, 2, 3, 4, *range(5, 66, 4)])
        self.assertEqual((group.curves[5]["plastic_axial"][1], group.curves[5]["plastic_moment"][1]), (8750.0, 800.0))


def small_decks():
    """A group of each revision, with a dummy pile, a pile with elements, node values and loads."""
    for revision in (4, 5):
        deck = korvat.Deck("Small", revision)
        steel = deck.add_material(2.1e8, 8.0e7, 3.55e5)
        tube = deck.add_section(steel, 1.0, 0.05, **({"check": "isochk"} if revision == 5 else {}))
        segment = deck.add_segment(tube, tube, 6.0, 3)
        cap = deck.add_dummy((0, 0, 0))
        pile = deck.add_pile((1, 0, 0), (1, 0, 6), [segment])
        deck.fix(pile, cap)
        deck.add_load_vector("wind", {cap: (1, 2, 3, 4, 5, 6), pile: (1, 0, 0, 0, 0, 0)})
        deck.add_load_vector("waves", {cap: (1, 2, 3, 4, 5, 6)})
        yield deck


class Damage(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.path = pathlib.Path(holder.name) / "file"

    def read_bytes(self, read, data):
        self.path.write_bytes(data)
        return read(self.path)

    def cut(self, read, data, lengths):
        for length in lengths:
            with self.assertRaises(korvat.DamagedFile, msg=f"{length} of {len(data)} bytes") as caught:
                self.read_bytes(read, data[:length])
            self.assertLessEqual(caught.exception.offset, length)
            self.assertEqual(caught.exception.path, self.path)

    def test_record_files_cut_at_every_length(self):
        for deck in small_decks():
            with korvat.run(deck).check() as run:
                pile, load = (run.files[name].read_bytes() for name in ("PILE.07", "LOAD.09"))
            # All of the places behind the tables of revision 5, which hold little but zeros.
            dense = [*range(600), *range(max(600, len(pile) - 2000), len(pile))]
            self.cut(korvat.read_pile, pile, sorted({*dense, *range(0, len(pile), 61)}))
            self.cut(korvat.read_load, load, range(len(load)))

    def test_files_of_examples_cut(self):
        for name, stride in (("jacket", 19), ("dolphin", 97), ("insert-piles", 193), ("barge-impact", 97), ("limits", 90007), ("limits-revision-5", 90001)):
            with run_example(name) as run:
                data = run.files["PILE.07"].read_bytes()
                self.cut(korvat.read_pile, data, range(0, len(data), stride))
                if "LOAD.09" in run.files:
                    loads = run.files["LOAD.09"].read_bytes()
                    self.cut(korvat.read_load, loads, range(len(loads)))

    def test_plot_files_cut_at_every_length(self):
        for name, stride in (("jacket", 1), ("insert-piles", 31), ("limits-revision-5", 40009)):
            with run_example(name) as run:
                data = run.files["PILEPLOT.TXT"].read_bytes()
            whole = self.read_bytes(korvat.read_plot, data)
            complete = 0
            for length in range(0, len(data), stride):
                try:
                    part = self.read_bytes(korvat.read_plot, data[:length])
                except korvat.DamagedFile as damage:
                    self.assertLessEqual(damage.offset, length)
                    continue
                # A cut between two piles is the one that does not show.
                complete += 1
                self.assertTrue(data[length:].startswith(b"\n") and data[:length].endswith(b"\n"))
                self.assertEqual([p.number for p in part.piles], [p.number for p in whole.piles[: len(part.piles)]])
            if stride == 1:
                self.assertEqual(complete, len(whole.piles))

    def test_changed_bytes_are_read_or_refused(self):
        chance = random.Random(7)
        refused = 0
        for deck in small_decks():
            with korvat.run(deck).check() as run:
                files = [(read, run.files[name].read_bytes()) for read, name in READERS]
            for read, data in files:
                for _ in range(400):
                    changed = bytearray(data)
                    for _ in range(chance.randint(1, 3)):
                        changed[chance.randrange(min(len(data), 700))] = chance.randrange(256)
                    try:
                        self.read_bytes(read, bytes(changed))
                    except korvat.DamagedFile:
                        refused += 1
        self.assertGreater(refused, 500)

    def test_reasons_and_offsets(self):
        deck = next(small_decks())
        with korvat.run(deck).check() as run:
            pile, load = (run.files[name].read_bytes() for name in ("PILE.07", "LOAD.09"))
        full = b"x" * 128
        cases = [
            (korvat.read_pile, b"", 0, "the file is empty"),
            (korvat.read_pile, b"KORVAT", 1, "the file ends inside a segment"),
            (korvat.read_pile, b"PK\3\4", 0, "the file does not begin with the letter K"),
            (korvat.read_pile, b"\x4b\x82", 1, "the label is missing: the file ends before it"),
            (korvat.read_pile, pile[:-1], len(pile) - 1, "the file ends without its end byte"),
            (korvat.read_pile, pile + b"\0", len(pile), "there is more behind the end byte"),
            (korvat.read_pile, load, 83, "the record of counts has 4 bytes, not 8"),
            (korvat.read_load, pile, 83, "the count of vector 1 has 8 bytes, not 4"),
            # The counts: one pile fewer, one more, 201 sections.
            (korvat.read_pile, pile[:84] + b"\1" + pile[85:], None, "there are more records than the piles have"),
            (korvat.read_pile, pile[:84] + b"\3" + pile[85:], len(pile) - 1, "pile 3 is missing: the file ends before it"),
            (korvat.read_pile, pile[:88] + b"\xc9" + pile[89:], 83, "a count that is none: 2 piles, 201 sections"),
            (korvat.read_load, load[:84] + b"\0" + load[85:], 83, "vector 1 has 0 loads"),
            (korvat.read_pile, pile[:82] + b"\x51" + pile[83:], 82, "the length behind a segment is not the one before it"),
            (korvat.read_pile, b"K\x00\x00\x82", 1, "a record without data"),
            # Records of 128 bytes and more: 80 opens one of exactly 128.
            (korvat.read_load, b"K\x80" + full + b"\x81\x00\x00\x82", 1, "the label of vector 1 has 128 bytes, not 80"),
            (korvat.read_load, b"K\x81" + full + b"\x81\x00\x00\x82", 1, "the first length does not agree with the record's"),
            (korvat.read_load, b"K\x80" + full + b"\x81\x01x\x01\x82", 1, "the first length does not agree with the record's"),
            (korvat.read_load, b"K\x81" + full + b"\x81\x80" + full + b"\x81\x00\x00\x82", 131, "no length of a segment"),
            (korvat.read_plot, b"", 0, "the file is empty"),
            (korvat.read_plot, PLOT.replace(b"    2  ", b"    3  "), PLOT.index(b"    2  "), "this is not node 2 of pile 1"),
            (korvat.read_plot, PLOT.replace(b"   1   2", b"   2   2"), PLOT.index(b"   1   2"), "pile 2 with 2 nodes, behind pile 0 of 1"),
            (korvat.read_plot, b"label\n\n  piles\n", 7, "this is not the number of piles"),
        ]
        for read, data, offset, reason in cases:
            with self.subTest(reason=reason), self.assertRaises(korvat.DamagedFile) as caught:
                self.read_bytes(read, data)
            self.assertEqual(caught.exception.reason, reason)
            if offset is not None:
                self.assertEqual(caught.exception.offset, offset)

    def test_empty_load_file_has_no_vector(self):
        self.assertEqual(self.read_bytes(korvat.read_load, b"\x4b\x82").vectors, ())

    def test_small_file_of_the_documents(self):
        """docs/files.md shows PILE.07 of a deck byte by byte: the bytes, and what they are read as."""
        deck = korvat.Deck("Tiny")
        deck.add_material(2.0e8, 8.0e7, wall_weight=77.0)
        deck.add_section(1, 1.0, 0.25, fluid_weight=10.0)
        deck.add_segment(1, 1, 1.0, 1)
        deck.add_dummy((0.0, 0.0, -1.0))
        deck.add_node_values(1, 1, "springs", (100.0, 100.0, 200.0, 0.0, 0.0, 0.0))
        with korvat.run(deck).check() as run:
            data = run.files["PILE.07"].read_bytes()
            group = run.pile()
        self.assertEqual(len(data), 486)
        self.assertEqual(data[0x12C:0x13A], bytes.fromhex("00 00 F0 BF 08 08 00 00 00 00 00 00 59 40"))
        np.testing.assert_allclose(group.sections[0].tolist()[:8], TINY_SECTION, rtol=1e-14)
        self.assertEqual(group.pile(1).nodes["springs"].tolist(), [[100.0, 100.0, 200.0, 0.0, 0.0, 0.0]])
        self.assertEqual(group.pile(1).coordinates.tolist(), [[0.0, 0.0, -1.0]])

    def test_values_without_ordinary_form_in_the_plot_file(self):
        pile = self.read_bytes(korvat.read_plot, PLOT).piles[0]
        np.testing.assert_array_equal(pile.nodes, [[-10000.0, -20000.0, math.inf], [1.0, math.nan, math.nan]])
        self.assertTrue(math.isnan(pile.diameter))
        self.assertEqual((pile.wall, pile.material), (0.02, 2))

    def test_what_was_read_cannot_be_changed(self):
        with run_example("jacket") as run:
            group = run.pile()
        with self.assertRaises(ValueError):
            group.sections["wall"][0] = 1.0
        with self.assertRaises(AttributeError):
            group.label = "other"
        with self.assertRaises(KeyError):
            group.pile(5)
        with self.assertRaises(KeyError):
            group.section(0)


READERS = [(korvat.read_pile, "PILE.07"), (korvat.read_load, "LOAD.09"), (korvat.read_plot, "PILEPLOT.TXT")]

if __name__ == "__main__":
    unittest.main()
