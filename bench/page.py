"""docs/performance.md: its tables, figures and pictures come from bench/figures.json and from nowhere else.

In the page a table stands between <!--table NAME--> and <!--/table-->, a figure as <!--NAME-->FIGURE<!--/-->.
"""
import pathlib
import re
import statistics
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "scripts"))
import figures as kept
import tables
from svg import COLOURS, GREY, INK, Drawing, Frame, nice_step

PAGE = ROOT / "docs" / "performance.md"
SAMPLES = ROOT / "bench" / "figures.json"
PICTURES = ROOT / "docs" / "pictures"
TABLE = re.compile(r"<!--table (\w+)-->\n.*?<!--/table-->", re.S)
FIGURE = re.compile(r"<!--([\w-]+)-->[^<]*<!--/-->")

NOW, BEFORE = COLOURS
KIND_COLOURS = dict(zip(tables.KIND_NAMES, ("#1f5fa8", "#5aa0d8", "#c8501e", "#3d8b4f", "#8a6fb0", "#b0b0b0")))


def figures_in_text(figures):
    def of_copy(group, deck):
        return tables.shown(tables.ratio(figures, f"{group}/{deck}/korvat/wall", f"{group}/{deck}/cp/wall"), 2)

    def door(ours, other):
        return tables.shown(tables.ratio(figures, f"door/{ours}/door", f"door/{ours}/{other}"), 2)

    def times(deck):
        pairs = figures.ratios(f"whole/{deck}/before/wall", f"whole/{deck}/korvat/wall")
        return tables.shown(statistics.median(pairs), 2)

    return {
        **{key: str(figures.about[key]) for key in ("date", "processor", "cores", "runs")},
        "largest-cp": of_copy("whole", "largest"), "largest-memory-cp": of_copy("memory", "largest"), "largest-times": times("largest"),
        "typical-cp": of_copy("whole", "typical"), "typical-memory-cp": of_copy("memory", "typical"), "typical-times": times("typical"),
        "largest-megabytes": f"{figures.median('whole/largest/written') / 1e6:.0f}",
        "runtime-times": door("write", "runtime"), "snprintf-times": door("write", "snprintf"), "strtod-times": door("read", "strtod"),
        "upper-slope": slope_of_upper_half(figures), "system-share": share_of_system(figures),
    }  # fmt: skip


def slope_of_upper_half(figures):
    """Of the elements: the slope from half the largest size to the largest, over that of the line through all."""
    points = tables.series_points(figures, "elements", "korvat")
    (low, start), (high, end) = next(p for p in points if 2 * p[0] >= points[-1][0]), points[-1]
    return f"{(end - start) / (high - low) / kept.fitted_line(points)[0]:.2f}"


def share_of_system(figures):
    times = tables.times_of_kinds(figures, "korvat")
    return f"{100.0 * times['system'] / sum(times.values()):.0f} %"


def draw_growth(figures, path):
    drawing = Drawing(980, 400, "Growth of the processor time")
    drawing.text((490.0, 28.0), "Processor time of a run against the size of the deck", size=17)
    whose = [("before", BEFORE), ("korvat", NOW)] if tables.has_before(figures) else [("korvat", NOW)]
    for column, series in enumerate(tables.decks_of(figures, "growth")):
        points = {who: [(n / 1000, t) for n, t in tables.series_points(figures, series, who)] for who, _ in whose}
        largest = max(t for line in points.values() for _, t in line)
        width = max(n for n, _ in points["korvat"])
        frame = Frame(75 + 315 * column, 60, 305 + 315 * column, 310, (0.0, 1.03 * width), (1.08 * largest, 0.0))
        frame.draw(drawing, nice_step(width), nice_step(largest), f"thousand {series}", "ms")
        for who, colour in whose:
            slope, intercept, _ = kept.fitted_line(points[who])
            drawing.path([frame.at(0.0, intercept), frame.at(width, intercept + slope * width)], colour, width=1)
            for n, t in points[who]:
                drawing.circle(frame.at(n, t), 3.5, colour, "none")
    for row, (who, colour) in enumerate(whose):
        drawing.circle((95.0 + 430 * row, 380.0), 3.5, colour, "none")
        name = "before" if who == "before" else "now"
        drawing.text((107.0 + 430 * row, 384.5), f"{name}: medians, and the straight line through them", "start")
    drawing.write(path)


def draw_time(figures, path):
    """A bar of processor time for each program and for cp, made of the kinds of work."""
    who = [w for w in ("before", "korvat") if f"shares/{w}/lines" in figures]
    bars = [("before" if w == "before" else "now", tables.times_of_kinds(figures, w)) for w in who]
    copy = {"start and end": figures.median("whole/largest/cp/user"), "system": figures.median("whole/largest/cp/system")}
    bars.append(("cp", copy))
    longest = max(sum(times.values()) for _, times in bars)
    drawing = Drawing(980, 130 + 56 * len(bars) + 60, "Where the time goes")
    drawing.text((490.0, 28.0), "Processor time of the largest group, ms", size=17)
    scale = 780.0 / longest
    for row, (name, times) in enumerate(bars):
        left, top = 90.0, 52.0 + 56 * row
        drawing.text((left - 12, top + 23.0), name, "end")
        for kind, time in times.items():
            drawing.add("rect", x=left, y=top, width=scale * time, height=36, fill=KIND_COLOURS[kind])
            left += scale * time
        drawing.text((left + 8, top + 23.0), tables.shown(sum(times.values())), "start")
    for place, (kind, name) in enumerate(tables.KIND_NAMES.items()):
        x, y = 90.0 + 280 * (place % 3), 76.0 + 56 * len(bars) + 30 * (place // 3)
        drawing.square((x, y), 14, KIND_COLOURS[kind], "none")
        drawing.text((x + 16, y + 4.5), name, "start", colour=INK)
    drawing.text((83.0, 142.0 + 56 * len(bars)), "All bars have one scale. The user time of cp stands under start and end.", "start", size=12, colour=GREY)
    drawing.write(path)


DRAWN = {"growth.svg": draw_growth, "time.svg": draw_time}


def filled(text, figures):
    """The page with the tables and figures of the samples."""
    texts = figures_in_text(figures)
    known = {name for name, _ in re.findall(r"<!--([\w-]+)-->([^<]*)<!--/-->", text)}
    if known - set(texts):
        raise SystemExit(f"bench: no figure for {', '.join(sorted(known - set(texts)))} in {PAGE.name}")
    text = TABLE.sub(lambda m: f"<!--table {m[1]}-->\n{tables.as_markdown(*tables.TABLES[m[1]](figures))}\n<!--/table-->", text)
    return FIGURE.sub(lambda m: f"<!--{m[1]}-->{texts[m[1]]}<!--/-->", text)


def write():
    figures = kept.read(SAMPLES)
    for name, draw in DRAWN.items():
        draw(figures, PICTURES / name)
    PAGE.write_text(filled(PAGE.read_text(encoding="utf-8"), figures), encoding="utf-8")
    print(f"{PAGE.relative_to(ROOT)} and {', '.join(DRAWN)}: samples of {figures.about['date']}")
    return 0


def check():
    figures = kept.read(SAMPLES)
    text = PAGE.read_text(encoding="utf-8")
    different = [] if filled(text, figures) == text else [PAGE.name]
    with tempfile.TemporaryDirectory() as scratch:
        for name, draw in DRAWN.items():
            drawn = pathlib.Path(scratch) / name
            draw(figures, drawn)
            different += [] if drawn.read_bytes() == (PICTURES / name).read_bytes() else [name]
    print("\n".join(f"{name} is not what bench/figures.json gives: bench/run --page" for name in different) or "the page is that of bench/figures.json")
    return 1 if different else 0
