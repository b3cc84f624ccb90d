"""Decks of any size for the bench, in kN and m: vertical piles of one tube in a grid, loads, comments."""

LENGTH = 90.0
MOST_ELEMENTS = 450  # of one pile
MOST_PILES = 200
COMMENT = "* a comment of some seventy characters, as an engineer leaves it in a deck"


def spread(total, parts):
    """The total as so many whole numbers that differ by at most one."""
    return [total // parts + (1 if part < total % parts else 0) for part in range(parts)]


def load_vectors(loads, piles):
    """Each vector loads every pile, the last one the piles that are left."""
    lines = ["", "Load vectors"] if loads > 0 else []
    for vector, first in enumerate(range(0, loads, piles), 1):
        loaded = min(piles, loads - first)
        lines += [f"Vector {vector}", f"  {loaded}", "  1.25", "  NP     Fx     Fy     Fz     Mx     My     Mz"]
        lines += [f"{pile:4d} {-36.5 - pile:8.2f} 8.25 {420 + pile:6d} 0 -90.125 {vector:4d}" for pile in range(1, loaded + 1)]
    return lines


def deck(elements, piles=None, loads=0, comments=0, print_level=2):
    """The text of a deck; without a number of piles, as few as hold the elements."""
    if piles is None:
        piles = -(-elements // MOST_ELEMENTS)
    counts = spread(elements, piles)
    types = sorted(set(counts))
    # A pile of the geometry table carries its number in x and y, so that no two stand in one place.
    places = [(3.0 * (pile % 20), 3.5 * (pile // 20)) for pile in range(piles)]
    lines = [
        f"{elements} elements, {piles} piles, {loads} loads, {comments} comments; kN and m",
        "KORVAT Version: 2006-06-11",
        "",
        "General values of the run",
        *(f"  {value}" for value in (1.0, 1.0, piles, 1, 1, len(types), -(-loads // piles), print_level, 0)),
        "",
        "Material types",
        "  N    E-modulus   shear mod.   yield      unit weight   temp. strain",
        "  1    2.100E8     8.077E7      3.55E5     77.0          1.2E-5",
        *[COMMENT] * comments,
        "",
        "Tubular cross sections",
        "  N  mat  diameter   wall     EA   EI   GA   GJ   fluid inside",
        "  1   1    0.914     0.025    0.   0.   0.   0.   10.0",
        "",
        "Pile segment types",
        "  N   start  end    length   elements",
        *(f"{number:4d}  1  1  {LENGTH}  {count}" for number, count in enumerate(types, 1)),
        "",
        "Pile geometry",
        "  NP  gen  sym    x-head   y-head  z-head    x-tip    y-tip   z-tip",
        *(f"{pile:4d} 0 0 {x:7.2f} {y:7.2f} 0.0 {x:7.2f} {y:7.2f} {LENGTH}" for pile, (x, y) in enumerate(places, 1)),
        "  NP  NSEG  segment types from head to tip",
        *(f"{pile:4d}  1  {types.index(count) + 1}" for pile, count in enumerate(counts, 1)),
        "  NP1 NP2  tip  fix",
        f"  1 {piles} 0 0",
        "",
        "Special pile node values",
        "  NP1 NP2  ND1 ND2  code   six values",
        "  0 0 0 0 0  0. 0. 0. 0. 0. 0.",
        *load_vectors(loads, piles),
        "END",
    ]
    return "\n".join(lines) + "\n"


# Decks of whole runs, beside the examples: a name, and what the deck is made of.
GROUPS = {
    "typical": {"elements": 1440, "piles": 24, "loads": 48},
    "largest": {"elements": MOST_PILES * MOST_ELEMENTS, "loads": 50 * MOST_PILES},
}

# What grows, how far, and the deck of each size.
SERIES = {
    "elements": ((10, 100, 1000, 5000, 10000, 20000, 30000, 45000, 60000, 75000, 90000), lambda n: deck(n)),
    "loads": ((10, 100, 1000, 5000, 10000, 20000, 30000, 40000), lambda n: deck(MOST_PILES, MOST_PILES, loads=n)),
    "comment lines": ((10, 100, 1000, 10000, 25000, 50000, 75000, 100000), lambda n: deck(10, comments=n)),
}
