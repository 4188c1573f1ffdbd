#!/usr/bin/env python3
"""Holds what GDB shows to the expectations. usage: gdbTest.py PROGRAM"""

import re
import sys

import session
from expectations import EXPECTED

OWN = {
    "strings8.longest": '"' + 200 * "x" + '"... (5000/5000)',
    "strings16.longest": '"' + 200 * "y" + '"... (2500/2500)',
    "forms.reference": '"abc" (3/250)',
    "forms.pointerReference": 'ADDRESS "abc" (3/250)',
    "forms.null": "ADDRESS",
    "forms.pointerToPointer": "(const JobName **) ADDRESS <forms+32>",
    "forms.untyped": "(void *) ADDRESS",
    "forms.list": 'ADDRESS 3 strings = {"render07" (8/500), "" (0/500), "\\uFFE4" (1/500)}',
    "forms.array": '{"one" (3/6), "two" (3/6)}',
    "forms.mailbox": "ADDRESS recordMarker 0 instead of 517; stateMarker 0 instead of 3077; "
                     "stateFlag 0, 0/30 messages",
    # A value without an address.
    "segments.missing.errorString()": '"Shared Memory does not exist." (29/250)',
}


def as_gdb_shows(words, *children):
    return f"{words} = {{{', '.join(children)}}}" if children else words


expected = {row[0]: as_gdb_shows(*row[1:]) for row in EXPECTED} | OWN
commands = [
    "set disable-randomization off",  # containers refuse it
    "set debuginfod enabled off",
    "set width 0",
    f"source {session.DEBUGGER_FOLDER}/qvPrinters.py",
    "break everyStateStands",
    "run",
]
for expression in expected:
    commands += [f"echo \\n== {expression}\\n", f"output {expression}"]
output = session.run([session.find_tool("gdb"), "-batch", "-nx",
                      *[word for command in commands for word in ("-ex", command)], sys.argv[1]])
shown = dict(re.findall(r"^== (.*)\n(.*)$", output, re.M))
session.compare(shown, expected, output)
