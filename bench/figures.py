"""Measured figures: samples under a name, kept in a JSON file, compared pair by pair, fitted with a line."""
import json
import statistics

VERSION = 1


class Figures:
    """Samples of each figure by its name, with the unit, and what is known of the machine."""

    def __init__(self, about=None):
        self.about = dict(about or {})
        self.samples, self.units = {}, {}

    def add(self, name, value, unit):
        self.samples.setdefault(name, []).append(value)
        self.units[name] = unit

    def __contains__(self, name):
        return name in self.samples

    def median(self, name):
        return statistics.median(self.samples[name])

    def sums(self, *names):
        """What the figures give together, sample by sample."""
        return [sum(values) for values in zip(*(self.samples[name] for name in names), strict=True)]

    def ratios(self, name, other):
        """The first figure over the second, pair by pair: sample i of both was measured side by side."""
        return [a / b for a, b in zip(self.samples[name], self.samples[other], strict=True)]

    def names(self, group):
        return [name for name in self.samples if name.split("/")[0] == group]

    def write(self, path):
        figures = {name: {"unit": self.units[name], "samples": [rounded(s) for s in samples]} for name, samples in self.samples.items()}
        lines = ",\n".join(f"  {json.dumps(name)}: {json.dumps(figure)}" for name, figure in figures.items())
        about = json.dumps({"version": VERSION, **self.about}, indent=1)
        path.write_text(f'{about[:-2]},\n "figures": {{\n{lines}\n }}\n}}\n', encoding="utf-8")


def rounded(value):
    return float(f"{value:.6g}")


def read(path):
    content = json.loads(path.read_text(encoding="utf-8"))
    if content.pop("version", None) != VERSION:
        raise SystemExit(f"bench: {path} has not the form that this version writes")
    figures = Figures()
    for name, figure in content.pop("figures").items():
        for sample in figure["samples"]:
            figures.add(name, sample, figure["unit"])
    figures.about = content
    return figures


def quartiles(samples):
    if len(samples) == 1:
        return samples[0], samples[0]
    low, _, high = statistics.quantiles(samples, n=4, method="inclusive")
    return low, high


def with_processor_times(figures):
    """User and system times as their sums: the system splits a time between the two by its clock ticks, too coarsely for short runs."""
    merged = Figures(figures.about)
    for name, samples in figures.samples.items():
        if name.endswith("/system"):
            continue
        at = name.removesuffix("/user")
        summed = figures.sums(name, f"{at}/system") if at != name else samples
        for sample in summed:
            merged.add(name if at == name else f"{at}/processor", sample, figures.units[name])
    return merged


def compare(old, new):
    """For each figure of both: name, unit, both medians, new over old, and whether the middle halves of the samples lie apart."""
    old, new = with_processor_times(old), with_processor_times(new)
    pairs = []
    for name, samples in new.samples.items():
        if name not in old:
            continue
        before, now = old.median(name), new.median(name)
        (old_low, old_high), (new_low, new_high) = quartiles(old.samples[name]), quartiles(samples)
        apart = new_low > old_high or new_high < old_low
        pairs.append((name, new.units[name], before, now, now / before if before else None, apart))
    return pairs


def fitted_line(points):
    """Slope, intercept and largest deviation in percent of the line with the least sum of squared relative deviations.

    Relative ones, because the sizes of a series go over several powers of ten: the small ones decide the intercept.
    """
    weights = [1.0 / (y * y) for _, y in points]
    whole = sum(weights)
    mean_x = sum(w * x for w, (x, _) in zip(weights, points)) / whole
    mean_y = sum(w * y for w, (_, y) in zip(weights, points)) / whole
    spread = sum(w * (x - mean_x) ** 2 for w, (x, _) in zip(weights, points))
    slope = sum(w * (x - mean_x) * (y - mean_y) for w, (x, y) in zip(weights, points)) / spread
    intercept = mean_y - slope * mean_x
    deviation = max(abs(slope * x + intercept - y) / y for x, y in points)
    return slope, intercept, 100.0 * deviation
