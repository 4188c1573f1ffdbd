#!/usr/bin/env python3
"""A compiler's launcher that compiles nothing which another build has compiled alike: by the same
command, but for folders, warnings and the file of dependencies. What it has to compile it names.

    knownObjects.py BUILD_FOLDER LIST COMPILER ARGUMENT...
"""

import json
import os
import pathlib
import shlex
import shutil
import sys

build, names, *command = sys.argv[1:]


def told(words, folder):
    """What a command tells the compiler beyond what to write where."""
    said, rest = [], iter(words)
    for word in rest:
        if word in ("-o", "-MT", "-MF"):
            next(rest)
        elif word != "-MD" and not word.startswith("-W"):
            said.append(word.replace(folder, "BUILD"))
    return said


def behind(words, option):
    return words[words.index(option) + 1]


if "-c" in command:
    source, output = behind(command, "-c"), behind(command, "-o")
    for entry in json.loads(pathlib.Path(build, "compile_commands.json").read_text()):
        words = shlex.split(entry["command"])
        known = behind(words, "-o")
        if known.startswith("CMakeFiles/qv.dir/") and behind(words, "-c") == source and command[0] in words:
            words = words[words.index(command[0]):]  # without a launcher
            if told(words, build) == told(command, os.getcwd() + "/qv"):
                shutil.copyfile(pathlib.Path(build, known), output)
                pathlib.Path(behind(command, "-MF")).write_text(f"{output}: {source}\n")
                sys.exit()
    with open(names, "a", encoding="utf-8") as compiled:
        print(source, file=compiled)
os.execvp(command[0], command)
