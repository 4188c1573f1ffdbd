"""What both debuggers show of debuggedProgram.cpp: expression, words, numbered children.

ADDRESS stands for any address.
"""

EXPECTED = [
    ("strings8.empty", r'"" (0/250)'),
    ("strings8.word", r'"abc" (3/250)'),
    ("strings8.zeros", r'"a\x00b" (3/250)'),
    ("strings8.high", r'"\xE4z\xFF" (3/250)'),
    ("strings8.control", r'"a\x09b\x0A\"c\\\x7F" (8/250)'),
    ("strings8.stale", r'"xy" (2/250)'),
    ("strings8.cut", r'"ab" (2/250)'),
    ("strings8.full", r'"abcdef" (6/6)'),
    ("strings8.fullOdd", r'"abcdefg" (7/7)'),
    ("strings8.damaged", r'"abc\x00\x00\x00" (60000/6, damaged)'),
    ("strings8.evenOld", r'"abc" (3/6)'),
    ("strings8.evenOldDamaged", r'"abcdef" (7/6, damaged)'),
    ("strings8.evenOldBare", r'"ab" (2/7)'),
    ("strings8.unevenOld", r'"abc" (3/7)'),
    ("strings8.unevenOldDamaged", r'"abcdefg" (65535/7, damaged)'),
    ("strings8.unevenOldBare", r'"ab" (2/6)'),

    ("strings16.empty", r'"" (0/250)'),
    ("strings16.word", r'"abc" (3/250)'),
    ("strings16.zeros", r'"a\u0000b" (3/250)'),
    ("strings16.control", r'"a\u000A\"\\" (4/250)'),
    ("strings16.signExtended", r'"\uFFE4" (1/250)'),
    ("strings16.pair", r'"a\U0001F600b" (4/250)'),
    ("strings16.halves", r'"\uDE00\uD83D\u00E4\u20AC\uD83D" (5/250)'),
    ("strings16.damaged", r'"abc\u0000\u0000\u0000\u0000\u0000\u0000\u0000" (11/10, damaged)'),
    ("strings16.old", r'"abc" (3/10)'),
    ("strings16.oldDamaged", r'"abc\u0000\u0000\u0000\u0000\u0000\u0000\u0000" (300/10, damaged)'),

    ("forms.pointer", r'ADDRESS "abc" (3/250)'),
    ("forms.constVolatile", r'ADDRESS "abc" (3/250)'),
    ("*forms.constVolatile", r'"abc" (3/250)'),
    ("forms.wild", r"ADDRESS <unreadable>"),
    ("forms.wildMailbox", r"ADDRESS <unreadable>"),
    ("forms.segment", r'ADDRESS "QV_attached_1234567", key 0x3BDC7A, attached, 100 bytes'),
    ("forms.array[1]", r'"two" (3/6)'),

    ("lists.empty", r"0 strings"),
    ("lists.one", r"1 string", r'"alone" (5/500)'),
    ("lists.three", r"3 strings", r'"render07" (8/500)', r'"" (0/500)', r'"\uFFE4" (1/500)'),
    ("lists.withoutBlock", r"3 strings, damaged"),
    ("lists.negative", r"-1 strings, damaged"),

    ("segments.fresh", r'"QV_fresh_1234567", not attached'),
    ("segments.missing",
     r'"QV_missing_1234567", not attached, error 5 "Shared Memory does not exist."'),
    ("segments.attached", r'"QV_attached_1234567", key 0x3BDC7A, attached, 100 bytes'),
    ("segments.locked", r'"QV_locked_1234567", key 0x3DB6A4, attached, 22988 bytes, locked'),

    ("mailboxes.empty", r"markers ok, 0/30 messages"),
    ("mailboxes.entries", r"markers ok, 5/30 messages",
     r'"kind 2, type 2, value 1: Abort"',
     r'"kind 2, type 3, value 9"',
     r'"kind 2, type 5, value 58"',
     r'"kind 2, type 2, value 61: Unknown #61"',
     r'"kind 2, type 2, value 256"'),
    ("mailboxes.wrong",
     r"recordMarker 516 instead of 517; stateMarker 0 instead of 3077; stateFlag 0, "
     r"0/30 messages"),
    ("mailboxes.damaged", r"markers ok, 200/30 messages, damaged",
     *[r'"kind 0, type 0, value 0"'] * 30),
]
