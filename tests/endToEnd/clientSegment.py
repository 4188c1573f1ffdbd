"""The client's segment for tests in Python: laid down, looked at, removed.

Made by the bare system calls, so that a mistake in the product's segment class cannot hide itself
by being made on both sides. The numbers of the record are those of clientRecord.h.
"""

import ctypes
import os
import pathlib
import re
import sys

_NUMBERS = {name: int(value, 0) for name, value in re.findall(
    r"^inline constexpr \S+ (\w+) = (\w+);",
    pathlib.Path(__file__).with_name("clientRecord.h").read_text(encoding="ascii"), re.M)}

KEY = _NUMBERS["clientKey"]
PREFIX = _NUMBERS["prefixSize"]
RECORD_SIZE = _NUMBERS["clientRecordSize"]

# Places in the record.
RECORD_MARKER = _NUMBERS["recordMarkerPlace"]
STATE_MARKER = _NUMBERS["stateMarkerPlace"]
STATE_FLAG = _NUMBERS["stateFlagPlace"]
MESSAGE_COUNT = _NUMBERS["messageCountPlace"]
MESSAGE_KIND = _NUMBERS["messageKindPlace"]
MESSAGE_TYPE = _NUMBERS["messageTypePlace"]
MESSAGE_VALUE = _NUMBERS["messageValuePlace"]

_CLONE_NEWIPC = 0x08000000
_IPC_CREAT, _IPC_EXCL, _SHM_NORESERVE = 0o1000, 0o2000, 0o10000
_IPC_RMID, _IPC_SET, _IPC_STAT = 0, 1, 2
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


def become_root_of_a_namespace():
    """Who isn't root has the right to an IPC namespace inside a user namespace only."""
    if os.geteuid() != 0:
        os.execvp("unshare", ["unshare", "--user", "--map-root-user", sys.executable, *sys.argv])


def enter_own_namespace():
    """From here on this process and its children have a client's key of their own."""
    _checked(_libc.unshare(_CLONE_NEWIPC))


def attached():
    """Processes attached to the client's segment; None when there is none."""
    with open("/proc/sysvipc/shm", encoding="ascii") as table:
        columns = next(table).split()
        for line in table:
            row = dict(zip(columns, line.split()))
            if int(row["key"]) == KEY:
                return int(row["nattch"])
    return None


def remove_leftover():
    """Removes what a killed client has left."""
    if attached() is not None:
        _checked(_libc.shmctl(_checked(_libc.shmget(KEY, 0, 0)), _IPC_RMID, None))


def put(content, place, value, size):
    """A number into the record of a segment's bytes."""
    start = PREFIX + place
    content[start:start + size] = value.to_bytes(size, sys.byteorder)


def put_message(content, number, kind, type_, value):
    """Entry `number`, counted from 1."""
    put(content, MESSAGE_KIND + number - 1, kind, 1)
    put(content, MESSAGE_TYPE + number - 1, type_, 1)
    put(content, MESSAGE_VALUE + 2 * (number - 1), value, 2)


def laid_down(lock=0, marker=_NUMBERS["rightRecordMarker"], count=0, record_size=RECORD_SIZE):
    """A segment's bytes. Those that are the client's, and the unused entries, hold a pattern."""
    content = bytearray((i * 73 + 19) & 0xFF for i in range(PREFIX + record_size))
    content[0] = lock
    if record_size >= RECORD_SIZE:
        put(content, RECORD_MARKER, marker, 4)
        put(content, STATE_MARKER, _NUMBERS["rightStateMarker"], 2)
        put(content, STATE_FLAG, _NUMBERS["rightStateFlag"], 2)
        put(content, MESSAGE_COUNT, count, 1)
    return bytes(content)


def with_entry(content, message_type, value):
    """The same with one entry more."""
    content = bytearray(content)
    number = content[PREFIX + MESSAGE_COUNT] + 1
    put(content, MESSAGE_COUNT, number, 1)
    put_message(content, number, 2, message_type, value)
    return bytes(content)


class Segment:
    """The client's segment with this content, attached as by a client. As a context it is removed
    at the end, if it is still there.
    """

    def __init__(self, content=None, mode=0o666, record_size=RECORD_SIZE):
        # Of a huge one only the start is laid down; the system gives it no memory ahead of use.
        content = content or laid_down(record_size=min(record_size, 4 * RECORD_SIZE))
        self.size = max(len(content), PREFIX + record_size)
        self.id = _checked(_libc.shmget(KEY, self.size,
                                        _IPC_CREAT | _IPC_EXCL | _SHM_NORESERVE | mode))
        self._attach()
        self.bytes[:len(content)] = content

    def _attach(self):
        self._address = _checked(_libc.shmat(self.id, None, 0))
        self.bytes = (ctypes.c_ubyte * self.size).from_address(self._address)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if attached() is not None:
            self.remove()
        elif self.bytes is not None:
            self.leave()

    def put(self, place, value, size):
        put(self.bytes, place, value, size)

    def lock_byte(self, value=None):
        if value is not None:
            self.bytes[0] = value
        return self.bytes[0]

    def message(self, number, kind, type_, value):
        put_message(self.bytes, number, kind, type_, value)

    def image(self):
        return bytes(self.bytes)

    def found(self):
        """The bytes under the key; None once there is nothing."""
        if attached() is None:
            return None
        if self.bytes is not None:
            return self.image()
        self._attach()
        image = self.image()
        self.leave()
        return image

    def set_mode(self, mode):
        self._set(20, mode)

    def set_owner(self, uid):
        self._set(4, uid)

    def _set(self, place, value):
        """Changes a field of the system's structure, on a 64-bit machine."""
        status = ctypes.create_string_buffer(256)
        _checked(_libc.shmctl(self.id, _IPC_STAT, status))
        status[place:place + 4] = value.to_bytes(4, "little")
        _checked(_libc.shmctl(self.id, _IPC_SET, status))

    def leave(self):
        """Lets go of the segment, which stays."""
        self.bytes = None
        _checked(_libc.shmdt(self._address))

    def remove(self):
        _checked(_libc.shmctl(self.id, _IPC_RMID, None))
        if self.bytes is not None:
            self.leave()


class Guest:
    """Somebody who is attached to the segment of another process."""

    def __init__(self):
        self.id = _checked(_libc.shmget(KEY, 0, 0))
        self._address = _checked(_libc.shmat(self.id, None, 0))
        self.bytes = (ctypes.c_ubyte * PREFIX).from_address(self._address)

    def lock_byte(self, value):
        self.bytes[0] = value

    def leave(self):
        self.bytes = None
        _checked(_libc.shmdt(self._address))
