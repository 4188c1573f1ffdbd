"""qvNodeDispatchStatus while a client holds the lock: what a terminal shows meanwhile, and what a
signal ends.

    statusSignals.py STATUS_PROGRAM
"""

import os
import pathlib
import pty
import select
import signal
import subprocess
import sys
import time
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "endToEnd"))
from clientSegment import (MESSAGE_COUNT, PREFIX, Segment, become_root_of_a_namespace,
                           enter_own_namespace, laid_down)

PROGRAM = sys.argv.pop(1)
SOON = 0.4  # seconds: the lock is waited for much longer
PATIENCE = 30
BANNER = b"(c) qvNodeDispatch contributors\n"


class WhileTheLockIsHeld(unittest.TestCase):
    def setUp(self):
        self.segment = Segment(laid_down(lock=1))
        self.addCleanup(self.segment.remove)

    def start(self, *arguments, stdout=subprocess.PIPE):
        process = subprocess.Popen([PROGRAM, *arguments, "abort"], stdout=stdout)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def count(self):
        return self.segment.bytes[PREFIX + MESSAGE_COUNT]

    def free(self):
        self.segment.bytes[0] = 0

    def test_a_terminal_shows_the_banner(self):
        ours, theirs = pty.openpty()
        process = self.start(stdout=theirs)
        shown = b""
        while not shown.endswith(BANNER):
            self.assertTrue(select.select([ours], [], [], PATIENCE)[0], shown)
            shown += os.read(ours, 4096).replace(b"\r\n", b"\n")
        self.assertIsNone(process.poll())
        self.free()
        self.assertEqual(process.wait(PATIENCE), 0)
        self.assertEqual(os.read(ours, 4096).replace(b"\r\n", b"\n"), b"Command send.\n\n")
        self.assertEqual(self.count(), 1)
        os.close(ours)
        os.close(theirs)

    def test_a_pipe_and_other_forms_get_nothing_yet(self):
        ours, theirs = pty.openpty()
        runs = [self.start(), self.start("--brief", stdout=theirs)]
        time.sleep(SOON)
        self.assertEqual(select.select([runs[0].stdout, ours], [], [], 0)[0], [])
        self.free()
        self.assertTrue(runs[0].communicate(timeout=PATIENCE)[0].endswith(
            BANNER + b"Command send.\n\n"))
        self.assertEqual(runs[1].wait(PATIENCE), 0)
        self.assertEqual(os.read(ours, 4096), b"stored\r\n")
        os.close(ours)
        os.close(theirs)

    def test_a_signal_waits_for_the_lock_and_nothing_is_stored(self):
        process = self.start("--brief")
        time.sleep(SOON)
        process.send_signal(signal.SIGTERM)
        time.sleep(SOON)
        self.assertIsNone(process.poll())
        self.free()
        self.assertEqual(process.communicate(timeout=PATIENCE)[0], b"")
        self.assertEqual(process.returncode, -signal.SIGTERM)
        self.assertEqual((self.segment.bytes[0], self.count()), (0, 0))

    def test_a_signal_ends_the_run_once_the_answer_is_shown(self):
        process = self.start("--brief")
        time.sleep(SOON)
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.communicate(timeout=PATIENCE)[0],
                         b"lockFailed: the lock stayed taken\n")
        self.assertEqual(process.returncode, -signal.SIGTERM)
        self.assertEqual(self.count(), 0)


if __name__ == "__main__":
    become_root_of_a_namespace()
    enter_own_namespace()
    unittest.main()
