#!/usr/bin/env python3
"""Holds what an example prints to its own words: behind each `show(...);` stands what it prints. The
examples of the current strings have a piece for each task.

usage: shownOutput.py PROGRAM SOURCE
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "docs"))
import stringPages  # noqa: E402 from that folder

program, source = sys.argv[1:]
text = pathlib.Path(source).read_text(encoding="utf-8")
expected = re.findall(r"^ *show\(.*?\);(?: *// ?(.*))?$", text, re.M)
run = subprocess.run([program], capture_output=True, encoding="utf-8", check=True)
printed = run.stdout.splitlines()

failed = False
for place, (says, prints) in enumerate(zip(expected, printed), 1):
    if prints != says:
        print(f"show {place} prints '{prints}', and its line says '{says}'")
        failed = True
if len(expected) != len(printed) or not expected:
    print(f"{len(expected)} lines show something, and {len(printed)} lines are printed")
    failed = True
pieces = list(stringPages.piecesOf(pathlib.Path(source).name))
tasks = stringPages.TASKS
if "Tasks" not in source:
    tasks = [task for task in tasks if task in pieces]
if pieces != tasks or not pieces:
    print(f"the pieces are {pieces}, and the tasks {tasks}")
    failed = True
sys.exit(failed)
