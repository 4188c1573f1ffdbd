"""The client's segment, made by the bare system calls, and looked at from outside."""

import ctypes
import os

KEY = 0x4EFCFF
PREFIX = 8
RECORD_SIZE = 22988

# Places in the record.
RECORD_MARKER = 0
STATE_MARKER = 928
STATE_FLAG = 930
MESSAGE_COUNT = 2001

_IPC_CREAT, _IPC_EXCL, _IPC_RMID = 0o1000, 0o2000, 0
_libc = ctypes.CDLL(None, use_errno=True)
_libc.shmat.restype = ctypes.c_void_p
_libc.shmat.argtypes = [ctypes.c_int, ctypes.c_void_p, ctypes.c_int]
_libc.shmdt.argtypes = [ctypes.c_void_p]
_libc.shmget.argtypes = [ctypes.c_int, ctypes.c_size_t, ctypes.c_int]
_libc.shmctl.argtypes = [ctypes.c_int, ctypes.c_int, ctypes.c_void_p]


def _checked(result):
    if result in (-1, ctypes.c_void_p(-1).value):
        code = ctypes.get_errno()
        raise OSError(code, os.strerror(code))
    return result


def attached():
    """Processes attached to the client's segment; None when there is none."""
    with open("/proc/sysvipc/shm", encoding="ascii") as table:
        columns = next(table).split()
        for line in table:
            row = dict(zip(columns, line.split()))
            if int(row["key"]) == KEY:
                return int(row["nattch"])
    return None


class Segment:
    """A healthy client's segment, attached. All bytes that are the client's hold a pattern."""

    def __init__(self, record_size=RECORD_SIZE, mode=0o666):
        self.size = PREFIX + record_size
        self.id = _checked(_libc.shmget(KEY, self.size, _IPC_CREAT | _IPC_EXCL | mode))
        self._address = _checked(_libc.shmat(self.id, None, 0))
        self.bytes = (ctypes.c_ubyte * self.size).from_address(self._address)
        self.bytes[:] = bytes([0xA5]) * self.size
        self.lock_byte(0)
        if record_size >= RECORD_SIZE:
            self.put(RECORD_MARKER, 517, 4)
            self.put(STATE_MARKER, 3077, 2)
            self.put(STATE_FLAG, 1, 2)
            self.put(MESSAGE_COUNT, 0, 1)

    def put(self, place, value, size):
        start = PREFIX + place
        self.bytes[start:start + size] = value.to_bytes(size, "little")

    def lock_byte(self, value=None):
        if value is not None:
            self.bytes[0] = value
        return self.bytes[0]

    def message(self, number, kind, type_, value):
        """Entry `number`, counted from 1."""
        self.put(2001 + number, kind, 1)
        self.put(2031 + number, type_, 1)
        self.put(2060 + 2 * number, value, 2)

    def image(self):
        return bytes(self.bytes)

    def leave(self):
        """Lets go of the segment, which stays."""
        self.bytes = None
        _checked(_libc.shmdt(self._address))

    def remove(self):
        _checked(_libc.shmctl(self.id, _IPC_RMID, None))
        if self.bytes is not None:
            self.leave()
