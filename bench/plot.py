"""Draws lines over logarithmic axes into an SVG file."""

import math
from collections import namedtuple
from html import escape

Chart = namedtuple("Chart", "title unit series")  # series: name to a list of (x, y), all above zero

COLORS = ["#0b6e99", "#b45309", "#3f7d20", "#7a3e9d", "#a11d33", "#555555"]
WIDTH = 760
HEIGHT = 400
LEFT, RIGHT, TOP, BOTTOM = 90, 150, 40, 60


class Axis:
    """From values to places, by powers of ten."""

    def __init__(self, values, begin, end):
        self.first = math.floor(math.log10(min(values)))
        self.last = max(math.ceil(math.log10(max(values))), self.first + 1)
        self.begin = begin
        self.end = end

    def place(self, value):
        part = (math.log10(value) - self.first) / (self.last - self.first)
        return self.begin + part * (self.end - self.begin)

    def ticks(self):
        return [10.0**power for power in range(self.first, self.last + 1)]


def text(x, y, content, more=""):
    return f'<text x="{x:.1f}" y="{y:.1f}" {more}>{escape(content)}</text>'


def line(x1, y1, x2, y2):
    return f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" stroke="#ddd"/>'


def spread(places, least):
    """Places of labels, moved apart to be least away from each other."""
    moved = {}
    last = -math.inf
    for name, place in sorted(places.items(), key=lambda item: item[1]):
        last = max(place, last + least)
        moved[name] = last
    return moved


def draw_chart(chart, label, top):
    points = [point for series in chart.series.values() for point in series]
    x_axis = Axis([x for x, _ in points], LEFT, WIDTH - RIGHT)
    y_axis = Axis([y for _, y in points], top + HEIGHT - BOTTOM, top + TOP)
    parts = [text(LEFT, top + 24, f"{chart.title} ({chart.unit})", 'font-size="16" font-weight="bold"')]
    for tick in x_axis.ticks():
        x = x_axis.place(tick)
        parts.append(line(x, y_axis.begin, x, y_axis.end))
        parts.append(text(x, y_axis.begin + 20, f"{tick:,.0f}", 'text-anchor="middle"'))
    for tick in y_axis.ticks():
        y = y_axis.place(tick)
        parts.append(line(x_axis.begin, y, x_axis.end, y))
        parts.append(text(LEFT - 8, y + 4, f"{tick:,g}", 'text-anchor="end"'))
    parts.append(text((x_axis.begin + x_axis.end) / 2, y_axis.begin + 44, label, 'text-anchor="middle"'))
    labels = spread({name: y_axis.place(series[-1][1]) for name, series in chart.series.items()}, 16)
    for color, (name, series) in zip(COLORS * len(chart.series), chart.series.items()):
        places = [(x_axis.place(x), y_axis.place(y)) for x, y in series]
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in places)
        parts.append(f'<polyline points="{path}" fill="none" stroke="{color}" stroke-width="2"/>')
        parts += [f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3.5" fill="{color}"/>' for x, y in places]
        parts.append(text(places[-1][0] + 10, labels[name] + 4, name, f'fill="{color}"'))
    return parts


def draw(path, label, charts):
    """Draws charts under each other; label is that of the x axes."""
    height = HEIGHT * len(charts)
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}" viewBox="0 0 {WIDTH} {height}" '
        'font-family="sans-serif" font-size="13">',
        f'<rect width="{WIDTH}" height="{height}" fill="white"/>',
    ]
    for number, chart in enumerate(charts):
        parts += draw_chart(chart, label, number * HEIGHT)
    parts.append("</svg>")
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text("\n".join(parts) + "\n")
