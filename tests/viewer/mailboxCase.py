"""What the tests of mailboxView from outside have in common.

Each is called with: mailboxView standInClient qvNodeDispatch mailboxView.1
"""

import json
import pathlib
import re
import subprocess
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "endToEnd"))
from clientSegment import Guest, Segment, attached, remove_leftover

VIEW, CLIENT, TOOL, MANUAL = sys.argv[1:]

PATIENCE = 30  # seconds for what takes a moment on a machine that is not busy

# Root may enter every segment. Without this right the mode counts for root as well.
WITHOUT_PRIVILEGE = ["setpriv", "--bounding-set=-ipc_owner"]

HEALTHY = "A client is attached, and its queue has room."


def view(*arguments, before=()):
    return subprocess.run([*before, VIEW, *arguments], capture_output=True, text=True,
                          timeout=PATIENCE, check=False)


def start(*arguments, **streams):
    return subprocess.Popen([VIEW, *arguments], text=True, **streams)


class MailboxTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.assertIsNone(attached(), "a segment is left from another test")

    def segment(self, **how):
        segment = Segment(**how)
        self.addCleanup(segment.remove)
        return segment

    def running(self, *arguments, **streams):
        process = start(*arguments, **streams)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        if process.stdout is not None:
            self.addCleanup(process.stdout.close)
        return process

    def expect(self, status, problem, what, *options, before=()):
        """The verdict, the same in text, JSON and exit status. Gives the JSON."""
        text = view(*options, before=before)
        self.assertEqual((text.returncode, text.stderr), (status, ""), text.stdout)
        self.assertIn(f"\nverdict    {what}\n", text.stdout)
        run = view("--json", *options, before=before)
        self.assertEqual((run.returncode, run.stderr), (status, ""), run.stdout)
        self.assertEqual(run.stdout.count("\n"), 1)
        told = json.loads(run.stdout)
        self.assertEqual((told["status"], told["problem"], told["what"]), (status, problem, what))
        self.assertEqual(f"to do      {told['advice']}\n" in text.stdout, status != 0)
        return told

    def real_client(self, *arguments):
        self.addCleanup(remove_leftover)
        client = subprocess.Popen([CLIENT, "--seconds", str(PATIENCE), *arguments],
                                  stdout=subprocess.PIPE, text=True)
        self.addCleanup(client.stdout.close)
        self.addCleanup(client.wait)
        self.addCleanup(client.kill)
        self.assertEqual(client.stdout.readline(), "standInClient: ready, segment 0x4EFCFF\n")
        return client

    def dead_client(self):
        """A segment whose client has been killed, and a stranger attached to it."""
        client = self.real_client()
        guest = Guest()
        self.addCleanup(guest.leave)
        client.kill()
        client.wait()
        self.assertEqual(attached(), 1)
        return guest

    def wait_for_state(self, pid, letter):
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            with open(f"/proc/{pid}/stat", encoding="ascii") as stat:
                if re.search(r"\) (\w)", stat.read())[1] == letter:
                    return
            time.sleep(0.01)
        self.fail(f"process {pid} is not in state {letter}")


def main():
    unittest.main(argv=sys.argv[:1])
