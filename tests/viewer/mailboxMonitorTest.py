"""mailboxView from outside: what monitoring systems get, and what contrib/monitoring makes of it.

Prometheus itself judges the metrics and the alerts, by promtool.
"""

import os
import re
import signal
import subprocess
import tempfile
import time

from mailboxCase import (HEALTHY, PATIENCE, TOOL, VIEW, WITHOUT_PRIVILEGE, MailboxTest, main, view)
from clientSegment import MESSAGE_COUNT, RECORD_MARKER, Guest

HERE = os.path.dirname(os.path.abspath(__file__))
CONTRIB = os.path.join(HERE, "../../contrib/monitoring")


def promtool(*arguments, text=None):
    return subprocess.run(["promtool", *arguments], input=text, capture_output=True, text=True,
                          timeout=PATIENCE, check=False)


class Check(MailboxTest):
    def expect_check(self, status, line, *options, before=()):
        run = view("--check", *options, before=before)
        self.assertEqual((run.returncode, run.stderr), (status, ""))
        self.assertEqual(run.stdout, line + "\n")

    def test_no_client(self):
        self.expect_check(2, "MAILBOX CRITICAL - missing: There is no segment: no client runs on "
                             "this machine. | client=0;;;0;1")

    def test_limits(self):
        fine = f"none: {HEALTHY}"
        segment = self.segment()
        for count, options, status, told in (
                (0, [], 0, f"OK - {fine} | client=1;;;0;1 queue=0;15;25;0;30"),
                (15, [], 0, f"OK - {fine} | client=1;;;0;1 queue=15;15;25;0;30"),
                (16, [], 1, f"WARNING - {fine} Messages: 16, more than 15. | client=1;;;0;1 "
                            "queue=16;15;25;0;30"),
                (26, [], 2, f"CRITICAL - {fine} Messages: 26, more than 25. | client=1;;;0;1 "
                            "queue=26;15;25;0;30"),
                (1, ["-w", "0", "-c1"], 1, f"WARNING - {fine} Messages: 1, more than 0. | "
                                           "client=1;;;0;1 queue=1;0;1;0;30"),
                (2, ["--warning=0", "--critical=1"], 2,
                 f"CRITICAL - {fine} Messages: 2, more than 1. | client=1;;;0;1 "
                 "queue=2;0;1;0;30"),
                (30, ["-w", "40", "-c", "50"], 2,
                 "CRITICAL - queueFull: The queue is full and further commands are lost: the "
                 "client does not drain it. | client=1;;;0;1 queue=30;40;50;0;30")):
            with self.subTest(count=count, options=options):
                segment.put(MESSAGE_COUNT, count, 1)
                self.expect_check(status, f"MAILBOX {told} lock=0ms;;;0", *options)

    def test_states_of_the_client(self):
        client = self.real_client()
        client.send_signal(signal.SIGSTOP)
        self.wait_for_state(client.pid, "T")
        subprocess.run([TOOL, "abort"], stdout=subprocess.DEVNULL, check=True)
        self.assertEqual(view("--check").returncode, 2)
        self.assertIn(" | client=0;;;0;1 queue=1;", view("--check").stdout)
        client.send_signal(signal.SIGCONT)
        client.stdout.readline()
        self.assertEqual(view("--check").returncode, 0)
        guest = Guest()
        self.addCleanup(guest.leave)
        client.kill()
        client.wait()
        run = view("--check")
        self.assertEqual(run.returncode, 2)
        self.assertIn("CRITICAL - clientDead: ", run.stdout)
        self.assertIn(" | client=0;;;0;1 queue=0;", run.stdout)

    def test_milder_states(self):
        segment = self.segment(mode=0o400)
        run = view("--check", before=WITHOUT_PRIVILEGE)
        self.assertEqual((run.returncode, run.stdout[:29]), (1, "MAILBOX WARNING - mayNotSend:"))
        segment.put(RECORD_MARKER, 0, 4)
        run = view("--check")
        self.assertEqual((run.returncode, run.stdout[:27]), (1, "MAILBOX WARNING - starting:"))
        segment.set_mode(0)
        run = view("--check", before=WITHOUT_PRIVILEGE)
        self.assertEqual((run.returncode, run.stdout[:26]), (3, "MAILBOX UNKNOWN - noRight:"))

    def test_stale_lock(self):
        segment = self.segment()
        segment.lock_byte(1)
        run = view("--check")
        self.assertEqual(run.returncode, 2)
        self.assertTrue(run.stdout.startswith("MAILBOX CRITICAL - staleLock: "))
        self.assertGreaterEqual(int(re.search(r" lock=(\d+)ms;;;0$", run.stdout)[1]), 2500)

    def test_lock_that_is_given_back(self):
        segment = self.segment()
        segment.lock_byte(1)
        process = self.running("--check", stdout=subprocess.PIPE)
        time.sleep(0.5)
        self.assertIsNone(process.poll())
        segment.lock_byte(0)
        self.assertEqual(process.wait(PATIENCE), 0)

    def test_failures(self):
        for line, error in ((["--check", "-w"], "'-w' needs a number"),
                            (["-c", "x", "--check"], "'x' is no number that goes with --critical"),
                            (["--json", "--check"], "'--json' does not go with --check")):
            with self.subTest(line=line):
                run = view(*line)
                self.assertEqual((run.returncode, run.stdout),
                                 (3, f"MAILBOX UNKNOWN - {error}\n"))
        self.segment()
        with open("/dev/full", "w", encoding="ascii") as full:
            self.assertEqual(self.running("--check", stdout=full).wait(PATIENCE), 3)


class Metrics(MailboxTest):
    def metrics(self, text=None):
        text = text or view("--metrics").stdout
        judged = promtool("check", "metrics", text=text)
        self.assertEqual((judged.returncode, judged.stdout + judged.stderr), (0, ""))
        values = dict(line.split() for line in text.splitlines() if line[0] != "#")
        self.assertLessEqual(abs(int(values.pop("qv_mailbox_look_timestamp_seconds"))
                                 - time.time()), PATIENCE)
        return values

    def test_no_client(self):
        self.assertEqual(self.metrics(), {"qv_mailbox_status": "2",
                                          "qv_mailbox_client_running": "0"})

    def test_messages(self):
        segment = self.segment()
        segment.put(MESSAGE_COUNT, 30, 1)
        expected = {"qv_mailbox_status": "12", "qv_mailbox_client_running": "1",
                    "qv_mailbox_messages": "30", "qv_mailbox_messages_limit": "30",
                    "qv_mailbox_lock_taken_seconds": "0"}
        self.assertEqual(self.metrics(), expected)
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.dirname(VIEW) + ":" + os.environ["PATH"]
            subprocess.run([os.path.join(CONTRIB, "mailboxMetrics.sh"), folder],
                           env={**os.environ, "PATH": path}, check=True)
            self.assertEqual(os.listdir(folder), ["qv_mailbox.prom"])
            with open(os.path.join(folder, "qv_mailbox.prom"), encoding="ascii") as file:
                self.assertEqual(self.metrics(file.read()), expected)

    def test_stale_lock(self):
        self.segment().lock_byte(1)
        self.assertGreaterEqual(float(self.metrics()["qv_mailbox_lock_taken_seconds"]), 2.5)

    def test_output_that_cannot_be_written(self):
        with open("/dev/full", "w", encoding="ascii") as full:
            self.assertEqual(self.running("--metrics", stdout=full).wait(PATIENCE), 1)


class Contrib(MailboxTest):
    def test_alerts(self):
        for arguments in (["check", "rules", os.path.join(CONTRIB, "alerts.yml")],
                          ["test", "rules", os.path.join(HERE, "alertsTest.yml")]):
            run = promtool(*arguments)
            self.assertEqual(run.returncode, 0, run.stdout + run.stderr)

    def test_alerts_know_the_metrics(self):
        self.segment()
        known = set(re.findall(r"^(qv_mailbox_\w+) ", view("--metrics").stdout, re.MULTILINE))
        with open(os.path.join(CONTRIB, "alerts.yml"), encoding="utf-8") as rules:
            used = set(re.findall(r"qv_mailbox_\w+", rules.read()))
        self.assertLessEqual(used, known)

    def test_commands_of_the_checks_run(self):
        self.segment()
        with open(os.path.join(CONTRIB, "nagios.cfg"), encoding="utf-8") as config:
            line = re.search(r"\]=/usr/bin/mailboxView (.*)$", config.read(), re.MULTILINE)[1]
        self.assertEqual(view(*line.split()).returncode, 0)
        with open(os.path.join(CONTRIB, "icinga2.conf"), encoding="utf-8") as config:
            text = config.read()
        options = re.findall(r'"(-\w)" = "\$(\w+)\$"', text)
        self.assertEqual([option for option, _ in options], ["-w", "-c"])
        line = [part for option, name in options
                for part in (option, re.search(rf"vars\.{name} = (\d+)", text)[1])]
        self.assertEqual(view("--check", *line).returncode, 0)


if __name__ == "__main__":
    main()
