"""Makes the client's segment in a state that a client does not leave it in, and leaves it to
nobody: the next program that attaches and leaves removes it.

    clientSegment.py tooSmall | blank | locked | full | closed
"""

import ctypes
import struct
import sys

KEY = 0x4EFCFF
PREFIX = 8  # the lock byte and seven reserved ones
RECORD = 22988
IPC_CREAT, IPC_EXCL = 0o1000, 0o2000

state = sys.argv[1]
size = RECORD - 1 if state == "tooSmall" else RECORD
libc = ctypes.CDLL(None, use_errno=True)
libc.shmat.restype = ctypes.c_void_p
libc.shmat.argtypes = (ctypes.c_int, ctypes.c_void_p, ctypes.c_int)
libc.shmdt.argtypes = (ctypes.c_void_p,)

segment = libc.shmget(KEY, ctypes.c_size_t(PREFIX + size),
                      IPC_CREAT | IPC_EXCL | (0 if state == "closed" else 0o666))
if segment == -1:
    sys.exit(f"clientSegment.py: shmget failed, errno {ctypes.get_errno()}")
if state in ("locked", "full"):
    address = libc.shmat(segment, None, 0)
    content = (ctypes.c_char * (PREFIX + size)).from_address(address)
    struct.pack_into("=B", content, 0, state == "locked")
    struct.pack_into("=I", content, PREFIX, 517)
    struct.pack_into("=HH", content, PREFIX + 928, 3077, 1)
    struct.pack_into("=B", content, PREFIX + 2001, 30)
    libc.shmdt(address)
elif state not in ("tooSmall", "blank", "closed"):
    sys.exit(__doc__)
