#!/usr/bin/env python3
"""Holds the README's C++ to the example that is compiled: each block stands in it, line by line."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]


def lines(text):
    return [line.strip() for line in text.splitlines() if line.strip()]


example = "\n".join(lines((ROOT / "examples/libraryTour.cpp").read_text()))
blocks = re.findall(r"```cpp\n(.*?)```", (ROOT / "README.md").read_text(), re.S)
missing = [block for block in blocks if "\n".join(lines(block)) not in example]
for block in missing:
    print("not in examples/libraryTour.cpp:\n" + block)
sys.exit(1 if missing or not blocks else 0)
