"""The client's segment for the proofs that run the tool from here: laid down, looked at, removed.

Made by the bare system calls, in an IPC namespace of the calling process's own.
"""

import ctypes
import os
import struct
import sys

KEY = 0x4EFCFF
PREFIX = 8
RECORD = 22988
COUNT, KIND, TYPE, VALUE = (PREFIX + place for place in (2001, 2002, 2032, 2062))

CLONE_NEWIPC = 0x08000000
IPC_CREAT, IPC_EXCL, IPC_RMID = 0o1000, 0o2000, 0

libc = ctypes.CDLL(None, use_errno=True)
libc.shmat.restype = ctypes.c_void_p
libc.shmat.argtypes = [ctypes.c_int, ctypes.c_void_p, ctypes.c_int]
libc.shmdt.argtypes = [ctypes.c_void_p]
libc.shmget.argtypes = [ctypes.c_int, ctypes.c_size_t, ctypes.c_int]


def become_root_of_a_namespace():
    """Who isn't root has the right to an IPC namespace inside a user namespace only."""
    if os.geteuid() != 0:
        os.execvp("unshare", ["unshare", "--user", "--map-root-user", sys.executable, *sys.argv])


def enter_own_namespace():
    """From here on this process and its children have a client's key of their own."""
    checked(libc.unshare(CLONE_NEWIPC))


def checked(result):
    if result == -1:
        raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()))
    return result


def laid_down(lock=0, marker=517, count=4):
    """A segment's bytes, a pattern wherever they are the client's own."""
    content = bytearray((i * 73 + 19) & 0xFF for i in range(PREFIX + RECORD))
    content[0] = lock
    struct.pack_into("=I", content, PREFIX, marker)
    struct.pack_into("=HH", content, PREFIX + 928, 3077, 1)
    content[COUNT] = count
    return bytes(content)


def with_entry(content, message_type, value):
    """The same with one entry more."""
    content = bytearray(content)
    place = content[COUNT]
    content[COUNT] += 1
    content[KIND + place] = 2
    content[TYPE + place] = message_type
    struct.pack_into("=H", content, VALUE + 2 * place, value)
    return bytes(content)


class Segment:
    """The client's segment with this content; with a client, or left behind by one."""

    def __init__(self, content, attached=True):
        self.size = len(content)
        identifier = checked(libc.shmget(KEY, self.size, IPC_CREAT | IPC_EXCL | 0o666))
        address = checked(libc.shmat(identifier, None, 0))
        ctypes.memmove(address, content, self.size)
        self.address = address if attached else None
        if not attached:
            libc.shmdt(address)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.address:
            libc.shmdt(self.address)
        identifier = libc.shmget(KEY, 0, 0)
        if identifier != -1:
            libc.shmctl(identifier, IPC_RMID, None)

    def found(self):
        """What stands under the key; None once there is nothing."""
        identifier = libc.shmget(KEY, 0, 0)
        if identifier == -1:
            return None
        address = checked(libc.shmat(identifier, None, 0))
        content = ctypes.string_at(address, self.size)
        libc.shmdt(address)
        return content
