#!/usr/bin/env python3
"""Draws docs/rooms.svg, the rooms of the code and the arrows between them, from the includes.

    docs/drawRooms.py           writes the picture
    docs/drawRooms.py --check   fails when the picture is not what the includes say

A room is above all that it includes. An arrow that passes a floor goes between its rooms, together
with all others to the same room.
"""

import itertools
import pathlib
import re
import sys

DOCS = pathlib.Path(__file__).resolve().parent
ROOT = DOCS.parent
PICTURE = DOCS / "rooms.svg"
LIBRARY = "qv/"

# Room -> what is in it, and the colour of the room and of the arrows to it.
ROOMS = {
    "sender": ("the tool", "#555"),
    "viewer": ("mailboxView", "#555"),
    "examples": ("public headers alone", "#555"),
    "qv/client": ("record, commands", "#2e7d32"),
    "qv/segment": ("shared memory, lock", "#ad4e00"),
    "qv/support": ("list, sums, process", "#7b2d8b"),
    "qv/strings": ("fixed-capacity strings", "#1f5fa8"),
}
BOX_WIDTH, BOX_HEIGHT, GAP, FLOOR_GAP, MARGIN = 200, 56, 46, 84, 40


def rooms_of_the_tree():
    folders = [folder for folder in (ROOT / LIBRARY).iterdir() if folder.is_dir()]
    return {folder.relative_to(ROOT).as_posix() for folder in folders} | {
        room for room in ROOMS if not room.startswith(LIBRARY)}


def included_rooms(room):
    """The other rooms whose headers this one includes."""
    found = set()
    for file in itertools.chain((ROOT / room).rglob("*.h"), (ROOT / room).rglob("*.cpp")):
        for path in re.findall(r'^#include "([^"]+)/[^/"]+"', file.read_text(), re.M):
            found |= {other for other in ROOMS if (path + "/").startswith(other + "/")}
    return sorted(found - {room})


def floors(arrows):
    """Room -> floor, the lowest is 0. Programs are above the whole library."""
    level = {}

    def floor(room, above=()):
        if room in above:
            sys.exit(f"drawRooms.py: a circle of includes: {' -> '.join(above)} -> {room}")
        if room not in level:
            level[room] = max((floor(other, (*above, room)) + 1 for other in arrows[room]),
                              default=0)
        return level[room]

    for room in arrows:
        floor(room)
    roof = 1 + max(level[room] for room in arrows if room.startswith(LIBRARY))
    return {room: own if room.startswith(LIBRARY) else max(own, roof)
            for room, own in level.items()}


def steps(arrows, level):
    """The arrows in steps of one floor, of (node, node below). A node is (floor, room): the room,
    or on a floor above it the place where arrows to it pass."""
    return sorted({((floor, source if floor == level[source] else target), (floor - 1, target))
                   for source, targets in arrows.items() for target in targets
                   for floor in range(level[source], level[target], -1)}, reverse=True)


def crossings(links, places):
    ends = [(places[above], places[below]) for above, below in links]
    return sum((a - c) * (b - d) < 0 for (a, b), (c, d) in itertools.combinations(ends, 2))


def arrangement(links, level):
    """Node -> x of its middle: the order on each floor in which the fewest arrows cross and the way
    of all of them is shortest."""
    nodes = {node for link in links for node in link}
    by_floor = [sorted(node for node in nodes if node[0] == floor)
                for floor in range(max(level.values()) + 1)]

    def width(node):
        return BOX_WIDTH if node[0] == level[node[1]] else 0

    def spread(order):
        x = -(sum(map(width, order)) + GAP * (len(order) - 1)) / 2
        places = {}
        for node in order:
            places[node] = x + width(node) / 2
            x += width(node) + GAP
        return places

    def cost(places):
        count = sum(crossings([link for link in links if link[0][0] == floor], places)
                    for floor in range(1, len(by_floor)))
        return count, sum(abs(places[above] - places[below]) for above, below in links)

    candidates = ({node: x for order in orders for node, x in spread(order).items()}
                  for orders in itertools.product(*map(itertools.permutations, by_floor)))
    return min(candidates, key=cost)


def ports(node, others, places, is_room):
    """Where the arrows from or to the others touch this node, left to right."""
    if not is_room:
        return {other: places[node] for other in others}
    ordered = sorted(others, key=places.get)
    left, part = places[node] - BOX_WIDTH / 2, BOX_WIDTH / (len(ordered) + 1)
    return {other: left + part * (number + 1) for number, other in enumerate(ordered)}


def draw(arrows):
    level = floors(arrows)
    links = steps(arrows, level)
    places = arrangement(links, level)
    width = max(places.values()) - min(places.values()) + BOX_WIDTH + 2 * MARGIN
    shift = MARGIN + BOX_WIDTH / 2 - min(places.values())
    places = {node: x + shift for node, x in places.items()}
    roof = max(level.values())
    height = (roof + 1) * (BOX_HEIGHT + FLOOR_GAP) - FLOOR_GAP + 2 * MARGIN

    def top(floor):
        return MARGIN + (roof - floor) * (BOX_HEIGHT + FLOOR_GAP)

    def is_room(node):
        return node[0] == level[node[1]]

    down = {node: ports(node, [b for a, b in links if a == node], places, is_room(node))
            for node in places}
    up = {node: ports(node, [a for a, b in links if b == node], places, is_room(node))
          for node in places}

    parts = []
    library = max(floor for room, floor in level.items() if room.startswith(LIBRARY))
    frame = top(library) - MARGIN / 2
    parts.append(
        f'<rect x="12" y="{frame:g}" width="{width - 24:g}" height="{height - frame - 12:g}" '
        f'rx="8" class="library"/><text x="24" y="{height - 24:g}" class="words">'
        f'{LIBRARY}, the library: libqv and its headers</text>')
    for above, below in links:
        x, y = down[above][below], top(above[0]) + BOX_HEIGHT
        end_x, end_y = up[below][above], top(below[0]) - (9 if is_room(below) else 0)
        bend = FLOOR_GAP * .55
        passing = "" if is_room(below) else f"v{BOX_HEIGHT}"
        colour = ROOMS[below[1]][1]
        parts.append(
            f'<path d="M{x:g} {y:g}C{x:g} {y + bend:g} {end_x:g} {end_y - bend:g} {end_x:g} '
            f'{end_y:g}{passing}" class="arrow" stroke="{colour}"/>')
        if is_room(below):
            parts.append(f'<path d="M{end_x - 5:g} {end_y - 1:g}h10l-5 9z" fill="{colour}"/>')
    for node in filter(is_room, places):
        floor, room = node
        words, colour = ROOMS[room]
        x, y = places[node], top(floor)
        parts.append(
            f'<rect x="{x - BOX_WIDTH / 2:g}" y="{y:g}" width="{BOX_WIDTH}" height="{BOX_HEIGHT}" '
            f'rx="6" class="room" stroke="{colour}"/>'
            f'<text x="{x:g}" y="{y + 24:g}" class="name">{room}</text>'
            f'<text x="{x:g}" y="{y + 43:g}" class="words middle">{words}</text>')
    # The ground is painted: the words are dark, and a reader's page may be too.
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width:g}" height="{height:g}" '
        f'viewBox="0 0 {width:g} {height:g}" font-family="sans-serif">\n'
        "<style>text{fill:#222}.name{font-size:16px;font-weight:bold;text-anchor:middle}"
        ".words{font-size:13px}.middle{text-anchor:middle}.room{fill:#fff;stroke-width:2}"
        ".library{fill:#eef2f6;stroke:#9aa7b4;stroke-dasharray:5 4}"
        ".arrow{fill:none;stroke-width:2}</style>\n"
        f'<path fill="#fff" d="M0 0h{width:g}v{height:g}H0z"/>\n'
        + "\n".join(parts) + "\n</svg>\n")


def main():
    if rooms_of_the_tree() != set(ROOMS):
        sys.exit(f"drawRooms.py: the rooms are {', '.join(sorted(rooms_of_the_tree()))}")
    picture = draw({room: included_rooms(room) for room in sorted(ROOMS)})
    if "--check" not in sys.argv[1:]:
        PICTURE.write_text(picture)
    elif not PICTURE.exists() or PICTURE.read_text() != picture:
        sys.exit("docs/rooms.svg is not what the includes say (run docs/drawRooms.py)")


if __name__ == "__main__":
    main()
