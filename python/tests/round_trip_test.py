"""Random groups of both revisions: written as decks, run, and read again; the numbers that went in must come out."""

import os
import pathlib
import re
import sys
import tempfile
import unittest

import numpy as np

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from random_groups import KINDS, GroupMaker

import korvat

GROUPS = int(os.environ.get("KORVAT_RANDOM_GROUPS", "1000"))

# The reading of a decimal may be wrong by some last bits, and the products by a few more.
RELATIVE = 2e-13
ABSOLUTE = 1e-11

# A heading whose columns go on in a second line.
BROKEN = re.compile(r"^\*.*(z-tip|fluid|v6|Mz|m3)$", re.M)


class RoundTrip(unittest.TestCase):
    def test_random_groups(self):
        program = korvat.find_program()
        broken = 0
        with tempfile.TemporaryDirectory() as directory:
            for seed in range(GROUPS):
                with self.subTest(seed=seed):
                    deck, expected = GroupMaker(seed).make()
                    text = deck.write(directory).read_text(encoding="utf-8")
                    self.check_layout(text)
                    broken += bool(BROKEN.search(text))
                    run = korvat.run(directory, program)
                    self.assertEqual((run.exit_code, run.error), (0, None))
                    self.check(run.pile(), expected)
                    self.check_loads(run, expected)
        self.assertGreater(broken, GROUPS // 20)

    def check_layout(self, text):
        for line in text.split("\n"):
            self.assertLessEqual(len(line), 80)
            self.assertEqual(line, line.rstrip())
            self.assertNotIn("\t", line)

    def assert_close(self, found, expected, name):
        found, expected = np.asarray(found), np.asarray(expected)
        self.assertEqual(found.shape, expected.shape, name)
        if not (np.abs(found - expected) <= ABSOLUTE + RELATIVE * np.abs(expected)).all():
            self.fail(f"{name}: found {found.tolist()}, expected {expected.tolist()}")

    def check(self, found, expected):
        self.assertEqual((found.label, found.revision), (expected.label, expected.revision))
        self.assertEqual(len(found.sections), len(expected.sections))
        for name in korvat.SECTION_DTYPE.names:
            nothing = (0.0, 0.0, 0.0) if name == "miscellaneous" else 0.0
            self.assert_close(found.sections[name], [values.get(name, nothing) for values in expected.sections], name)
        self.assertEqual(dict(found.tubes), expected.tubes)
        self.assertEqual(sorted(found.curves), sorted([*expected.curves, *expected.computed]))
        for number, points in expected.curves.items():
            self.assert_close(found.curves[number].tolist(), points, f"curve {number}")
        for number in expected.computed:
            # The tension end is the yield force, whatever the check gives.
            last = found.curves[number][-1]
            self.assert_close(last["plastic_axial"], -expected.sections[number - 1]["axial_yield"], "tension")
        self.assertEqual(len(found.piles), len(expected.piles))
        for number, pile in enumerate(expected.piles, 1):
            self.check_pile(found.pile(number), pile, expected)

    def check_pile(self, found, pile, expected):
        self.assertEqual((found.fixed_to, found.tip_code), (pile.fixed_to, pile.tip_code))
        self.assert_close(found.coordinates, pile.nodes, "coordinates")
        for kind in KINDS:
            values = np.zeros((len(pile.nodes), 6))
            for (of, node), six in pile.values.items():
                if of == kind:
                    values[node - 1] = six
            self.assert_close(found.nodes[kind], values, kind)
        self.assertEqual(found.elements["section"].tolist(), [section for _, section in pile.elements])
        sizes = []
        for e, (length, section) in enumerate(pile.elements, 1):
            own = expected.sections[section - 1]
            mean = (pile.temperatures.get(e, 0.0) + pile.temperatures.get(e + 1, 0.0)) / 2
            # The strain of an element of a composite is the mean temperature itself.
            strain = mean if own.get("type", 1) > 1 else mean * own["temperature_strain"]
            sizes.append((own["diameter"], length, strain))
        for name, values in zip(("diameter", "length", "strain"), zip(*sizes)):
            self.assert_close(found.elements[name], values, name)

    def check_loads(self, run, expected):
        if not expected.loads:
            return
        vectors = run.load().vectors
        self.assertEqual([vector.label for vector in vectors], [label for label, _ in expected.loads])
        for vector, (_, rows) in zip(vectors, expected.loads):
            self.assertEqual(vector.loads["pile"].tolist(), [pile for pile, _ in rows])
            got = np.hstack([vector.loads["force"], vector.loads["moment"]])
            self.assert_close(got, [six for _, six in rows], vector.label)


if __name__ == "__main__":
    unittest.main()
