#!/usr/bin/env python3
"""Writes the limits deck in revision 5 to standard output.

Usage:  python3 generate.py > KORVAT.INP

Piles, segment lists, materials and node values are those of the limits
example, whose generator is used. The cross sections are this deck's own: 66
sections and 134 sub-sections fill the table of 200. Four sections are plain, one
composite has twelve sub-sections, and all other composites have two.
Nothing is random: two runs give the same bytes.
"""

import importlib.util
import pathlib
import sys

# Code, diameter and wall; diameter over wall goes from 20 to 80.
PLAIN = ((-1, 1.0, 0.05), (-2, 1.26, 0.042), (-1, 1.52, 0.032), (-2, 1.76, 0.022))
TWELVE_TUBES = len(PLAIN) + 1
SECTIONS = 66
POINTS = 10


def load_limits():
    """The generator of the limits example, as a module."""
    sys.dont_write_bytecode = True
    path = pathlib.Path(__file__).resolve().parent.parent / "limits" / "generate.py"
    spec = importlib.util.spec_from_file_location("limits_generate", path)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def end_sections(limits, pile, place, elements):
    """Cross sections at the two ends of a segment of the given pile (0..99)."""
    start = 1 + (2 * pile + place % 2) % SECTIONS
    if place % 3 != 1:
        return start, start
    for step in (5, 3, 2, 1):
        end = start + step if pile % 2 == 0 else start - step
        if 1 <= end <= SECTIONS and not limits.halfway(start, end, elements):
            return start, end
    return start, start


def segment_types(limits, types):
    """The types of the limits deck, with sections of this deck."""
    count = limits.TYPES_PER_PILE
    return [(*end_sections(limits, index // count, index % count, elements), length, elements)
            for index, (_, _, length, elements) in enumerate(types)]


def tubes(number):
    """Material, diameter and wall of each tube of a composite, outermost first."""
    if number == TWELVE_TUBES:
        return [(1 + place, 1.2 - 0.05 * place, 0.025) for place in range(12)]
    diameter = 0.6 + 0.01 * number
    return [(1 + number % 19, diameter, 0.02), (1 + (number + 6) % 20, diameter - 0.04, 0.015)]


def point_count(number):
    """Every fourth composite has given points, the one of twelve tubes among them."""
    return POINTS if number >= TWELVE_TUBES and number % 4 == TWELVE_TUBES % 4 else 0


def points(number):
    """Elastic and plastic curve of a section: straight lines and a parabola.

    The axial forces are ninths of 9000 + 450 n, the moments 81sts of 1620 + 81 n:
    every plastic value is a whole number.
    """
    for step in range(9, -10, -2):
        axial = (1000 + 50 * number) * step
        moment = (20 + number) * (81 - step * step)
        yield 0.75 * axial, (20 + number) * 5.5 * (9 - abs(step)), axial, moment


def print_tube(start, material, diameter, wall, fluid):
    print(f"{start}{material:4d} {diameter:6.3f} {wall:6.3f} 0. 0. 0. 0. {fluid:4.1f} 0. 0. 0. 0.")


def write_cross_sections():
    print("\nTubes: four plain, one of twelve tubes, and sixty-one of two tubes")
    print("  plain: N type code; sub-sections: N number type code; then")
    print("  mat  diameter  wall  EA  EI  GA  GJ  fluid  eccentricity  three values")
    for number, (code, diameter, wall) in enumerate(PLAIN, 1):
        print_tube(f"{number:4d}{1:4d}{code:4d}", number, diameter, wall, 10.0)
    for number in range(TWELVE_TUBES, SECTIONS + 1):
        parts = tubes(number)
        print_tube(f"{number:4d}{len(parts):4d}{point_count(number):4d}", 0, 0.0, 0.0, 0.0)
        for place, (material, diameter, wall) in enumerate(parts, 1):
            fluid = 10.0 if place == len(parts) else 0.0
            print_tube(f"{number:4d}{place:4d}{1:4d}{0:4d}", material, diameter, wall, fluid)
    print("* section, point, elastic force and moment, plastic force and moment")
    for number in range(1, SECTIONS + 1):
        if point_count(number):
            for place, values in enumerate(points(number), 1):
                print(f"{number:4d}{place:4d}" + "".join(f" {value:10.1f}" for value in values))


def write_materials(limits):
    """The materials of the limits deck, with the third heading line of revision 5."""
    # The blank line of the limits deck becomes the end of the first heading.
    print("\n  Twenty materials, kN and m", end="")
    limits.write_materials()


def main():
    limits = load_limits()
    types, geometry, lists, nodes = limits.build()
    print("The limits deck in revision 5, made by generate.py, kN and m")
    print("KORVAT Version: 2009-09-01")
    print("\nGeneral values of the run")
    for value, remark in ((1.0, "force unit factor"), (1.0, "length unit factor"),
                          (len(nodes), "piles"), (SECTIONS, "cross sections"),
                          (limits.MATERIALS, "material types"),
                          (len(types), "pile segment types"),
                          (0, "load vectors"), (0, "print level"), (0, "echo level")):
        print(f"{value:6}  {remark}")
    write_materials(limits)
    write_cross_sections()
    limits.write_segment_types(segment_types(limits, types))
    limits.write_piles(geometry, lists)
    limits.write_tips(nodes)
    limits.write_special_values(nodes)
    print("END")


if __name__ == "__main__":
    main()
