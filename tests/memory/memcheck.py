#!/usr/bin/env python3
"""Runs the test programs of a build under memcheck, and in the end-to-end tests the tool.

usage: memcheck.py BUILD_FOLDER
"""

import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time
from typing import NamedTuple

SUPPRESSIONS = pathlib.Path(__file__).with_name("libc.supp")
MEMCHECK = ["valgrind", "--quiet", "--leak-check=full", "--error-exitcode=99",
            f"--suppressions={SUPPRESSIONS}"]

# By program, the tests that are left out. Models try so many values that they would take minutes
# each here, to run the same instructions again: one capacity of an image is enough.
LEFT_OUT = {
    # Single steps of a program in memcheck are memcheck's own.
    "qvCRCFreshProcessTest": "*.NoEntryEverHas*:*.BuildingAgainChanges*",
    "qvStringListTest": "QvStringListDifferential.*",
    "qvTextTest": "Float2Str.AgreesWithAModelOnMillionsOfFloats",
    "qvProcessTest": "QvGetDirName.AgreesWithAPlainModelWithoutAllocating",
    "members16Test": "Fold16/*.throughTheMembers*",
    "stringTest": "*.everyPairOfBytes/*:Edit.foldsEachByteOfTheText/*5000",
    "string8DifferentialTest": "String8Images.*:*/current7:*8:*14:*15:*0",
    "string16DifferentialTest": "String16Images.*:*15:*48:*50:*00",
    "smallWorlds": "*",
    "plainLanesTest": "String8Images.*:String16Images.*:*/current7:*8:*14:*15:*0",
    # The program that the system knows is memcheck itself, and it can't be copied.
    "qvApplicationPathTest": "QvApplicationPath.GoesByThePath*:QvApplicationPath.TakesALongPath*",
    # Memcheck slows the tool's start a hundredfold, which is not for tests of time and of crowds.
    # Memcheck asks for the segment's size itself, and meets the error that is meant for the tool.
    "endToEndTest": "Lock.*:StandInClient.*:CommandLine.EveryWord*:CommandLine.LengthOfTheWord*:"
                    "SystemError.IsSaidInTheWordsOfTheDocument",
    # These look at the tool from outside, step by step or by the microsecond.
    "deathAtEveryInstructionShort": "*",
    "signalStormShort": "*",
}
# These start the tool.
WITH_CHILDREN = {"endToEndTest"}


class Program(NamedTuple):
    name: str
    command: list[str]
    folder: str


def test_programs(build):
    """The tests that are programs compiled for them, not scripts."""
    shown = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"],
                           stdout=subprocess.PIPE, check=True)
    for test in json.loads(shown.stdout)["tests"]:
        if "command" not in test:
            sys.exit(f"memcheck.py: {test['name']} is not built")
        properties = {entry["name"]: entry["value"] for entry in test["properties"]}
        if test["command"][0].startswith(f"{build}/tests/"):
            yield Program(test["name"], test["command"], properties["WORKING_DIRECTORY"])


def errors_in(program):
    """How many errors memcheck found; a test that fails here alone is one too."""
    options, command = [], list(program.command)
    if program.name in WITH_CHILDREN:
        options.append("--trace-children=yes")
    if program.name in LEFT_OUT:
        command.append(f"--gtest_filter=-{LEFT_OUT[program.name]}")
    start = time.monotonic()
    with tempfile.TemporaryDirectory() as logs:
        run = subprocess.run([*MEMCHECK, *options, f"--log-file={logs}/%p", *command],
                             cwd=program.folder, stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, check=False)
        log = "".join(path.read_text() for path in pathlib.Path(logs).iterdir())
    print(f"{program.name}: {time.monotonic() - start:.0f} s", flush=True)
    found = len(re.findall(r"^==\d+== $", log, re.M))  # the line that ends an error
    if run.returncode == 0 and not found:
        return 0
    print(run.stdout.decode(errors="replace"), log, sep="\n", flush=True)
    return max(found, 1)


def main():
    start = time.monotonic()
    programs = list(test_programs(os.path.abspath(sys.argv[1])))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        errors = sum(pool.map(errors_in, programs))
    seconds = time.monotonic() - start
    print(f"proof: valgrind programs={len(programs)} errors={errors} seconds={seconds:.0f}")
    sys.exit(errors != 0 or not programs)


if __name__ == "__main__":
    main()
