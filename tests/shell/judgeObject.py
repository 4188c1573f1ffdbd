"""Holds an object of qvNodeDispatchStatus --json to what it must be, through a JSON reader and a
UTF-8 decoder of another make. Silent when all is well.

    judgeObject.py OBJECT_FILE TEXT_FILE WORD OUTCOME STATUS
"""

import codecs
import json
import os
import re
import sys

# Python counts a cut-off sequence as one bad place; here each of its bytes is one.
codecs.register_error("eachByte", lambda error: ("\ufffd", error.start + 1))


def decoded(text):
    return text.decode("utf-8", "eachByte")


object_file, text_file, word, outcome, status = sys.argv[1:]
with open(object_file, "rb") as file:
    line = file.read()
with open(text_file, "rb") as file:
    text = file.read()

if not line.isascii() or line.find(b"\n") != len(line) - 1:
    print("not one line of ASCII:", line)
told = json.loads(line)
if list(told) != ["schema", "host", "time", "word", "outcome", "status", "reason", "text"]:
    print("other fields:", list(told))
if told["schema"] != 1 or told["host"] != os.uname().nodename:
    print("not of this node:", line)
if not re.fullmatch(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", told["time"]):
    print("no time of RFC 3339:", told["time"])
if not told["reason"] or "\n" in told["reason"]:
    print("no sentence:", told["reason"])
found = [(name, told[name]) for name in ("word", "outcome", "status", "text")]
expected = [("word", decoded(os.fsencode(word))), ("outcome", outcome), ("status", int(status)),
            ("text", decoded(text))]
if found != expected:
    print("expected", expected, "found", found, sep="\n")
