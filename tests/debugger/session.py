"""A debugger at work on debuggedProgram.cpp, and the comparison of what it shows."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

DEBUGGER_FOLDER = pathlib.Path(__file__).resolve().parents[2] / "debugger"


def find_tool(*names):
    for name in names:
        if shutil.which(name):
            return shutil.which(name)
    sys.exit(f"{names[0]} is missing; on Debian: apt-get install {names[0]}")


def run(command, **environment):
    """The output of a debugger in a System V namespace of its own: the program makes segments."""
    isolation = [find_tool("unshare"), "--ipc"]
    if os.geteuid() != 0:
        isolation += ["--user", "--map-root-user"]
    done = subprocess.run(isolation + command, env=dict(os.environ, LC_ALL="C", **environment),
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, timeout=200)
    return done.stdout.decode("ascii", "backslashreplace")


def without_addresses(text):
    return re.sub(r"\b0x[0-9a-f]+\b", "ADDRESS", text)


def compare(shown, expected, output):
    """Ends the test: `expected` and `shown` hold what belongs to each expression."""
    wrong = [expression for expression in expected
             if without_addresses(shown.get(expression, "nothing")) != expected[expression]]
    for expression in wrong:
        print(f"{expression}\n  expected: {expected[expression]}\n"
              f"  shown:    {shown.get(expression, 'nothing')}")
    if wrong:
        print("\nThe whole session:\n" + output)
    print(f"{len(expected) - len(wrong)} of {len(expected)} objects are shown as expected")
    sys.exit(1 if wrong else 0)
