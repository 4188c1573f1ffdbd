#!/usr/bin/env python3
"""Runs the tool with every error of every system call that its run makes, at each of its places.

usage: injectedFaults.py TOOL

A fault of the system may cost the words or the entry. It never costs the status 0, and never leaves
the lock taken or the record other than laid down.
"""

import concurrent.futures
import errno
import os
import pathlib
import re
import shutil
import sys
import tempfile
from typing import NamedTuple

import toolRun

TESTS = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TESTS / "endToEnd"))
import clientSegment

TOOL = sys.argv[1]
TABLES = TESTS / "segment/manualPageErrors.h"
COOKBOOK = TESTS.parent / "docs/cookbook.md"


class Scene(NamedTuple):
    name: str
    content: bytes
    stores: bool = False  # an undisturbed run adds its entry
    attached: bool = True  # a client is there; else the tool is the last one out
    run: object = toolRun.run_into_file
    calls: tuple = ("shmget", "shmat", "shmctl", "shmdt", "write", "ioctl", "rt_sigprocmask",
                    "rt_sigpending")


# C libraries make these calls by different names. A run makes only one of them.
ALIKE = {"write": "write,writev", "clock_nanosleep": "clock_nanosleep,nanosleep"}

SCENES = [
    Scene("stores", clientSegment.laid_down(count=4), stores=True),
    Scene("queue full", clientSegment.laid_down(count=30)),
    Scene("wrong marker", clientSegment.laid_down(marker=516, count=4)),
    Scene("last one out", clientSegment.laid_down(count=4), stores=True, attached=False),
    Scene("terminal", clientSegment.laid_down(count=4), stores=True, run=toolRun.run_on_terminal),
    Scene("lock taken", clientSegment.laid_down(lock=1, count=4), calls=("clock_nanosleep",)),
]

# Faults that end the run in words of their own; all others go without a word.
TOLD = {
    ("shmget", 1): "shmget: ",
    ("shmat", 1): "attach (shmat): ",
    ("shmctl", 1): "size query failed (shmctl): ",
}
TOLD_OTHERWISE = {
    ("shmget", "ENOENT"): "Shared Memory does not exist.",
    ("shmget", "EINVAL"): "Shared Memory already exist, but size does not match.",
}

# Faults on the way out of the last one: the segment isn't removed then.
KEEP_THE_SEGMENT = {("shmdt", 1), ("shmget", 2), ("shmctl", 2), ("shmctl", 3)}


def manual_page_errors():
    """call -> the names of its errors."""
    errors = {
        "write": "EAGAIN EBADF EDESTADDRREQ EDQUOT EFAULT EFBIG EINTR EINVAL EIO ENOSPC EPERM"
        " EPIPE".split(),
        "ioctl": ["EBADF", "EFAULT", "EINVAL", "ENOTTY"],
        "rt_sigprocmask": ["EFAULT", "EINVAL"],
        "rt_sigpending": ["EFAULT"],
        "clock_nanosleep": ["EFAULT", "EINTR", "EINVAL", "EOPNOTSUPP"],
    }
    for call, table in re.findall(r"(\w+)Errors\[\] = {(.*?)};", TABLES.read_text(), re.S):
        errors[call] = re.findall(r"{(E\w+), ", table)
    return errors


def words_of_musl():
    """error -> its words, where the tool is linked with musl and they are not those of glibc."""
    if "QV_TOOL_LIBC:INTERNAL=musl" not in pathlib.Path(TOOL).with_name("CMakeCache.txt").read_text():
        return {}
    return dict(re.findall(r"^\| `(E\w+)` \| (.*?) \|", COOKBOOK.read_text(), re.M))


WORDS_OF_MUSL = words_of_musl()


def run_with_fault(scene, call, error, occurrence):
    """The outcome, and how often the fault struck."""
    names = ALIKE.get(call, call)
    with tempfile.NamedTemporaryFile("r") as trace:
        outcome = scene.run(
            ["strace", "-o", trace.name, "-e", f"trace={names}",
             "-e", f"inject={names}:error={error}:when={occurrence}",
             TOOL, *toolRun.COMMAND])
        return outcome, trace.read().count("(INJECTED)")


def expected_words(scene, undisturbed, call, error, occurrence):
    lines = undisturbed.splitlines(keepends=True)
    if (call, occurrence) in TOLD:
        version = re.match("qvNodeDispatch (.*?) {6}", lines[1])[1]
        reason = TOLD_OTHERWISE.get((call, error)) or (
            TOLD[call, occurrence]
            + WORDS_OF_MUSL.get(error, os.strerror(getattr(errno, error))))
        return "".join(lines[:2]) + f"{version}++++ Unable to attach shared memory! {reason}\n"
    if call != "write":
        return undisturbed
    # A write that fails loses its text: all that the run had to say, or on a terminal the two lines
    # of the banner or the rest.
    if scene.run == toolRun.run_into_file:
        return ""
    return "".join(lines[2:] if occurrence == 1 else lines[:2])


def expected_segment(scene, call, occurrence):
    if not scene.attached and (call, occurrence) not in KEEP_THE_SEGMENT:
        return None
    if scene.stores and (call, occurrence) not in TOLD:
        return clientSegment.with_entry(scene.content, *toolRun.ENTRY)
    return scene.content


def laid(scene):
    segment = clientSegment.Segment(scene.content)
    if not scene.attached:
        segment.leave()
    return segment


def try_error(scene, call, error):
    """The fault at the first, second ... call, until there is none. Number of faults, mistakes."""
    with laid(scene):
        undisturbed = scene.run([TOOL, *toolRun.COMMAND]).text
    mistakes = []
    occurrence = 1
    while True:
        with laid(scene) as segment:
            outcome, struck = run_with_fault(scene, call, error, occurrence)
            if not struck:
                return occurrence - 1, mistakes
            left = segment.found()
        words = expected_words(scene, undisturbed, call, error, occurrence)
        where = f"{scene.name}: {error} of {call} no. {occurrence}: "
        if outcome != (0, words, ""):
            mistakes.append(f"{where}{outcome}, expected {words!r}")
        if left != expected_segment(scene, call, occurrence):
            mistakes.append(where + "the segment is not as it should be left")
        occurrence += 1


def main():
    clientSegment.become_root_of_a_namespace()
    if not shutil.which("strace"):
        sys.exit("injectedFaults.py: strace is missing")
    errors = manual_page_errors()
    # The runs that wait for the lock take 2.5 seconds each, so they come first, and many go at
    # once, each worker with a client's key of its own.
    with concurrent.futures.ProcessPoolExecutor(
            max_workers=8, initializer=clientSegment.enter_own_namespace) as workers:
        tried = [(scene, call, error, workers.submit(try_error, scene, call, error))
                 for scene in reversed(SCENES) for call in scene.calls for error in errors[call]]
    faults, mistakes = 0, []
    for scene, call, error, result in tried:
        count, found = result.result()
        faults += count
        mistakes += found
        if not count:
            mistakes.append(f"{scene.name}: no {call} to fail with {error}")
    for mistake in mistakes:
        print(mistake)
    calls = {call for scene in SCENES for call in scene.calls}
    print(f"proof: injectedFaults scenes={len(SCENES)} calls={len(calls)} faults={faults} "
          f"mistakes={len(mistakes)}")
    sys.exit(1 if mistakes else 0)


main()
