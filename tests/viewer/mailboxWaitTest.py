"""mailboxView from outside: waiting for a client, or for its queue to be empty."""

import signal
import subprocess
import time

from mailboxCase import PATIENCE, MailboxTest, main, view
from clientSegment import MESSAGE_COUNT, RECORD_MARKER

OUT_OF_TIME = "timedOut: The time ran out before it was so.\n"


class Wait(MailboxTest):
    def waiting(self, *arguments):
        process = self.running("--brief", *arguments, "--timeout", str(PATIENCE),
                               stdout=subprocess.PIPE)
        time.sleep(0.3)
        self.assertIsNone(process.poll())
        return process

    def expect_out_of_time(self, reason, *arguments):
        start = time.monotonic()
        run = view("--brief", *arguments, "--timeout=1")
        self.assertEqual((run.returncode, run.stdout), (16, OUT_OF_TIME))
        self.assertTrue(run.stderr.startswith(f"mailboxView: the last look: {reason}: "),
                        run.stderr)
        self.assertGreaterEqual(time.monotonic() - start, 1)

    def test_until_a_client_comes(self):
        process = self.waiting("--wait-client")
        self.real_client()
        self.assertEqual(process.wait(PATIENCE), 0)

    def test_until_the_client_has_started(self):
        segment = self.segment()
        segment.put(RECORD_MARKER, 0, 4)
        process = self.waiting("--wait-client")
        segment.put(RECORD_MARKER, 517, 4)
        self.assertEqual(process.wait(PATIENCE), 0)

    def test_client_with_a_full_queue_is_there(self):
        segment = self.segment()
        segment.put(MESSAGE_COUNT, 30, 1)
        run = view("--brief", "--wait-client", "--timeout=5")
        self.assertEqual((run.returncode, run.stdout[:10]), (0, "queueFull:"))

    def test_until_the_queue_is_empty(self):
        segment = self.segment()
        segment.put(MESSAGE_COUNT, 2, 1)
        process = self.waiting("--wait-empty")
        segment.put(MESSAGE_COUNT, 0, 1)
        self.assertEqual(process.wait(PATIENCE), 0)

    def test_count_under_a_taken_lock_does_not_count(self):
        segment = self.segment()
        segment.lock_byte(1)
        process = self.waiting("--wait-empty")
        segment.lock_byte(0)
        self.assertEqual(process.wait(PATIENCE), 0)

    def test_no_client(self):
        for task in ("--wait-empty", "--wait-client"):
            self.expect_out_of_time("missing", task)

    def test_leftover_of_a_dead_client(self):
        segment = self.segment()
        segment.leave()
        for task in ("--wait-empty", "--wait-client"):
            self.expect_out_of_time("abandoned", task)

    def test_dead_client_with_a_stranger(self):
        self.dead_client()
        for task in ("--wait-empty", "--wait-client"):
            self.expect_out_of_time("clientDead", task)

    def test_messages_stay(self):
        self.segment().put(MESSAGE_COUNT, 2, 1)
        self.expect_out_of_time("none", "--wait-empty")

    def test_ends_by_a_signal(self):
        process = self.waiting("--wait-client")
        process.terminate()
        self.assertEqual(process.wait(PATIENCE), -signal.SIGTERM)


if __name__ == "__main__":
    main()
