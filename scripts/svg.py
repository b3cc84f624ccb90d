"""Pictures for the documents: an SVG drawing, and frames with a scale."""
from xml.sax.saxutils import escape

COLOURS = ("#1f5fa8", "#c8501e")
INK, GREY, GRID = "#222222", "#666666", "#dddddd"


class Drawing:
    """An SVG picture on a white ground; coordinates are pixels, y downwards."""

    def __init__(self, width, height, title):
        self.lines = [
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}" '
            'font-family="DejaVu Sans, Verdana, Helvetica, sans-serif" font-size="13">',
            f"<title>{escape(title)}</title>",
            f'<rect width="{width}" height="{height}" fill="#ffffff"/>',
        ]

    def add(self, name, content=None, **attributes):
        # one decimal is a tenth of a pixel; without -0.0
        text = "".join(
            f' {key.replace("__", ":").replace("_", "-")}="{round(value, 1) + 0.0 if isinstance(value, float) else value}"'
            for key, value in attributes.items()
        )
        self.lines.append(f"<{name}{text}/>" if content is None else f"<{name}{text}>{content}</{name}>")

    def line(self, start, end, colour=INK, width=1):
        self.add("line", x1=start[0], y1=start[1], x2=end[0], y2=end[1], stroke=colour, stroke_width=width)

    def path(self, points, colour, width=2, dashes=None):
        attributes = {"stroke_dasharray": dashes} if dashes else {}
        self.add(
            "polyline",
            points=" ".join(f"{x:.1f},{y:.1f}" for x, y in points),
            fill="none", stroke=colour, stroke_width=width, **attributes,
        )

    def text(self, at, content, anchor="middle", size=13, colour=INK, turned=False):
        attributes = {"transform": f"rotate(-90 {at[0]:.1f} {at[1]:.1f})"} if turned else {}
        self.add("text", escape(content), x=at[0], y=at[1], text_anchor=anchor, font_size=size, fill=colour, **attributes)

    def listing(self, at, lines, size, pitch):
        """Lines of a file in a fixed-width font, blanks kept."""
        for row, line in enumerate(lines):
            if line:
                self.add(
                    "text", escape(line), x=at[0], y=at[1] + pitch * row, font_size=size, fill=INK,
                    font_family="DejaVu Sans Mono, Consolas, Menlo, monospace", xml__space="preserve",
                )

    def circle(self, at, radius, fill, stroke):
        self.add("circle", cx=at[0], cy=at[1], r=radius, fill=fill, stroke=stroke, stroke_width=1.5)

    def square(self, at, side, fill, stroke):
        self.add(
            "rect", x=at[0] - side / 2, y=at[1] - side / 2, width=side, height=side, fill=fill, stroke=stroke, stroke_width=1.5
        )

    def write(self, path):
        path.write_text("\n".join(self.lines + ["</svg>"]) + "\n", encoding="utf-8")


def ticks(low, high, step):
    """Multiples of the step within the range."""
    first = -int(-low // step)
    return [step * k for k in range(first, int(high // step) + 1)]


class Frame:
    """A rectangle of the picture with a scale of its own in both directions."""

    def __init__(self, left, top, right, bottom, x_range, y_range):
        self.box = (left, top, right, bottom)
        self.x_range, self.y_range = x_range, y_range

    def at(self, x, y):
        left, top, right, bottom = self.box
        across = (x - self.x_range[0]) / (self.x_range[1] - self.x_range[0])
        down = (y - self.y_range[0]) / (self.y_range[1] - self.y_range[0])
        return left + across * (right - left), top + down * (bottom - top)

    def draw(self, drawing, x_step, y_step, x_title, y_title):
        left, top, right, bottom = self.box
        for x in ticks(*sorted(self.x_range), x_step):
            column = self.at(x, 0)[0]
            drawing.line((column, float(top)), (column, float(bottom)), GREY if x == 0 else GRID)
            drawing.text((column, bottom + 18.0), f"{x:g}".replace("-", "−"))
        for y in ticks(*sorted(self.y_range), y_step):
            row = self.at(0, y)[1]
            drawing.line((float(left), row), (float(right), row), GREY if y == 0 else GRID)
            drawing.text((left - 8.0, row + 4.5), f"{y:g}".replace("-", "−"), "end")
        drawing.add("rect", x=left, y=top, width=right - left, height=bottom - top, fill="none", stroke=INK)
        drawing.text(((left + right) / 2, bottom + 40.0), x_title)
        drawing.text((left - 48.0, (top + bottom) / 2), y_title, turned=True)


def nice_step(span):
    """A step of 1, 2 or 5 times a power of ten that divides the span into at most eight."""
    step = 1e-3
    while True:
        for factor in (1, 2, 5):
            if span / (step * factor) <= 8:
                return step * factor
        step *= 10
