#!/usr/bin/env python3
"""Reads reports back and compares what they show with the deck, PILE.07 and LOAD.09.

page_test.py KORVAT KORVAT_TOOLS EXAMPLES [TEST...]: runs each example in a scratch directory, reports it, and reads the page as XML, as
HTML and as JSON. The package korvat, which has its own readers, reads the files of the run.
"""
import base64
import hashlib
import json
import math
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from html.parser import HTMLParser

import korvat
import numpy as np

KORVAT, TOOLS, EXAMPLES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
NAMES = sorted(path.name for path in EXAMPLES.iterdir() if path.is_dir())
SVG = "{http://www.w3.org/2000/svg}"
SECTIONS = ["findings", "view", "drawings", "sections", "piles", "node-values", "loads", "sums", "deck", "log"]

# Two raked piles under a cap point, kN and m. A pile runs from (3, 0, 0) to (10, 0, 24): 25 m, of which 10 m have a wall of 25 mm.
SMALL = """Small frame, two raked piles and a cap point, kN and m
KORVAT Version: 2006-06-11

General values of the run
  1.0     force unit factor
  1.0     length unit factor
  3       piles
  2       cross sections
  1       material types
  2       pile segment types
  1       load vectors
  1       print level
  0       echo level

Material types
  N    E-modulus   shear mod.   yield      unit weight   temp. strain
  1    2.1E8       8.077E7      3.55E5     77.0          1.2E-5

Tubular cross sections
  N  mat  diameter   wall     EA   EI   GA   GJ   fluid inside
  1   1    0.914     0.025    0.   0.   0.   0.   10.0
  2   1    0.914     0.019    0.   0.   0.   0.   10.0

Pile segment types
  N   start  end    length   elements
  1     1     1     10.0        5
  2     2     2     15.0        5

Pile geometry
  NP  gen  sym    x-head   y-head  z-head    x-tip    y-tip   z-tip
  1    0    0       0.0      0.0    -1.0       0.0      0.0    -1.0
  2    0    0       3.0      0.0     0.0      10.0      0.0    24.0
* the other one
  3    2    2       0.0      0.0     0.0       0.0      0.0     0.0
  NP  NSEG  segment types from head to tip
  1    0
  2    2    1 2
  NP1 NP2  tip  fix
  1    1    0    0
  2    3    0    1

Special pile node values
  NP1 NP2  ND1 ND2  code   six values
  1    1    1   1    2     100.0 0. -50.0   0. 0. 0.
  2    2    3   5    1     7.0 8.0 9.0
  0. 0. 0.
  0    0    0   0    0     0. 0. 0. 0. 0. 0.

Load vectors
Mooring force on the cap point
  1       loaded piles
  1.5     load factor
  NP   Fx     Fy    Fz     Mx     My     Mz
  1    400.   0.    50.    0.   -600.    0.
END
behind the end
"""

# What must not become markup, script or a change of direction.
HOSTILE = "</script><img src=x onerror=alert(1)>'\"&lt;<!--]]> \u202e\u2067\u200f \u2028"
CONTROLS = bytes(code for code in range(1, 32) if code not in (9, 10, 13, 26)).decode() + "\x7f"


class Tags(HTMLParser):
    """The elements of a page as a reader of HTML finds them, with their attributes."""

    def __init__(self, text):
        super().__init__()
        self.found = []
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        self.found.append((tag, dict(attributes)))


class Table:
    def __init__(self, element):
        self.titles = [th.text for th in element.find("thead").iter("th")]
        self.units = ["".join(span.text for span in th.iter("span")).strip(" []") for th in element.find("thead").iter("th")]
        self.rows = [self.row(tr) for tr in element.find("tbody").iter("tr")]
        foot = element.find("tfoot")
        self.totals = [] if foot is None else [self.row(tr) for tr in foot.iter("tr")]
        self.piles = [tr.get("data-pile") for tr in element.find("tbody").iter("tr")]

    def row(self, tr):
        """Of each column its number, to the last bit, or its text."""
        cells = list(tr.iter("td"))
        assert len(cells) == len(self.titles), (len(cells), self.titles)
        return {title: self.value(td) for title, td in zip(self.titles, cells)}

    @staticmethod
    def value(td):
        return float(td.get("data-value")) if td.get("class") == "n" else "".join(td.itertext())


class Page:
    def __init__(self, data):
        self.bytes = data
        self.text = data.decode("utf-8")
        self.scripts = re.findall(r"<script>(.*?)</script>", self.text, re.S)
        self.styles = re.findall(r"<style>(.*?)</style>", self.text, re.S)
        blocks = re.findall(r'<script type="application/json" id="korvat-data">(.*?)</script>', self.text, re.S)
        assert len(blocks) == 1
        self.block = blocks[0].strip()
        self.data = json.loads(self.block)
        plain = re.sub(r"<(script|style)\b[^>]*>.*?</\1>", "", self.text, flags=re.S)
        self.root = ElementTree.fromstring(plain.removeprefix("<!doctype html>"))

    def by_id(self, name):
        found = [element for element in self.root.iter() if element.get("id") == name]
        assert len(found) == 1, (name, len(found))
        return found[0]

    def table(self, name):
        return Table(self.by_id(name))

    def figures(self, css_class):
        return [figure for figure in self.root.iter("figure") if figure.get("class") == css_class]

    def lines(self):
        return ["".join(li.itertext()).removesuffix("\n") for li in self.by_id("deck-lines")]

    def array(self, group, name, dtype):
        return np.frombuffer(base64.b64decode(self.data[group][name], validate=True), dtype)


def called(*arguments, **options):
    return subprocess.run([TOOLS, "report", *arguments], capture_output=True, timeout=120, **options)


def reported(case, *arguments):
    """The page of a case, and the exit code."""
    call = called(case, "-o", "-", *arguments)
    if call.stderr:
        raise AssertionError(call.stderr.decode())
    return Page(call.stdout), call.returncode


class Scratch(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.path = pathlib.Path(directory.name)

    def page(self, deck, *arguments, code=0):
        """The page of a deck that is given as text or bytes."""
        (self.path / "deck.inp").write_bytes(deck if isinstance(deck, bytes) else deck.encode())
        page, found = reported(self.path / "deck.inp", *arguments)
        self.assertEqual(found, code)
        return page


class Examples(unittest.TestCase):
    """Each example: the page, and the files of a run."""

    @classmethod
    def setUpClass(cls):
        cls.directory = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.directory.cleanup)
        cls.cases = {}
        for name in NAMES:
            case = pathlib.Path(cls.directory.name) / name
            case.mkdir()
            deck = (EXAMPLES / name / "KORVAT.INP").read_bytes()
            (case / "KORVAT.INP").write_bytes(deck)
            subprocess.run([KORVAT], cwd=case, check=True, capture_output=True, timeout=120)
            page, code = reported(case)
            assert code == 0, name
            cls.cases[name] = (page, korvat.read_pile(case / "PILE.07"), deck)

    def each(self):
        for name, case in self.cases.items():
            with self.subTest(example=name):
                yield case

    def test_has_every_section_once_and_links_that_lead_somewhere(self):
        for page, _, _ in self.each():
            ids = [element.get("id") for element in page.root.iter() if element.get("id")]
            self.assertEqual(len(ids), len(set(ids)))
            self.assertEqual([section.get("id") for section in page.by_id("main").iter("section")], SECTIONS)
            for link in page.root.iter("a"):
                self.assertTrue(link.get("href").startswith("#"), link.get("href"))
                self.assertIn(link.get("href")[1:], ids)
            self.assertEqual([a.get("href")[1:] for a in page.by_id("contents").iter("a")], SECTIONS)

    def test_asks_for_nothing_and_obeys_its_policy(self):
        for page, _, _ in self.each():
            for tag, attributes in Tags(page.text).found:
                self.assertNotIn(tag, ("img", "link", "iframe", "object", "embed", "base", "form", "image", "use"))
                for name in attributes:
                    self.assertFalse(name in ("style", "src", "srcset", "xlink:href") or name.startswith("on"), (tag, name))
            self.assertEqual((len(page.scripts), len(page.styles)), (1, 1))
            policy = next(meta.get("content") for meta in page.root.iter("meta") if meta.get("http-equiv"))
            hashes = [
                base64.b64encode(hashlib.sha256(text.encode()).digest()).decode() for text in (page.scripts[0], page.styles[0])
            ]
            self.assertEqual(
                policy,
                f"default-src 'none'; script-src 'sha256-{hashes[0]}'; style-src 'sha256-{hashes[1]}'; "
                "img-src data:; base-uri 'none'; form-action 'none'",
            )

    def test_is_small_enough_to_be_mailed(self):
        for page, group, _ in self.each():
            is_largest = len(group.piles) == 200
            self.assertLess(len(page.bytes), 12_000_000 if is_largest else 1_000_000)

    def test_data_are_those_of_the_pile_file(self):
        for page, group, _ in self.each():
            data = page.data
            self.assertEqual((data["format"], data["version"], data["complete"]), ("korvat report", 1, True))
            self.assertEqual((data["label"], data["revision"]), (group.label.rstrip(), group.revision))
            for name in ("x", "y", "z"):
                expected = np.concatenate([pile.nodes[name] for pile in group.piles])
                np.testing.assert_array_equal(page.array("nodes", name, "<f8"), expected)
            for name, dtype in (("section", "<u2"), ("diameter", "<f8"), ("length", "<f8"), ("strain", "<f8")):
                expected = np.concatenate([pile.elements[name] for pile in group.piles])
                np.testing.assert_array_equal(page.array("elements", name, dtype), expected)
            node, element = 0, 0
            self.assertEqual(len(data["piles"]), len(group.piles))
            for shown, pile in zip(data["piles"], group.piles):
                self.assertEqual(
                    [shown[key] for key in ("number", "fixed_to", "tip_code", "first_node", "nodes", "first_element", "elements")],
                    [pile.number, pile.fixed_to, pile.tip_code, node, len(pile.nodes), element, len(pile.elements)],
                )
                if shown["segments"]:
                    self.assertEqual(sum(segment["elements"] for segment in shown["segments"]), len(pile.elements))
                self.assertEqual(bool(shown["segments"]), len(pile.elements) > 0)
                node += len(pile.nodes)
                element += len(pile.elements)

    def test_data_have_the_values_of_the_nodes(self):
        for page, group, _ in self.each():
            nodes = np.concatenate([pile.nodes for pile in group.piles])
            names = ("springs", "forces", "displacements")
            has_value = np.any([nodes[name] != 0 for name in names], axis=(0, 2))
            np.testing.assert_array_equal(page.array("node_values", "node", "<u4"), np.flatnonzero(has_value))
            for name in names:
                shown = page.array("node_values", name, "<f8").reshape(-1, 6)
                np.testing.assert_array_equal(shown, nodes[name][has_value])

    def test_pile_table_is_that_of_the_pile_file(self):
        for page, group, _ in self.each():
            table = page.table("pile-table")
            self.assertEqual(table.piles, [str(pile.number) for pile in group.piles])
            for row, pile in zip(table.rows, group.piles):
                for end, node in (("Head", pile.nodes[0]), ("Tip", pile.nodes[-1])):
                    self.assertEqual([row[f"{end} {axis}"] for axis in "xyz"], [node[axis] for axis in "xyz"])
                self.assertEqual(row["Elements"], len(pile.elements))
                self.assertEqual((row["Tip code"], row["Fixed to"]), (pile.tip_code, pile.fixed_to))
                length = math.dist(*[[node[axis] for axis in "xyz"] for node in (pile.nodes[0], pile.nodes[-1])])
                self.assertAlmostEqual(row["Length"], length, delta=1e-12 * max(length, 1.0))

    def test_section_tables_are_those_of_the_pile_file(self):
        columns = {
            "D": "diameter", "A": "area", "EA": "axial_stiffness", "EI": "bending_stiffness", "GA": "shear_stiffness",
            "GJ": "torsional_stiffness", "t": "wall", "W": "section_modulus",
        }  # fmt: skip
        materials = {
            "E": "elastic_modulus", "G": "shear_modulus", "Yield stress": "yield_stress", "Unit weight of wall": "wall_weight",
            "Unit weight of fluid": "fluid_weight", "Temperature strain": "temperature_strain",
        }  # fmt: skip
        for page, group, _ in self.each():
            for table, names in ((page.table("section-table"), columns), (page.table("section-material-table"), materials)):
                self.assertEqual(len(table.rows), len(group.sections))
                for row, section in zip(table.rows, group.sections):
                    for title, name in names.items():
                        # Of a composite, what only one tube can have is left open.
                        self.assertEqual(row[title] or 0.0, section[name], title)
            for row, section in zip(page.table("section-table").rows, group.sections):
                if section["wall"] > 0:
                    self.assertEqual(row["D/t"], section["diameter"] / section["wall"])

    def test_node_value_table_has_every_value(self):
        kinds = {"springs": "springs", "forces": "forces", "soil displacements": "displacements"}
        for page, group, _ in self.each():
            expected, shown = {}, {}
            for pile in group.piles:
                for kind, name in kinds.items():
                    for number, values in enumerate(pile.nodes[name], 1):
                        if np.any(values):
                            expected[pile.number, kind, number] = list(values)
                for number, strain in enumerate(pile.elements["strain"], 1):
                    if strain:
                        expected[pile.number, "temperature strain of elements", number] = [strain] + [""] * 5
            if not expected:
                continue
            titles = ["x", "y", "z", "about x", "about y", "about z"]
            for row in page.table("node-value-table").rows:
                for number in range(int(row["From"]), int(row["To"]) + 1):
                    shown[int(row["Pile"]), row["Values"], number] = [row[title] for title in titles]
            self.assertEqual(shown, expected)

    def test_load_tables_are_those_of_the_load_file(self):
        for page, _, _ in self.each():
            name = next(name for name, case in self.cases.items() if case[0] is page)
            file = pathlib.Path(self.directory.name) / name / "LOAD.09"
            tables = [table for table in page.by_id("loads").iter("table")]
            if not file.exists():
                self.assertEqual(tables, [])
                continue
            vectors = korvat.read_load(file).vectors
            self.assertEqual([table.get("data-vector") for table in tables], [str(i + 1) for i in range(len(vectors))])
            for element, shown, vector in zip(tables, page.data["load_vectors"], vectors):
                self.assertEqual(shown["label"], vector.label.rstrip())
                rows = [[row[title] for title in ("Pile", "Fx", "Fy", "Fz", "Mx", "My", "Mz")] for row in Table(element).rows]
                self.assertEqual(rows, [[load["pile"], *load["force"], *load["moment"]] for load in shown["loads"]])
                self.assertEqual(rows, [[load["pile"], *load["force"], *load["moment"]] for load in vector.loads])

    def test_sums_are_those_of_the_pile_file(self):
        for page, group, _ in self.each():
            heads = np.sum([[pile.nodes[0][axis] for axis in "xyz"] for pile in group.piles], axis=0)
            real = [pile for pile in group.piles if len(pile.elements)]
            tips = np.sum([[pile.nodes[-1][axis] for axis in "xyz"] for pile in real], axis=0)
            rows = page.table("check-sum-table").rows
            for row, expected in zip(rows, (heads, tips)):
                np.testing.assert_allclose([row[axis] for axis in "xyz"], expected, rtol=1e-12, atol=1e-9)
            lengths = sum(float(np.sum(pile.elements["length"])) for pile in group.piles)
            for name in ("section-sum-table", "pile-sum-table"):
                total = page.table(name).totals[0]
                self.assertAlmostEqual(total["Length"], lengths, delta=1e-9 * lengths)
                self.assertEqual(total["Elements"], sum(len(pile.elements) for pile in group.piles))
            for row, pile in zip(page.table("pile-sum-table").rows, group.piles):
                self.assertAlmostEqual(row["Length"], float(np.sum(pile.elements["length"])), delta=1e-9 * lengths)

    def test_drawings_read_back(self):
        for page, group, _ in self.each():
            for name, across, down in (("plan", "x", "y"), ("elevation-x", "x", "z"), ("elevation-y", "y", "z")):
                svg = page.by_id(name).find(f"{SVG}svg")
                self.assertEqual((svg.get("data-across"), svg.get("data-down")), (across, down))
                origins = [float(svg.get(f"data-origin-{way}")) for way in ("across", "down")]
                starts = [float(svg.get(f"data-start-{way}")) for way in ("across", "down")]
                scale = float(svg.get("data-scale"))
                drawn = {g.get("data-pile"): g for g in svg.findall(f"{SVG}g") if (g.get("class") or "").startswith("pile")}
                self.assertEqual(set(drawn), {str(pile.number) for pile in group.piles})
                for pile in group.piles:
                    g = drawn[str(pile.number)]
                    head, tip = pile.nodes[0], pile.nodes[-1]
                    self.assertEqual(g.get("data-head"), self.shortest(head))
                    self.assertEqual(g.get("data-tip"), self.shortest(tip))
                    if not len(pile.elements):
                        continue
                    (line,) = [element for element in g if element.get("class") == "axis"]
                    for node, end in ((head, "1"), (tip, "2")):
                        for axis, key, origin, start in zip((across, down), "xy", origins, starts):
                            value = origin + (float(line.get(key + end)) - start) / scale
                            self.assertAlmostEqual(value, node[axis], delta=1e-6)
                    if name == "plan":
                        (circle,) = [element for element in g if element.get("class") == "head"]
                        radius = float(circle.get("r")) / scale
                        self.assertAlmostEqual(2 * radius, pile.elements[0]["diameter"], delta=1e-3 / scale)

    @staticmethod
    def shortest(node):
        return " ".join(repr(float(node[axis])).removesuffix(".0") for axis in "xyz")

    def test_curves_and_tubes_are_those_of_the_pile_file(self):
        for page, group, _ in self.each():
            figures = {int(figure.get("data-section")): figure for figure in page.figures("curve")}
            self.assertEqual(set(figures), set(group.curves))
            for number, curve in group.curves.items():
                for name in ("elastic", "plastic"):
                    (g,) = [g for g in figures[number].iter(f"{SVG}g") if g.get("class") == name]
                    points = [(float(c.get("data-axial")), float(c.get("data-moment"))) for c in g.iter(f"{SVG}circle")]
                    self.assertEqual(points, [(point[f"{name}_axial"], point[f"{name}_moment"]) for point in curve])
            tubes = {int(figure.get("data-section")): figure for figure in page.figures("tubes")}
            self.assertEqual(set(tubes), set(group.tubes))
            for number, sections in group.tubes.items():
                paths = list(tubes[number].iter(f"{SVG}path"))
                self.assertEqual([int(path.get("data-section")) for path in paths], list(sections))
                for path, section in zip(paths, sections):
                    self.assertEqual(float(path.get("data-diameter")), group.sections[section - 1]["diameter"])
                    self.assertEqual(float(path.get("data-wall")), group.sections[section - 1]["wall"])

    def test_each_pile_with_elements_is_in_one_strip(self):
        for page, group, _ in self.each():
            listed = [int(number) for figure in page.figures("strip") for number in figure.get("data-piles").split()]
            self.assertEqual(sorted(listed), [pile.number for pile in group.piles if len(pile.elements)])

    def test_deck_is_shown_line_by_line(self):
        for page, _, deck in self.each():
            lines = deck.decode("utf-8").split("\n")
            self.assertEqual(page.lines(), lines[:-1] if lines[-1] == "" else lines)
            numbers = [int(li.get("value")) for li in page.by_id("deck-lines")]
            self.assertEqual(numbers, list(range(1, len(numbers) + 1)))

    def test_log_is_that_of_a_run(self):
        for page, _, _ in self.each():
            self.assertIn("NORMAL EXIT FROM KORVAT", "".join(page.by_id("log").itertext()))


class SmallDeck(Scratch):
    def setUp(self):
        super().setUp()
        self.small = self.page(SMALL)

    def test_head(self):
        facts = self.small.by_id("head").find("dl")
        shown = {div.find("dt").text: div.find("dd").text for div in facts}
        version = subprocess.run([TOOLS, "--version"], capture_output=True, text=True).stdout.split()[1]
        self.assertRegex(shown.pop("Date"), r"^20\d\d-\d\d-\d\d$")
        self.assertEqual(
            shown,
            {
                "Deck": str(self.path / "deck.inp"),
                "Revision": "4 (2006-06-11)",
                "Program": f"KORVAT {version}",
                "Units": "kN and m, as factors and materials suggest",
                "Group": "3 piles, 20 elements, 2 sections, 1 load vector",
                "Check": "0 errors, 0 warnings, 0 notes",
            },
        )
        self.assertEqual(self.small.by_id("head").find("h1/bdi").text, SMALL.split("\n")[0])

    def test_units(self):
        self.assertEqual(self.small.data["units"], {"force": "kN", "length": "m"})
        table = self.small.table("section-table")
        units = dict(zip(table.titles, table.units))
        self.assertEqual((units["EI"], units["W"], units["Steel"], units["D/t"]), ("kN·m²", "m³", "kN/m", ""))

    def test_units_behind_factors(self):
        # In MN and mm: 1 kN is 0.001 MN, 1 m is 1000 mm.
        page = self.page(SMALL.replace("  1.0     force", "  0.001   force").replace("  1.0     length", "  1.0E3   length"))
        self.assertEqual(page.data["units"], {"force": "MN", "length": "mm"})
        self.assertEqual(page.table("pile-table").rows[1]["Tip z"], 24000.0)

    def test_units_that_nothing_tells(self):
        page = self.page(SMALL.replace("2.1E8       8.077E7      3.55E5     77.0 ", "1.0         0.4          1.0        1.0  "))
        self.assertEqual(page.data["units"], {"force": None, "length": None})
        table = page.table("section-table")
        self.assertEqual(dict(zip(table.titles, table.units))["EI"], "F·L²")

    def test_piles(self):
        cap, pile, mirror = self.small.data["piles"]
        self.assertEqual([p["origin"] for p in (cap, pile, mirror)], ["given", "given", "mirrored"])
        self.assertEqual([p["source"] for p in (cap, pile, mirror)], [0, 0, 2])
        segments = [{"type": 1, "elements": 5, "length": 10.0}, {"type": 2, "elements": 5, "length": 15.0}]
        self.assertEqual([p["segments"] for p in (cap, pile, mirror)], [[], segments, segments])
        # Geometry, segments, tip and fixing, and node values or loads.
        begin = {text: SMALL.split("\n").index(text) + 1 for text in SMALL.split("\n") if text}
        at = lambda *starts: [begin.get(start) or next(n for text, n in begin.items() if text.startswith(start)) for start in starts]
        self.assertEqual(
            pile["lines"],
            at("  2    0    0       3.0", "  2    2    1 2", "  2    3    0    1", "  2    2    3   5", "  0. 0. 0."),
        )
        self.assertEqual(mirror["lines"], at("  3    2    2", "  2    3    0    1"))
        self.assertEqual(
            cap["lines"], at("  1    0    0       0.0", "  1    0", "  1    1    0    0", "  1    1    1   1", "  1    400.")
        )
        self.assertAlmostEqual(pile["length"], 25.0, delta=1e-12)
        self.assertAlmostEqual(pile["batter"], math.degrees(math.atan(7 / 24)), delta=1e-9)
        # 77 kN/m3 times the area of the walls, 10 m of 25 mm and 15 m of 19 mm.
        weight = 77.0 * math.pi * (10.0 * 0.025 * (0.914 - 0.025) + 15.0 * 0.019 * (0.914 - 0.019))
        self.assertAlmostEqual(pile["weight"], weight, delta=1e-9)
        self.assertEqual((cap["weight"], cap["batter"], cap["length"]), (0.0, None, 0.0))

    def test_sums(self):
        heads, tips = self.small.table("check-sum-table").rows
        self.assertEqual((heads["Sum over"], heads["x"], heads["y"], heads["z"]), ("pile heads", 0.0, 0.0, -1.0))
        self.assertEqual((tips["Sum over"], tips["x"], tips["y"]), ("pile tips", 0.0, 0.0))
        self.assertAlmostEqual(tips["z"], 48.0, delta=1e-12)
        first, second = self.small.table("section-sum-table").rows
        self.assertEqual((first["Section"], first["Elements"], first["Length"]), (1.0, 10.0, 20.0))
        self.assertEqual((second["Section"], second["Elements"]), (2.0, 10.0))
        self.assertAlmostEqual(second["Length"], 30.0, delta=1e-12)
        self.assertAlmostEqual(first["Steel"], 20.0 * 77.0 * math.pi * 0.025 * 0.889, delta=1e-9)
        self.assertAlmostEqual(first["Fluid"], 20.0 * 10.0 * math.pi / 4 * 0.864**2, delta=1e-9)
        self.assertAlmostEqual(first["Displaced volume"], 20.0 * math.pi / 4 * 0.914**2, delta=1e-9)

    def test_node_values_in_ranges(self):
        rows = self.small.table("node-value-table").rows
        self.assertEqual([(row["Pile"], row["Values"], row["Unit"], row["From"], row["To"]) for row in rows],
                         [(1.0, "forces", "kN, kN·m", 1.0, 1.0), (2.0, "springs", "kN/m, kN·m", 3.0, 5.0)])  # fmt: skip
        self.assertEqual([rows[1][title] for title in ("x", "y", "z", "about x")], [7.0, 8.0, 9.0, 0.0])

    def test_loads_with_their_factor(self):
        (table,) = [Table(element) for element in self.small.by_id("loads").iter("table")]
        self.assertEqual([table.rows[0][title] for title in ("Pile", "Fx", "Fz", "My")], [1.0, 600.0, 75.0, -900.0])
        self.assertEqual(table.totals[0]["Fx"], 600.0)

    def test_records_of_the_deck(self):
        found = {li.get("value"): li for li in self.small.by_id("deck-lines")}
        lines = SMALL.split("\n")
        shown = {lines[int(number) - 1]: li for number, li in found.items()}
        attributes = lambda line: [shown[line].get(name) for name in ("data-r", "data-i", "data-pile", "class")]
        self.assertEqual(attributes("  1.0     force unit factor"), ["force_factor", "1", None, None])
        self.assertEqual(attributes("  1   1    0.914     0.025    0.   0.   0.   0.   10.0"), ["cross_section", "1", None, None])
        self.assertEqual(attributes("  2    2    1 2"), ["pile_segments", "1", "2", None])
        self.assertEqual(attributes("  2    3    0    1"), ["tip_and_fix", "1", None, None])
        self.assertEqual(attributes("  2    2    3   5    1     7.0 8.0 9.0"), ["special_node_values", "1", "2", None])
        self.assertEqual(attributes("  0. 0. 0."), ["special_node_values", "9", "2", None])
        self.assertEqual(attributes("  1    400.   0.    50.    0.   -600.    0."), ["pile_load", "1", "1", None])
        self.assertEqual(attributes("Load vectors"), [None, None, None, None])
        self.assertEqual(attributes("* the other one"), [None, None, None, "comment"])
        self.assertEqual(attributes("behind the end"), [None, None, None, "comment"])
        record = self.small.data["records"]["pile_load"]
        self.assertEqual(record["items"][1], {"name": "LOAD(1)", "meaning": "force in x", "unit": "F"})
        self.assertEqual(len(self.small.data["records"]), 22)

    def test_materials(self):
        self.assertEqual(self.small.data["materials"], [{"number": 1, "name": "steel"}])
        self.assertEqual([section["material"] for section in self.small.data["sections"]], [1, 1])

    def test_clashes(self):
        # A second pile through the first: both axes meet at the mid-point of the first.
        deck = SMALL.replace("  3    2    2       0.0      0.0     0.0       0.0      0.0     0.0",
                             "  3    0    0      10.0      0.0     0.0       3.0      0.0    24.0")  # fmt: skip
        page = self.page(deck.replace("  2    2    1 2\n", "  2    2    1 2\n  3    2    1 2\n"))
        (clash,) = page.data["clashes"]
        self.assertEqual(clash["piles"], [2, 3])
        np.testing.assert_allclose(clash["point"], [6.5, 0.0, 12.0], atol=1e-9)
        self.assertAlmostEqual(clash["overlap"], 0.914, delta=1e-9)
        for name in ("plan", "elevation-x", "elevation-y"):
            (mark,) = [g for g in page.by_id(name).iter(f"{SVG}g") if g.get("class") == "clash"]
            self.assertEqual(mark.find(f"{SVG}title").text, "Piles 2 and 3 overlap")

    def test_findings_underline_their_columns(self):
        deck = SMALL.replace("  2    0    0       3.0", "  2    0    0       3.x")
        page = self.page(deck, code=1)
        number = next(n for n, line in enumerate(deck.split("\n"), 1) if "3.x" in line)
        (finding,) = [li for li in page.by_id("findings").iter("li") if li.get("data-rule") == "run-error"]
        self.assertEqual((finding.get("class"), finding.get("data-line")), ("error", str(number)))
        self.assertEqual(finding.find("a").get("href"), f"#L{number}")
        # The whole record is too short, and within it stands what is no number.
        marks = [(mark.text, mark.get("class"), mark.get("data-rule")) for mark in page.by_id(f"L{number}").iter("mark")]
        rest = "      0.0     0.0      10.0      0.0    24.0"
        self.assertEqual(
            marks, [("2    0    0       ", "error", "short-record"), ("3.x", "error", "run-error"), (rest, "error", "short-record")]
        )
        self.assertEqual(page.lines()[number - 1], "  2    0    0       3.x" + rest)

    def test_without_the_view(self):
        page = self.page(SMALL, "--no-3d")
        self.assertEqual([section.get("id") for section in page.by_id("main").iter("section")],
                         [name for name in SECTIONS if name != "view"])  # fmt: skip
        for name in ("nodes", "elements", "node_values", "other"):
            self.assertNotIn(name, page.data)
        self.assertEqual(page.data["piles"], self.small.data["piles"])
        self.assertLess(len(page.bytes), len(self.small.bytes) - 100_000)


class LargestGroup(Scratch):
    """200 piles of 450 elements, each of another section than its neighbours."""

    def test_is_small_enough_to_be_mailed(self):
        top = SMALL[: SMALL.index("  1   1    0.914")]
        for old, new in (("  3       piles", "  200     piles"), ("  2       cross", "  200     cross"), ("  2       pile", "  20      pile"),
                         ("  1       load", "  0       load")):  # fmt: skip
            top = top.replace(old, new)
        sections = "".join(f"  {i} 1 {0.8 + 0.002 * i:.4f} {0.02 + 0.0001 * i:.5f} 0. 0. 0. 0. 10.\n" for i in range(1, 201))
        # Ten types with 22 elements and ten with 23, stepping to and fro.
        segments = "".join(
            f"  {i} {1 if i % 2 else 23} {23 if i % 2 else 1} 5.0 {22 if i < 11 else 23}\n" for i in range(1, 21)
        )
        places = [((i % 20) * 5.0, (i // 20) * 5.0) for i in range(200)]
        # A length of 100 m: 28 m aside and 96 m down.
        piles = "".join(f"  {i} 0 0 {x} {y} 0. {x + 28.0} {y} 96.\n" for i, (x, y) in enumerate(places, 1))
        lists = "".join(f"  {i} 20 {' '.join(map(str, range(1, 21)))}\n" for i in range(1, 201))
        page = self.page(
            f"{top}{sections}\nSegments\n  N\n{segments}\nPiles\n  NP\n{piles}  NP NSEG\n{lists}  NP1 NP2\n  1 200 0 0\n\n"
            "Values\n  NP1\n 0 0 0 0 0 0. 0. 0. 0. 0. 0.\nEND\n"
        )
        self.assertEqual(page.data["elements"]["count"], 90_000)
        self.assertLess(len(page.bytes), 12_000_000)
        self.assertEqual(len(page.figures("strip")), 1)


class Comparison(Scratch):
    def test_changed_piles(self):
        other = self.path / "other.inp"
        other.write_text(SMALL.replace("      10.0      0.0    24.0", "      10.0      0.0    24.02"))
        page = self.page(SMALL, "--compare", str(other))
        self.assertEqual(page.data["changes"], {"changed": [2, 3], "only_here": [], "only_there": []})
        self.assertEqual([pile["number"] for pile in page.data["other"]["piles"]], [1, 2, 3])
        rows = page.table("difference-table").rows
        tip = next(row for row in rows if row["Of"] == "pile 2" and row["Value"] == "tip z")
        self.assertAlmostEqual(tip["There"], 24.02, delta=1e-12)
        self.assertEqual((tip["Here"], tip["Unit"]), (24.0, "m"))
        changed = [g.get("data-pile") for g in page.by_id("plan").iter(f"{SVG}g") if g.get("class") == "pile changed"]
        self.assertEqual(sorted(changed), ["2", "3"])

    def test_the_same_and_the_file_of_a_run(self):
        deck = (EXAMPLES / "barge-impact" / "KORVAT.INP").read_text()
        for other in (EXAMPLES / "barge-impact", EXAMPLES / "barge-impact" / "KORVAT.INP"):
            page = self.page(deck, "--compare", str(other))
            self.assertEqual("".join(page.by_id("comparison").find("p").itertext()), f"Nothing differs from {other}.")
        page = self.page(deck, "--compare", str(EXAMPLES / "jacket" / "expected" / "PILE.07"))
        self.assertEqual(page.data["changes"]["only_here"], list(range(5, 14)))

    def test_a_deck_that_fails(self):
        page = self.page(SMALL.replace("END\n", ""), "--compare", str(EXAMPLES / "jacket"), code=1)
        self.assertIsNone(page.data["other"])
        self.assertIn("the deck does not run", "".join(page.by_id("comparison").itertext()))

    def test_refused(self):
        (self.path / "broken.inp").write_text("nothing\n")
        for other in ("broken.inp", "absent", str(EXAMPLES / "barge-impact" / "expected" / "LOAD.09")):
            call = called(EXAMPLES / "jacket", "-o", "out.html", "--compare", other, cwd=self.path)
            self.assertEqual((call.returncode, call.stdout), (2, b""))
            self.assertIn(other.encode(), call.stderr)
        self.assertEqual(sorted(os.listdir(self.path)), ["broken.inp"])


class Hostile(Scratch):
    """Texts of a deck in every place stand in the page as texts."""

    def check(self, page, texts):
        for tag, attributes in Tags(page.text).found:
            self.assertNotEqual(tag, "img")
            self.assertFalse([name for name in attributes if name.startswith("on")])
        for character in "\u202e\u2067\u200f":
            self.assertNotIn(character, page.text)
        self.assertFalse([c for c in page.text if ord(c) < 32 and c not in "\t\n"])
        self.assertNotIn("<", page.block)
        self.assertNotIn("\u2028", page.block)
        whole = "".join(page.root.itertext())
        for text in texts:
            self.assertIn(text, whole)

    def test_label_heading_comment_remark_and_load_label(self):
        shown = re.sub("[\u202e\u2067\u200f]", "?", HOSTILE)
        deck = SMALL.replace("Small frame, two raked piles and a cap point, kN and m", HOSTILE)
        deck = deck.replace("Material types\n", f"Material types {HOSTILE}\n").replace("* the other one", f"* {HOSTILE}")
        deck = deck.replace("piles\n  2       cross", f"piles {HOSTILE}\n  2       cross")
        deck = deck.replace("Mooring force on the cap point", f"Mooring {HOSTILE}")
        page = self.page(deck)
        self.check(page, [f"Material types {shown}", f"* {shown}", f"  3       piles {shown}", f"Vector 1: Mooring {shown}"])
        self.assertEqual(page.data["label"], shown)
        self.assertEqual(page.by_id("head").find("h1/bdi").text, shown)
        self.assertEqual(page.data["load_vectors"][0]["label"], f"Mooring {shown}")

    def test_control_characters_and_bytes_that_are_no_utf_8(self):
        deck = SMALL.encode().replace(b"* the other one", b"* " + CONTROLS.encode() + b"|\xc2\x85|\xff\xfe|\xed\xa0\x80|")
        page = self.page(deck, code=1)
        self.check(page, ["* " + "?" * len(CONTROLS) + "|?|??|???|"])

    def test_name_of_the_file(self):
        name = "a<b onload=x>&'\"\u202e.inp"
        (self.path / name).write_text(SMALL)
        page, _ = reported(self.path / name)
        self.check(page, ["a<b onload=x>&'\"?.inp"])

    def test_deck_of_nothing_but_hostile_lines(self):
        self.check(self.page((HOSTILE + "\n") * 50, code=1), [re.sub("[\u202e\u2067\u200f]", "?", HOSTILE)])


class Failing(Scratch):
    """A deck that does not run has a report too."""

    def failed(self, deck):
        page = self.page(deck, code=1)
        self.assertFalse(page.data["complete"])
        self.assertEqual([section.get("id") for section in page.by_id("main").iter("section")], SECTIONS)
        self.assertIn("run-error", [li.get("data-rule") for li in page.by_id("findings").iter("li")])
        return page

    def test_without_a_control_section(self):
        page = self.failed("A label alone\n\nEND\n")
        self.assertEqual((page.lines(), page.data["piles"]), (["A label alone", "", "END"], []))

    def test_long_lines_and_many_lines(self):
        page = self.failed("L" * 3_000_000 + "\n" + "x\n" * 30_000)
        self.assertEqual(page.data["label"], "L" * 80)
        self.assertEqual(page.by_id("L1").find("bdi").text or "".join(page.by_id("L1").itertext()).strip(), "L" * 2000 + " …")
        self.assertEqual(len(page.lines()), 20_000)
        self.assertIn("10001 more lines are not shown.", "".join(page.by_id("deck").itertext()))
        self.assertLess(len(page.bytes), 3_000_000)

    def test_empty(self):
        page = self.failed("")
        self.assertIn("The deck is empty.", "".join(page.by_id("deck").itertext()))

    def test_utf_16(self):
        page = self.failed(SMALL.encode("utf-16"))
        self.assertIn("utf-16", [li.get("data-rule") for li in page.by_id("findings").iter("li")])

    def test_any_bytes(self):
        for seed in range(5):
            block = b"".join(hashlib.sha256(bytes([seed, i % 256, i // 256])).digest() for i in range(2000))
            self.failed(block)

    def test_broken_geometry(self):
        # The third pile cannot be read: what stands before it can.
        page = self.failed(SMALL.replace("  3    2    2       0.0", "  3    2    2       none"))
        self.assertEqual([pile["number"] for pile in page.data["piles"]], [1, 2])
        self.assertEqual(list(page.array("nodes", "z", "<f8")), [-1.0, 0.0, 24.0])
        self.assertEqual(page.by_id("L1").get("data-r"), None)

    def test_piles_behind_a_broken_section(self):
        # There is no material 7: the piles are those of the records, mirrored and scaled as given.
        deck = SMALL.replace("  1    2.1E8 ", "  7    2.1E8 ").replace("  1.0     length", "  2.0     length")
        page = self.failed(deck)
        self.assertEqual([pile["origin"] for pile in page.data["piles"]], ["given", "given", "mirrored"])
        self.assertEqual(list(page.array("nodes", "x", "<f8")), [0.0, 6.0, 20.0, -6.0, -20.0])
        self.assertEqual(list(page.array("nodes", "z", "<f8")), [-2.0, 0.0, 48.0, 0.0, 48.0])
        # The program's reader of numbers is not correctly rounded.
        np.testing.assert_allclose(page.array("elements", "diameter", "<f8"), [1.828, 1.828], rtol=1e-15)
        self.assertEqual(list(page.array("elements", "section", "<u2")), [1, 1])
        drawn = [g.get("data-pile") for g in page.by_id("plan").find(f"{SVG}svg").findall(f"{SVG}g")
                 if (g.get("class") or "").startswith("pile")]  # fmt: skip
        self.assertEqual(sorted(drawn), ["1", "2", "3"])

    def test_copies_and_left_out_piles_behind_a_broken_section(self):
        geometry = SMALL.index("  1    0    0       0.0")
        end = SMALL.index("  NP  NSEG")
        piles = (
            "  1    0    0       0.0      0.0    0.0       0.0      0.0    30.0\n"
            "  4    0    0       9.0      3.0    0.0       9.0      6.0    30.0\n"
            "  5    4    0       1.0      2.0    3.0       1.0      2.0    33.0\n"
        )
        page = self.failed((SMALL[:geometry] + piles + SMALL[end:]).replace("  1    2.1E8 ", "  7    2.1E8 "))
        self.assertEqual([pile["origin"] for pile in page.data["piles"]],
                         ["given", "interpolated", "interpolated", "given", "copied"])  # fmt: skip
        self.assertEqual(list(page.array("nodes", "x", "<f8")), [0.0, 0.0, 3.0, 3.0, 6.0, 6.0, 9.0, 9.0, 10.0, 10.0])
        self.assertEqual(list(page.array("nodes", "z", "<f8")), [0.0, 30.0] * 4 + [3.0, 33.0])

    def test_values_that_cannot_be_drawn(self):
        for value in ("1.0E300", "-9.E99", "1.0E-300"):
            for old in ("  2    0    0       3.0", "  1   1    0.914", "  1     1     1     10.0"):
                (self.path / "deck.inp").write_text(SMALL.replace(old, old[: old.rindex(" ")] + " " + value))
                page, _ = reported(self.path / "deck.inp")
                for element in page.root.iter():
                    places = [element.get(name) for name in ("points", "d", "x", "y", "x1", "y1", "x2", "y2", "r", "cx", "cy")]
                    for text in filter(None, places):
                        self.assertNotRegex(text, "nan|inf|e")


class Command(Scratch):
    def setUp(self):
        super().setUp()
        self.case = self.path / "frame"
        self.case.mkdir()
        (self.case / "KORVAT.INP").write_text(SMALL)
        self.here = self.path / "here"
        self.here.mkdir()
        self.temporary = self.path / "tmp"
        self.temporary.mkdir()
        self.environment = {**os.environ, "TMPDIR": str(self.temporary)}

    def call(self, *arguments, **options):
        call = called(*arguments, **{"cwd": self.here, "env": self.environment, **options})
        self.assertEqual(os.listdir(self.temporary), [])
        return call.returncode, call.stdout.decode(), call.stderr.decode()

    def test_names_the_page_after_the_case(self):
        self.assertEqual(self.call(self.case), (0, "frame.html\n", ""))
        (self.path / "two raked.inp").write_text(SMALL)
        self.assertEqual(self.call("../two raked.inp"), (0, "two raked.html\n", ""))
        self.assertEqual(self.call("-", input=SMALL.encode()), (0, "report.html\n", ""))
        self.assertEqual(sorted(os.listdir(self.here)), ["frame.html", "report.html", "two raked.html"])
        self.assertEqual(os.listdir(self.case), ["KORVAT.INP"])
        Page((self.here / "frame.html").read_bytes())

    def test_writes_into_a_case_only_when_told(self):
        code, out, error = self.call(".", cwd=self.case)
        self.assertEqual((code, out), (2, ""))
        self.assertIn("-o", error)
        self.assertEqual(os.listdir(self.case), ["KORVAT.INP"])
        self.assertEqual(self.call(".", "-o", "note.html", cwd=self.case), (0, "note.html\n", ""))
        self.assertEqual(sorted(os.listdir(self.case)), ["KORVAT.INP", "note.html"])

    def test_replaces_a_file_whole(self):
        old = self.here / "old.html"
        old.write_text("x" * 10_000_000)
        old.chmod(0o640)
        (self.here / "link.html").symlink_to("old.html")
        self.assertEqual(self.call(self.case, "-o", "link.html")[0], 0)
        self.assertTrue((self.here / "link.html").is_symlink())
        self.assertEqual(old.stat().st_mode & 0o777, 0o640)
        Page(old.read_bytes())
        self.assertEqual(sorted(os.listdir(self.here)), ["link.html", "old.html"])

    def test_tells_what_it_cannot_write(self):
        code, out, error = self.call(self.case, "-o", "absent/note.html")
        self.assertEqual((code, out), (2, ""))
        self.assertIn("absent/note.html: No such file or directory", error)
        code, out, error = self.call(self.case, "-o", "/dev/full")
        self.assertEqual((code, out), (2, ""))
        self.assertIn("/dev/full: No space left on device", error)
        with open("/dev/full", "wb") as full:
            call = subprocess.run([TOOLS, "report", self.case, "-o", "-"], stdout=full, stderr=subprocess.PIPE, timeout=60)
        self.assertEqual(call.returncode, 2)
        self.assertIn(b"standard output", call.stderr)
        (self.here / "directory").mkdir()
        self.assertEqual(self.call(self.case, "-o", "directory")[:2], (2, ""))
        self.assertEqual(os.listdir(self.here), ["directory"])

    def test_keeps_the_older_page_when_the_disk_is_full(self):
        old = self.here / "old.html"
        old.write_text("as it was")
        limited = f"ulimit -f 20; trap '' XFSZ; exec '{TOOLS}' report '{self.case}' -o old.html"
        call = subprocess.run(["sh", "-c", limited], cwd=self.here, env=self.environment, capture_output=True, timeout=60)
        self.assertEqual((call.returncode, call.stdout), (2, b""), call.stderr)
        self.assertEqual((os.listdir(self.here), old.read_text()), (["old.html"], "as it was"))

    def test_tells_what_it_cannot_read(self):
        for name in ("absent", str(self.here)):
            code, out, error = self.call(name)
            self.assertEqual((code, out), (2, ""))
            self.assertIn(name, error)
        self.assertEqual(os.listdir(self.here), [])

    def test_opens_the_page(self):
        tools = self.path / "bin"
        tools.mkdir()
        opener = tools / "xdg-open"
        for ending, code in (("", 0), ("exit 3", 2)):
            opener.write_text(f'#!/bin/sh\nprintf "%s|" "$@" > "{self.path}/opened"\n{ending}\n')
            opener.chmod(0o755)
            environment = {**self.environment, "PATH": f"{tools}:/bin:/usr/bin"}
            found, out, error = self.call(self.case, "-o", "a $(b) 'c.html", "--open", env=environment)
            self.assertEqual((found, out), (code, "a $(b) 'c.html\n"), error)
            self.assertEqual((self.path / "opened").read_text(), f"{self.here}/a $(b) 'c.html|")
        code, _, error = self.call(self.case, "--open", env={**self.environment, "PATH": str(self.here)})
        self.assertEqual(code, 2)
        self.assertIn("cannot open", error)
        self.assertEqual(self.call(self.case, "-o", "-", "--open")[:2], (2, ""))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
