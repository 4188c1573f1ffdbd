"""mailboxView --free-lock: a stale lock only, and only where nobody but the client can hold it.

The test process is the client where it makes the segment itself.
"""

import os
import signal
import subprocess
import threading
import time

from mailboxCase import PATIENCE, TOOL, WITHOUT_PRIVILEGE, MailboxTest, main, view
from clientSegment import RECORD_MARKER, Guest, attached

FREED = "done       freed the lock, which was taken at every look for 2.5 seconds\n"


def die_with_the_lock(byte=1):
    """A process that takes the lock and is gone."""
    pid = os.fork()
    if pid == 0:
        Guest().lock_byte(byte)
        os._exit(0)
    os.waitpid(pid, 0)


class FreeLock(MailboxTest):
    def expect_freed(self):
        start = time.monotonic()
        run = view("--free-lock")
        self.assertEqual((run.returncode, run.stderr), (0, ""), run.stdout)
        self.assertTrue(run.stdout.endswith(FREED), run.stdout)
        self.assertGreaterEqual(time.monotonic() - start, 2.5)
        self.assertEqual(attached(), 1)
        return run.stdout

    def expect_refused(self, reason, before=()):
        run = view("--free-lock", before=before)
        self.assertEqual((run.returncode, run.stderr), (17, ""), run.stdout)
        self.assertTrue(run.stdout.endswith(f"done       nothing: {reason}\n"), run.stdout)
        return run

    def test_lock_of_a_dead_process(self):
        client = self.real_client("--messages", "1")
        die_with_the_lock(200)
        told = self.expect_freed()
        self.assertIn(f"\nclient     pid {client.pid} (standInClient), alive\n", told)
        self.assertRegex(told, r"\ncame last  pid \d+, dead\n")
        self.assertIn("\nlock byte  200\n", told)
        subprocess.run([TOOL, "abort"], stdout=subprocess.DEVNULL, check=True)
        self.assertEqual(client.stdout.readline(), "kind 2, type 2, value 1: Abort\n")
        self.assertEqual(client.wait(PATIENCE), 0)

    def test_changes_the_lock_byte_alone(self):
        segment = self.segment()
        before = segment.image()
        segment.lock_byte(7)
        self.expect_freed()
        self.assertEqual(segment.image(), before)

    def test_free_lock(self):
        self.segment()
        run = view("--free-lock")
        self.assertEqual(run.returncode, 0)
        self.assertTrue(run.stdout.endswith("done       nothing: The lock is free.\n"))

    def test_lock_that_comes_free(self):
        segment = self.segment()
        segment.lock_byte(1)
        release = threading.Timer(1, segment.lock_byte, [0])
        release.start()
        run = view("--free-lock")
        release.join()
        self.assertEqual(run.returncode, 0)
        self.assertTrue(run.stdout.endswith("done       nothing: The lock is free.\n"))

    def test_byte_that_changes(self):
        segment = self.segment()
        segment.lock_byte(1)
        change = threading.Timer(1, segment.lock_byte, [2])
        change.start()
        self.expect_refused("The lock is in use: its byte changed.")
        change.join()
        self.assertEqual(segment.lock_byte(), 2)

    def test_somebody_attached(self):
        self.real_client()
        guest = Guest()
        self.addCleanup(guest.leave)
        guest.lock_byte(1)
        self.expect_refused("Others than the client are attached, and may hold the lock.")
        self.assertEqual(guest.bytes[0], 1)

    def test_somebody_comes(self):
        segment = self.segment()
        segment.lock_byte(1)
        sender = []
        come = threading.Timer(1, lambda: sender.append(
            self.enterContext(subprocess.Popen([TOOL, "abort"], stdout=subprocess.DEVNULL))))
        come.start()
        self.expect_refused("Others than the client are attached, and may hold the lock.")
        come.join()
        self.assertEqual(segment.lock_byte(), 1)

    def test_last_one_is_alive(self):
        self.real_client()
        guest = Guest()
        guest.lock_byte(1)
        guest.leave()
        self.expect_refused("The process that came last is alive, and may hold the lock.")

    def test_client_stopped(self):
        client = self.real_client()
        die_with_the_lock()
        client.send_signal(signal.SIGSTOP)
        self.wait_for_state(client.pid, "T")
        self.expect_refused("The client is stopped, and may hold the lock.")

    def test_client_dead(self):
        self.dead_client().lock_byte(1)
        self.expect_refused("The client is dead: nobody would take a command.")

    def test_nobody_attached(self):
        segment = self.segment()
        segment.lock_byte(1)
        segment.leave()
        self.expect_refused("Nobody is attached: a client that died left this segment.")
        self.assertEqual(attached(), 0)

    def test_no_segment(self):
        run = self.expect_refused("There is no segment: no client runs on this machine.")
        self.assertEqual(run.stdout.count("\n"), 1)

    def test_no_right(self):
        segment = self.segment(mode=0o400)
        segment.lock_byte(1)
        self.expect_refused("This user has no right to write to the segment.",
                            before=WITHOUT_PRIVILEGE)

    def test_record_of_another_program(self):
        segment = self.segment()
        segment.put(RECORD_MARKER, 516, 4)
        segment.lock_byte(1)
        self.expect_refused("The record is not a client's, or not filled in yet.")


if __name__ == "__main__":
    main()
