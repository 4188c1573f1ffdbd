#!/usr/bin/env python3
"""The words and escapes of debugger/qvFormat.py, without a debugger."""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "debugger"))
import qvFormat
from qvCommandNames import COMMAND_NAMES


class Reader:
    """An object as qvFormat reads it: numbers, arrays as (unit_bytes, elements), members."""

    def __init__(self, **fields):
        self.fields = fields

    def number(self, field):
        return self.fields[field]

    def is_set(self, field):
        return self.fields[field] != 0

    def size(self, field):
        return len(self.fields[field][1])

    def unit_bytes(self, field):
        return self.fields[field][0]

    def units(self, field, count):
        return list(self.fields[field][1])[:count]

    def member(self, field):
        return self.fields[field]


def string8(text, length=None, capacity=10):
    units = text.ljust(capacity + 1, b"\0")
    return Reader(length=len(text) if length is None else length, text=(1, units))


def string16(*units, capacity=10):
    return Reader(length=len(units), text=(2, [*units, *[0] * (capacity + 1 - len(units))]))


class Strings(unittest.TestCase):
    def test_bytes(self):
        for text, words in (
            (b"", '""'),
            (b" ~", '" ~"'),
            (b"\x1F\x7F", r'"\x1F\x7F"'),
            (b"\x00\x80\xFF", r'"\x00\x80\xFF"'),
            (b'"\\', r'"\"\\"'),
            (b"\xF0\x9F\x98", r'"\xF0\x9F\x98"'),
        ):
            self.assertEqual(qvFormat.describe_string(string8(text)), f"{words} ({len(text)}/10)")

    def test_units(self):
        for units, words in (
            ([0x61, 0x00E4], r'"a\u00E4"'),
            ([0x0000], r'"\u0000"'),
            ([0xFFFF], r'"\uFFFF"'),
            ([0xD800, 0xDC00], r'"\U00010000"'),
            ([0xDBFF, 0xDFFF], r'"\U0010FFFF"'),
            ([0xD83D, 0xD83D, 0xDE00], r'"\uD83D\U0001F600"'),
            ([0xDE00, 0xDE00], r'"\uDE00\uDE00"'),
            ([0xD83D, 0xDE00, 0xDE00], r'"\U0001F600\uDE00"'),
            ([0xD7FF, 0xDC00], r'"\uD7FF\uDC00"'),
            ([0xD83D, 0xE000], r'"\uD83D\uE000"'),
        ):
            self.assertEqual(qvFormat.describe_string(string16(*units)),
                             f"{words} ({len(units)}/10)")

    def test_length_at_and_beyond_the_capacity(self):
        self.assertEqual(qvFormat.describe_string(string8(b"abcdef", capacity=6)), '"abcdef" (6/6)')
        self.assertEqual(qvFormat.describe_string(string8(b"abcdef", length=7, capacity=6)),
                         '"abcdef" (7/6, damaged)')

    def test_limit(self):
        string = string8(b"abcd")
        for limit, words in ((4, '"abcd"'), (3, '"abc"...'), (0, '""...'), (None, '"abcd"')):
            self.assertEqual(qvFormat.describe_string(string, limit), f"{words} (4/10)")


class Lists(unittest.TestCase):
    def test_counts(self):
        for count, items, words, size in (
            (0, 0, "0 strings", 0),
            (0, 1, "0 strings", 0),
            (1, 1, "1 string", 1),
            (2, 1, "2 strings", 2),
            (2, 0, "2 strings, damaged", 0),
            (-1, 1, "-1 strings, damaged", 0),
        ):
            string_list = Reader(count=count, items=items)
            self.assertEqual(qvFormat.describe_list(string_list), words)
            self.assertEqual(qvFormat.list_size(string_list), size)


class Segments(unittest.TestCase):
    def test_states(self):
        for changed, words in (
            ({}, '"QV", not attached'),
            ({"key": 0xABC}, '"QV", key 0xABC, not attached'),
            ({"attached": 1, "totalSize": 8}, '"QV", attached, 0 bytes'),
            ({"locked": 1}, '"QV", not attached, locked'),
            ({"errorCode": -1}, '"QV", not attached, error -1 "text"'),
        ):
            fields = {"key": 0, "attached": 0, "locked": 0, "totalSize": -1, "errorCode": 0}
            segment = Reader(name=string8(b"QV"), errorText=string8(b"text"), **fields | changed)
            self.assertEqual(qvFormat.describe_segment(segment), words)


class Mailboxes(unittest.TestCase):
    def mailbox(self, count=0, **changed):
        fields = {"recordMarker": 517, "stateMarker": 3077, "stateFlag": 1}
        return Reader(messageCount=count, messageKind=(1, [2] * 3), messageType=(1, [2, 2, 3]),
                      messageValue=(2, [60, 61, 9]), **fields | changed)

    def test_summary(self):
        for mailbox, words in (
            (self.mailbox(), "markers ok, 0/3 messages"),
            (self.mailbox(3, stateFlag=7), "markers ok, 3/3 messages"),
            (self.mailbox(4), "markers ok, 4/3 messages, damaged"),
            (self.mailbox(stateFlag=0), "stateFlag 0, 0/3 messages"),
            (self.mailbox(stateMarker=1), "stateMarker 1 instead of 3077, 0/3 messages"),
        ):
            self.assertEqual(qvFormat.describe_mailbox(mailbox), words)

    def test_messages(self):
        words = [
            "kind 2, type 2, value 60: Custom Commandline for artist",
            "kind 2, type 2, value 61: Unknown #61",
            "kind 2, type 3, value 9",
        ]
        self.assertEqual(list(qvFormat.messages(self.mailbox(2))), words[:2])
        self.assertEqual(list(qvFormat.messages(self.mailbox(200))), words)

    def test_codes_beyond_a_byte_have_no_name(self):
        self.assertEqual(qvFormat.command_name(255), ": Unknown #255")
        self.assertEqual(qvFormat.command_name(256), "")


class Sources(unittest.TestCase):
    """What qvFormat repeats of the C++ sources."""

    def number(self, source, pattern):
        return int(re.search(pattern, (ROOT / source).read_text()).group(1))

    def test_command_names(self):
        source = (ROOT / "qv/client/qvClientCommandName.cpp").read_text()
        table = re.search(r"names\[\] = \{\n(.*?)\n\};", source, re.S).group(1)
        self.assertEqual(list(COMMAND_NAMES), re.findall(r'^    "(.*)",', table, re.M))

    def test_numbers(self):
        header = "qv/client/qvClientMailbox.h"
        self.assertEqual(qvFormat.RECORD_MARKER, self.number(header, r"RecordMarker = (\d+);"))
        self.assertEqual(qvFormat.STATE_MARKER, self.number(header, r"StateMarker = (\d+);"))
        self.assertEqual(qvFormat.COMMAND_TYPE, self.number(header, r"command = (\d+),"))
        self.assertEqual(qvFormat.SEGMENT_PREFIX,
                         self.number("qv/segment/core/segmentKey.h", r"PrefixSize = (\d+);"))


if __name__ == "__main__":
    unittest.main()
