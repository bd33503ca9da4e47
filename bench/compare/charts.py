"""Two kinds of chart as SVG text: lines over a logarithmic grid, and bars."""

import math
from xml.sax.saxutils import escape

WIDTH = 760
COLOURS = {"vexpa": "#c0392b", "limit": "#333333", "libgsf": "#2471a3", "libzip": "#1e8449",
           "minizip": "#b7950b", "karchive": "#7d3c98", "zipfile": "#ca6f1e", "poi": "#148f77",
           "packaging": "#7b7d7d"}


class Drawing:
    def __init__(self, height, title):
        self.lines = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" '
                      f'width="{WIDTH}" height="{height}" font-family="sans-serif" font-size="12">',
                      f"<title>{escape(title)}</title>",
                      f'<rect width="{WIDTH}" height="{height}" fill="#ffffff"/>']
        self.text(WIDTH / 2, 22, title, anchor="middle", size=15)

    def text(self, x, y, text, anchor="start", size=12, colour="#222222"):
        self.lines.append(f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-size="{size}" '
                          f'fill="{colour}">{escape(text)}</text>')

    def line(self, x1, y1, x2, y2, colour="#dddddd", width=1.0):
        self.lines.append(f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" '
                          f'stroke="{colour}" stroke-width="{width}"/>')

    def path(self, points, colour, width):
        joined = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        self.lines.append(f'<polyline points="{joined}" fill="none" stroke="{colour}" '
                          f'stroke-width="{width}"/>')
        for x, y in points:
            self.lines.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{colour}"/>')

    def bar(self, x, y, width, height, colour):
        self.lines.append(f'<rect x="{x:.1f}" y="{y:.1f}" width="{width:.1f}" height="{height:.1f}" '
                          f'fill="{colour}"/>')

    def done(self):
        return "\n".join([*self.lines, "</svg>", ""])


def short_time(ns):
    for limit, unit, name in ((1e3, 1, "ns"), (1e6, 1e3, "µs"), (1e9, 1e6, "ms")):
        if ns < limit:
            return f"{ns / unit:g} {name}"
    return f"{ns / 1e9:g} s"


def spread_labels(ends, gap=14):
    """Moves labels at (y, ...) apart that would lie on each other."""
    placed, last = [], -math.inf
    for y, *rest in sorted(ends):
        last = max(y, last + gap)
        placed.append((last, *rest))
    return placed


def log_log(title, series, titles):
    """series: {driver: [(parts, ns)]}."""
    height, left, right, top, bottom = 460, 70, 150, 40, 46
    points = [point for line in series.values() for point in line]
    decades = [(math.floor(math.log10(min(values))), math.ceil(math.log10(max(values))))
               for values in zip(*points)]
    (x0, x1), (y0, y1) = decades

    def place(parts, ns):
        return (left + (math.log10(parts) - x0) / (x1 - x0) * (WIDTH - left - right),
                height - bottom - (math.log10(ns) - y0) / (y1 - y0) * (height - top - bottom))

    drawing = Drawing(height, title)
    for decade in range(x0, x1 + 1):
        x, y = place(10 ** decade, 10 ** y0)
        drawing.line(x, top, x, y)
        drawing.text(x, y + 18, f"{10 ** decade:,}", anchor="middle")
    for decade in range(y0, y1 + 1):
        x, y = place(10 ** x0, 10 ** decade)
        drawing.line(x, y, WIDTH - right, y)
        drawing.text(x - 8, y + 4, short_time(10 ** decade), anchor="end")
    drawing.text((left + WIDTH - right) / 2, height - 8, "parts", anchor="middle")
    ends = []
    for name, line in series.items():
        path = [place(*point) for point in sorted(line)]
        drawing.path(path, COLOURS.get(name, "#888888"), 2.5 if name in ("vexpa", "limit") else 1.5)
        ends.append((path[-1][1], path[-1][0], name))
    for y, x, name in spread_labels(ends):
        drawing.text(x + 8, y + 4, titles[name], colour=COLOURS.get(name, "#888888"))
    return drawing.done()


def bars(title, groups, titles):
    """groups: {group: {driver: times of this library}}, drawn on a logarithmic scale."""
    row, left, right, top = 18, 150, 60, 40
    count = sum(len(group) for group in groups.values())
    height = top + count * row + len(groups) * 34 + 10
    values = [value for group in groups.values() for value in group.values()]
    low, high = math.log10(min(0.1, *values)), math.log10(max(10, *values))

    def place(value):
        return left + (math.log10(value) - low) / (high - low) * (WIDTH - left - right)

    drawing, y = Drawing(height, title), top
    for group, measured in groups.items():
        drawing.text(8, y + 16, group, size=13)
        y += 24
        for name, value in sorted(measured.items(), key=lambda item: item[1]):
            ends = sorted((place(1), place(value)))
            drawing.text(left - 8, y + 12, titles[name], anchor="end")
            drawing.bar(ends[0], y + 2, max(ends[1] - ends[0], 1.5), row - 5, COLOURS.get(name, "#888888"))
            drawing.text(ends[1] + 6, y + 12, f"{value:.2f}")
            y += row
        y += 10
    drawing.line(place(1), top, place(1), y, "#c0392b", 1)
    return drawing.done()
