"""Runs test programs with one mutant switched on: its instructions are overwritten in a copy of
the linked program."""

import errno
import math
import os
import re
import resource
import shutil
import signal
import subprocess
import threading
import time

NO_OPERATION = 0x90
PREFIXES = {0x2e, 0x3e, 0x66, 0xf2, 0xf3, *range(0x40, 0x50)}

# Every run has a System V namespace of its own: a mutant may leave its segment behind.
APART = ["unshare", "--ipc"] if os.geteuid() == 0 else \
    ["unshare", "--ipc", "--user", "--map-current-user"]


# A process that is just being started holds every file open that we do, and a program that is open
# for writing can't be run: so nothing starts while one is written.
starting = threading.Lock()


def flipped(code):
    """A conditional instruction with the opposite condition: the lowest bit of its opcode."""
    at = next(i for i, byte in enumerate(code) if byte not in PREFIXES)
    if code[at] == 0x0f:
        at += 1
    return code[:at] + bytes([code[at] ^ 1]) + code[at + 1:]


class Image:
    """The file of a linked program, and where the mutants lie in it."""

    def __init__(self, path):
        self.path = path
        self.content = path.read_bytes()
        self.symbols = {}
        for row in subprocess.run(["nm", str(path)], capture_output=True, text=True,
                                  check=True).stdout.splitlines():
            if " t qv.mutant." in row:
                address, _, name = row.split()
                self.symbols[name] = int(address, 16)
        headers = subprocess.run(["readelf", "-lW", str(path)], capture_output=True, text=True,
                                 check=True).stdout
        self.segments = [tuple(int(word, 16) for word in found) for found in re.findall(
            r"^  LOAD +(0x\w+) (0x\w+) 0x\w+ (0x\w+)", headers, re.M)]

    def holds(self, mutant):
        return mutant.label(0) in self.symbols

    def offset(self, label):
        address = self.symbols[label]
        return next(offset + address - begin for offset, begin, size in self.segments
                    if begin <= address < begin + size)

    def changes(self, mutant):
        """(offset, bytes) of all that has to be overwritten."""
        for span in range(mutant.spans):
            begin = self.offset(mutant.label(span))
            end = self.offset(mutant.label(span) + ".end")
            code = self.content[begin:end]
            yield begin, flipped(code) if mutant.kind == "flip" else \
                bytes([NO_OPERATION]) * len(code)


class Bench:
    """A folder with copies of the images, for one run at a time."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir(parents=True)

    def run(self, program, image, mutant=None, test="*"):
        copy = self.folder / program.image.name
        if not copy.exists():
            shutil.copy(program.image, copy)
        changes = list(image.changes(mutant)) if mutant else []
        self.write(copy, image, changes)
        ended = Run(program, self.folder, test)
        self.write(copy, image, [(offset, image.content[offset:offset + len(code)])
                                 for offset, code in changes])
        return ended

    def write(self, copy, image, changes):
        if changes:
            with starting:
                self.overwrite(copy, image, changes)

    def overwrite(self, copy, image, changes):
        try:
            file = os.open(copy, os.O_WRONLY)
        except OSError as error:
            if error.errno != errno.ETXTBSY:
                raise
            # A process that the run left behind still ends: it keeps the file, we get another.
            copy.unlink()
            shutil.copy(image.path, copy)
            file = os.open(copy, os.O_WRONLY)
        for offset, code in changes:
            os.pwrite(file, code, offset)
        os.close(file)


class Run:
    """One run of a test program, or of one test of it, to its end or to its limits."""

    def __init__(self, program, folder, test):
        started = time.monotonic()
        output = folder / "output"
        with open(output, "wb") as file, starting:
            process = subprocess.Popen(
                [*APART, *program.command], cwd=folder, stdin=subprocess.DEVNULL, stdout=file,
                stderr=subprocess.STDOUT, start_new_session=True,
                env={**os.environ, "GTEST_FAIL_FAST": "1", "GTEST_BRIEF": "1",
                     "GTEST_FILTER": test,
                     "QV_REACHED_MAP": str(folder.resolve() / "reached.map")})
        # Endless loops end by the time they really used, however busy the machine is.
        cpu = math.ceil(program.cpuLimit)
        resource.prlimit(process.pid, resource.RLIMIT_CPU, (cpu, cpu))
        timer = threading.Timer(program.limit, os.killpg, (process.pid, signal.SIGKILL))
        timer.start()
        os.waitid(os.P_PID, process.pid, os.WEXITED | os.WNOWAIT)
        timer.cancel()
        os.killpg(process.pid, signal.SIGKILL)  # what it started
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.passed = process.returncode == 0
        self.seconds = time.monotonic() - started
        self.cpu = usage.ru_utime + usage.ru_stime
        told = output.read_bytes()
        if told.startswith(b"unshare:"):
            raise RuntimeError(told.decode())
        failed = re.search(rb"^\[  FAILED  \] ([\w./]+)", told, re.M)
        self.failedTest = failed[1].decode() if failed else None
