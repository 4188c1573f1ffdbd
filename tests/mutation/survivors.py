"""Mutants that no test can tell from the original, each with its reason, in survivors.txt.

An entry is a line "FILE: FUNCTION: KIND: SOURCE LINE" with the reason in indented lines below. It
names what changes elsewhere don't move, and holds for every copy of a template. It explains one
mutant of a copy, or, with "2x " ahead of it, two that read alike.
"""

import collections
import functools
import pathlib
import re

FILE = pathlib.Path(__file__).resolve().parent / "survivors.txt"


@functools.cache
def linesOf(file):
    return pathlib.Path(file).read_text().splitlines()


def keyOf(mutant, root):
    return ": ".join((str(pathlib.Path(mutant.file).relative_to(root)), mutant.function,
                      mutant.kind, " ".join(linesOf(mutant.file)[mutant.line - 1].split())))


def explained():
    """key -> how many mutants of one function it explains."""
    entries, reasons = collections.Counter(), {}
    key = None
    for row in FILE.read_text().splitlines():
        if row.startswith("    ") and key:
            reasons[key] = row
        elif row and not row.startswith("#"):
            times, key = re.fullmatch(r"(?:(\d+)x )?(.*)", row).groups()
            entries[key] += int(times or 1)
    if unfounded := entries.keys() - reasons.keys():
        raise SystemExit(f"{FILE.name}: no reason for: {min(unfounded)}")
    return entries
