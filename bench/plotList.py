#!/usr/bin/env python3
"""Draws how the list's operations grow with its length, beside std::vector<std::string>.

    bench/plotList.py PATH/TO/qvBench OUTPUT.svg
"""

import json
import math
import subprocess
import sys

WIDTH, HEIGHT, MARGIN = 300, 240, 44
COLOURS = {"ours": "#1f77b4", "vector": "#ff7f0e", "stable_sort": "#2ca02c"}


def measured(binary):
    """{operation: {who: [(elements, nanoseconds)]}}"""
    output = subprocess.run(
        [binary, "--benchmark_filter=^list", "--benchmark_format=json",
         "--benchmark_min_time=0.05"], check=True, capture_output=True, text=True).stdout
    growth = {}
    for run in json.loads(output)["benchmarks"]:
        operation, _, size, who = run["name"].split("/")
        growth.setdefault(operation, {}).setdefault(who, []).append((int(size), run["cpu_time"]))
    return growth


def panel(left, operation, curves):
    """One operation, both axes logarithmic."""
    points = [point for curve in curves.values() for point in curve]
    low, high = (f(math.log10(time) for _, time in points) for f in (min, max))
    low, high = math.floor(low), math.ceil(high)

    def place(size, time):
        x = left + MARGIN + (math.log10(size) - 1) / 2.7 * (WIDTH - 2 * MARGIN)
        y = HEIGHT - MARGIN - (math.log10(time) - low) / (high - low) * (HEIGHT - 2 * MARGIN)
        return f"{x:.1f},{y:.1f}"

    parts = [f'<text x="{left + WIDTH / 2}" y="22" text-anchor="middle">{operation}</text>']
    for size in (10, 100, 1000, 4000):
        x, y = place(size, 10 ** low).split(",")
        parts.append(f'<text x="{x}" y="{float(y) + 16}" text-anchor="middle">{size}</text>')
    for power in range(low, high + 1):
        x, y = place(10, 10 ** power).split(",")
        parts.append(f'<text x="{float(x) - 6}" y="{y}" text-anchor="end">1e{power}</text>')
        parts.append(f'<path d="M{x},{y}h{WIDTH - 2 * MARGIN}" stroke="#ddd"/>')
    for row, (who, curve) in enumerate(sorted(curves.items())):
        line = " ".join(place(*point) for point in sorted(curve))
        parts.append(f'<polyline points="{line}" fill="none" stroke="{COLOURS[who]}"/>')
        parts.append(f'<text x="{left + MARGIN + 8}" y="{MARGIN + 14 * (row + 1)}" '
                     f'fill="{COLOURS[who]}">{who}</text>')
    return "\n".join(parts)


def main():
    binary, output = sys.argv[1:]
    growth = measured(binary)
    panels = [panel(i * WIDTH, operation, growth[operation])
              for i, operation in enumerate(sorted(growth))]
    with open(output, "w", encoding="utf-8") as file:
        file.write(f'<svg xmlns="http://www.w3.org/2000/svg" width="{len(panels) * WIDTH}" '
                   f'height="{HEIGHT}" font-family="monospace" font-size="11">\n'
                   '<rect width="100%" height="100%" fill="white"/>\n'
                   + "\n".join(panels)
                   + f'\n<text x="8" y="{HEIGHT - 4}">elements against nanoseconds</text>\n</svg>\n')


if __name__ == "__main__":
    main()
