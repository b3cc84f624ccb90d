"""run: exit codes, messages with their lines, files of this run and of earlier ones, private copies."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
from unittest import mock

import korvat
from korvat.program import Message

EXAMPLES = pathlib.Path(os.environ["KORVAT_EXAMPLES"])
CASES = pathlib.Path(os.environ["KORVAT_CASES"])
ALL = ["KORVAT.LIS", "KORVAT.MLG", "PILE.07", "PILEPLOT.TXT"]


class Runs(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.case = pathlib.Path(holder.name)

    def lay(self, source):
        shutil.copy(source / "KORVAT.INP", self.case)
        return self.case

    def names(self):
        return sorted(path.name for path in self.case.iterdir())

    def test_in_place(self):
        run = korvat.run(self.lay(EXAMPLES / "jacket"))
        self.assertEqual((run.exit_code, run.errors, run.warnings, run.standard_error), (0, (), (), ""))
        self.assertEqual(sorted(run.files), ALL)
        self.assertEqual(run.files["PILE.07"], self.case / "PILE.07")
        self.assertEqual(self.names(), ["KORVAT.INP", *ALL])
        self.assertIs(run.check(), run)
        self.assertEqual(run.log().rstrip().split("\n")[-1], " NORMAL EXIT FROM KORVAT")
        self.assertIn("PROGRAM KORVAT   Pile Data Generator", run.listing())
        with self.assertRaises(FileNotFoundError):
            run.load()
        run.close()
        self.assertTrue((self.case / "PILE.07").exists())

    def test_private_copy(self):
        with korvat.run(self.lay(EXAMPLES / "jacket"), in_place=False) as run:
            self.assertEqual(len(run.pile().piles), 4)
            directory = run.directory
            self.assertNotEqual(directory, self.case)
        self.assertFalse(directory.exists())
        self.assertEqual(self.names(), ["KORVAT.INP"])

    def test_error_with_its_line(self):
        case = CASES / "readpi-segment-error-4"
        lines = (case / "KORVAT.INP").read_text().split("\n")
        with korvat.run(case, in_place=False) as run:
            self.assertEqual(run.exit_code, 1)
            line = int((case / "expected/standard-error").read_text().split(":")[2])
            self.assertEqual(run.error.line, line)
            self.assertEqual(run.error.deck_line, lines[line - 1])
            self.assertRegex(run.error.text, r"^SR/READPI : SEGMENT ERROR  NUM,IERR= +1 +4$")
            # What the failed run made or emptied is its own; it has no loads.
            self.assertEqual(sorted(run.files), ALL)
            with self.assertRaises(korvat.DamagedFile):
                run.pile()
            with self.assertRaises(korvat.RunFailed) as caught:
                run.check()
            self.assertRegex(str(caught.exception), rf"^exit code 1: KORVAT.INP:{line}: SR/READPI : SEGMENT ERROR ")

    def test_every_message_of_the_cases(self):
        """The texts in tests/cases: the first line with a number, the line of the deck and the caret as they stand there."""
        seen = {True: 0, False: 0}
        for path in sorted(CASES.glob("*/expected/standard-error")):
            text = path.read_text(encoding="latin-1")
            lines = text.split("\n")
            own = [i for i, line in enumerate(lines) if line.startswith("korvat: ")]
            found = korvat.program.parse_messages(text)
            with self.subTest(case=path.parts[-3]):
                self.assertEqual(len(found), len(own))
                for i, (is_warning, message) in zip(own, found):
                    seen[is_warning] += 1
                    shown = f"{'warning: ' if is_warning else ''}{message.text}"
                    place = f"KORVAT.INP:{message.line}: " if message.line else ""
                    self.assertIn(lines[i], (f"korvat: {place}{shown}", f"korvat: KORVAT.INP: {shown}"))
                    if message.deck_line is not None:
                        self.assertEqual(message.deck_line, lines[i + 1])
                    if message.column is not None:
                        self.assertRegex(lines[i + 2], rf"^\s{{{message.column - 1}}}\^$")
        self.assertGreater(seen[False], 100)
        self.assertGreater(seen[True], 5)

    def test_warnings(self):
        with korvat.run(CASES / "readpi-jecho-2", in_place=False) as run:
            self.assertEqual(run.exit_code, 0)
            deck = (CASES / "readpi-jecho-2/KORVAT.INP").read_text().split("\n")
            [warning] = run.warnings
            self.assertEqual(deck[warning.line - 1].split()[0], "2")
            self.assertEqual(warning.text, "SR/READPI :  JECHO=    2")
            self.assertEqual(run.errors, ())

    def test_loads_of_an_earlier_run_are_not_of_this_one(self):
        case = self.lay(EXAMPLES / "barge-impact")
        self.assertEqual(sorted(korvat.run(case).files), sorted([*ALL, "LOAD.09"]))
        self.lay(EXAMPLES / "jacket")
        run = korvat.run(case)
        self.assertTrue((case / "LOAD.09").exists())
        self.assertEqual(sorted(run.files), ALL)
        self.assertEqual([w.text for w in run.warnings], ["LOAD.09 is of an earlier run: the deck has no load vectors"])

    def test_output_that_cannot_be_opened(self):
        case = self.lay(EXAMPLES / "jacket")
        (case / "PILE.07").mkdir()
        run = korvat.run(case)
        self.assertEqual((run.exit_code, sorted(run.files)), (0, [name for name in ALL if name != "PILE.07"]))
        self.assertIn("cannot open PILE.07", run.warnings[0].text)

    def test_stopped_run(self):
        (self.case / "KORVAT.INP").write_text("label\nEND\n")
        run = korvat.run(self.case)
        self.assertEqual(run.exit_code, 255)
        self.assertRegex(run.error.text, "^Error message from SR/GetRevision: End-of-file")

    def test_stopped_run_on_windows(self):
        ended = subprocess.CompletedProcess([], 0xFFFFFFFF, stderr=b"korvat: out of memory\r\n")
        with mock.patch("subprocess.run", return_value=ended):
            run = korvat.run(self.lay(EXAMPLES / "jacket"))
        self.assertEqual((run.exit_code, run.error.text, dict(run.files)), (255, "out of memory", {}))

    def test_no_deck_and_no_program(self):
        with self.assertRaisesRegex(FileNotFoundError, "there is no deck"):
            korvat.run(self.case)
        with self.assertRaises(korvat.ProgramNotFound):
            korvat.run(self.lay(EXAMPLES / "jacket"), self.case / "none")
        with mock.patch.dict(os.environ, {"KORVAT": str(self.case / "none")}), self.assertRaises(korvat.ProgramNotFound):
            korvat.find_program()
        with mock.patch.dict(os.environ, {"KORVAT": "", "PATH": str(self.case)}), self.assertRaises(korvat.ProgramNotFound):
            korvat.find_program()
        self.assertEqual(self.names(), ["KORVAT.INP"])

    def test_program_on_the_path(self):
        program = korvat.find_program()
        folder = self.case / "bin"
        folder.mkdir()
        (folder / "korvat").symlink_to(program)
        with mock.patch.dict(os.environ, {"KORVAT": "", "PATH": str(folder)}):
            self.assertEqual(korvat.find_program(), program)

    def test_program_that_does_not_end(self):
        slow = self.case / "slow"
        slow.write_text("#!/bin/sh\nexec sleep 60\n")
        slow.chmod(0o755)
        temporary = self.case / "temporary"  # of this test alone: others leave theirs at the same time
        temporary.mkdir()
        with mock.patch("tempfile.tempdir", str(temporary)), self.assertRaises(subprocess.TimeoutExpired):
            korvat.run(EXAMPLES / "jacket", slow, in_place=False, timeout=0.05)
        self.assertEqual(list(temporary.iterdir()), [])

    def test_message_as_text(self):
        self.assertEqual(str(Message("text", 7)), "KORVAT.INP:7: text")
        self.assertEqual(str(Message("text")), "text")


if __name__ == "__main__":
    unittest.main()
