"""Makes the client's segment in a state that a client does not leave it in, and leaves it to
nobody: the next program that attaches and leaves removes it.

    leaveSegment.py tooSmall | blank | locked | full | empty | closed | huge
"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "endToEnd"))
from clientSegment import PREFIX, RECORD_SIZE, Segment, laid_down

STATES = {
    "tooSmall": {"record_size": RECORD_SIZE - 1},
    "blank": {"content": bytes(PREFIX + RECORD_SIZE)},
    "locked": {"content": laid_down(lock=1, count=30)},
    "full": {"content": laid_down(count=30)},
    "empty": {"content": laid_down(count=0)},
    "closed": {"mode": 0},
    "huge": {"record_size": 1 << 30},
}

if sys.argv[1] not in STATES:
    sys.exit(__doc__)
Segment(**STATES[sys.argv[1]]).leave()
