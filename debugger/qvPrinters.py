"""Shows the objects of libqv in GDB: `source` this file, or let GDB load it beside the program.

`print/r` shows an object as it is laid down.
"""

import os
import sys

import gdb
import gdb.printing
import gdb.types

sys.path.insert(0, os.path.dirname(os.path.realpath(__file__)))
import qvFormat


class Reader:
    """An object as qvFormat reads it. By elements and not by memory, so that a value without an
    address, such as a function's result, can be read too."""

    def __init__(self, value):
        self.value = value

    def number(self, field):
        return int(self.value[field])

    def is_set(self, field):
        return self.number(field) != 0

    def size(self, field):
        first, last = self.value[field].type.range()
        return last - first + 1

    def unit_bytes(self, field):
        return self.value[field].type.target().sizeof

    def units(self, field, count):
        values, unsigned = self.value[field], (1 << 8 * self.unit_bytes(field)) - 1
        return [int(values[i]) & unsigned for i in range(count)]

    def member(self, field):
        return Reader(self.value[field])


class StringPrinter:
    def __init__(self, value):
        self.reader = Reader(value)

    def to_string(self):
        return qvFormat.describe_string(self.reader, gdb.parameter("print elements"))


class ListPrinter:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        return qvFormat.describe_list(Reader(self.value))

    def children(self):
        for i in range(qvFormat.list_size(Reader(self.value))):
            yield f"[{i}]", self.value["items"][i]

    def display_hint(self):
        return "array"


class SegmentPrinter:
    def __init__(self, value):
        self.reader = Reader(value)

    def to_string(self):
        return qvFormat.describe_segment(self.reader)


class MailboxPrinter:
    def __init__(self, value):
        self.reader = Reader(value)

    def to_string(self):
        return qvFormat.describe_mailbox(self.reader)

    def children(self):
        for i, message in enumerate(qvFormat.messages(self.reader)):
            yield f"[{i}]", f'"{message}"'

    def display_hint(self):
        return "array"


class PointerPrinter:
    """An address and what stands there, as GDB itself shows a `char*`."""

    def __init__(self, address, printer):
        self.words = f"{address:#x}"
        if address == 0:
            return
        try:
            self.words += f" {printer.to_string()}"
        except gdb.MemoryError:
            self.words += f" {qvFormat.UNREADABLE}"
            return
        if hasattr(printer, "children"):
            self.children = printer.children
            self.display_hint = printer.display_hint

    def to_string(self):
        return self.words


def has_fields(kind):
    """False also for a class that the program only declares."""
    return kind.code == gdb.TYPE_CODE_STRUCT and len(kind.fields()) != 0


class Printers(gdb.printing.RegexpCollectionPrettyPrinter):
    """Finds the printer by the type behind references, typedefs, const and volatile, and behind
    one pointer."""

    def __init__(self):
        super().__init__("qv")
        strings = r"_qvString(_old|8_allSize|8_evenSize_old|8_UnevenSize_old)?<.*>"
        self.add_printer("string", f"^{strings}$", StringPrinter)
        self.add_printer("list", "^_qvStringList$", ListPrinter)
        self.add_printer("segment", "^qvSharedMemory$", SegmentPrinter)
        self.add_printer("mailbox", "^qvClientMailbox$", MailboxPrinter)

    def __call__(self, value):
        kind = gdb.types.get_basic_type(value.type)
        if kind.code != gdb.TYPE_CODE_PTR:
            return super().__call__(value) if has_fields(kind) else None
        if not has_fields(gdb.types.get_basic_type(kind.target())):
            return None
        if value.type.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
            value = value.referenced_value()
        printer = super().__call__(value.dereference())
        return PointerPrinter(int(value), printer) if printer else None


gdb.printing.register_pretty_printer(gdb.current_objfile(), Printers(), replace=True)
