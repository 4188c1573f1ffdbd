"""A client that has made its segment and then does nothing more: frozenClient.py LOCK COUNT

LOCK is the lock byte, COUNT the number of waiting messages; SIGUSR1 frees the lock.
"""
import pathlib
import signal
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "endToEnd"))
from clientSegment import Segment, laid_down

lock, count = map(int, sys.argv[1:])
segment = Segment(laid_down(lock=lock, count=count))
signal.signal(signal.SIGUSR1, lambda *_: segment.lock_byte(0))
print("ready", flush=True)
signal.alarm(120)
while True:
    signal.pause()
