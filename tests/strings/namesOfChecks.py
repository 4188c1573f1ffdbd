#!/usr/bin/env python3
"""No function that can end at a check shares its name with one of an unchecked unit, which the linker
could take instead: each has "checked" in its name. Reads the calls off an object that was compiled
with QV_CHECKED and without optimisation, so that each call still stands.

usage: namesOfChecks.py EVERY_MEMBER_CHECKED.o
"""
import re
import subprocess
import sys

END = "contractBroken"


def calls(listing):
    """Each function of the object with the functions that it calls, by their linker names."""
    called, function = {}, ""
    for line in listing.splitlines():
        if head := re.match(r"[0-9a-f]+ <(.+)>:$", line):
            function = head[1]
            called[function] = set()
        elif place := re.match(r"\s+[0-9a-f]+: R_\w+\s+(_Z\w+)", line):
            called[function].add(place[1])
    return called


def main():
    program, = sys.argv[1:]
    called = calls(subprocess.run(["objdump", "-dr", "--no-show-raw-insn", program], check=True,
                                  capture_output=True, text=True).stdout)
    checking = {name for name in set().union(*called.values()) if END in name}
    grown = True
    while grown:
        more = {name for name, callees in called.items() if callees & checking} - checking
        checking |= more
        grown = bool(more)

    checking = {name for name in checking if name in called}
    if len(checking) < 300:
        print(f"only {len(checking)} functions that check were found")
        return 1
    shared = sorted(name for name in checking if "7checked" not in name)
    for name in subprocess.run(["c++filt"], input="\n".join(shared), text=True, check=True,
                               capture_output=True).stdout.splitlines():
        print(f"checks under the name that it has without checks: {name}")
    return len(shared) != 0


sys.exit(main())
