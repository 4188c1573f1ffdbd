#!/usr/bin/env python3
"""Draws docs/scale.svg and writes the tables of docs/scale.md from what `./dev farm` has measured.

    docs/drawScale.py                     writes them, from tests/farm/figures.json
    docs/drawScale.py --check             fails when they are not what the figures say
    docs/drawScale.py FIGURES OUTPUT.svg  draws other figures
"""

import dataclasses
import json
import math
import pathlib
import re
import sys

DOCS = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(DOCS.parent / "tests" / "farm"))
sys.dont_write_bytecode = True
import scaleModel  # noqa: E402

WIDTH, HEIGHT, MARGIN = 430, 330, 56
COLOURS = {"clush": "#1f77b4", "tree": "#9467bd", "pdsh": "#2ca02c", "parallel": "#ff7f0e",
           "10 gateways": "#8c564b", "100 gateways": "#d62728"}
NAMES = {"tree": "clush, 2 gateways", "parallel": "GNU parallel"}
KINDS = {"default": "as ssh comes", "curve25519": "`-o KexAlgorithms=curve25519-sha256`",
         "kept": "a kept connection (`ControlPersist`)"}
MANY = [1000, 10000, 100000]
GATEWAYS = [10, 32, 100, 316, 1000]


# The simulated farm

@dataclasses.dataclass(frozen=True)
class Way:
    name: str
    engine: str
    fanOut: int
    gateways: int = 0


WAYS = [Way("pdsh -f 64", "pdsh", 64), Way("pdsh -f 256", "pdsh", 256),
        Way("clush -f 64", "clush", 64), Way("clush -f 256", "clush", 256),
        Way("parallel -j 64", "parallel", 64),
        Way("clush, 10 gateways", "clush", 64, 10), Way("clush, 100 gateways", "clush", 64, 100)]


def secondsOf(way, nodes, kind):
    engine, connection = scaleModel.fitted(way.engine), scaleModel.realConnection(way.engine, kind)
    machine = scaleModel.Machine(scaleModel.figures()["cores"], way.fanOut)
    if not way.gateways:
        return scaleModel.simulate(nodes, engine, connection, machine)
    # Gateways do not count in the fan-out.
    machine = dataclasses.replace(machine, fanOut=max(way.fanOut, way.gateways))
    return scaleModel.throughGateways(nodes, way.gateways, engine, connection, machine,
                                      scaleModel.startOfGateway(),
                                      scaleModel.foldOf(scaleModel.runsOf("tree")[-1]))


def megabytesOf(way):
    ssh = scaleModel.figures()["connections"]["default"]["megabytes"]
    return scaleModel.runsOf(way.engine)[-1]["megabytes"] + ssh * max(way.fanOut, way.gateways)


# Tables

def table(header, rows):
    return "\n".join("| " + " | ".join(row) + " |"
                     for row in [header, ["---"] * len(header), *rows])


def duration(seconds):
    if seconds < 10:
        return f"{seconds:.1f} s"
    if seconds < 120:
        return f"{seconds:.0f} s"
    return f"{seconds / 60:.0f} min"


def measuredTable():
    engines = ["clush", "tree", "pdsh", "parallel"]
    runs = {engine: scaleModel.runsOf(engine) for engine in engines}
    rows = [[f"{row[0]['nodes']:,}"] + [f"{run['seconds']:.1f} s" for run in row]
            for row in zip(*runs.values())]
    last = [runs[engine][-1] for engine in engines]
    rows.append(["time a node"] + [f"{1000 * run['seconds'] / run['nodes']:.0f} ms" for run in last])
    rows.append(["memory of the engine"] + [f"{run['megabytes']:.0f} MB" for run in last])
    return table(["Nodes"] + [NAMES.get(engine, engine) for engine in engines], rows)


def connectionTable():
    return table(["Connection", "time", "of a processor on this side", "memory on this side"],
                 [[KINDS[kind], f"{1000 * cost['seconds']:.0f} ms",
                   f"{1000 * cost['ownSeconds']:.0f} ms", f"{cost['megabytes']} MB"]
                  for kind, cost in scaleModel.figures()["connections"].items()])


def foldTable():
    rows = [["clush without gateways", "clush"], ["through gateways, `--brief`", "tree"],
            ["through gateways, answers that differ", "unequal"]]
    return table(["Run of 1,000 nodes", "of the first machine's processor, a node"],
                 [[name, f"{1000 * scaleModel.foldOf(scaleModel.runsOf(engine)[-1]):.2f} ms"]
                  for name, engine in rows])


def simulatedTable():
    rows = []
    for way in WAYS:
        row = [f"`{way.name}`" if not way.gateways else way.name]
        row += [duration(secondsOf(way, nodes, kind)) for nodes in MANY[1:]
                for kind in ("default", "curve25519")]
        rows.append(row + [f"{megabytesOf(way):,.0f} MB"])
    return table(["Way", *(f"{nodes:,} nodes, {kind}" for nodes in MANY[1:]
                           for kind in ("as ssh comes", "curve25519")), "memory"], rows)


def limitTable():
    engines = scaleModel.ENGINES
    figures = scaleModel.figures()
    rows = [["starting connections, one at a time"]
            + [scaleModel.fitted(engine).launch for engine in engines]]
    for kind, name in KINDS.items():
        rows.append([f"{figures['cores']} processors, {name}"]
                    + [scaleModel.realConnection(engine, kind).work / figures["cores"]
                       for engine in engines])
    for kind in ("default", "curve25519"):
        seconds = figures["connections"][kind]["seconds"] / figures["fanOut"]
        rows.append([f"a fan-out of {figures['fanOut']}, {KINDS[kind]}"] + [seconds] * len(engines))
    return table(["Time that each node takes", *(NAMES.get(engine, engine) for engine in engines)],
                 [[name, *(f"{1000 * value:.0f} ms" for value in values)] for name, *values in rows])


def gatewayTable():
    rows = []
    for gateways in GATEWAYS:
        way = Way("", "clush", 64, gateways)
        rows.append([f"{gateways:,}"]
                    + [duration(secondsOf(way, nodes, "curve25519")) for nodes in MANY[1:]])
    return table(["Gateways", "10,000 nodes", "100,000 nodes"], rows)


TABLES = {"measured": measuredTable, "connections": connectionTable, "fold": foldTable,
          "simulated": simulatedTable, "limits": limitTable, "gateways": gatewayTable}


def written(document):
    for name, make in TABLES.items():
        document, count = re.subn(rf"(?s)(<!-- drawScale.py: {name} -->\n).*?(<!-- end -->)",
                                  lambda match, make=make: f"{match[1]}{make()}\n{match[2]}",
                                  document)
        if count != 1:
            sys.exit(f"docs/scale.md has no place for the table {name}")
    return document


# The picture

class Panel:
    """Nodes against seconds, both axes logarithmic."""

    def __init__(self, left, title, nodes, seconds):
        self.left, self.nodes, self.seconds = left, nodes, seconds
        self.parts = [f'<text x="{left + WIDTH / 2}" y="24" class="title">{title}</text>']
        for power in range(nodes[0], nodes[1] + 1):
            x, y = self.place(10 ** power, 10 ** seconds[0])
            self.parts.append(f'<text x="{x:.1f}" y="{y + 18:.1f}" class="x">{10 ** power:,}</text>')
        for power in range(seconds[0], seconds[1] + 1):
            x, y = self.place(10 ** nodes[0], 10 ** power)
            self.parts.append(
                f'<text x="{x - 6:.1f}" y="{y + 4:.1f}" class="y">{10 ** power:,g} s</text>'
                f'<path d="M{x:.1f},{y:.1f}h{WIDTH - 2 * MARGIN}" stroke="#ddd"/>')
        self.rows = 0

    def place(self, nodes, seconds):
        share = [(math.log10(value) - low) / (high - low) for value, (low, high)
                 in ((nodes, self.nodes), (seconds, self.seconds))]
        return (self.left + MARGIN + share[0] * (WIDTH - 2 * MARGIN),
                HEIGHT - MARGIN - share[1] * (HEIGHT - 2 * MARGIN))

    def name(self, name, text):
        self.rows += 1
        self.parts.append(f'<text x="{self.left + MARGIN + 10}" y="{MARGIN + 15 * self.rows}" '
                          f'fill="{COLOURS[name]}">{text}</text>')

    def line(self, name, points):
        line = " ".join("{:.1f},{:.1f}".format(*self.place(*point)) for point in points)
        self.parts.append(f'<polyline points="{line}" fill="none" stroke="{COLOURS[name]}"/>')

    def points(self, name, points):
        for point in points:
            x, y = self.place(*point)
            self.parts.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3.5" fill="{COLOURS[name]}"/>')


def svg(panels):
    width = len(panels) * WIDTH
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{HEIGHT}" '
            f'viewBox="0 0 {width} {HEIGHT}" font-family="monospace" font-size="12">\n'
            "<style>.title,.x{text-anchor:middle}.y{text-anchor:end}</style>\n"
            f'<path fill="#fff" d="M0 0h{width}v{HEIGHT}h-{width}z"/>\n'
            + "\n".join(part for panel in panels for part in panel.parts) + "\n</svg>\n")


def powers(values):
    """The powers of ten around them."""
    low = math.floor(math.log10(min(values)))
    return low, max(low + 1, math.ceil(math.log10(max(values))))


def measuredPanel(runs):
    runs = [run for run in runs if run["engine"] != "unequal"]
    panel = Panel(0, "measured (points), seconds over nodes",
                  *(powers([run[axis] for run in runs]) for axis in ("nodes", "seconds")))
    for engine in dict.fromkeys(run["engine"] for run in runs):
        panel.name(engine, NAMES.get(engine, engine))
        points = [(run["nodes"], run["seconds"]) for run in runs if run["engine"] == engine]
        panel.points(engine, points)
    return panel


def picture():
    runs = scaleModel.figures()["runs"]
    measured = measuredPanel(runs)
    sizes = [10, 20, 50, 100, 200, 500, 1000]
    for engine in scaleModel.ENGINES:
        measured.line(engine, [(nodes, scaleModel.simulatedFarm(engine, nodes))
                               for nodes in sizes])
    measured.parts.append(f'<text x="{MARGIN}" y="{HEIGHT - 10}">lines: simulated</text>')
    foretold = Panel(WIDTH, "simulated, by ssh with curve25519", (3, 5), (0, 4))
    for way in (Way("pdsh", "pdsh", 64), Way("clush", "clush", 64),
                Way("parallel", "parallel", 64), Way("10 gateways", "clush", 64, 10),
                Way("100 gateways", "clush", 64, 100)):
        name = f"clush, {way.name}" if way.gateways else NAMES.get(way.name, way.name)
        foretold.name(way.name, name)
        foretold.line(way.name, [(nodes, secondsOf(way, nodes, "curve25519"))
                                 for nodes in (1000, 3000, 10000, 30000, 100000)])
    return svg([measured, foretold])


def main():
    if len(sys.argv) == 3:
        runs = json.loads(pathlib.Path(sys.argv[1]).read_text())["runs"]
        pathlib.Path(sys.argv[2]).write_text(svg([measuredPanel(runs)]))
        return
    document = DOCS / "scale.md"
    made = {document: written(document.read_text()), DOCS / "scale.svg": picture()}
    if "--check" not in sys.argv[1:]:
        for file, content in made.items():
            file.write_text(content)
        return
    stale = [file.name for file, content in made.items()
             if not file.exists() or file.read_text() != content]
    if stale:
        sys.exit(f"not as the figures say (run docs/drawScale.py): {', '.join(stale)}")


if __name__ == "__main__":
    main()
