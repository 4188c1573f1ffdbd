"""One run of the tool: where its text goes, and what came of it."""

import os
import pty
import subprocess
import tempfile
import tty
from typing import NamedTuple

COMMAND = ["EventFrameDone", "4660"]
ENTRY = (5, 4660)


class Outcome(NamedTuple):
    status: int  # negative: ended by this signal
    text: str
    errors: str


def read_to_end(file):
    chunks = []
    try:
        while chunk := os.read(file, 4096):
            chunks.append(chunk)
    except OSError:  # how a terminal says that nobody writes to it any more
        pass
    return b"".join(chunks).decode()


def run_into_file(command):
    with tempfile.TemporaryFile() as text:
        run = subprocess.run(command, stdout=text, stderr=subprocess.PIPE, check=False)
        text.seek(0)
        return Outcome(run.returncode, text.read().decode(), run.stderr.decode())


def run_on_terminal(command):
    """There the banner is written ahead of all that the tool does, and the rest behind it."""
    own_end, programs_end = pty.openpty()
    tty.setraw(programs_end)
    run = subprocess.run(command, stdout=programs_end, stderr=subprocess.PIPE, check=False)
    os.close(programs_end)
    text = read_to_end(own_end)
    os.close(own_end)
    return Outcome(run.returncode, text, run.stderr.decode())
