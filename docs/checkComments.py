#!/usr/bin/env python3
"""Names what the comments of the public headers leave out, each with its file and line.

Doxygen also asks what a function returns, but names neither file nor line where the function has no
parameters.

usage: checkComments.py [HEADER...]     without headers, all that a room shows
"""

import pathlib
import re
import sys

import stringPages
from declarations import declarationsOf

ROOT = pathlib.Path(__file__).resolve().parents[1]


def saysWhatItReturns(declaration, others):
    """A comment may be taken over from another function of the header by its name."""
    comment = "\n".join(declaration.comment)
    if re.search(r"[@\\]returns?\b", comment):
        return True
    taken = re.search(r"@copy(?:doc|details) (operator ?[^\w\s(]+|[\w:]+)", comment)
    name = taken and taken[1].split("::")[-1]
    return any(other is not declaration and other.function() and other.function()[1] == name
               and saysWhatItReturns(other, []) for other in others)


def missing(declarations):
    shown = [each for each in declarations if each.isPublic]
    for each in shown:
        if each.returnsSomething() and not saysWhatItReturns(each, shown):
            yield each, "returns something, and no @return says what"
        if isOfString(each) and (each.group is None or each.group.name not in stringPages.TASKS):
            yield each, "stands under no task of docs/stringPages.py (\\name ... @{)"


def isOfString(declaration):
    """Whether it is a member that the page of a string shows."""
    return (declaration.scope in {*stringPages.CLASSES, *stringPages.LAYERS}
            and declaration.function() and not declaration.isDeleted())


def main():
    headers = sys.argv[1:] or sorted(str(header.relative_to(ROOT))
                                     for header in ROOT.glob("qv/*/*.h"))
    failed = False
    for header in headers:
        for declaration, what in missing(declarationsOf(ROOT / header)):
            print(f"{header}:{declaration.line}: {declaration.function()[1]} {what}")
            failed = True
    return failed


if __name__ == "__main__":
    sys.exit(main())
