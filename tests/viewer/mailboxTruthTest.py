"""mailboxView from outside: where commands do not reach the client although the record is fine."""

import os
import pkgutil
import shutil
import signal
import subprocess
import tempfile
from unittest import mock

from mailboxCase import HEALTHY, TOOL, WITHOUT_PRIVILEGE, MailboxTest, main, view
from clientSegment import MESSAGE_COUNT, Guest, attached

DEAD = ("The client is dead: what is still attached keeps its segment, and nobody takes commands.")
STOPPED = "The client is stopped: what waits is not taken until it is continued."
MAY_NOT_SEND = "This user may look at the mailbox but not send: it lacks the right to write."
TOO_SMALL = ("The segment is too small: something else holds the key, or a client of another "
             "build.")


def tool_says(*arguments, before=()):
    return subprocess.run([*before, TOOL, *arguments], capture_output=True, text=True,
                          check=True).stdout


class Rights(MailboxTest):
    def test_right_to_read_is_not_enough(self):
        for mode in (0o400, 0o444, 0o466):
            with self.subTest(mode=mode):
                segment = self.segment(mode=mode)
                segment.put(MESSAGE_COUNT, 1, 1)
                told = self.expect(15, "mayNotSend", MAY_NOT_SEND, before=WITHOUT_PRIVILEGE)
                self.assertEqual(told["record"]["messageCount"], 1)
                self.assertIn("Permission denied", tool_says("abort", before=WITHOUT_PRIVILEGE))
                self.doCleanups()

    def test_segment_of_another_user(self):
        if os.geteuid() != 0:
            self.skipTest("only root has other users")
        # Root's folders may be closed to others: the programs, and the counts of coverage, go here.
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        os.chmod(folder.name, 0o777)
        for name in "mailboxCase.VIEW", f"{__name__}.TOOL":
            copied = mock.patch(name, shutil.copy(pkgutil.resolve_name(name), folder.name))
            copied.start()
            self.addCleanup(copied.stop)
        other = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups",
                 "env", f"GCOV_PREFIX={folder.name}"]
        segment = self.segment(mode=0o644)
        self.expect(15, "mayNotSend", MAY_NOT_SEND, before=other)
        self.assertIn("Permission denied", tool_says("abort", before=other))
        self.expect(0, "none", HEALTHY)
        segment.set_mode(0o666)
        self.expect(0, "none", HEALTHY, before=other)
        segment.set_mode(0o600)
        self.expect(3, "noRight", "This user has no right to the segment.", before=other)

    def test_rights_of_a_sender_suffice(self):
        self.segment(mode=0o600)
        self.expect(0, "none", HEALTHY, before=WITHOUT_PRIVILEGE)
        self.assertIn("Command send.", tool_says("abort", before=WITHOUT_PRIVILEGE))


class Client(MailboxTest):
    def test_dead_with_a_stranger_attached(self):
        self.dead_client()
        for options in ([], ["--lock"]):
            told = self.expect(13, "clientDead", DEAD, *options)
            self.assertEqual(told["segment"]["attached"], 1)

    def test_death_explains_the_lock(self):
        self.dead_client().lock_byte(1)
        self.expect(13, "clientDead", DEAD)

    def test_viewer_is_no_client(self):
        client = self.real_client()
        guest = Guest()
        guest.lock_byte(1)
        other = self.running("--lock", stdout=subprocess.DEVNULL)
        while attached() != 4:  # it has two mappings
            self.assertIsNone(other.poll())
        client.kill()
        client.wait()
        guest.leave()
        run = view()
        self.assertIsNone(other.poll())
        self.assertEqual((run.returncode, attached()), (13, 2), run.stdout)
        other.wait()

    def test_stopped_with_messages(self):
        client = self.real_client()
        client.send_signal(signal.SIGSTOP)
        self.wait_for_state(client.pid, "T")
        self.expect(0, "none", HEALTHY)
        tool_says("abort")
        self.expect(14, "clientStopped", STOPPED)
        client.send_signal(signal.SIGCONT)
        self.assertEqual(client.stdout.readline(), "kind 2, type 2, value 1: Abort\n")
        self.expect(0, "none", HEALTHY)


    def test_client_of_another_process_namespace(self):
        if os.geteuid() != 0:
            self.skipTest("only root makes a process namespace beside this one")
        segment = self.segment()
        apart = ["unshare", "--pid", "--fork", "--mount-proc"]
        told = self.expect(0, "none", HEALTHY, before=apart)
        self.assertEqual(told["segment"]["client"], {"pid": 0, "command": "", "state": "unknown"})
        segment.lock_byte(1)
        run = view("--free-lock", before=apart)
        self.assertEqual(run.returncode, 17)
        self.assertIn("nothing: The client's process is hidden from this user.\n", run.stdout)


class Size(MailboxTest):
    def test_counted_as_a_sender_does(self):
        wrapped = 2 ** 31
        self.segment(record_size=wrapped)
        told = self.expect(6, "tooSmall", TOO_SMALL)
        self.assertEqual(told["segment"]["recordSize"], -wrapped)
        self.assertIn("wrong data size! (-2147483648!=22988)", tool_says("abort"))

    def test_wrapped_twice_is_large_enough(self):
        self.segment(record_size=2 ** 32 + 22988)
        self.expect(0, "none", HEALTHY)
        self.assertIn("Command send.", tool_says("abort"))

    def test_wrapped_twice_and_too_small(self):
        self.segment(record_size=2 ** 32 + 22987)
        self.expect(6, "tooSmall", TOO_SMALL)
        self.assertIn("wrong data size! (22987!=22988)", tool_says("abort"))


if __name__ == "__main__":
    main()
