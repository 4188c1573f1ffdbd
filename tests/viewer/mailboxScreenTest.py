"""mailboxView --watch in a real terminal: that of tmux."""

import os
import shlex
import shutil
import subprocess
import tempfile
import time

from mailboxCase import HEALTHY, PATIENCE, VIEW, MailboxTest, main
from clientSegment import MESSAGE_COUNT


class Screen(MailboxTest):
    def setUp(self):
        super().setUp()
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)

    def tmux(self, *arguments):
        return subprocess.run(
            ["tmux", "-S", os.path.join(self.folder, "socket"), "-f", "/dev/null", *arguments],
            capture_output=True, text=True, timeout=PATIENCE, check=True).stdout

    def open(self, rows, columns=80):
        self.tmux("new-session", "-d", "-x", str(columns), "-y", str(rows),
                  f"exec {shlex.quote(VIEW)} --watch=50")
        self.addCleanup(self.tmux, "kill-server")
        self.tmux("set", "-g", "status", "off")
        self.tmux("resize-window", "-x", str(columns), "-y", str(rows))

    def lines(self, is_wanted):
        """The screen, once it is as wanted. A look is drawn in steps, so it may be half there."""
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            lines = self.tmux("capture-pane", "-p").rstrip("\n").split("\n")
            if is_wanted(lines):
                return lines
            time.sleep(0.02)
        self.fail("\n".join(lines))

    def test_full_queue_fits(self):
        segment = self.segment()
        for number in range(1, 31):
            segment.message(number, 2, 2, 2)
        segment.put(MESSAGE_COUNT, 30, 1)
        self.open(24)
        lines = self.lines(lambda lines: lines[-1] == "   30 x Enable")
        self.assertLess(len(lines), 24)
        self.assertEqual(lines[0], "verdict    The queue is full and further commands are lost: "
                                   "the client does not")
        self.assertEqual(lines[1], "drain it.")
        self.assertEqual(lines[2], "to do      See to the client.")
        self.assertTrue(lines[3].startswith("looked     "))

    def test_what_does_not_fit_is_counted(self):
        segment = self.segment()
        for number in range(1, 31):
            segment.message(number, 2, 5, number)
        segment.put(MESSAGE_COUNT, 29, 1)
        self.open(24)
        lines = self.lines(lambda lines: lines[-1].startswith("... "))
        self.assertEqual(len(lines), 23)
        self.assertEqual(lines[0], f"verdict    {HEALTHY}")
        shown = [line for line in lines if line.startswith("    1 x kind 2, type 5, value ")]
        self.assertEqual(lines[-1], f"... {29 - len(shown)} more")
        self.assertGreater(len(shown), 4)

    def test_follows(self):
        self.open(24)
        self.lines(lambda lines: lines[0].startswith("verdict    There is no segment"))
        segment = self.segment()
        self.lines(lambda lines: lines[0] == f"verdict    {HEALTHY}"
                   and lines[-1] == "messages   0 of 30")
        segment.lock_byte(1)
        self.lines(lambda lines: lines[0].startswith("verdict    Somebody holds the lock"))

    def test_small_terminal(self):
        self.segment()
        self.open(5, 40)
        lines = self.lines(lambda lines: len(lines) == 4 and lines[-1].startswith("... "))
        self.assertEqual(lines[:2], ["verdict    A client is attached, and its", " queue has room."])


if __name__ == "__main__":
    main()
