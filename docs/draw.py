#!/usr/bin/env python3
"""Draws the byte diagrams of the documents from their own tables.

A table with the columns Offset, Size and Name (or Field) is a picture: one box per row. The
tables are held against the code by tests, so the pictures cannot drift either.

    docs/draw.py           writes the pictures
    docs/draw.py --check   fails when a picture is not what its table says
"""

import pathlib
import re
import sys

DOCS = pathlib.Path(__file__).resolve().parent
WIDTH = 900
ROW_HEIGHT = 64
# Boxes are as wide as their words ask, and wider where the size depends on N: true proportions
# would hide fields of 1 byte beside one of 20866.
NARROWEST, LONG = 92, 260


def tables(text):
    """The tables of a document: (last image name behind them, header cells, rows)."""
    for block in re.finditer(r"((?:^\|.*\n)+)(?:\n!\[[^]]*\]\((?P<svg>[^)]+\.svg)\))?", text, re.M):
        lines = [[cell.strip() for cell in line.strip("|").split("|")]
                 for line in block.group(1).strip().split("\n")]
        yield block.group("svg"), lines[0], lines[2:]


def boxes(header, rows):
    name = header.index("Name") if "Name" in header else header.index("Field")
    for row in rows:
        yield row[header.index("Offset")], row[header.index("Size")], row[name].strip("`")


def total(*expressions):
    """The sum of expressions like "2N + 2", written the same way."""
    units = rest = 0
    for term in " + ".join(expressions).split(" + "):
        if term.endswith("N"):
            units += int(term[:-1] or 1)
        else:
            rest += int(term)
    return f"{units if units > 1 else ''}N + {rest}" if units else str(rest)


def escape(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def width_of(name, size):
    return LONG if "N" in size else max(NARROWEST, 9 * max(len(name), len(size)) + 24)


def draw(header, rows):
    parts = []
    x = y = right = 0
    end = "0"
    for offset, size, name in boxes(header, rows):
        width = width_of(name, size)
        if x + width > WIDTH:
            x, y = 0, y + ROW_HEIGHT + 28
        fill = "#dbe9f6" if name else "#f2f2f2"
        unit = "byte" if size == "1" else "bytes"
        parts.append(
            f'<text x="{x + 4}" y="{y + 12}" class="offset">{escape(offset)}</text>'
            f'<rect x="{x + .5}" y="{y + 18.5}" width="{width}" height="46" fill="{fill}"/>'
            f'<text x="{x + width / 2}" y="{y + 39}" class="name">{escape(name or "…")}</text>'
            f'<text x="{x + width / 2}" y="{y + 56}" class="size">{escape(size)} {unit}</text>')
        x += width
        end = total(offset, size)
        right = max(right, x, x + 4 + 7 * len(end))
    parts.append(f'<text x="{x + 4}" y="{y + 12}" class="offset">{escape(end)}</text>')
    width, height = right + 8, y + ROW_HEIGHT + 8
    # The ground is painted: the words are dark, and a reader's page may be too.
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="-4 0 {width} {height}" font-family="monospace">\n'
        '<style>text{fill:#222}rect{stroke:#555}.name{font-size:13px;text-anchor:middle}'
        '.offset{font-size:11px}.size{font-size:11px;text-anchor:middle;fill:#666}</style>\n'
        f'<path fill="#fff" d="M-4 0h{width}v{height}h-{width}z"/>\n'
        + "\n".join(parts) + "\n</svg>\n")


def main():
    stale = []
    for document in sorted(DOCS.glob("*.md")):
        for svg, header, rows in tables(document.read_text()):
            if svg is None:
                continue
            picture = draw(header, rows)
            file = DOCS / svg
            if "--check" not in sys.argv[1:]:
                file.write_text(picture)
            elif not file.exists() or file.read_text() != picture:
                stale.append(svg)
    if stale:
        sys.exit(f"not as their tables say (run docs/draw.py): {', '.join(stale)}")


if __name__ == "__main__":
    main()
