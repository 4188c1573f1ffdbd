#!/usr/bin/env python3
"""Writes docs/string-members.md, the table of which string class has which member, from the headers.
tests/strings/memberTable.py holds it against the compiler.

usage: drawMembers.py [--check]
"""

import pathlib
import re
import sys

import stringPages

PAGE = pathlib.Path(__file__).resolve().parent / "string-members.md"

HEAD = """# Which string has which member

Five classes share most of their members. `S` stands for the class itself and `unit` for a unit of its
text, a `char` or an `unsigned short`; `N` is its capacity. A cell says yes where the class has a member
that takes exactly these arguments. What a member does is told on the page of the class, and which expression
makes which text from which in [string-conversions.md](string-conversions.md).

Written by `docs/drawMembers.py` from the headers; a test asks the compiler for each cell.
"""


def signature(declaration):
    """A member as the table spells it."""
    _, name, parameters, _ = declaration.function()
    scope = declaration.scope
    types = re.sub(rf"\b(Self|{scope})(?!<)\b", "S",
                   ", ".join(stringPages.typesIn(parameters)))
    types = re.sub(r"\bUnit\b", "unit", types)
    return f"{'S' if name == scope else name}({types})"


def spelledFor(name, row):
    """A row with the types of one class."""
    return re.sub(r"\bS\b", f"{name}<N>", re.sub(r"\bunit\b", stringPages.CLASSES[name][2], row))


def table(task, membersOf):
    """The rows of a task: what the first classes have first, overloads side by side."""
    rows = list(dict.fromkeys(row for members in membersOf.values()
                              for found, row in members if found == task))
    names = [row.partition("(")[0] for row in rows]
    rows.sort(key=lambda row: names.index(row.partition("(")[0]))
    yield f"\n## {task}\n\n| Member |"
    yield "".join(f" `{name}` |" for name in membersOf) + f"\n|---|{'---|' * len(membersOf)}\n"
    for row in rows:
        yield f"| `{row}` |"
        for name, members in membersOf.items():
            has = spelledFor(name, row) in [spelledFor(name, own) for _, own in members]
            yield " yes |" if has else " |"
        yield "\n"


def page():
    membersOf = {name: [(task, signature(each)) for task, each in stringPages.membersOf(name)]
                 for name in stringPages.CLASSES}
    return HEAD + "".join(part for task in stringPages.TASKS for part in table(task, membersOf))


if "--check" in sys.argv:
    if PAGE.read_text(encoding="utf-8") != page():
        sys.exit("docs/string-members.md is due: python3 -B docs/drawMembers.py")
else:
    PAGE.write_text(page(), encoding="utf-8")
