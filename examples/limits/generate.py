#!/usr/bin/env python3
"""Writes a deck that stands at the limits of the program to standard output.

Usage:  python3 generate.py > KORVAT.INP

200 piles in 20 blocks of ten, 450 elements on the longest pile, 200 cross
sections, 20 materials, 1000 segment types and 499 special node value records.
Nothing is random: two runs give the same bytes.
"""

BLOCKS = 20
PILES_PER_BLOCK = 10
CROSS_SECTIONS = 200
MATERIALS = 20
TYPES_PER_PILE = 10
SPECIAL_RECORDS = 499
LONG_LENGTH = 90.0

# Head-to-tip vectors whose length is a whole number: 41, 57 and 39 m.
RAKES = (((9.0, 0.0, 40.0), (4.0, 5.0)),
         ((8.0, 7.0, 56.0), (5.5, 7.5)),
         ((12.0, 9.0, 36.0), (4.0, 3.0)))


def halfway(start, end, elements):
    """True where the section of some element would fall between two numbers.

    The program rounds start + (end - start) (k - 1/2) / elements; a segment in
    which this is a half would hang on the last bit of the arithmetic.
    """
    step = end - start
    return step != 0 and any((step * (2 * k - 1) + elements) % (2 * elements) == 0
                             for k in range(1, elements + 1))


def sections(pile, place, elements):
    """Cross sections at the two ends of a segment of the given pile (0..99)."""
    start = 2 * pile + 1 + place % 2
    for step in (5, 3, 2, 1):
        end = start + step if pile % 2 == 0 else start - step
        if 1 <= end <= CROSS_SECTIONS and place % 3 == 1:
            if not halfway(start, end, elements):
                return start, end
    return start, start


def long_counts(block):
    """Element counts of the ten segment types of a block's long pile.

    The pile lists the ten types twice: 300 elements in the first block, 450
    in the last.
    """
    half = 150 + 75 * block // (BLOCKS - 1)
    return [half // 10 + (1 if place < half % 10 else 0) for place in range(TYPES_PER_PILE)]


def build():
    """Gathers the tables of the model: segment types, piles and their nodes."""
    types, geometry, lists, nodes = [], [], [], {}
    given = 0

    def add_types(lengths, counts):
        nonlocal given
        first = len(types) + 1
        for place, (length, count) in enumerate(zip(lengths, counts)):
            types.append((*sections(given, place, count), length, count))
        given += 1
        return list(range(first, first + TYPES_PER_PILE))

    for block in range(BLOCKS):
        base = PILES_PER_BLOCK * block
        x, y = 30.0 + 40.0 * (block % 5), 30.0 + 40.0 * (block // 5)
        (dx, dy, dz), (length, last) = RAKES[block % 3]

        # Cap point of the block: a dummy pile.
        geometry.append((base + 1, 0, 0, x + 4.0, y + 4.0, -1.0, x + 4.0, y + 4.0, -1.0))
        lists.append((base + 1, []))
        nodes[base + 1] = 1

        # Four raked piles; the two in the middle are left out of the table.
        for number, shift in ((base + 2, 0.0), (base + 5, 12.0)):
            geometry.append((number, 0, 0, x, y + shift, 0.0, x + dx, y + shift + dy, dz))
        for number in range(base + 2, base + 6):
            counts = [2 + (number + place) % 3 for place in range(TYPES_PER_PILE)]
            lists.append((number, add_types([length] * 9 + [last], counts)))
            nodes[number] = sum(counts) + 1

        # A copy, two mirrors, and a copy of the long pile of the block before.
        source = base if block > 0 else base + 7
        geometry.append((base + 6, base + 2, 0, 3.0, 0.0, 0.0, 0.0, 0.0, 0.0))
        geometry.append((base + 7, base + 3, 1, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0))
        geometry.append((base + 8, base + 4, 2, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0))
        geometry.append((base + 9, source, 0, 5.0, 2.5, 0.0, 0.0, 0.0, 0.0))
        for number, origin in ((base + 6, base + 2), (base + 7, base + 3),
                               (base + 8, base + 4), (base + 9, source)):
            nodes[number] = nodes[origin]

        # The long vertical pile: ten types of 4 and 5 m, listed twice.
        counts = long_counts(block)
        own = add_types([4.0, 5.0] * 5, counts)
        geometry.append((base + 10, 0, 0, x + 8.0, y + 8.0, 0.0,
                         x + 8.0, y + 8.0, LONG_LENGTH))
        lists.append((base + 10, own + own))
        nodes[base + 10] = 2 * sum(counts) + 1
    return types, geometry, lists, nodes


def write_materials():
    print("\nMaterial types: 1 to 19 steel, 20 concrete")
    print("  N  E-modulus  shear mod.  yield  unit weight  temp. strain")
    for number in range(1, MATERIALS):
        print(f"{number:4d} 2.1000E8 8.0770E7 {235000 + 12500 * (number - 1):8d} 77.0 1.2E-5")
    print(f"{MATERIALS:4d} 3.5000E7 1.4583E7 {45000:8d} 25.0 1.0E-5")


def write_cross_sections():
    print("\nTubular cross sections: two of every three are left out")
    print("  N  mat  diameter  wall  EA  EI  GA  GJ  fluid inside")
    for number in [*range(1, CROSS_SECTIONS, 3), CROSS_SECTIONS]:
        material = 1 + (number - 1) * MATERIALS // CROSS_SECTIONS
        diameter, wall = 0.508 + 0.008 * number, 0.012 + 0.0002 * number
        print(f"{number:4d} {material:3d} {diameter:7.3f} {wall:7.4f} 0. 0. 0. 0. 10.0")


def write_segment_types(types):
    print("\nPile segment types")
    print("  N  start  end  length  elements")
    print("* ten types for each given pile, in the order of the piles")
    for number, (start, end, length, count) in enumerate(types, 1):
        print(f"{number:5d} {start:4d} {end:4d} {length:6.2f} {count:4d}")


def write_piles(geometry, lists):
    print("\nPile geometry")
    print("  NP  gen  sym  head x y z  tip x y z")
    print("* Every block of ten: cap point; raked piles 2 and 5, with 3 and 4 left out")
    print("* between them; 6 copy of 2; 7 mirror of 3; 8 mirror of 4; 9 copy of the")
    print("* long pile of the block before; 10 long vertical pile.")
    for number, origin, mirror, *points in geometry:
        print(f"{number:4d} {origin:4d} {mirror:2d} " + " ".join(f"{p:8.2f}" for p in points))
    print("  NP  NSEG  segment types from head to tip")
    for number, listed in lists:
        print(f"{number:4d} {len(listed):3d}" + "".join(f" {t:4d}" for t in listed[:10]))
        if len(listed) > 10:
            print("        " + "".join(f" {t:4d}" for t in listed[10:]))


def write_tips(nodes):
    print("  NP1  NP2  tip  fix")
    for block in range(BLOCKS):
        base = PILES_PER_BLOCK * block
        print(f"{base + 1:5d}{base + 1:5d}{0:6d}{0:5d}")
        print(f"{base + 2:5d}{base + 9:5d}{block % 4:6d}{base + 1:5d}")
        # The most negative tip code that a pile may have.
        print(f"{base + 10:5d}{base + 10:5d}{1 - nodes[base + 10]:6d}{base + 1:5d}")


def special_record(index, nodes):
    """Piles, nodes, code and six values of one special record (index 0..498)."""
    if index == SPECIAL_RECORDS - 1:
        return 200, 200, 1, nodes[200], 4, (12.5, 0.0, 0.0, 0.0, 0.0, 0.0)
    first = 1 + (7 * index) % 200
    code = 1 + index % 4
    last = first + 3 if first % 10 == 2 else first
    smallest = min(nodes[pile] for pile in range(first, last + 1))
    if smallest == 1:
        # A cap point has one node, and no soil that could move.
        code = 1 if code == 3 else code
        return first, last, 1, 1, code, values(code, index)
    node = 1 + index % (smallest - 4)
    return first, last, node, node + 4, code, values(code, index)


def values(code, index):
    """Six values that suit the code: springs, loads, displacements, temperature."""
    grade = 1 + index % 9
    if code == 1:
        return (1000.0 * grade, 1000.0 * grade, 500.0, 0.0, 0.0, 250.0 * grade)
    if code == 2:
        return (12.5 * grade, -7.5 * grade, 20.0, 0.0, 5.0 * grade, -2.5)
    if code == 3:
        return (0.005 * grade, -0.0025 * grade, 0.0, 0.0, 0.0, 0.001)
    return (2.5 * grade, 0.0, 0.0, 0.0, 0.0, 0.0)


def write_special_values(nodes):
    print("\nSpecial pile node values")
    print("  NP1  NP2  ND1  ND2  code  six values")
    for index in range(SPECIAL_RECORDS):
        *numbers, six = special_record(index, nodes)
        print("".join(f"{n:5d}" for n in numbers) + "".join(f" {v:8g}" for v in six))
    print("    0" * 5 + "   0." * 6)


def main():
    types, geometry, lists, nodes = build()
    print("A pile group at the limits of the program, made by generate.py, kN and m")
    print("\nGeneral values of the run")
    for value, remark in ((1.0, "force unit factor"), (1.0, "length unit factor"),
                          (len(nodes), "piles"), (CROSS_SECTIONS, "cross sections"),
                          (MATERIALS, "material types"), (len(types), "pile segment types"),
                          (0, "load vectors"), (0, "print level"), (0, "echo level")):
        print(f"{value:6}  {remark}")
    write_materials()
    write_cross_sections()
    write_segment_types(types)
    write_piles(geometry, lists)
    write_tips(nodes)
    write_special_values(nodes)
    print("END")


if __name__ == "__main__":
    main()
