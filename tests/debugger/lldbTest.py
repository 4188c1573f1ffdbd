#!/usr/bin/env python3
"""Holds what LLDB shows to the expectations. usage: lldbTest.py PROGRAM"""

import pathlib
import re
import sys

import session
from expectations import EXPECTED

OWN = {
    "strings8.longest": '"' + 1024 * "x" + '"... (5000/5000)',
    "strings16.longest": '"' + 1024 * "y" + '"... (2500/2500)',
    "forms.null": "nullptr",
    "forms.pointerToPointer": "ADDRESS",
    "forms.list": "ADDRESS 3 strings",
    "lists.three[0]": '"render07" (8/500)',
}


def as_lldb_shows(words, *children):
    lines = "".join(f"\n  [{i}] = {child}" for i, child in enumerate(children))
    return f"{words} {{{lines}\n}}" if children else words


def python_path(lldb):
    """Debian's lldb looks for its own Python module in a place where it is not."""
    found = pathlib.Path(lldb).resolve().parents[1].glob("lib/python3*/dist-packages")
    for folder in found:
        if (folder / "lldb/embedded_interpreter.py").exists():
            return str(folder)
    sys.exit("LLDB's Python module is missing; on Debian: apt-get install python3-lldb-14")


lldb = session.find_tool("lldb-14", "lldb")
expected = {row[0]: as_lldb_shows(*row[1:]) for row in EXPECTED} | OWN
commands = [
    "settings set target.disable-aslr false",  # containers refuse it
    f"command script import {session.DEBUGGER_FOLDER}/qvSummaries.py",
    "breakpoint set --name everyStateStands",
    "run",
    *[f"target variable {expression}" for expression in expected],
]
output = session.run([lldb, "--batch", "--no-lldbinit",
                      *[word for command in commands for word in ("--one-line", command)],
                      sys.argv[1]],
                     # Of another python3 on the path LLDB would take the modules.
                     PATH="/usr/bin:/bin", PYTHONPATH=python_path(lldb))
answer = re.compile(r"^\(lldb\) target variable (.*)\n\(.*?\) \S+ = ((?:.*\n)*?)(?=\(lldb\)|\Z)",
                    re.M)
shown = {expression: text.rstrip("\n") for expression, text in answer.findall(output)}
session.compare(shown, expected, output)
