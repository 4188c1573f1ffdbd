#!/usr/bin/env python3
"""Writes the figures of a proof into docs/testing.md, between its two marks.

usage: report.py LOG TESTING_MD

A figure is a line "proof: NAME key=value ..." of the log.
"""

import re
import sys

BEGIN, END = "<!-- written by ./dev proof -->\n", "<!-- end -->\n"


def spoken(key):
    """entryIncomplete -> entry incomplete"""
    return re.sub(r"(?<=[a-z])([A-Z])", lambda letter: " " + letter[1].lower(), key)


def figures(log):
    for line in log:
        if line.startswith("proof: "):
            name, *pairs = line.split()[1:]
            values = (pair.partition("=")[::2] for pair in pairs)
            yield name, ", ".join(f"{spoken(key)} {value}" for key, value in values)


def main():
    log, document = sys.argv[1:]
    with open(log, encoding="utf-8", errors="replace") as lines:
        rows = [f"| {spoken(name)} | {values} |\n" for name, values in figures(lines)]
    if not rows:
        sys.exit("report.py: the log has no figures")
    with open(document, encoding="utf-8") as file:
        before, rest = file.read().split(BEGIN)
    after = rest.split(END)[1]
    with open(document, "w", encoding="utf-8") as file:
        file.writelines([before, BEGIN, "| Proof | Figures |\n|---|---|\n", *rows, END, after])


if __name__ == "__main__":
    main()
