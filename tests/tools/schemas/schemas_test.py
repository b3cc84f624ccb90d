#!/usr/bin/env python3
"""Validates what korvat-tools writes as JSON and SARIF against the schemas, and shows that these can fail.

schemas_test.py KORVAT KORVAT_TOOLS PROJECT SARIF_SCHEMA: runs the examples in a scratch directory, and validates what dump,
export, diff and check write of them, of the refused cases and of damaged files. Then every member of every kind of object is
taken away, renamed and given a value of another type, and each time the schema must refuse it.
"""
import collections
import copy
import json
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

import jsonschema

KORVAT, TOOLS, PROJECT, SARIF = (pathlib.Path(argument).resolve() for argument in sys.argv[1:5])
SCHEMAS = PROJECT / "docs" / "schemas"
EXAMPLES = sorted(path for path in (PROJECT / "examples").iterdir())
CASES = sorted(path for path in (PROJECT / "tests" / "cases").iterdir() if (path / "KORVAT.INP").is_file())

COUNTS = collections.Counter()  # what was validated, for the last line


def validator(path):
    schema = json.loads(path.read_text())
    jsonschema.Draft202012Validator.check_schema(schema)
    resolver = jsonschema.RefResolver(base_uri=path.as_uri(), referrer=schema)
    return jsonschema.Draft202012Validator(schema, resolver=resolver, format_checker=jsonschema.FormatChecker())


def schema_of(document):
    """Each form has the name of its schema as its last word."""
    return validator(SCHEMAS / f"{document['format'].removeprefix('korvat ')}.schema.json")


def fault(check, document):
    """The first thing that is wrong; empty where nothing is."""
    error = next(check.iter_errors(document), None)
    return "" if error is None else f"{'/'.join(map(str, error.absolute_path))}: {error.message[:200]}"


def output(*arguments, codes=(0,), **options):
    done = subprocess.run([TOOLS, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, **options)
    if done.returncode not in codes:
        raise AssertionError(f"{arguments}: exit code {done.returncode}: {done.stderr.decode()}")
    return json.loads(done.stdout)


class Results(unittest.TestCase):
    """What a run produced, and how two runs differ."""

    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.at = pathlib.Path(cls.scratch.name)
        for example in EXAMPLES:
            (cls.at / example.name).mkdir()
            shutil.copy(example / "KORVAT.INP", cls.at / example.name)
            subprocess.run([KORVAT], cwd=cls.at / example.name, check=True, capture_output=True)

    @classmethod
    def tearDownClass(cls):
        cls.scratch.cleanup()

    def accept(self, document, name):
        self.assertEqual(document["version"], 1)
        self.assertEqual(fault(schema_of(document), document), "", name)
        COUNTS["documents"] += 1
        return document

    def test_dump_and_export_of_each_example(self):
        for example in EXAMPLES:
            case = self.at / example.name
            group = output("dump", "--json", case / "PILE.07")
            self.accept(group, example.name)
            subprocess.run([TOOLS, "export", "--to", "json", "-o", case / "out", case], check=True, capture_output=True)
            exported = json.loads((case / "out" / "group.json").read_text())
            if (case / "LOAD.09").exists():
                loads = self.accept(output("dump", "--json", case / "LOAD.09"), example.name)
                group["load_vectors"] = loads["load_vectors"]
            self.assertEqual(exported, group)  # and so it is valid as its parts are
            self.assertEqual(len(exported["load_vectors"]) > 0, (case / "LOAD.09").exists())

    def test_a_damaged_file(self):
        content = (self.at / "insert-piles" / "PILE.07").read_bytes()
        for length in (0, 2, 1000, len(content) // 2):
            damaged = self.at / "damaged"
            damaged.write_bytes(content[:length])
            done = subprocess.run([TOOLS, "dump", "--json", damaged], capture_output=True)
            self.assertEqual(done.returncode, 1)
            if done.stdout:
                self.accept(json.loads(done.stdout), f"{length} bytes")

    def with_values(self, name, values):
        """An example's PILE.07 with other reals in the places where the wall of its first section stands."""
        content = (self.at / name / "PILE.07").read_bytes()
        group = output("dump", "--json", self.at / name / "PILE.07")
        old = struct.pack("<d", group["sections"][0]["wall"])
        for value in values:
            at = content.index(old)
            content = content[:at] + struct.pack("<d", value) + content[at + 8 :]
        changed = self.at / "changed"
        changed.write_bytes(content)
        return changed

    def test_values_that_are_not_finite(self):
        for value, text in ((float("inf"), "inf"), (float("-inf"), "-inf"), (float("nan"), "nan")):
            group = self.accept(output("dump", "--json", self.with_values("jacket", [value])), text)
            self.assertEqual(group["sections"][0]["wall"], text)

    def differences(self, a, b, *options):
        return self.accept(output("diff", "--json", *options, a, b, codes=(0, 1)), f"{a} {b}")

    def test_differences(self):
        places = [self.at / example.name for example in EXAMPLES]
        for a in places:
            for b in places:
                self.differences(a, b)
        same = self.differences(places[0], places[0], "--abs", "0.5", "--rel", "1e-9")
        self.assertEqual((same["equal"], same["abs"], same["rel"]), (True, 0.5, 1e-9))
        jacket = self.at / "jacket" / "PILE.07"
        found = self.differences(jacket, self.with_values("jacket", [float("nan")]))
        self.assertIn("nan", [difference["b"] for difference in found["differences"]])

    def test_each_member_is_needed_and_of_one_type(self):
        whole = self.at / "insert-piles"  # revision 5: composites, curves
        group = output("dump", "--json", whole / "PILE.07")
        for pile in group["piles"]:
            pile["nodes"], pile["elements"] = pile["nodes"][:1], pile["elements"][:1]
        with_loads = next(self.at / example.name for example in EXAMPLES if (self.at / example.name / "LOAD.09").exists())
        loads = output("dump", "--json", with_loads / "LOAD.09")
        group["load_vectors"] = loads["load_vectors"][:1]
        lone = self.differences(self.at / "jacket", whole)
        places = self.differences(self.at / "dolphin", self.at / "barge-impact")
        kinds = {frozenset(difference) for document in (lone, places) for difference in document["differences"]}
        self.assertTrue(any("only_in" in kind for kind in kinds) and any("place" in kind for kind in kinds), kinds)
        for document in (group, loads, lone, places):
            refuse_mutants(self, schema_of(document), document)


class Findings(unittest.TestCase):
    """What check tells, of the examples, of all cases and of decks that are no text."""

    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.at = pathlib.Path(cls.scratch.name)
        odd = {"empty": b"", "zeros": bytes(200), "utf-16": "A pile\n\n 1.\n".encode("utf-16"), "b\xfcro 5%.inp": b"\xff\xfe\x1b\n"}
        for name, content in odd.items():
            (cls.at / name).write_bytes(content)
        off = cls.at / "off"
        off.mkdir()
        shutil.copy(CASES[0] / "KORVAT.INP", off)
        (off / "korvat-check.toml").write_text('[off]\ntab = "the \\"tab\\" \\u00fc"\n')
        cls.decks = [*EXAMPLES, *CASES, *(cls.at / name for name in odd), off]

    @classmethod
    def tearDownClass(cls):
        cls.scratch.cleanup()

    def told(self, form, decks):
        return output("check", "--format", form, *decks, codes=(0, 1))

    def test_json(self):
        document = self.told("json", self.decks)
        self.assertEqual((document["format"], document["version"]), ("korvat findings", 1))
        self.assertEqual(len(document["cases"]), len(self.decks))
        COUNTS["decks"] += len(self.decks)
        self.assertEqual(fault(schema_of(document), document), "")
        for case in document["cases"]:
            levels = [finding["level"] for finding in case["findings"]]
            counts = [levels.count(level) for level in ("error", "warning", "note")]
            self.assertEqual(counts, [case["errors"], case["warnings"], case["notes"]], case["file"])
        runs = [case["runs"] for case in document["cases"]]
        self.assertTrue(all(runs[: len(EXAMPLES)]))
        self.assertGreater(runs.count(False), 400)
        self.assertEqual(document["cases"][-1]["off"], [{"rule": "tab", "reason": 'the "tab" ü'}])

    def test_each_member_is_needed_and_of_one_type(self):
        document = self.told("json", [*EXAMPLES[:1], self.decks[-1], self.at / "zeros"])
        refuse_mutants(self, schema_of(document), document)

    def test_places_and_runs_go_together(self):
        document = self.told("json", [EXAMPLES[0], self.at / "zeros"])
        check = schema_of(document)
        for case, member, value in ((1, "piles", 3), (0, "runs", False), (1, "runs", True), (0, "errors", -1)):
            mutant = copy.deepcopy(document)
            mutant["cases"][case][member] = value
            self.assertNotEqual(fault(check, mutant), "", member)
        finding = next(f for f in document["cases"][1]["findings"] if f["column"] > 0)
        for member, value in (("line", 0), ("length", 0), ("column", 0), ("level", "fatal"), ("rule", "No Name"), ("message", "")):
            before = finding[member]
            finding[member] = value
            self.assertNotEqual(fault(check, document), "", member)
            finding[member] = before
        self.assertEqual(fault(check, document), "")

    def test_sarif(self):
        document = self.told("sarif", self.decks)
        self.assertEqual(document["version"], "2.1.0")
        self.assertGreater(len(document["runs"][0]["results"]), 1000)
        self.assertEqual(fault(validator(SARIF), document), "")

    def test_sarif_that_is_wrong(self):
        document = self.told("sarif", [self.at / "zeros"])
        check = validator(SARIF)
        self.assertEqual(fault(check, document), "")
        run = document["runs"][0]
        result = next(r for r in run["results"] if "region" in r["locations"][0]["physicalLocation"])
        physical = result["locations"][0]["physicalLocation"]
        for place, member, value in (
            (document, "version", "2.0.0"), (document, "runs", None), (run, "tool", {}), (run, "columnKind", "bytes"),
            (run["tool"]["driver"], "name", 1), (run["tool"]["driver"]["rules"][0], "id", None), (result, "level", "fatal"),
            (result, "message", "no object"), (result, "ruleIndex", -2), (result, "remedy", "unknown member"),
            (physical["region"], "startLine", 0), (physical["region"], "endColumn", 0), (physical["artifactLocation"], "uri", "a b"),
        ):  # fmt: skip
            before = place.get(member)
            place[member] = value
            self.assertNotEqual(fault(check, document), "", f"{member} {value}")
            if before is None:
                del place[member]
            else:
                place[member] = before
        self.assertEqual(fault(check, document), "")


class Studies(unittest.TestCase):
    """What batch and merge tell of cases that end in different ways."""

    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.at = pathlib.Path(cls.scratch.name)
        for example in EXAMPLES[:3]:
            (cls.at / example.name).mkdir()
            shutil.copy(example / "KORVAT.INP", cls.at / example.name)
        (cls.at / "refused").mkdir()
        (cls.at / "refused" / "KORVAT.INP").write_text("A pile\n\n 1.\n")
        (cls.at / "list").write_bytes(b"\n".join([*(example.name.encode() for example in EXAMPLES[:3]), b"refused", b"no\xfce"]))
        command = [TOOLS, "batch", "--program", KORVAT, "-f", "list", "--format", "json", "--quiet"]
        done = subprocess.run(command, cwd=cls.at, capture_output=True)
        assert done.returncode == 1, done.stderr.decode()
        cls.summary = json.loads((cls.at / "summary.json").read_text())
        cls.lines = [json.loads(line) for line in (cls.at / "batch.jsonl").read_text().splitlines()]

    @classmethod
    def tearDownClass(cls):
        cls.scratch.cleanup()

    def test_each_document(self):
        self.assertEqual([case["state"] for case in self.summary["cases"]], [*["fine"] * 3, "refused", "not run"])
        self.assertEqual([line["case_bytes"] for line in self.lines if "case_bytes" in line], ["6e6ffc65"])
        for document in (self.summary, *self.lines):
            self.assertEqual(fault(schema_of(document), document), "")
            COUNTS["documents"] += 1

    def test_each_member_is_needed_and_of_one_type(self):
        lines = [line for line in self.lines if "case_bytes" not in line]
        for document in (self.summary, *lines):
            refuse_mutants(self, schema_of(document), copy.deepcopy(document))

    def test_parameters_are_texts(self):
        for document, part in ((self.summary, self.summary["cases"][0]), (self.lines[0], self.lines[0])):
            part["parameters"] = {"wall": "0.05"}
            self.assertEqual(fault(schema_of(document), document), "")
            part["parameters"] = {"wall": 0.05}
            self.assertNotEqual(fault(schema_of(document), document), "")
            part["parameters"] = {}


def objects(value, shape=""):
    """The first object of each kind in a document: of one place in its form, and with the same members."""
    seen = set()

    def walk(value, shape):
        if isinstance(value, dict):
            kind = (shape, frozenset(value))
            if kind not in seen:
                seen.add(kind)
                yield value
            for name, member in value.items():
                yield from walk(member, f"{shape}/{name}")
        elif isinstance(value, list):
            for item in value:
                yield from walk(item, shape)

    yield from walk(value, shape)


def refuse_mutants(test, check, document):
    """Fails where the schema accepts a document with a member less, a member too many, or one of no type."""

    def refuse(what):
        test.assertNotEqual(fault(check, document), "", what)
        COUNTS["mutants"] += 1

    test.assertEqual(fault(check, document), "")
    for part in list(objects(document)):
        for name in list(part):
            members = dict(part)
            del part[name]
            refuse(f"without {name}: {part}")
            part[name] = {"": True}
            refuse(f"{name} is an object: {part}")
            part.clear()
            part.update(members)
        part["another"] = 1
        refuse(f"one member too many: {part}")
        del part["another"]
    test.assertEqual(fault(check, document), "")



if __name__ == "__main__":
    if not SARIF.is_file():
        sys.exit(f"{SARIF} is missing: scripts/test installs it")
    tests = unittest.main(argv=sys.argv[:1], exit=False)
    print(f"valid: {COUNTS['documents']} documents, the findings of {COUNTS['decks']} decks; refused: {COUNTS['mutants']} mutants")
    sys.exit(not tests.result.wasSuccessful())
