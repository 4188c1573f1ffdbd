#!/usr/bin/env python3
"""Draws docs/run.svg, the picture of a run in the README, from a real one.

    docs/drawRun.py BUILD           runs the programs of the build folder and writes the picture
    docs/drawRun.py BUILD --check   fails when the picture is not what they say

The run has a System V namespace of its own, so no client of this machine is disturbed.
"""

import html
import os
import pathlib
import subprocess
import sys

DOCS = pathlib.Path(__file__).resolve().parent
PICTURE = DOCS / "run.svg"
PROMPT = "$ "
# What is typed, in order. The first goes to the background, as its "&" says.
LINES = [
    "standInClient --messages 1 &",
    "qvNodeDispatch abort",
    "qvNodeDispatchStatus abort; echo status $?",
]
ROW, CHARACTER, MARGIN = 19, 8.4, 16


def inOwnNamespace():
    if os.environ.get("QV_OWN_NAMESPACE"):
        return
    user = [] if os.geteuid() == 0 else ["--user", "--map-root-user"]
    os.environ["QV_OWN_NAMESPACE"] = "1"
    os.execvp("unshare", ["unshare", "--ipc", *user, sys.executable, *sys.argv])


def session(build):
    """The lines of the terminal."""
    environment = {**os.environ,
                   "PATH": f"{build}:{DOCS.parent / 'sender'}:{os.environ['PATH']}"}
    client, *commands = LINES
    shown = [PROMPT + client]
    background = subprocess.Popen(client.rstrip(" &"), shell=True, text=True, env=environment,
                                  stdout=subprocess.PIPE)
    shown.append(background.stdout.readline().rstrip("\n"))
    for command in commands:
        shown.append(PROMPT + command)
        result = subprocess.run(command, shell=True, text=True, env=environment, check=False,
                                stdout=subprocess.PIPE)
        shown += result.stdout.rstrip("\n").split("\n")
        if background:
            # It ends after its one message, and is heard out before the next line is typed.
            shown += background.communicate(timeout=20)[0].rstrip("\n").split("\n")
            background = None
    return shown


def draw(lines):
    width = round(max(map(len, lines)) * CHARACTER + 2 * MARGIN)
    height = len(lines) * ROW + 2 * MARGIN
    rows = []
    for number, line in enumerate(lines):
        kind = ' class="typed"' if line.startswith(PROMPT) else ""
        rows.append(f'<text x="{MARGIN}" y="{MARGIN + 14 + number * ROW}"{kind}>'
                    f"{html.escape(line)}</text>")
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {width} {height}" font-family="monospace" font-size="14" '
        'xml:space="preserve">\n'
        "<style>text{fill:#d7dae0}.typed{fill:#fff;font-weight:bold}</style>\n"
        f'<rect width="{width}" height="{height}" rx="8" fill="#22262e"/>\n'
        + "\n".join(rows) + "\n</svg>\n")


def main():
    inOwnNamespace()
    build, *options = sys.argv[1:]
    picture = draw(session(pathlib.Path(build).resolve()))
    if "--check" not in options:
        PICTURE.write_text(picture)
    elif PICTURE.read_text() != picture:
        sys.exit("docs/run.svg is not what the programs say (run docs/drawRun.py)")


if __name__ == "__main__":
    main()
