"""mailboxView from outside: every state of a mailbox, both forms of output, --watch and --lock."""

import calendar
import json
import os
import pty
import pwd
import re
import select
import signal
import subprocess
import termios
import threading
import time

from mailboxCase import (HEALTHY, MANUAL, PATIENCE, TOOL, WITHOUT_PRIVILEGE, MailboxTest, main,
                         view)
from clientSegment import MESSAGE_COUNT, RECORD_MARKER, STATE_FLAG, STATE_MARKER, Segment, attached


class States(MailboxTest):
    def expect_unchanged(self, segment, *expectation, **how):
        before = segment.image()
        told = self.expect(*expectation, **how)
        self.assertEqual(segment.image(), before)
        self.assertEqual(attached(), 1)
        return told

    def test_no_segment(self):
        told = self.expect(2, "missing", "There is no segment: no client runs on this machine.")
        self.assertEqual(told["system"], "shmget: No such file or directory")
        self.assertNotIn("segment", told)
        self.assertNotIn("record", told)
        self.assertIsNone(attached())

    def test_no_right(self):
        segment = self.segment(mode=0)
        told = self.expect_unchanged(segment, 3, "noRight",
                                     "This user has no right to the segment.",
                                     before=WITHOUT_PRIVILEGE)
        self.assertEqual(told["system"], "shmget: Permission denied")

    def test_left_by_a_dead_client(self):
        segment = self.segment()
        segment.put(MESSAGE_COUNT, 1, 1)
        segment.message(1, 2, 2, 1)
        segment.leave()
        for options in ([], ["--lock"]):
            told = self.expect(5, "abandoned",
                               "Nobody is attached: a client that died left this segment.",
                               *options)
            self.assertEqual(attached(), 0)  # and not None: it is still there
            self.assertFalse(told["record"]["lock"]["byViewer"])
            self.assertEqual(told["record"]["entries"],
                             [{"kind": 2, "type": 2, "value": 1, "name": "Abort"}])

    def test_too_small(self):
        for size in (22987, 1, -7):
            with self.subTest(size=size):
                segment = Segment(record_size=size)
                try:
                    told = self.expect_unchanged(
                        segment, 6, "tooSmall", "The segment is too small: something else holds "
                        "the key, or a client of another build.")
                    self.assertEqual(told["segment"]["recordSize"], size)
                    self.assertEqual(told["segment"]["leastRecordSize"], 22988)
                    self.assertNotIn("record", told)
                finally:
                    segment.remove()

    def test_larger_is_healthy(self):
        told = self.expect_unchanged(self.segment(record_size=50000), 0, "none", HEALTHY)
        self.assertEqual(told["segment"]["recordSize"], 50000)

    def test_lock_held(self):
        segment = self.segment()
        segment.lock_byte(200)
        told = self.expect_unchanged(segment, 7, "lockHeld",
                                     "Somebody holds the lock, which is usual for a moment.")
        self.assertEqual(told["record"]["lock"],
                         {"byte": 200, "byViewer": False, "secondsTaken": 0})

    def test_client_starting(self):
        what = "The format fields are not all written: the client is still starting."
        for zeros in ([RECORD_MARKER], [STATE_MARKER], [STATE_FLAG],
                      [RECORD_MARKER, STATE_MARKER, STATE_FLAG]):
            with self.subTest(zeros=zeros):
                segment = Segment()
                try:
                    for place in zeros:
                        segment.put(place, 0, 2)
                    self.expect_unchanged(segment, 9, "starting", what)
                finally:
                    segment.remove()

    def test_wrong_markers(self):
        what = ("The record is not a client's: something else holds the key, or a client of "
                "another build.")
        for place, size, value, name, expected in (
                (RECORD_MARKER, 4, 517 + 65536, "recordMarker", 517),
                (RECORD_MARKER, 4, 4294967295, "recordMarker", 517),
                (STATE_MARKER, 2, 3076, "stateMarker", 3077)):
            with self.subTest(name=name, value=value):
                segment = Segment()
                try:
                    segment.put(place, value, size)
                    segment.put(MESSAGE_COUNT, 3, 1)
                    told = self.expect_unchanged(segment, 10, "wrongFormat", what)
                    self.assertEqual(told["record"][name], {"found": value, "expected": expected})
                    self.assertEqual(told["record"]["messageCount"], 3)
                    self.assertEqual(told["record"]["entries"], [])
                finally:
                    segment.remove()

    def test_any_state_flag_but_zero(self):
        segment = self.segment()
        segment.put(STATE_FLAG, 65535, 2)
        told = self.expect_unchanged(segment, 0, "none", HEALTHY)
        self.assertEqual(told["record"]["stateFlag"], {"found": 65535, "expected": 1})

    def test_queue_lengths(self):
        full = "The queue is full and further commands are lost: the client does not drain it."
        high = "The message count is above the queue's capacity: the record is damaged."
        for count, shown, verdict in ((0, 0, (0, "none", HEALTHY)),
                                      (29, 29, (0, "none", HEALTHY)),
                                      (30, 30, (12, "queueFull", full)),
                                      (31, 30, (11, "countTooHigh", high)),
                                      (255, 30, (11, "countTooHigh", high))):
            with self.subTest(count=count):
                segment = Segment()
                try:
                    for number in range(1, 31):
                        segment.message(number, number, 5, 1000 + number)
                    segment.put(MESSAGE_COUNT, count, 1)
                    told = self.expect_unchanged(segment, *verdict)
                    self.assertEqual(told["record"]["messageCount"], count)
                    self.assertEqual(told["record"]["capacity"], 30)
                    self.assertEqual(told["record"]["entries"],
                                     [{"kind": number, "type": 5, "value": 1000 + number}
                                      for number in range(1, shown + 1)])
                finally:
                    segment.remove()


class Output(MailboxTest):
    def filled(self):
        segment = self.segment(mode=0o640)
        segment.put(MESSAGE_COUNT, 5, 1)
        segment.message(1, 2, 2, 18)
        segment.message(2, 2, 3, 9)
        segment.message(3, 255, 5, 65535)
        segment.message(4, 2, 2, 200)
        segment.message(5, 2, 2, 257)
        return segment

    def test_text(self):
        segment = self.filled()
        run = view()
        moment = r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d"
        self.assertRegex(run.stdout, f"\nlooked     {moment}\n")
        self.assertRegex(run.stdout, f"\nattached   {moment}\nleft       never\n"
                                     f"changed    {moment}\n")
        steady = re.sub(moment, "TIME", run.stdout)
        us = f"pid {os.getpid()} ({self.our_command()}), alive"
        self.assertEqual(steady, (
            f"mailbox    key 0x004efcff on {os.uname().nodename}\n"
            "looked     TIME\n"
            f"id         {segment.id}\n"
            "record     22988 bytes of at least 22988, in a segment of 22996\n"
            f"owner      {self.our_name()}, uid {os.geteuid()}, gid {os.getegid()}, mode 0640\n"
            "processes  1 attached\n"
            f"client     {us}\n"
            f"came last  {us}\n"
            "attached   TIME\n"
            "left       never\n"
            "changed    TIME\n"
            "lock       free\n"
            "markers    recordMarker 517 (517), stateMarker 3077 (3077), stateFlag 1 (1)\n"
            "messages   5 of 30\n"
            "    1  kind 2, type 2, value 18: No 'Reserve CPU for interactive user'\n"
            "    2  kind 2, type 3, value 9\n"
            "    3  kind 255, type 5, value 65535\n"
            "    4  kind 2, type 2, value 200: Unknown #200\n"
            "    5  kind 2, type 2, value 257\n"
            "verdict    A client is attached, and its queue has room.\n"))

    @staticmethod
    def our_command():
        with open("/proc/self/comm", encoding="ascii") as name:
            return name.read().rstrip()

    @staticmethod
    def our_name():
        return pwd.getpwuid(os.geteuid()).pw_name

    def test_user_who_has_no_name(self):
        if os.geteuid() != 0:
            self.skipTest("only root makes segments of others")
        self.segment().set_owner(4000000000)
        self.assertIn("\nowner      uid 4000000000, gid ", view().stdout)
        self.assertEqual(json.loads(view("--json").stdout)["segment"]["user"], "")

    def test_json(self):
        segment = self.filled()
        now = int(time.time())
        told = json.loads(view("--json").stdout)
        for name in ("attachTime", "changeTime"):
            self.assertLessEqual(abs(told["segment"].pop(name) - now), PATIENCE)
        moment = time.strptime(told.pop("time"), "%Y-%m-%dT%H:%M:%SZ")
        self.assertLessEqual(abs(calendar.timegm(moment) - now), PATIENCE)
        us = {"pid": os.getpid(), "command": self.our_command(), "state": "alive"}
        self.assertEqual(told, {
            "schema": 1, "host": os.uname().nodename,
            "key": 5176575, "keyHex": "0x004efcff", "status": 0, "problem": "none",
            "what": "A client is attached, and its queue has room.", "system": "", "advice": "",
            "segment": {
                "id": segment.id, "recordSize": 22988, "leastRecordSize": 22988,
                "uid": os.geteuid(), "gid": os.getegid(), "mode": "0640", "attached": 1,
                "creatorPid": os.getpid(), "lastPid": os.getpid(), "leaveTime": 0,
                "size": 22996, "user": self.our_name(), "client": us, "last": us},
            "record": {
                "lock": {"byte": 0, "byViewer": False, "secondsTaken": 0},
                "recordMarker": {"found": 517, "expected": 517},
                "stateMarker": {"found": 3077, "expected": 3077},
                "stateFlag": {"found": 1, "expected": 1},
                "messageCount": 5, "capacity": 30,
                "entries": [
                    {"kind": 2, "type": 2, "value": 18,
                     "name": "No 'Reserve CPU for interactive user'"},
                    {"kind": 2, "type": 3, "value": 9},
                    {"kind": 255, "type": 5, "value": 65535},
                    {"kind": 2, "type": 2, "value": 200, "name": "Unknown #200"},
                    {"kind": 2, "type": 2, "value": 257}]}})

    def test_brief(self):
        run = view("--brief")
        self.assertEqual((run.returncode, run.stdout), (
            2, "missing: There is no segment: no client runs on this machine.\n"))
        self.filled()
        run = view("--brief")
        self.assertEqual((run.returncode, run.stdout), (
            0, "none: A client is attached, and its queue has room.\n"))

    def test_version(self):
        run = view("--version")
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "mailboxView 8.3.05\n", ""))

    def test_wrong_command_lines(self):
        for line, error in (
                (["-x"], "'-x' is no option"),
                (["json"], "'json' is no option"),
                (["--json", ""], "'' is no option"),
                (["--jsonx"], "'--jsonx' is no option"),
                (["-hx"], "'-hx' is no option"),
                (["\033[2J"], "'?[2J' is no option"),
                (["--lock", "1"], "'1' is no option"),
                (["--watch", "5", "6"], "'6' is no option"),
                (["--lock=1"], "'--lock=1' has a value, which does not go with --lock"),
                (["--watch", "0"], "'0' is no number that goes with --watch"),
                (["--watch", "1x"], "'1x' is no number that goes with --watch"),
                (["--watch="], "'--watch=' is no number that goes with --watch"),
                (["--watch=-5"], "'--watch=-5' is no number that goes with --watch"),
                (["--watch", "99999999999"],
                 "'99999999999' is no number that goes with --watch"),
                (["--timeout"], "'--timeout' needs a number"),
                (["--timeout", "5"], "'--timeout' goes with other options only"),
                (["--watch", "--timeout", "5"], "'--timeout' does not go with --watch"),
                (["--watch", "--wait-empty"], "'--wait-empty' does not go with --watch"),
                (["--wait-client"], "'--wait-client' needs --timeout S"),
                (["--json", "--version"], "'--json' does not go with --version")):
            with self.subTest(line=line):
                run = view(*line)
                self.assertEqual((run.returncode, run.stdout), (1, ""))
                self.assertEqual(run.stderr.splitlines()[:2],
                                 [f"mailboxView: {error}", "usage: mailboxView [OPTION]..."])

    def test_forms_of_an_option(self):
        self.assertEqual(view("-h").stdout, view("--help").stdout)
        for line in (["--watch=20"], ["--watch", "20"]):
            with self.subTest(line=line):
                process = self.running("--brief", *line, stdout=subprocess.PIPE)
                for _ in range(3):
                    self.assertTrue(process.stdout.readline().startswith("missing: "))

    def test_output_that_cannot_be_written(self):
        for options in ([], ["--json"], ["--brief"], ["--watch", "20"], ["--help"],
                        ["--version"], ["--wait-empty", "--timeout", "1"]):
            with self.subTest(options=options), open("/dev/full", "w", encoding="ascii") as full:
                self.assertEqual(self.running(*options, stdout=full).wait(PATIENCE), 1)

    def test_manual_tells_the_statuses_of_the_help(self):
        run = view("--help")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        helped = re.findall(r"^ +(\d+)  (\w+) ", run.stdout, re.MULTILINE)
        with open(MANUAL, encoding="utf-8") as manual:
            told = re.findall(r"^\.It (\d+) \((\w+)\)$", manual.read(), re.MULTILINE)
        self.assertEqual(len(helped), 17)
        self.assertEqual(told, helped)


class RealClient(MailboxTest):
    def test_messages_wait_and_are_left_waiting(self):
        client = self.real_client("--messages", "2")
        client.send_signal(signal.SIGSTOP)
        self.wait_for_state(client.pid, "T")
        for word in ("abort", "checkjob"):
            subprocess.run([TOOL, word], stdout=subprocess.DEVNULL, timeout=PATIENCE, check=True)
        for options in ([], ["--lock"]):
            told = self.expect(14, "clientStopped", "The client is stopped: what waits is not "
                               "taken until it is continued.", *options)
            self.assertEqual(told["segment"]["creatorPid"], client.pid)
            self.assertEqual(told["segment"]["attached"], 1)
            self.assertEqual(told["record"]["entries"],
                             [{"kind": 2, "type": 2, "value": 1, "name": "Abort"},
                              {"kind": 2, "type": 3, "value": 9}])
        client.send_signal(signal.SIGCONT)
        self.assertEqual(client.communicate(timeout=PATIENCE)[0],
                         "kind 2, type 2, value 1: Abort\nkind 2, type 3, value 9\n"
                         "standInClient: 2 received\n")
        self.assertIsNone(attached())  # the client could be the last one out


class Watch(MailboxTest):
    def looks(self, process, is_wanted):
        """Reads looks up to the first wanted one."""
        found = []
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            found.append(json.loads(process.stdout.readline()))
            if is_wanted(found[-1]):
                return found
        self.fail(f"not seen: {found[-1]}")

    def test_json_follows_the_mailbox(self):
        process = self.running("--json", "--watch", "20", stdout=subprocess.PIPE)
        self.looks(process, lambda look: look["problem"] == "missing")
        segment = self.segment()
        self.looks(process, lambda look: look["problem"] == "none")
        segment.put(MESSAGE_COUNT, 30, 1)
        self.looks(process, lambda look: look["problem"] == "queueFull")
        for number in (signal.SIGSTOP, signal.SIGCONT, signal.SIGTERM):
            process.send_signal(number)
        self.assertEqual(process.wait(PATIENCE), 12)

    def test_lock_becomes_stale(self):
        segment = self.segment()
        process = self.running("--json", "--watch", "50", stdout=subprocess.PIPE)
        self.looks(process, lambda look: look["problem"] == "none")
        segment.lock_byte(1)
        looks = self.looks(process, lambda look: look["problem"] == "staleLock")
        held = [look["record"]["lock"]["secondsTaken"] for look in looks
                if look["problem"] == "lockHeld"]
        self.assertEqual(held[0], 0)
        self.assertEqual(held, sorted(held))
        self.assertLess(held[-1], 2.5)
        self.assertGreaterEqual(looks[-1]["record"]["lock"]["secondsTaken"], 2.5)
        self.assertEqual(segment.lock_byte(), 1)
        segment.lock_byte(0)
        self.looks(process, lambda look: look["problem"] == "none")
        segment.lock_byte(1)
        again = self.looks(process, lambda look: look["problem"] == "lockHeld")
        self.assertEqual(again[-1]["record"]["lock"]["secondsTaken"], 0)

    def test_stale_lock_of_another_segment(self):
        first = Segment()
        first.lock_byte(1)
        process = self.running("--json", "--watch", "20", stdout=subprocess.PIPE)
        try:
            self.looks(process, lambda look: look["problem"] == "staleLock")
            process.send_signal(signal.SIGSTOP)
            self.wait_for_state(process.pid, "T")
        finally:
            first.remove()
        second = self.segment()
        second.lock_byte(1)
        process.send_signal(signal.SIGCONT)
        looks = self.looks(process, lambda look: look["segment"]["id"] == second.id)
        self.assertEqual(looks[-1]["problem"], "lockHeld")
        self.assertEqual(looks[-1]["record"]["lock"]["secondsTaken"], 0)

    def test_text_in_a_file_is_plain(self):
        self.segment()
        process = self.running("--watch", "20", stdout=subprocess.PIPE)
        lines = [process.stdout.readline() for _ in range(48)]
        verdict = f"verdict    {HEALTHY}\n"
        self.assertEqual([i for i, line in enumerate(lines) if line == verdict], [0, 16, 32])
        self.assertTrue(lines[1].startswith("looked     "))
        self.assertEqual(lines[15], "\n")
        self.assertNotIn("\033", "".join(lines))

    def test_equal_messages_are_folded(self):
        segment = self.segment()
        values = [2] * 3 + [3] + [2] * 26
        for number, value in enumerate(values, 1):
            segment.message(number, 2, 2, value)
        segment.message(30, 2, 5, 2)
        segment.put(MESSAGE_COUNT, 30, 1)
        process = self.running("--watch", "20", stdout=subprocess.PIPE)
        while process.stdout.readline() != "messages   30 of 30\n":
            pass
        self.assertEqual([process.stdout.readline() for _ in range(5)],
                         ["    3 x Enable\n", "    1 x Disable\n", "   25 x Enable\n",
                          "    1 x kind 2, type 5, value 2\n", "\n"])

    def test_terminal_is_left_as_it_was(self):
        self.segment()
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(signal=number):
                screen, terminal = pty.openpty()
                try:
                    before = termios.tcgetattr(terminal)
                    process = self.running("--watch", "600000", stdin=terminal, stdout=terminal,
                                           stderr=terminal)
                    output = self.screen_text(screen, "messages   0 of 30")
                    process.send_signal(number)
                    self.assertEqual(process.wait(PATIENCE), 0)
                    self.assertTrue(output.startswith("\033[H\033[Jverdict    "))
                    output += self.screen_text(screen)
                    self.assertEqual(output.count("\033"), 2)  # no mode set, so none to set back
                    self.assertTrue(output.endswith("\n"))
                    self.assertEqual(termios.tcgetattr(terminal), before)
                finally:
                    os.close(terminal)
                    os.close(screen)
        self.assertEqual(attached(), 1)

    def screen_text(self, screen, awaited=None):
        """What stands on the screen, up to what is awaited, or all that is there by now."""
        text = ""
        while select.select([screen], [], [], PATIENCE if awaited else 0)[0]:
            text += os.read(screen, 65536).decode()
            if awaited and awaited + "\r\n" in text:
                return text
        self.assertIsNone(awaited, text)
        return text


class Lock(MailboxTest):
    def test_taken_and_given_back(self):
        segment = self.segment()
        before = segment.image()
        told = self.expect(0, "none", HEALTHY, "--lock")
        self.assertEqual(told["record"]["lock"], {"byte": 1, "byViewer": True, "secondsTaken": 0})
        self.assertIn("\nlock       held by this viewer while it looked\n", view("--lock").stdout)
        self.assertEqual(segment.image(), before)

    def test_stale(self):
        segment = self.segment()
        segment.lock_byte(7)
        run = view("--lock")
        self.assertEqual(run.returncode, 8, run.stdout)
        self.assertRegex(run.stdout, r"\nlock       taken \(byte 7\), for at least [2-9]\.\d s\n")
        self.assertIn("\nverdict    The lock has been taken for 2.5 seconds, most likely by a "
                      "program that died with it.\n", run.stdout)
        self.assertEqual(segment.lock_byte(), 7)

    def test_waits_for_its_turn(self):
        segment = self.segment()
        segment.lock_byte(1)
        release = threading.Timer(0.5, segment.lock_byte, [0])
        release.start()
        told = json.loads(view("--lock", "--json").stdout)
        release.join()
        self.assertEqual((told["problem"], told["record"]["lock"]["byViewer"]), ("none", True))
        self.assertEqual(segment.lock_byte(), 0)

    def test_a_killed_one_leaves_no_lock(self):
        segment = self.segment()
        segment.lock_byte(1)
        process = self.running("--lock", stdout=subprocess.DEVNULL)
        while not self.defers(process, signal.SIGTERM):
            self.assertIsNone(process.poll())
            time.sleep(0.01)
        process.terminate()
        time.sleep(0.2)
        self.assertIsNone(process.poll())  # it waits for the lock, deaf
        segment.lock_byte(0)
        self.assertEqual(process.wait(PATIENCE), -signal.SIGTERM)
        self.assertEqual(segment.lock_byte(), 0)
        self.assertEqual(attached(), 1)

    def test_needs_the_right_to_write(self):
        self.segment(mode=0o400)
        told = self.expect(3, "noRight", "This user has no right to the segment.", "--lock",
                           before=WITHOUT_PRIVILEGE)
        self.assertEqual(told["system"], "shmget: Permission denied")
        self.assertEqual(attached(), 1)

    def test_watch_locks_each_look(self):
        segment = self.segment()
        process = self.running("--lock", "--json", "--watch", "10", stdout=subprocess.PIPE)
        for _ in range(5):
            look = json.loads(process.stdout.readline())
            self.assertEqual(look["record"]["lock"]["byte"], 1)
            self.assertTrue(look["record"]["lock"]["byViewer"])
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(PATIENCE), 0)
        self.assertEqual(segment.lock_byte(), 0)

    @staticmethod
    def defers(process, number):
        with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
            blocked = int(re.search(r"^SigBlk:\s*(\w+)$", status.read(), re.MULTILINE)[1], 16)
        return blocked >> (number - 1) & 1 == 1


if __name__ == "__main__":
    main()
