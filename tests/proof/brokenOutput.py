#!/usr/bin/env python3
"""Runs the tool on standard outputs that take nothing, for each outcome of its way to the queue.

usage: brokenOutput.py TOOL

The text is lost, and the tool may be ended by the signal of a broken pipe. The entry is stored all
the same, and the lock is given back first.
"""

import os
import pathlib
import pty
import shutil
import signal
import subprocess
import sys

import toolRun

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "endToEnd"))
import clientSegment

COMMAND = [sys.argv[1], *toolRun.COMMAND]

SCENES = {  # name -> the record laid down, whether the run stores
    "stores": (clientSegment.laid_down(count=4), True),
    "queue full": (clientSegment.laid_down(count=30), False),
    "wrong marker": (clientSegment.laid_down(marker=516, count=4), False),
}


def status(command, **options):
    run = subprocess.run(command, stderr=subprocess.PIPE, check=False, **options)
    return run.returncode, run.stderr


def closed():
    return status(["sh", "-c", 'exec "$0" "$@" >&-', *COMMAND])


def full_device():
    with open("/dev/full", "wb") as full:
        return status(COMMAND, stdout=full)


def pipe_without_reader(signal_is_default=True):
    reader, writer = os.pipe()
    os.close(reader)
    try:
        # This interpreter ignores the signal, and its children do unless they are told.
        return status(COMMAND, stdout=writer, restore_signals=signal_is_default)
    finally:
        os.close(writer)


def pipe_without_reader_and_signal():
    return pipe_without_reader(signal_is_default=False)


def hung_up_terminal():
    """Every write fails; the terminal does not even say that it is one."""
    own_end, programs_end = pty.openpty()
    os.close(own_end)
    try:
        return status(COMMAND, stdout=programs_end)
    finally:
        os.close(programs_end)


def pipe_breaks_at_write(number):
    """SIGPIPE comes with that write; by strace, since only a terminal gets more than one."""
    run = toolRun.run_on_terminal(
        ["strace", "-o", os.devnull,
         "-e", f"inject=write,writev:error=EPIPE:signal=SIGPIPE:when={number}", *COMMAND])
    return run.status, run.errors.encode()


ENDED_BY_PIPE = -signal.SIGPIPE

# A run on it, the status that it ends with, and whether it gets as far as the queue.
OUTPUTS = [
    (closed, 0, True),
    (full_device, 0, True),
    (pipe_without_reader, ENDED_BY_PIPE, True),
    (pipe_without_reader_and_signal, 0, True),
    (hung_up_terminal, 0, True),
    # The banner comes ahead of the segment, the outcome behind it.
    (lambda: pipe_breaks_at_write(1), ENDED_BY_PIPE, False),
    (lambda: pipe_breaks_at_write(2), ENDED_BY_PIPE, True),
]


def main():
    clientSegment.become_root_of_a_namespace()
    clientSegment.enter_own_namespace()
    if not shutil.which("strace"):
        sys.exit("brokenOutput.py: strace is missing")
    runs = mistakes = 0
    for number, (run_on_output, expected_status, arrives) in enumerate(OUTPUTS):
        for scene, (content, stores) in SCENES.items():
            with clientSegment.Segment(content) as segment:
                ended = run_on_output()
                left = segment.found()
            expected = content
            if stores and arrives:
                expected = clientSegment.with_entry(content, *toolRun.ENTRY)
            runs += 1
            if ended != (expected_status, b"") or left != expected:
                mistakes += 1
                print(f"output {number}, {scene}: {ended}, expected {expected_status}; record "
                      f"{'as laid down' if left == expected else 'NOT as laid down'}, lock byte "
                      f"{left[0]}")
    print(f"proof: brokenOutput runs={runs} mistakes={mistakes}")
    sys.exit(1 if mistakes else 0)


main()
