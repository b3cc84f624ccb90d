#!/usr/bin/env python3
"""Writes the files in tests/tools/export/expected: what the group in small_group.hpp must be exported as.

write_expected.py [--check]: the values are written here once more, by hand, and encoded by Python's own struct and base64;
nothing of the exporting program takes part. With --check, fails where a file is another one.
"""
import base64
import pathlib
import struct
import sys

EXPECTED = pathlib.Path(__file__).resolve().parent / "expected"
FORMATS = {"Float64": "d", "Int32": "i", "Int64": "q", "UInt8": "B"}
ZEROS = [0.0] * 6

# The nodes: number of the pile and of the node, coordinates, springs, forces, soil displacements.
CAP = (1, 1, [0.5, 0.25, -4.0], [11.0, 12.0, 13.0, 14.0, 15.0, 16.0], [21.0, 22.0, 23.0, 24.0, 25.0, 26.0],
       [31.0, 32.0, 33.0, 34.0, 35.0, 36.0])
HEAD = (2, 1, [1.0, 0.0, -2.0], ZEROS, ZEROS, ZEROS)
MIDDLE = (2, 2, [1.0, 3.0, 2.0], ZEROS, [0.1, 0.0, 0.0, 0.0, 0.0, -0.0], ZEROS)
TIP = (2, 3, [1.0, 9.0, 10.0], ZEROS, ZEROS, ZEROS)
NODES = [CAP, HEAD, MIDDLE, TIP]

# The two elements of pile 2; the second one is of the composite.
ELEMENTS = [
    ("Int32", "pile", [2, 2]),
    ("Int32", "element", [1, 2]),
    ("Int32", "section", [1, 2]),
    ("Int32", "tubes", [1, 2]),
    ("Float64", "radius", [1.0, 1.5]),
    ("Float64", "wall", [0.5, 0.0]),
    ("Float64", "length", [5.0, 10.0]),
    ("Float64", "strain", [0.001, 20.0]),
    ("Float64", "area", [2.25, 5.5]),
    ("Float64", "elastic_modulus", [200.0, 0.0]),
    ("Float64", "shear_modulus", [80.0, 0.0]),
    ("Float64", "yield_stress", [0.35, 0.0]),
    ("Float64", "axial_stiffness", [450.0, 858.5]),
    ("Float64", "shear_stiffness", [170.0, 0.0]),
    ("Float64", "bending_stiffness", [150.0, 0.0]),
    ("Float64", "torsional_stiffness", [110.0, 0.0]),
]


def array(kind, name, values, components=1):
    data = struct.pack(f"<{len(values)}{FORMATS[kind]}", *values)
    text = base64.b64encode(struct.pack("<Q", len(data)) + data).decode()
    size = f' NumberOfComponents="{components}"' if components > 1 else ""
    return f'<DataArray type="{kind}" Name="{name}"{size} format="binary">{text}</DataArray>'


def points(nodes):
    return [array("Float64", "Points", [value for node in nodes for value in node[2]], 3)]


def node_arrays(nodes):
    vectors = (("springs", 3, 0), ("rotational_springs", 3, 3), ("forces", 4, 0), ("moments", 4, 3),
               ("soil_displacements", 5, 0), ("soil_rotations", 5, 3))
    return [array("Int32", "pile", [node[0] for node in nodes]), array("Int32", "node", [node[1] for node in nodes])] + [
        array("Float64", name, [value for node in nodes for value in node[place][first : first + 3]], 3)
        for name, place, first in vectors]


def cells(connectivity, offsets):
    return [array("Int64", "connectivity", connectivity), array("Int64", "offsets", offsets)]


def document(kind, label, counts, blocks):
    lines = ['<?xml version="1.0"?>',
             f'<VTKFile type="{kind}" version="1.0" byte_order="LittleEndian" header_type="UInt64">', f"  <{kind}>"]
    if label is not None:
        codes = " ".join(str(code) for code in label.encode() + b"\0")
        lines += ["    <FieldData>", f'      <Array type="String" Name="label" NumberOfTuples="1" format="ascii">{codes}</Array>',
                  "    </FieldData>"]
    lines.append(f"    <Piece {counts}>")
    for name, attributes, arrays in blocks:
        lines += [f"      <{name}{attributes}>", *("        " + text for text in arrays), f"      </{name}>"]
    return "\n".join([*lines, "    </Piece>", f"  </{kind}>", "</VTKFile>", ""])


def vertices(label, nodes, arrays):
    count = len(nodes)
    return document("PolyData", label, f'NumberOfPoints="{count}" NumberOfVerts="{count}"', [
        ("PointData", ' Vectors="forces"', arrays), ("Points", "", points(nodes)),
        ("Verts", "", cells(list(range(count)), list(range(1, count + 1))))])


def loads(piles, forces, moments):
    return [array("Int32", "pile", piles), array("Int32", "record", list(range(1, len(piles) + 1))),
            array("Float64", "forces", forces, 3), array("Float64", "moments", moments, 3)]


def expected_files():
    ends = [HEAD, MIDDLE, MIDDLE, TIP]
    with_dummy = [(kind, name, [1 if name == "pile" else 0, *values]) for kind, name, values in ELEMENTS]
    return {
        "piles.vtp": document("PolyData", "A < B", 'NumberOfPoints="4" NumberOfLines="2"', [
            ("PointData", ' Scalars="radius"', [array("Float64", "radius", [1.0, 1.0, 1.5, 1.5])] + node_arrays(ends)),
            ("CellData", ' Scalars="section"', [array(*values) for values in ELEMENTS]),
            ("Points", "", points(ends)), ("Lines", "", cells([0, 1, 2, 3], [2, 4]))]),
        "nodes.vtp": vertices("A < B", NODES, node_arrays(NODES)),
        "load-1.vtp": vertices('Pull, "full"', [HEAD, CAP],
                               loads([2, 1], [1.5, 2.5, 3.5, -0.5, 0.0, 0.0], [4.5, 5.5, 6.5, 0.0, 0.0, 7.5])),
        "load-2.vtp": vertices("Nothing", [], loads([], [], [])),
        "group.vtu": document("UnstructuredGrid", None, 'NumberOfPoints="4" NumberOfCells="3"', [
            ("PointData", "", node_arrays(NODES)),
            ("CellData", ' Scalars="section"', [array(*values) for values in with_dummy]),
            ("Points", "", points(NODES)),
            ("Cells", "", cells([0, 1, 2, 2, 3], [1, 3, 5]) + [array("UInt8", "types", [1, 3, 3])])]),
    }


def main():
    files = expected_files()
    if sys.argv[1:] == ["--check"]:
        wrong = [name for name, text in files.items() if (EXPECTED / name).read_bytes() != text.encode()]
        print("\n".join([*wrong, f"{len(files)} files, {len(wrong)} other ones"]))
        return 1 if wrong else 0
    EXPECTED.mkdir(exist_ok=True)
    for name, text in files.items():
        (EXPECTED / name).write_bytes(text.encode())
    return 0


if __name__ == "__main__":
    sys.exit(main())
