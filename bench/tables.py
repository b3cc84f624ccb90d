"""The tables that figures give, for the terminal and for the document. Every number in them is a median."""
import statistics

from figures import compare, fitted_line, quartiles

KIND_NAMES = {
    "lines": "editing and writing lines",
    "reading": "reading the deck",
    "records": "record files",
    "computing": "computing",
    "start and end": "start and end",
    "system": "the operating system",
}


def shown(value, digits=3):
    """With so many significant digits, or as a whole number that has more of them."""
    if value is None:
        return ""
    text = f"{value:#.{digits}g}"
    return f"{value:.0f}" if "e" in text or text.endswith(".") else text


def ratio(figures, name, other):
    return statistics.median(figures.ratios(name, other))


def has_before(figures):
    return any("/before/" in name for name in figures.samples)


def decks_of(figures, group):
    return list(dict.fromkeys(name.split("/")[1] for name in figures.names(group)))


def processor(figures, prefix):
    """Median of user and system time together."""
    return statistics.median(figures.sums(f"{prefix}/user", f"{prefix}/system"))


def middle_half(samples):
    return " to ".join(shown(value, 2) for value in quartiles(samples))


def whole_table(figures, group="whole"):
    before = has_before(figures)
    header = ["deck", "MB written", "run, ms", "cp, ms", "run / cp", "middle half", "true, ms", "run / true", "processor, ms", "MiB"]
    rows = []
    for deck in decks_of(figures, group):
        at = f"{group}/{deck}"
        memory = f"{at}/korvat/memory"
        row = [
            deck,
            f"{figures.median(f'{at}/written') / 1e6:.2f}",
            *(shown(v) for v in (
                figures.median(f"{at}/korvat/wall"), figures.median(f"{at}/cp/wall"), ratio(figures, f"{at}/korvat/wall", f"{at}/cp/wall"),
            )),
            middle_half(figures.ratios(f"{at}/korvat/wall", f"{at}/cp/wall")),
            *(shown(v) for v in (
                figures.median(f"{at}/true/wall"), ratio(figures, f"{at}/korvat/wall", f"{at}/true/wall"), processor(figures, f"{at}/korvat"),
            )),
            f"{figures.median(memory):.1f}" if memory in figures else "",
        ]  # fmt: skip
        if before:
            row += [shown(figures.median(f"{at}/before/wall")), shown(ratio(figures, f"{at}/korvat/wall", f"{at}/before/wall"))]
        rows.append(row)
    return header + (["before, ms", "run / before"] if before else []), rows


def memory_table(figures):
    return whole_table(figures, "memory")


def empty_table(figures):
    at = "empty/directory"
    row = ["no deck", *(shown(figures.median(f"{at}/{who}/wall")) for who in ("korvat", "true")), shown(ratio(figures, f"{at}/korvat/wall", f"{at}/true/wall"))]
    if has_before(figures):
        row.append(shown(figures.median(f"{at}/before/wall")))
    return ["", "run, ms", "true, ms", "run / true"] + (["before, ms"] if has_before(figures) else []), [row]


def door_table(figures):
    header = ["", "KORVAT, million/s", "against", "million/s", "KORVAT / other"]
    rows = []
    for what, ours, other in (
        ("lines of a node", "door/write/door", "runtime"), ("lines of a node", "door/write/door", "snprintf"), ("numbers", "door/read/door", "strtod"),
    ):  # fmt: skip
        theirs = f"{ours.rsplit('/', 1)[0]}/{other}"
        rows.append([what, shown(figures.median(ours)), other, shown(figures.median(theirs)), shown(ratio(figures, ours, theirs))])
    return header, rows


def series_points(figures, series, who):
    """Size and median processor time in ms of each deck of the series."""
    sizes = sorted({int(name.split("/")[2]) for name in figures.names("growth") if name.split("/")[1] == series})
    return [(size, processor(figures, f"growth/{series}/{size}/{who}")) for size in sizes]


def growth_table(figures):
    rows = []
    for series in decks_of(figures, "growth"):
        for who in ("korvat", *(["before"] if has_before(figures) else [])):
            points = series_points(figures, series, who)
            slope, intercept, deviation = fitted_line(points)
            rows.append([
                series, who, f"{points[0][0]} to {points[-1][0]}", shown(points[0][1]), shown(points[-1][1]), shown(1000.0 * slope),
                shown(intercept), shown(deviation, 2) + " %",
            ])  # fmt: skip
    return ["what grows", "program", "from ... to", "smallest, ms", "largest, ms", "slope, µs each", "at 0, ms", "largest deviation"], rows


def times_of_kinds(figures, who):
    """Milliseconds of processor time of each kind of work in a run of the largest group: the user time by the shares of its instructions."""
    user = figures.median(f"whole/largest/{who}/user")
    kinds = {kind: user * figures.median(f"shares/{who}/{kind}") / 100.0 for kind in KIND_NAMES if kind != "system"}
    return {**kinds, "system": figures.median(f"whole/largest/{who}/system")}


def shares_table(figures):
    who = [w for w in ("before", "korvat") if f"shares/{w}/lines" in figures]
    titles = {"before": "before", "korvat": "now"}
    timed = all(f"whole/largest/{w}/user" in figures for w in who)
    header = ["work"] + [f"{titles[w]}, % of instructions" for w in who] + ([f"{titles[w]}, ms" for w in who] if timed else [])
    rows = []
    for kind, name in KIND_NAMES.items():
        row = [name, *(f"{figures.median(f'shares/{w}/{kind}'):.1f}" if kind != "system" else "" for w in who)]
        rows.append(row + ([shown(times_of_kinds(figures, w)[kind], 2) for w in who] if timed else []))
    whole = [shown(figures.median(f"shares/{w}/instructions")) + " million" for w in who]
    rows.append(["all", *whole, *([shown(sum(times_of_kinds(figures, w).values())) for w in who] if timed else [])])
    return header, rows


TABLES = {"whole": whole_table, "memory": memory_table, "empty": empty_table, "door": door_table, "growth": growth_table, "shares": shares_table}
TITLES = {
    "whole": "whole runs",
    "memory": "whole runs in a memory-backed directory",
    "empty": "an empty directory",
    "door": "lines written and numbers read in a second",
    "growth": "growth of the processor time, with a straight line through it",
    "shares": "where the time of the largest group goes",
}


def comparison_table(old, new):
    rows = []
    for name, unit, before, now, quotient, apart in compare(old, new):
        rows.append([name, unit, shown(before), shown(now), shown(quotient), "apart" if apart else ""])
    return ["figure", "unit", "old", "new", "new / old", "middle halves"], rows


def as_text(header, rows):
    widths = [max(len(row[i]) for row in [header, *rows]) for i in range(len(header))]
    return "\n".join("  ".join(c.ljust(w) if i == 0 else c.rjust(w) for i, (c, w) in enumerate(zip(row, widths))).rstrip() for row in [header, *rows])


def as_markdown(header, rows):
    lines = [header, ["---", *["---:"] * (len(header) - 1)], *rows]
    return "\n".join("| " + " | ".join(row) + " |" for row in lines)
