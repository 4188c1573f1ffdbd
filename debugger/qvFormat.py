"""What a debugger says about the objects of libqv: the words, the escapes, the marks of damage.

Knows no debugger. The objects come as readers, of which each debugger has one of its own:

    number(field)            a number or bool
    is_set(field)            whether a pointer is not null
    size(field)              the elements of an array
    unit_bytes(field)        the bytes of one of its elements
    units(field, count)      its first elements, as unsigned numbers
    member(field)            a reader of a member that is an object itself
"""

from qvCommandNames import COMMAND_NAMES

# The formats' own numbers, as qv/client/qvClientMailbox.h and qv/segment/qvSharedMemory.cpp have them.
RECORD_MARKER = 517
STATE_MARKER = 3077
COMMAND_TYPE = 2
SEGMENT_PREFIX = 8

DAMAGED = ", damaged"
UNREADABLE = "<unreadable>"


def characters(units):
    """The units of a 16-bit text, surrogate pairs put together. Half a pair stays what it is."""
    joined = []
    for unit in units:
        if 0xDC00 <= unit < 0xE000 and joined and 0xD800 <= joined[-1] < 0xDC00:
            joined[-1] = 0x10000 + ((joined[-1] - 0xD800) << 10) + unit - 0xDC00
        else:
            joined.append(unit)
    return joined


def escaped(character, unit_bytes):
    # Nothing but ASCII is shown as itself: a byte has no encoding here, and a byte 0xE4 that was
    # widened with its sign is the unit 0xFFE4, which must not pass for another letter.
    if 0x20 <= character < 0x7F:
        return "\\" + chr(character) if chr(character) in '"\\' else chr(character)
    if unit_bytes == 1:
        return f"\\x{character:02X}"
    return f"\\u{character:04X}" if character < 0x10000 else f"\\U{character:08X}"


def quoted(units, unit_bytes):
    shown = characters(units) if unit_bytes == 2 else units
    return '"' + "".join(escaped(each, unit_bytes) for each in shown) + '"'


def text(string, limit=None):
    """The text of a string without its counts, cut after `limit` units with dots behind."""
    stored = min(string.number("length"), string.size("text") - 1)
    shown = stored if limit is None else min(stored, limit)
    words = quoted(string.units("text", shown), string.unit_bytes("text"))
    return words if shown == stored else words + "..."


def describe_string(string, limit=None):
    """Text, length and capacity. A length beyond the capacity is told, and not followed."""
    length, capacity = string.number("length"), string.size("text") - 1
    mark = DAMAGED if length > capacity else ""
    return f"{text(string, limit)} ({length}/{capacity}{mark})"


def list_is_damaged(string_list):
    """A destroyed list counts as such: it keeps its count and has no block."""
    count = string_list.number("count")
    return count < 0 or (count > 0 and not string_list.is_set("items"))


def list_size(string_list):
    """How many elements may be looked at."""
    return 0 if list_is_damaged(string_list) else string_list.number("count")


def describe_list(string_list):
    count = string_list.number("count")
    mark = DAMAGED if list_is_damaged(string_list) else ""
    return f"{count} string{'' if count == 1 else 's'}{mark}"


def describe_segment(segment):
    """Name, key, state, and the error if there is one."""
    facts = [text(segment.member("name"))]
    if segment.number("key"):
        facts.append(f"key 0x{segment.number('key'):X}")
    if segment.number("attached"):
        facts.append("attached")
        facts.append(f"{segment.number('totalSize') - SEGMENT_PREFIX} bytes")
    else:
        facts.append("not attached")
    if segment.number("locked"):
        facts.append("locked")
    if segment.number("errorCode"):
        facts.append(f"error {segment.number('errorCode')} {text(segment.member('errorText'))}")
    return ", ".join(facts)


def wrong_markers(mailbox):
    """The format fields that a sender would refuse, each with what it expects."""
    for field, expected in (("recordMarker", RECORD_MARKER), ("stateMarker", STATE_MARKER)):
        if mailbox.number(field) != expected:
            yield f"{field} {mailbox.number(field)} instead of {expected}"
    if mailbox.number("stateFlag") == 0:
        yield "stateFlag 0"


def describe_mailbox(mailbox):
    count, room = mailbox.number("messageCount"), mailbox.size("messageKind")
    markers = "; ".join(wrong_markers(mailbox)) or "markers ok"
    mark = DAMAGED if count > room else ""
    return f"{markers}, {count}/{room} messages{mark}"


def messages(mailbox):
    """The entries of the queue, in the words of the stand-in client."""
    count = min(mailbox.number("messageCount"), mailbox.size("messageKind"))
    fields = ("messageKind", "messageType", "messageValue")
    for kind, kind_of_value, value in zip(*(mailbox.units(field, count) for field in fields)):
        name = command_name(value) if kind_of_value == COMMAND_TYPE else ""
        yield f"kind {kind}, type {kind_of_value}, value {value}{name}"


def command_name(code):
    if code < len(COMMAND_NAMES):
        return ": " + COMMAND_NAMES[code]
    return f": Unknown #{code}" if code <= 0xFF else ""
