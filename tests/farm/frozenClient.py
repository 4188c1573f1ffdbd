"""A client that has made its segment and then does nothing more: frozenClient.py LOCK COUNT

LOCK is the lock byte, COUNT the number of waiting messages; SIGUSR1 frees the lock. The offsets are
those of docs/mailbox.md.
"""
import ctypes
import signal
import struct
import sys

KEY = 0x4EFCFF
LOCK_BYTES = 8
RECORD_SIZE = 22988
IPC_CREAT = 0o1000

libc = ctypes.CDLL(None, use_errno=True)
libc.shmat.restype = ctypes.c_void_p
libc.shmat.argtypes = [ctypes.c_int, ctypes.c_void_p, ctypes.c_int]

segment = libc.shmget(KEY, LOCK_BYTES + RECORD_SIZE, IPC_CREAT | 0o666)
assert segment >= 0, ctypes.get_errno()
address = libc.shmat(segment, None, 0)
assert address != ctypes.c_void_p(-1).value, ctypes.get_errno()
memory = (ctypes.c_ubyte * (LOCK_BYTES + RECORD_SIZE)).from_address(address)
struct.pack_into("=I", memory, LOCK_BYTES, 517)
struct.pack_into("=HH", memory, LOCK_BYTES + 928, 3077, 1)
memory[LOCK_BYTES + 2001] = int(sys.argv[2])
memory[0] = int(sys.argv[1])


def free_lock(*_):
    memory[0] = 0


signal.signal(signal.SIGUSR1, free_lock)
print("ready", flush=True)
signal.alarm(120)
while True:
    signal.pause()
