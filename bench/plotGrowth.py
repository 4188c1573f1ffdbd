#!/usr/bin/env python3
"""Draws how the list's operations grow with its length, and edits of many places with the text,
beside their peers and the law that ours are meant to follow.

    bench/plotGrowth.py PATH/TO/qvBench OUTPUT.svg

Prints for each law how much more a unit of work costs in the greatest size than in the one that is
nearest to a tenth of it: 1 when the law holds, and well above it when it does not.
"""

import json
import math
import subprocess
import sys

WIDTH, HEIGHT, MARGIN, COLUMNS = 300, 240, 44, 5
COLOURS = {"ours": "#1f77b4", "vector": "#ff7f0e", "stable_sort": "#2ca02c", "onePass": "#ff7f0e"}
# By the first word of an operation; others are drawn without a law.
LAWS = {"grow": ("n", lambda n: n), "listSort": ("n log n", lambda n: n * math.log2(n))}


def measured(binary):
    """{operation: {who: [(elements or units, nanoseconds)]}}"""
    output = subprocess.run(
        [binary, "--benchmark_filter=^(list|grow)", "--benchmark_format=json",
         "--benchmark_min_time=0.05"], check=True, capture_output=True, text=True).stdout
    growth = {}
    for run in json.loads(output)["benchmarks"]:
        operation, _, size, who = run["name"].split("/")
        growth.setdefault(operation, {}).setdefault(who, []).append((int(size), run["cpu_time"]))
    return growth


def law_of(operation):
    return next((law for word, law in LAWS.items() if operation.startswith(word)), (None, None))


def dearer(curve, law):
    """How many times the cost of a unit of work in the greatest size."""
    greatest = max(curve)
    smaller = min(curve, key=lambda point: abs(math.log(greatest[0] / 10 / point[0])))
    return greatest[1] / law(greatest[0]) / (smaller[1] / law(smaller[0]))


def panel(left, top, operation, curves):
    """One operation, both axes logarithmic."""
    points = [point for curve in curves.values() for point in curve]
    low, high = (f(math.log10(time) for _, time in points) for f in (min, max))
    low, high = math.floor(low), math.ceil(high)

    def place(size, time):
        x = left + MARGIN + (math.log10(size) - 1) / 2.7 * (WIDTH - 2 * MARGIN)
        y = (top + HEIGHT - MARGIN
             - (math.log10(time) - low) / (high - low) * (HEIGHT - 2 * MARGIN))
        return f"{x:.1f},{y:.1f}"

    def polyline(line, style):
        return f'<polyline points="{" ".join(place(*point) for point in line)}" fill="none" {style}/>'

    parts = [f'<text x="{left + WIDTH / 2}" y="{top + 22}" text-anchor="middle">{operation}</text>']
    for size in (10, 100, 1000, 4000):
        x, y = place(size, 10 ** low).split(",")
        parts.append(f'<text x="{x}" y="{float(y) + 16}" text-anchor="middle">{size}</text>')
    for power in range(low, high + 1):
        x, y = place(10, 10 ** power).split(",")
        parts.append(f'<text x="{float(x) - 6}" y="{y}" text-anchor="end">1e{power}</text>')
        parts.append(f'<path d="M{x},{y}h{WIDTH - 2 * MARGIN}" stroke="#ddd"/>')
    shown = [(who, COLOURS[who]) for who in sorted(curves)]
    for who, colour in shown:
        parts.append(polyline(sorted(curves[who]), f'stroke="{colour}"'))
    name, law = law_of(operation)
    if law:
        sizes = sorted(size for size, _ in curves["ours"])
        scale = max(curves["ours"])[1] / law(sizes[-1])
        parts.append(polyline([(size, law(size) * scale) for size in sizes],
                              'stroke="#888" stroke-dasharray="3"'))
        shown.append((name, "#888"))
    for row, (who, colour) in enumerate(shown):
        parts.append(f'<text x="{left + MARGIN + 8}" y="{top + MARGIN + 14 * (row + 1)}" '
                     f'fill="{colour}">{who}</text>')
    return "\n".join(parts)


def main():
    binary, output = sys.argv[1:]
    growth = measured(binary)
    panels = [panel(i % COLUMNS * WIDTH, i // COLUMNS * HEIGHT, operation, growth[operation])
              for i, operation in enumerate(sorted(growth))]
    height = -(-len(panels) // COLUMNS) * HEIGHT
    with open(output, "w", encoding="utf-8") as file:
        file.write(f'<svg xmlns="http://www.w3.org/2000/svg" width="{COLUMNS * WIDTH}" '
                   f'height="{height}" font-family="monospace" font-size="11">\n'
                   '<rect width="100%" height="100%" fill="white"/>\n'
                   + "\n".join(panels)
                   + f'\n<text x="8" y="{height - 4}">elements or units against nanoseconds</text>'
                   '\n</svg>\n')
    for operation in sorted(growth):
        name, law = law_of(operation)
        if law:
            print(f"{operation}: a unit of {name} costs {dearer(growth[operation]['ours'], law):.2f} "
                  "times as much in the greatest size as in a tenth of it")


if __name__ == "__main__":
    main()
