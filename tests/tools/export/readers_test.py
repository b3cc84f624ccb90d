#!/usr/bin/env python3
"""Reads the exports of the examples back by VTK, meshio and pandas, and compares every value with PILE.07 and LOAD.09.

readers_test.py KORVAT KORVAT_TOOLS EXAMPLES: runs each example in a scratch directory, exports it, and reads.
PILE.07 and LOAD.09 are read here, after docs/files.md; values must agree to the last bit. Two more groups are written here: one
of dummy piles alone, and one with values that are not finite or very small.
"""
import json
import math
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
from dataclasses import dataclass, field

import meshio
import numpy as np
import pandas
from vtkmodules.util.numpy_support import vtk_to_numpy
from vtkmodules.vtkCommonCore import vtkIdList
from vtkmodules.vtkFiltersCore import vtkTubeFilter
from vtkmodules.vtkIOXML import vtkXMLPolyDataReader, vtkXMLUnstructuredGridReader

KORVAT, TOOLS, EXAMPLES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])

# Slots of a section in PILE.07 and the columns of sections.csv that show them.
SLOTS = (
    "diameter [L]", "wall [L]", "area [L2]", "section modulus [L3]", "axial stiffness [F]", "shear stiffness [F]",
    "bending stiffness [F L2]", "torsional stiffness [F L2]", "unit weight of wall [F/L3]", "unit weight of fluid [F/L3]",
    "temperature strain", "yield stress [F/L2]", "elastic modulus [F/L2]", "shear modulus [F/L2]", "eccentricity",
    "axial yield force [F]", "torsional yield moment [F L]", "miscellaneous 1", "miscellaneous 2", "miscellaneous 3",
)
# Arrays of elements and the slots that they show.
SECTION_ARRAYS = {
    "wall": 1, "area": 2, "axial_stiffness": 4, "shear_stiffness": 5, "bending_stiffness": 6,
    "torsional_stiffness": 7, "yield_stress": 11, "elastic_modulus": 12, "shear_modulus": 13,
}
# Arrays of nodes: row of the three codes, and the first of three components.
NODE_VECTORS = {
    "springs": (0, 0), "rotational_springs": (0, 3), "forces": (1, 0), "moments": (1, 3),
    "soil_displacements": (2, 0), "soil_rotations": (2, 3),
}


# ---- PILE.07 and LOAD.09 ----------------------------------------------------------------------


@dataclass
class Pile:
    number: int
    fixed_to: int
    tip_code: int
    points: np.ndarray  # nodes × 3
    values: np.ndarray  # nodes × 3 codes × 6 components
    diameter: np.ndarray = field(default_factory=lambda: np.empty(0))
    length: np.ndarray = field(default_factory=lambda: np.empty(0))
    section: np.ndarray = field(default_factory=lambda: np.empty(0, int))
    strain: np.ndarray = field(default_factory=lambda: np.empty(0))


@dataclass
class Group:
    label: str
    slots: np.ndarray  # sections × 20
    types: list
    codes: list
    tubes: list
    curves: np.ndarray  # 4 tables × sections × 10 points
    piles: list
    loads: list  # for each vector its label and rows of pile and six components


def records(path):
    data = path.read_bytes()
    at, record = 1, b""
    while data[at] != 0x82 or record:
        length = min(data[at], 128)
        record += data[at + 1 : at + 1 + length]
        at += length + 2
        if length < 128:
            yield record
            record = b""


def reals(record):
    return np.frombuffer(record, "<f8")


def read_one_pile(following):
    number, fixed_to, elements, tip_code = struct.unpack("<4i", next(following))
    points = np.stack([reals(next(following)) for _ in range(3)], axis=1)
    values = np.empty((elements + 1, 3, 6))
    for component in range(6):
        for code in range(3):
            values[:, code, component] = reals(next(following))
    pile = Pile(number, fixed_to, tip_code, points, values)
    if elements > 0:
        pile.diameter, pile.length = reals(next(following)).reshape(-1, 2).T
        pairs = np.frombuffer(next(following), [("section", "<i4"), ("strain", "<f8")])
        pile.section, pile.strain = pairs["section"], pairs["strain"]
    return pile


def read_loads(path):
    following = records(path)
    vectors = []
    for label in following:
        (count,) = struct.unpack("<i", next(following))
        rows = [struct.unpack("<i6d", next(following)) for _ in range(count)]
        vectors.append((label.decode().rstrip(), rows))
    return vectors


def read_group(directory):
    following = records(directory / "PILE.07")
    first = next(following)
    is_revision_5 = len(first) == 12
    label = next(following) if is_revision_5 else first
    piles, count = struct.unpack("<2i", next(following))
    slots = np.stack([reals(next(following)) for _ in range(count)])
    types, codes, tubes, curves = [0] * count, [0] * count, [[] for _ in range(count)], np.zeros((4, count, 10))
    if is_revision_5:
        integers = struct.unpack("<2800i", next(following))
        types, codes = list(integers[:count]), list(integers[200 : 200 + count])
        tubes = [[n for n in integers[400 + 12 * i : 412 + 12 * i] if n] for i in range(count)]
        curves = reals(next(following)).reshape(4, 200, 10)[:, :count]
    loads = read_loads(directory / "LOAD.09") if (directory / "LOAD.09").exists() else []
    return Group(label.decode().rstrip(), slots, types, codes, tubes, curves,
                 [read_one_pile(following) for _ in range(piles)], loads)


# ---- groups that no deck gives ---------------------------------------------------------------


def framed(records_):
    """A record file, whatever its records are."""
    data = b"\x4b"
    for record in records_:
        segments = [record[i : i + 128] for i in range(0, len(record), 128)]
        if len(segments[-1]) == 128:
            segments.append(b"")
        for segment in segments:
            opening = bytes([len(segment)]) if len(segment) < 128 else b"\x80" if len(record) == 128 else b"\x81"
            data += opening + segment + (b"\x81" if len(segment) == 128 else opening)
    return data + b"\x82"


def pile_file(label, slots, piles):
    """A PILE.07 of revision 4; a pile is its elements' rows of diameter, length, section and strain, and its node values."""
    found = [label.encode().ljust(80), struct.pack("<2i", len(piles), len(slots))]
    found += [struct.pack("<20d", *row) for row in slots]
    for number, (elements, points, values) in enumerate(piles, 1):
        found.append(struct.pack("<4i", number, 0, len(elements), 0))
        nodes = len(points)
        found += [struct.pack(f"<{nodes}d", *column) for column in zip(*points)]
        found += [struct.pack(f"<{nodes}d", *[values[k]] * nodes) for k in range(18)]
        if elements:
            found.append(b"".join(struct.pack("<2d", row[0], row[1]) for row in elements))
            found.append(b"".join(struct.pack("<id", row[2], row[3]) for row in elements))
    return framed(found)


def written_groups():
    inf, nan, tiny, huge = math.inf, math.nan, 5e-324, 1.7976931348623157e308
    plain = [1.0, 0.25, 0.5, 0.1, 100.0, 40.0, 10.0, 8.0, 77.0, 10.0, 1e-5, nan, 200.0, 80.0, 0.0, 0.0, 0.0, inf, -inf, tiny]
    values = [inf, -inf, nan, tiny, -tiny, huge, -huge, 0.1, -0.0, 1 / 3, 2 / 3, 1e-310, 1e22, 1e23, 5e-324, nan, inf, 0.3]
    yield "dummies", pile_file('x, "y" & <z>', [plain], [([], [(1.0, -2.0, 3.0)], values), ([], [(4.0, 5.0, 6.0)], values[::-1])])
    yield "values", pile_file("", [plain], [([(2.5, 0.1, 1, nan), (1.5, tiny, 1, inf)],
                                            [(0.0, 0.1, 0.2), (0.3, 1e-300, 0.7), (-0.0, huge, 1.1)], values)])


# ---- what the exports must hold -----------------------------------------------------------------


def element_values(group, piles):
    """Each array of elements: dummy piles have zeros."""
    is_dummy = all(not len(p.section) for p in piles)
    rows = [(p, None) for p in piles] if is_dummy else [(p, e) for p in piles for e in range(len(p.section))]
    section = np.array([0 if is_dummy else p.section[e] for p, e in rows], int)
    arrays = {
        "pile": np.array([p.number for p, _ in rows], int),
        "element": np.array([0 if is_dummy else e + 1 for _, e in rows]),
        "section": section,
        "tubes": np.array([0 if is_dummy else max(1, group.types[s - 1]) for s in section]),
        "radius": np.array([0.0 if is_dummy else p.diameter[e] / 2 for p, e in rows]),
        "length": np.array([0.0 if is_dummy else p.length[e] for p, e in rows]),
        "strain": np.array([0.0 if is_dummy else p.strain[e] for p, e in rows]),
    }
    for name, slot in SECTION_ARRAYS.items():
        arrays[name] = np.zeros(len(rows)) if is_dummy else group.slots[section - 1, slot]
    return arrays


def node_values(places):
    """Each array of nodes, and the coordinates; places are piles and node indices."""
    arrays = {
        "pile": np.array([p.number for p, _ in places]),
        "node": np.array([n + 1 for _, n in places]),
    }
    for name, (code, component) in NODE_VECTORS.items():
        arrays[name] = np.array([p.values[n, code, component : component + 3] for p, n in places]).reshape(-1, 3)
    return arrays, np.array([p.points[n] for p, n in places]).reshape(-1, 3)


def poly_data(path):
    reader = vtkXMLPolyDataReader()
    reader.SetFileName(str(path))
    reader.Update()
    return reader.GetOutput()


def arrays_of(data):
    return {data.GetArrayName(i): vtk_to_numpy(data.GetArray(i)) for i in range(data.GetNumberOfArrays())}


def cells_of(cells):
    ids, found = vtkIdList(), []
    cells.InitTraversal()
    while cells.GetNextCell(ids):
        found.append([ids.GetId(i) for i in range(ids.GetNumberOfIds())])
    return found


def label_of(data):
    return data.GetFieldData().GetAbstractArray("label").GetValue(0)


class Example:
    """An example that was run, or a group that was written, its export, and the group as PILE.07 has it."""

    known = {}

    def __init__(self, name, scratch, data=None):
        self.directory = scratch / name
        self.directory.mkdir()
        if data is None:
            shutil.copy(EXAMPLES / name / "KORVAT.INP", self.directory)
            subprocess.run([KORVAT], cwd=self.directory, check=True)
        else:
            (self.directory / "PILE.07").write_bytes(data)
        before = {path: path.read_bytes() for path in self.directory.iterdir()}
        self.out = scratch / "exports" / name
        command = [TOOLS, "export", "--to", "vtp,vtu,csv,json", "-o", self.out, self.directory]
        said = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout
        self.said = said.splitlines()
        self.is_untouched = before == {path: path.read_bytes() for path in self.directory.iterdir()}
        self.group = read_group(self.directory)


def json_of(group, is_revision_5):
    """What group.json must be, read back."""
    def number(value):
        return float(value) if math.isfinite(value) else {math.inf: "inf", -math.inf: "-inf"}.get(float(value), "nan")

    def numbers(values):
        return [number(value) for value in values]

    def curve(table, i):
        points = zip(group.curves[table, i], group.curves[table + 1, i])
        return [{"axial": number(n), "moment": number(m)} for n, m in list(points)[: group.codes[i]]]

    names = ("diameter", "wall", "area", "section_modulus", "axial_stiffness", "shear_stiffness", "bending_stiffness",
             "torsional_stiffness", "wall_weight", "fluid_weight", "temperature_strain", "yield_stress", "elastic_modulus",
             "shear_modulus", "eccentricity", "axial_yield", "torsional_yield")
    kinds = ("springs", "forces", "soil_displacements")
    return {
        "format": "korvat group", "version": 1, "revision": 5 if is_revision_5 else 4,
        "date": [2009, 9, 1] if is_revision_5 else None, "label": group.label,
        "sections": [{"section": i + 1, "type": group.types[i], "tubes": group.tubes[i], **dict(zip(names, numbers(row))),
                      "miscellaneous": numbers(row[17:]), "elastic_curve": curve(0, i), "plastic_curve": curve(2, i)}
                     for i, row in enumerate(group.slots)],
        "piles": [{"pile": p.number, "fixed_to": p.fixed_to, "tip_code": p.tip_code,
                   "nodes": [{"node": n + 1, **dict(zip("xyz", numbers(p.points[n]))),
                              **{kind: numbers(p.values[n, code]) for code, kind in enumerate(kinds)}}
                             for n in range(len(p.points))],
                   "elements": [{"element": e + 1, "section": int(p.section[e]), "diameter": number(p.diameter[e]),
                                 "length": number(p.length[e]), "strain": number(p.strain[e])} for e in range(len(p.section))]}
                  for p in group.piles],
        "load_vectors": [{"vector": v, "label": label,
                          "loads": [{"pile": row[0], "force": list(row[1:4]), "moment": list(row[4:])} for row in rows]}
                         for v, (label, rows) in enumerate(group.loads, 1)],
    }


def of_each_example(test):
    def run(self):
        for name, example in Example.known.items():
            with self.subTest(example=name):
                test(self, example)

    return run


def stacked(arrays, width):
    """Rows of all arrays; none of none."""
    return np.concatenate([np.empty((0, width)), *arrays])


class Exports(unittest.TestCase):
    def assert_arrays(self, found, expected):
        self.assertEqual(sorted(found), sorted(expected))
        for name, values in expected.items():
            self.assertEqual(found[name].shape, values.shape, name)
            np.testing.assert_array_equal(found[name], values, name)

    @of_each_example
    def test_nothing_is_written_into_the_case(self, example):
        self.assertTrue(example.is_untouched)
        self.assertEqual(sorted(example.said), sorted(str(path) for path in example.out.iterdir()))

    @of_each_example
    def test_piles_vtp(self, example):
        group, data = example.group, poly_data(example.out / "piles.vtp")
        piles = [p for p in group.piles if len(p.section)]
        ends = [(p, e + k) for p in piles for e in range(len(p.section)) for k in (0, 1)]
        arrays, points = node_values(ends)
        arrays["radius"] = np.array([p.diameter[e] / 2 for p in piles for e in range(len(p.section)) for _ in (0, 1)])
        self.assertEqual(label_of(data), group.label)
        np.testing.assert_array_equal(vtk_to_numpy(data.GetPoints().GetData()), points)
        self.assert_arrays(arrays_of(data.GetPointData()), arrays)
        self.assert_arrays(arrays_of(data.GetCellData()), element_values(group, piles))
        self.assertEqual(cells_of(data.GetLines()), [[i, i + 1] for i in range(0, len(ends), 2)])
        self.assertEqual(data.GetPointData().GetScalars().GetName(), "radius")

    @of_each_example
    def test_nodes_vtp(self, example):
        data = poly_data(example.out / "nodes.vtp")
        arrays, points = node_values([(p, n) for p in example.group.piles for n in range(len(p.points))])
        np.testing.assert_array_equal(vtk_to_numpy(data.GetPoints().GetData()), points)
        self.assert_arrays(arrays_of(data.GetPointData()), arrays)
        self.assertEqual(cells_of(data.GetVerts()), [[i] for i in range(len(points))])

    @of_each_example
    def test_load_vtp(self, example):
        heads = {p.number: p.points[0] for p in example.group.piles}
        self.assertEqual(len(list(example.out.glob("load-*.vtp"))), len(example.group.loads))
        for number, (label, rows) in enumerate(example.group.loads, 1):
            data = poly_data(example.out / f"load-{number}.vtp")
            self.assertEqual(label_of(data), label)
            np.testing.assert_array_equal(vtk_to_numpy(data.GetPoints().GetData()), [heads[row[0]] for row in rows])
            self.assert_arrays(arrays_of(data.GetPointData()), {
                "pile": np.array([row[0] for row in rows]),
                "record": np.arange(1, len(rows) + 1),
                "forces": np.array([row[1:4] for row in rows]),
                "moments": np.array([row[4:7] for row in rows]),
            })

    def test_a_tube_filter_draws_each_element_with_its_radius(self):
        """What the recipe in docs/tools.md does: the points of the tubes are a radius away from the ends of the lines."""
        data = poly_data(Example.known["jacket"].out / "piles.vtp")
        tubes = vtkTubeFilter()
        tubes.SetInputData(data)
        tubes.SetVaryRadiusToVaryRadiusByAbsoluteScalar()
        tubes.SetNumberOfSides(8)
        tubes.Update()
        drawn = tubes.GetOutput()
        points = vtk_to_numpy(drawn.GetPoints().GetData()).astype(float).reshape(-1, 8, 3)
        ends = vtk_to_numpy(data.GetPoints().GetData())
        radii = vtk_to_numpy(data.GetPointData().GetArray("radius"))
        self.assertEqual(len(points), len(ends))
        away = np.linalg.norm(points - ends[:, None, :], axis=2)
        np.testing.assert_allclose(away, np.repeat(radii[:, None], 8, axis=1), rtol=1e-4)

    @of_each_example
    def test_group_vtu_by_vtk(self, example):
        reader = vtkXMLUnstructuredGridReader()
        reader.SetFileName(str(example.out / "group.vtu"))
        reader.Update()
        grid = reader.GetOutput()
        arrays, points = node_values([(p, n) for p in example.group.piles for n in range(len(p.points))])
        np.testing.assert_array_equal(vtk_to_numpy(grid.GetPoints().GetData()), points)
        self.assert_arrays(arrays_of(grid.GetPointData()), arrays)
        dummies = [p for p in example.group.piles if not len(p.section)]
        piles = [p for p in example.group.piles if len(p.section)]
        elements = sum(len(p.section) for p in piles)
        types = [grid.GetCellType(i) for i in range(grid.GetNumberOfCells())]
        self.assertEqual(types, [1] * len(dummies) + [3] * elements)
        expected = element_values(example.group, piles)
        if dummies:
            zeros = element_values(example.group, dummies)
            expected = {name: np.concatenate([zeros[name], values]) for name, values in expected.items()}
        self.assert_arrays(arrays_of(grid.GetCellData()), expected)

    @of_each_example
    def test_group_vtu_by_meshio(self, example):
        mesh = meshio.read(example.out / "group.vtu")
        arrays, points = node_values([(p, n) for p in example.group.piles for n in range(len(p.points))])
        np.testing.assert_array_equal(mesh.points, points)
        self.assert_arrays(mesh.point_data, arrays)
        at, heads, lines = 0, [], []
        for pile in example.group.piles:
            heads += [] if len(pile.section) else [[at]]
            lines += [[at + e, at + e + 1] for e in range(len(pile.section))]
            at += len(pile.points)
        blocks = {"vertex": (heads, lambda p: not len(p.section)), "line": (lines, lambda p: len(p.section))}
        self.assertEqual([b.type for b in mesh.cells], [form for form in blocks if blocks[form][0]])
        for index, block in enumerate(mesh.cells):
            cells, belongs = blocks[block.type]
            self.assertEqual(block.data.tolist(), cells)
            expected = element_values(example.group, [p for p in example.group.piles if belongs(p)])
            self.assert_arrays({name: values[index] for name, values in mesh.cell_data.items()}, expected)

    @of_each_example
    def test_group_json(self, example):
        found = json.loads((example.out / "group.json").read_text(encoding="utf-8"))
        is_revision_5 = (example.directory / "PILE.07").read_bytes()[1] == 12
        self.assertEqual(list(found), list(json_of(example.group, is_revision_5)))
        self.assertTrue(found == json_of(example.group, is_revision_5))

    def table(self, example, name):
        return pandas.read_csv(example.out / name, float_precision="round_trip", keep_default_na=True)

    def assert_columns(self, table, expected):
        for name, values in expected.items():
            np.testing.assert_array_equal(table[name].to_numpy(), np.asarray(values), name)

    @of_each_example
    def test_sections_csv(self, example):
        group, table = example.group, self.table(example, "sections.csv")
        self.assert_columns(table, {name: group.slots[:, slot] for slot, name in enumerate(SLOTS)})
        parts = {tube: i + 1 for i, tubes in enumerate(group.tubes) for tube in tubes if group.types[i] > 1}
        self.assert_columns(table, {
            "section": range(1, len(group.slots) + 1),
            "type": ["composite" if kind > 1 else "tube" for kind in group.types],
            "part of": [parts.get(i + 1, 0) for i in range(len(group.slots))],
            "curve points": group.codes,
        })
        lists = [[int(n) for n in str(text).split()] if kind > 1 else [] for text, kind in zip(table["tubes"], group.types)]
        self.assertEqual(lists, [tubes if kind > 1 else [] for tubes, kind in zip(group.tubes, group.types)])

    def weights(self, group):
        """Steel, other walls and fluid of each section for each unit of length, and its outer area. The examples are in kN and m."""
        for i, (slots, kind) in enumerate(zip(group.slots, group.types)):
            tubes = [group.slots[n - 1] for n in group.tubes[i]] if kind > 1 else [slots]
            walls = [(1.6e8 < tube[12] < 2.2e8, tube[2] * tube[8]) for tube in tubes]
            bore = min(tube[0] - 2 * tube[1] for tube in tubes)
            fluid = next(tube[9] for tube in tubes if tube[0] - 2 * tube[1] == bore)
            yield (sum(w for is_steel, w in walls if is_steel), sum(w for is_steel, w in walls if not is_steel),
                   math.pi * bore**2 / 4 * fluid, math.pi * slots[0] ** 2 / 4)

    @of_each_example
    def test_weights_and_volumes(self, example):
        names = ["steel weight", "other weight", "fluid weight", "displaced volume"]
        group = example.group
        of_sections = np.array(list(self.weights(group)))
        table = self.table(example, "sections.csv")
        columns = [f"{name} [F/L]" for name in names[:3]] + ["displaced volume [L2]"]
        np.testing.assert_allclose(table[columns].to_numpy(float), of_sections, rtol=1e-14)
        columns = [f"{name} [F]" for name in names[:3]] + ["displaced volume [L3]"]
        of_elements = [p.length[:, None] * of_sections[p.section - 1] for p in group.piles if len(p.section)]
        table = self.table(example, "elements.csv")
        np.testing.assert_allclose(table[columns].to_numpy(float), stacked(of_elements, 4), rtol=1e-14)
        of_piles = [(p.length[:, None] * of_sections[p.section - 1]).sum(axis=0) if len(p.section) else [0] * 4
                    for p in group.piles]
        table = self.table(example, "piles.csv")
        np.testing.assert_allclose(table[columns].to_numpy(float), of_piles, rtol=1e-12)

    @of_each_example
    def test_elements_csv(self, example):
        group, table = example.group, self.table(example, "elements.csv")
        piles = [p for p in group.piles if len(p.section)]
        expected = element_values(group, piles)
        upper = stacked([p.points[:-1] for p in piles], 3)
        lower = stacked([p.points[1:] for p in piles], 3)
        self.assert_columns(table, {
            "pile": expected["pile"], "element": expected["element"], "section": expected["section"],
            "length [L]": expected["length"], "diameter [L]": 2 * expected["radius"], "wall [L]": expected["wall"],
            "elastic modulus [F/L2]": expected["elastic_modulus"], "strain": expected["strain"],
            **{f"{axis} of upper node [L]": upper[:, i] for i, axis in enumerate("xyz")},
            **{f"{axis} of lower node [L]": lower[:, i] for i, axis in enumerate("xyz")},
            "from head [L]": [distance for p in piles for distance in [0.0, *np.cumsum(p.length)[:-1]]],
        })

    @of_each_example
    def test_nodes_csv(self, example):
        kinds = (("spring", "F/L", "F L"), ("force", "F", "F L"), ("soil displacement", "L", ""))
        group, table = example.group, self.table(example, "nodes.csv")
        values = np.concatenate([p.values for p in group.piles])
        points = np.concatenate([p.points for p in group.piles])
        expected = {f"{axis} [L]": points[:, i] for i, axis in enumerate("xyz")}
        for code, (kind, along, about) in enumerate(kinds):
            turned = {"force": "moment", "soil displacement": "soil rotation"}.get(kind, kind)
            for i, axis in enumerate("xyz"):
                expected[f"{kind} along {axis} [{along}]"] = values[:, code, i]
                expected[f"{turned} about {axis}" + (f" [{about}]" if about else "")] = values[:, code, 3 + i]
        expected["pile"] = [p.number for p in group.piles for _ in p.points]
        expected["node"] = [n + 1 for p in group.piles for n in range(len(p.points))]
        expected["from head [L]"] = np.concatenate([np.concatenate([[0.0], np.cumsum(p.length)]) for p in group.piles])
        self.assertEqual(sorted(table.columns), sorted(expected))
        self.assert_columns(table, expected)

    @of_each_example
    def test_curves_csv(self, example):
        group, table = example.group, self.table(example, "curves.csv")
        places = [(i, k) for i, code in enumerate(group.codes) for k in range(code)]
        names = ("elastic axial force [F]", "elastic moment [F L]", "plastic axial force [F]", "plastic moment [F L]")
        self.assert_columns(table, {
            "section": [i + 1 for i, _ in places], "point": [k + 1 for _, k in places],
            **{name: [group.curves[t, i, k] for i, k in places] for t, name in enumerate(names)},
        })

    @of_each_example
    def test_loads_csv(self, example):
        table = self.table(example, "loads.csv")
        rows = [(v, label, r, *row) for v, (label, loads) in enumerate(example.group.loads, 1)
                for r, row in enumerate(loads, 1)]
        self.assertEqual([tuple(row) for row in table.itertuples(index=False)], rows)

    @of_each_example
    def test_piles_csv(self, example):
        group, table = example.group, self.table(example, "piles.csv")
        heads, tips = (np.array([p.points[i] for p in group.piles]) for i in (0, -1))
        self.assert_columns(table, {
            "pile": [p.number for p in group.piles], "fixed to": [p.fixed_to for p in group.piles],
            "tip code": [p.tip_code for p in group.piles], "elements": [len(p.section) for p in group.piles],
            **{f"{axis} of head [L]": heads[:, i] for i, axis in enumerate("xyz")},
            **{f"{axis} of tip [L]": tips[:, i] for i, axis in enumerate("xyz")},
        })
        np.testing.assert_allclose(table["length [L]"], [math.dist(*ends) for ends in zip(heads, tips)], rtol=1e-14)
        aside = [math.dist(*ends) for ends in zip(heads[:, :2], tips[:, :2])]
        batter = [math.degrees(math.atan(a / d)) if len(p.section) else math.nan
                  for a, d, p in zip(aside, (tips - heads)[:, 2].tolist(), group.piles)]
        np.testing.assert_allclose(table["batter [degree]"], batter, rtol=1e-14)


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as directory:
        for name, data in written_groups():
            Example.known[name] = Example(name, pathlib.Path(directory), data)
        for path in sorted(EXAMPLES.glob("*/KORVAT.INP")):
            Example.known[path.parent.name] = Example(path.parent.name, pathlib.Path(directory))
        assert len(Example.known) >= 8, Example.known
        unittest.main(argv=sys.argv[:1])
