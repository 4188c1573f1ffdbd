"""Shows the objects of libqv in LLDB: `command script import` this file.

`frame variable --raw` shows an object as it is laid down.
"""

import os
import sys

import lldb

sys.path.insert(0, os.path.dirname(os.path.realpath(__file__)))
import qvFormat

STRINGS = r"^_qvString(_old|8_allSize|8_evenSize_old|8_UnevenSize_old)?<.*>$"
SUMMARIES = {
    STRINGS: "string_summary",
    "^_qvStringList$": "list_summary",
    "^qvSharedMemory$": "segment_summary",
    "^qvClientMailbox$": "mailbox_summary",
}
CHILDREN = {"^_qvStringList$": "ListChildren", "^qvClientMailbox$": "MailboxChildren"}


class Unreadable(Exception):
    """The object is not in the program's memory."""


class Reader:
    """An object, or a pointer to one, as qvFormat reads it."""

    def __init__(self, value):
        self.value = value.GetNonSyntheticValue()

    def field(self, name):
        field = self.value.GetChildMemberWithName(name)
        if field.GetError().Fail():
            raise Unreadable
        return field

    def number(self, field):
        return self.field(field).GetValueAsSigned()

    def is_set(self, field):
        return self.field(field).GetValueAsUnsigned() != 0

    def size(self, field):
        return self.field(field).GetByteSize() // self.unit_bytes(field)

    def unit_bytes(self, field):
        return self.field(field).GetType().GetArrayElementType().GetByteSize()

    def units(self, field, count):
        data = self.field(field).GetData()
        return (data.uint8 if self.unit_bytes(field) == 1 else data.uint16)[:count]

    def member(self, field):
        return Reader(self.field(field))


def summary(words, value, *arguments):
    """What `words` says about the object, or the one that a pointer leads to in one step."""
    kind = value.GetType().GetCanonicalType()
    if kind.GetPointeeType().GetCanonicalType().IsPointerType():
        return ""
    if kind.IsPointerType() and value.GetValueAsUnsigned() == 0:
        return ""
    try:
        return words(Reader(value), *arguments)
    except Unreadable:
        return qvFormat.UNREADABLE


def string_summary(value, _):
    debugger = value.GetTarget().GetDebugger()
    limit = lldb.SBDebugger.GetInternalVariableValue(
        "target.max-string-summary-length", debugger.GetInstanceName()).GetStringAtIndex(0)
    return summary(qvFormat.describe_string, value, int(limit))


def list_summary(value, _):
    return summary(qvFormat.describe_list, value)


def segment_summary(value, _):
    return summary(qvFormat.describe_segment, value)


def mailbox_summary(value, _):
    return summary(qvFormat.describe_mailbox, value)


class Children:
    """Numbered children in place of the fields."""

    def __init__(self, value, _):
        self.value = value

    def update(self):
        try:
            self.shown = self.read(Reader(self.value))
        except Unreadable:
            self.shown = ()

    def num_children(self):
        return len(self.shown)

    def has_children(self):
        return len(self.shown) != 0

    def get_child_index(self, name):
        return int(name.strip("[]"))


class ListChildren(Children):
    def read(self, string_list):
        self.items = string_list.field("items")
        return range(qvFormat.list_size(string_list))

    def get_child_at_index(self, index):
        element = self.items.GetType().GetPointeeType()
        return self.items.CreateChildAtOffset(f"[{index}]", index * element.GetByteSize(), element)


class MailboxChildren(Children):
    def read(self, mailbox):
        return list(qvFormat.messages(mailbox))

    def get_child_at_index(self, index):
        words = self.shown[index]
        target = self.value.GetTarget()
        data = lldb.SBData.CreateDataFromCString(
            target.GetByteOrder(), target.GetAddressByteSize(), words)
        letters = target.GetBasicType(lldb.eBasicTypeChar).GetArrayType(len(words))
        return self.value.CreateValueFromData(f"[{index}]", data, letters)


def __lldb_init_module(debugger, _):
    for types, function in SUMMARIES.items():
        expand = "--expand" if types in CHILDREN else ""
        debugger.HandleCommand(
            f'type summary add {expand} -w qv -x "{types}" -F {__name__}.{function}')
    for types, provider in CHILDREN.items():
        debugger.HandleCommand(f'type synthetic add -w qv -x "{types}" -l {__name__}.{provider}')
    debugger.HandleCommand("type category enable qv")
