#!/usr/bin/env python3
"""What a thicker wall brings: axial yield force and plastic moment of a tube of 1200 mm, from 15 to 60 mm of wall.

wall_thickness.py [PICTURE]   draws the study, to wall-thickness.png unless another file is named; needs matplotlib
wall_thickness.py --table     prints it

One deck of revision 5 has a section for every wall and check; KORVAT computes the yield curves, and the study reads them from PILE.07.
Units are kN and m in the deck, MN and m in the study.
"""

from __future__ import annotations

import sys

import numpy as np

import korvat

DIAMETER = 1.2
YIELD_STRESS = 3.55e5
WALLS = np.arange(15, 61, 5) / 1000.0
CHECKS = ("norchk", "isochk")
SHOWN_WALLS = (0.020, 0.040, 0.060)  # of the interaction curves


def study_deck() -> tuple[korvat.Deck, dict[tuple[float, str], int]]:
    """The deck, and the number of the section of each wall and check."""
    deck = korvat.Deck("Wall thickness study, tube of 1200 mm, kN and m", revision=5)
    steel = deck.add_material(2.1e8, 8.077e7, YIELD_STRESS, wall_weight=77.0, note="steel S355")
    sections = {
        (wall, check): deck.add_section(steel, DIAMETER, wall, check=check) for wall in WALLS.tolist() for check in CHECKS
    }
    # The sections are all that matters, but a group has at least one pile.
    segment = deck.add_segment(1, 1, length=10.0, elements=1)
    deck.add_pile(head=(0.0, 0.0, 0.0), tip=(0.0, 0.0, 10.0), segments=[segment])
    return deck, sections


def read_study() -> tuple[korvat.PileFile, dict[tuple[float, str], int]]:
    deck, sections = study_deck()
    with korvat.run(deck) as run:
        return run.check().pile(), sections


def moment_without_axial_force(group: korvat.PileFile, section: int, kind: str = "plastic_moment") -> float:
    """In MNm, from the point of the curves at which the axial force is 0."""
    curve = group.curves[section]
    return float(curve[kind][curve["plastic_axial"] == 0.0][0]) / 1000.0


def print_table() -> None:
    group, sections = read_study()
    print("wall mm  axial yield MN  M norchk MNm  M isochk MNm  first yield MNm")
    for wall in WALLS.tolist():
        norchk, isochk = (sections[wall, check] for check in CHECKS)
        values = (
            group.section(norchk)["axial_yield"] / 1000.0,
            moment_without_axial_force(group, norchk),
            moment_without_axial_force(group, isochk),
            moment_without_axial_force(group, norchk, "elastic_moment"),
        )
        print(f"{1000 * wall:7.1f}" + "".join(f"{value:{width}.2f}" for value, width in zip(values, (16, 14, 14, 17))))


def draw(path: str) -> None:
    import matplotlib

    matplotlib.use("Agg")
    import matplotlib.pyplot as plt

    group, sections = read_study()
    walls = 1000 * WALLS
    figure, (axial, moment, curves) = plt.subplots(1, 3, figsize=(13, 4.2), layout="constrained")

    forces = [group.section(sections[wall, "norchk"])["axial_yield"] / 1000.0 for wall in WALLS.tolist()]
    axial.plot(walls, forces, "o-", color="tab:blue")
    axial.set(title="Axial yield force", xlabel="wall, mm", ylabel="A·σy, MN", ylim=(0, None))

    for check, colour in zip(CHECKS, ("tab:blue", "tab:orange")):
        values = [moment_without_axial_force(group, sections[wall, check]) for wall in WALLS.tolist()]
        moment.plot(walls, values, "o-", color=colour, label=f"plastic, {check}")
    first = [moment_without_axial_force(group, sections[wall, "norchk"], "elastic_moment") for wall in WALLS.tolist()]
    moment.plot(walls, first, "--", color="tab:grey", label="first yield")
    moment.set(title="Moment without axial force", xlabel="wall, mm", ylabel="M, MNm", ylim=(0, None))
    moment.legend()

    for wall, colour in zip(SHOWN_WALLS, ("tab:green", "tab:purple", "tab:red")):
        for check, style in zip(CHECKS, ("-", "--")):
            curve = group.curves[sections[wall, check]]
            label = f"{1000 * wall:.0f} mm, {check}"
            curves.plot(curve["plastic_moment"] / 1000, curve["plastic_axial"] / 1000, style, color=colour, label=label)
    curves.axhline(0.0, color="black", linewidth=0.6)
    curves.set(title="Plastic yield curves", xlabel="M, MNm", ylabel="N, MN (compression +)", xlim=(0, None))
    curves.legend(fontsize="small", loc="upper left", bbox_to_anchor=(1.0, 1.0))

    for axes in (axial, moment, curves):
        axes.grid(alpha=0.3)
    figure.suptitle("Tube of 1200 mm, S355")
    figure.savefig(path, dpi=100, metadata={"Software": None})


def main() -> None:
    if sys.argv[1:] == ["--table"]:
        print_table()
    elif len(sys.argv) <= 2:
        draw(sys.argv[1] if len(sys.argv) == 2 else "wall-thickness.png")
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
