#!/usr/bin/env python3
"""Holds debugger/qv.natvis to the headers: its types are declared there, and so are its members;
its numbers are those of qvFormat.py."""

import pathlib
import re
import sys
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "debugger"))
import qvFormat

# Each type's own header, and the one that declares its members.
HEADERS = {
    "_qvString8_allSize<*>": ("qv/strings/qvString8.h", "qv/strings/image8.h"),
    "_qvString8_evenSize_old<*>": ("qv/strings/qvString8_old.h", "qv/strings/image8.h"),
    "_qvString8_UnevenSize_old<*>": ("qv/strings/qvString8_old.h", "qv/strings/image8.h"),
    "_qvString<*>": ("qv/strings/qvString.h", "qv/strings/image16.h"),
    "_qvString_old<*>": ("qv/strings/qvString_old.h", "qv/strings/image16.h"),
    "_qvStringList": ("qv/support/qvStringList.h", "qv/support/qvStringList.h"),
    "qvSharedMemory": ("qv/segment/qvSharedMemory.h", "qv/segment/qvSharedMemory.h"),
    "qvClientMailbox": ("qv/client/qvClientMailbox.h", "qv/client/qvClientMailbox.h"),
}
NO_MEMBERS = {"i", "int", "char16_t", "sizeof", "T1"}


def local_name(element):
    return element.tag.rsplit("}", 1)[-1]


def expressions(visualizer):
    """The C++ in a <Type>: conditions, what stands in braces, and the text of the other tags."""
    for element in visualizer.iter():
        if "Condition" in element.attrib:
            yield element.get("Condition")
        if local_name(element) == "DisplayString":
            yield from re.findall(r"\{(.*?)\}", element.text)
        elif element.text and element.text.strip():
            yield element.text
        if local_name(element) == "Item":
            yield from re.findall(r"\{(.*?)\}", element.get("Name"))


def identifiers(expression):
    """Without the format behind the comma, of which the bracket is an expression again."""
    plain = re.sub(r",(\[.*\])?\w+$", r" \1", expression.strip())
    return set(re.findall(r"[A-Za-z_]\w*", plain)) - NO_MEMBERS


def members(header):
    """The names that a header declares before a semicolon, with an initialiser or without."""
    return set(re.findall(r"(\w+)(?:\[[^\]]*\])?(?: = [^;(]+)?;", (ROOT / header).read_text()))


class Natvis(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        root = ElementTree.parse(ROOT / "debugger/qv.natvis").getroot()
        cls.visualizers = [each for each in root if local_name(each) == "Type"]

    def names(self, visualizer):
        return [each.get("Name") for each in visualizer.iter()
                if local_name(each) in ("Type", "AlternativeType")]

    def test_every_type_is_shown_and_declared(self):
        shown = [name for visualizer in self.visualizers for name in self.names(visualizer)]
        self.assertEqual(sorted(shown), sorted(HEADERS))
        for name, (header, _) in HEADERS.items():
            declaration = rf"^(class|struct) {name.removesuffix('<*>')}\b"
            self.assertRegex((ROOT / header).read_text(), re.compile(declaration, re.M))

    def test_members_exist(self):
        for visualizer in self.visualizers:
            used = set().union(*map(identifiers, expressions(visualizer)))
            self.assertTrue(used)
            for name in self.names(visualizer):
                self.assertLessEqual(used, members(HEADERS[name][1]), name)

    def test_numbers(self):
        used = {int(number) for visualizer in self.visualizers
                for expression in expressions(visualizer)
                for number in re.findall(r"\b\d+\b", expression)}
        self.assertEqual(used - {0, 1}, {qvFormat.RECORD_MARKER, qvFormat.STATE_MARKER,
                                         qvFormat.SEGMENT_PREFIX})


if __name__ == "__main__":
    unittest.main()
