#!/usr/bin/env python3
"""Tests of the bench: its arithmetic, and one short run; no time is judged. bench_test.py PROGRAM"""
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bench"))
import decks
import figures
import instructions

PROGRAM = sys.argv.pop(1)

OLD = """{"version": 1, "processor": "one", "figures": {
  "whole/a/korvat/wall": {"unit": "ms", "samples": [12.0, 10.0, 11.0]},
  "whole/b/korvat/wall": {"unit": "ms", "samples": [1.0, 2.0, 3.0]},
  "whole/a/korvat/user": {"unit": "ms", "samples": [1.0, 2.0]}, "whole/a/korvat/system": {"unit": "ms", "samples": [3.0, 6.0]},
  "whole/a/korvat/memory": {"unit": "MiB", "samples": [4.0]},
  "only/old": {"unit": "ms", "samples": [1.0]}}}"""
NEW = """{"version": 1, "processor": "two", "figures": {
  "only/new": {"unit": "ms", "samples": [1.0]},
  "whole/b/korvat/wall": {"unit": "ms", "samples": [2.0, 3.0, 4.0]},
  "whole/a/korvat/memory": {"unit": "MiB", "samples": [5.0]},
  "whole/a/korvat/system": {"unit": "ms", "samples": [1.0]}, "whole/a/korvat/user": {"unit": "ms", "samples": [8.0]},
  "whole/a/korvat/wall": {"unit": "ms", "samples": [5.0, 6.0, 7.0, 4.0]}}}"""

# main spends 10 itself, edit_fixed 100 and 100 more in memcpy, save 50 and 300 more in memcpy.
PROFILE = """events: Ir
fn=(1) main
5 10
cfn=(2) korvat::fortran::edit_fixed(char*, double, int, int)
calls=3 0
+1 200
cfn=(3) korvat::save(korvat::Store&, korvat::RecordFile const&)
calls=1 0
* 350
fn=(2)
0 100
cfn=(4) memcpy
calls=3 0
0 100
fn=(3)
-2 50
cfn=(4)
calls=7 0
0 300
fn=(4)
0 400
"""


class Arithmetic(unittest.TestCase):
    def test_ratios_are_taken_pair_by_pair(self):
        measured = figures.Figures()
        for ours, theirs in ((2.0, 1.0), (4.0, 4.0), (9.0, 3.0)):
            measured.add("run", ours, "ms")
            measured.add("cp", theirs, "ms")
        self.assertEqual(measured.ratios("run", "cp"), [2.0, 1.0, 3.0])

    def test_samples_that_have_no_partner_are_refused(self):
        measured = figures.Figures()
        measured.add("run", 1.0, "ms")
        measured.add("run", 1.0, "ms")
        measured.add("cp", 1.0, "ms")
        with self.assertRaises(ValueError):
            measured.ratios("run", "cp")

    def test_sums_are_taken_sample_by_sample(self):
        measured = figures.Figures()
        for user, system in ((1.0, 10.0), (2.0, 20.0)):
            measured.add("user", user, "ms")
            measured.add("system", system, "ms")
        self.assertEqual(measured.sums("user", "system"), [11.0, 22.0])

    def test_points_on_a_line_give_that_line(self):
        for value, expected in zip(figures.fitted_line([(0, 1.0), (1, 3.0), (2, 5.0)]), (2.0, 1.0, 0.0), strict=True):
            self.assertAlmostEqual(value, expected)

    def test_squares_of_relative_deviations_are_least(self):
        # weights 1, 1/4, 1/4; the line 22/21 + 4/7 x passes 2 at x = 1 by 8/21, which is 4/21 of it
        slope, intercept, deviation = figures.fitted_line([(0, 1.0), (1, 2.0), (2, 2.0)])
        self.assertAlmostEqual(slope, 4 / 7)
        self.assertAlmostEqual(intercept, 22 / 21)
        self.assertAlmostEqual(deviation, 400 / 21)

    def test_instructions_of_a_function_without_a_kind_go_to_its_callers(self):
        counts = instructions.count_by_kind(PROFILE)
        self.assertEqual(counts, {"lines": 200.0, "reading": 0.0, "records": 350.0, "computing": 0.0, "start and end": 10.0})


class Comparison(unittest.TestCase):
    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.addCleanup(self.scratch.cleanup)
        self.old, self.new = (pathlib.Path(self.scratch.name) / name for name in ("old.json", "new.json"))
        self.old.write_text(OLD)
        self.new.write_text(NEW)

    def test_figures_of_both_files_are_compared(self):
        pairs = {name: rest for name, *rest in figures.compare(figures.read(self.old), figures.read(self.new))}
        self.assertEqual(
            pairs,
            {
                "whole/a/korvat/wall": ["ms", 11.0, 5.5, 0.5, True],
                # the middle halves are 1.5 to 2.5 and 2.5 to 3.5
                "whole/b/korvat/wall": ["ms", 2.0, 3.0, 1.5, False],
                # 4 and 8 before, 9 now
                "whole/a/korvat/processor": ["ms", 6.0, 9.0, 1.5, True],
                "whole/a/korvat/memory": ["MiB", 4.0, 5.0, 1.25, True],
            },
        )

    def test_table_says_which_figures_lie_apart_and_that_the_machine_is_another(self):
        told = subprocess.run([ROOT / "bench/run", "--compare", self.old, self.new], stdout=subprocess.PIPE, text=True, check=True)
        lines = [line.split() for line in told.stdout.splitlines()]
        self.assertEqual(lines[0], "not the same machine: processor differ".split())
        self.assertIn("whole/a/korvat/wall ms 11.0 5.50 0.500 apart".split(), lines)
        self.assertIn("whole/b/korvat/wall ms 2.00 3.00 1.50".split(), lines)

    def test_what_is_written_is_read_again(self):
        figures.read(self.new).write(self.old)
        self.assertEqual(json.loads(self.old.read_text()), json.loads(NEW))

    def test_other_forms_are_refused(self):
        self.old.write_text(OLD.replace('"version": 1', '"version": 2'))
        with self.assertRaises(SystemExit):
            figures.read(self.old)


class Decks(unittest.TestCase):
    def test_elements_are_spread_over_the_piles(self):
        self.assertEqual(decks.spread(7, 3), [3, 2, 2])
        text = decks.deck(451)  # two piles, of 226 and 225 elements
        self.assertIn("   1  1  1  90.0  225\n   2  1  1  90.0  226\n", text)
        self.assertIn("   1  1  2\n   2  1  1\n", text)

    def test_last_load_vector_takes_the_rest(self):
        lines = decks.load_vectors(7, 3)
        self.assertEqual([lines[i + 1].strip() for i, line in enumerate(lines) if line.startswith("Vector")], ["3", "3", "1"])


class ShortRun(unittest.TestCase):
    def test_every_sample_is_kept(self):
        with tempfile.TemporaryDirectory() as scratch:
            samples = pathlib.Path(scratch) / "samples.json"
            command = [ROOT / "bench/run", "--program", PROGRAM, "--before", PROGRAM, "--runs", "1", "--groups", "whole,empty", "--decks", "jacket"]
            told = subprocess.run([*command, "--json", samples], stdout=subprocess.PIPE, text=True, check=True)
            self.assertIn("\njacket ", told.stdout)
            measured = figures.read(samples)
            for at, contenders in (("whole/jacket", ("korvat", "before", "cp", "true")), ("empty/directory", ("korvat", "before", "true"))):
                for contender in contenders:
                    self.assertGreater(measured.median(f"{at}/{contender}/wall"), 0.0)
            left = sorted(path.name for path in pathlib.Path(scratch).iterdir())
            self.assertEqual(left, ["samples.json"])


if __name__ == "__main__":
    unittest.main()
