#!/usr/bin/env python3
"""Holds bench/members.txt, which says what measures each public member, to the headers and to the
rows: each public member of the library has one line, and each row of a line is there beside a peer, at
all sizes of its section. Each limit of bench/targets.py has a row that it judges.

usage: rowsOfMembers.py LIST_BENCHMARKS_PROGRAM
"""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "docs"), str(ROOT / "bench")]
import stringPages  # noqa: E402 from these folders
import targets  # noqa: E402
from declarations import declarationsOf  # noqa: E402

SECTION = re.compile(r"\[(?P<like>like )?(?P<name>[\w.]+)\](?: (?P<reason>--.+)|(?P<rest>( \w+)*))")
MEMBER = re.compile(r"(?P<member>.+?) (?P<how>->|==|--) (?P<what>.+)")


def signature(function, names, spelled=lambda text: text):
    """A member by its name and the types that it takes. `names` are those of its own class."""
    _, name, takes, rest = function
    own = re.compile(rf"\b(?:{'|'.join(names) or '(?!)'})\b(?:<N>)?")
    types = ", ".join(stringPages.typesIn(spelled(takes)))
    const = " const" if rest.startswith("const") else ""
    return own.sub("Self", f"{name}({types})") + const


def members_of_string(name):
    return {signature(each.function(), [name, "Members"],
                      lambda takes: stringPages.spelled(takes, name))
            for _, each in stringPages.membersOf(name)}


def functions_of(header):
    """The public functions of a header but for the members of strings."""
    strings = {*stringPages.CLASSES, *stringPages.LAYERS}
    return {signature(each.function(), []) for each in declarationsOf(header)
            if each.function() and each.isPublic and not each.isDeleted()
            and each.scope not in strings}


class Filed:
    """What members.txt says: the sections by their name."""

    def __init__(self, path):
        self.sections, self.sizes, self.reasons, self.alike, self.wrong = {}, {}, set(), {}, []
        current = None
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            if not line or line.startswith("#"):
                continue
            if begun := SECTION.fullmatch(line):
                current = self.begin(begun)
            elif current is None or not (found := MEMBER.fullmatch(line)):
                self.wrong.append(f"line {number} is neither a section nor a member: {line}")
            elif found["member"] in current:
                self.wrong.append(f"line {number} comes twice: {found['member']}")
            else:
                current[found["member"]] = found["how"], found["what"]

    def begin(self, begun):
        name = begun["name"]
        if begun["reason"]:
            self.reasons.add(name)
            return None
        words = (begun["rest"] or "").split()
        if begun["like"]:
            self.alike.update(dict.fromkeys(words, name))
            return self.sections.setdefault(f"like {name}", {})
        self.sizes[name] = words
        return self.sections.setdefault(name, {})


def rows_of(program):
    """{row: {size: who}} of all benchmarks."""
    listed = subprocess.run([program], check=True, capture_output=True, text=True).stdout
    rows = {}
    for name in listed.splitlines():
        operation, size, who = name.rsplit("/", 2)
        rows.setdefault(operation, {}).setdefault(size, set()).add(who)
    return rows


def uncovered(filed):
    """Members without a line, and lines without a member."""
    declared = {name: members_of_string(name) for name in stringPages.CLASSES}
    known = {name: declared[name] for name in declared if name not in filed.alike}
    for name, alike in filed.alike.items():
        # Short forms of the other class's own members: "Self" is what differs.
        known.setdefault(f"like {alike}", set()).update(declared[name] - declared[alike])
    for header in sorted(ROOT.glob("qv/*/*.h")):
        if (functions := functions_of(header)) and header.name not in filed.reasons:
            known[header.name] = functions
    for name, members in known.items():
        lines = filed.sections.get(name, {})
        yield from (f"no line says what measures {name}: {each}"
                    for each in sorted(members - set(lines)))
        yield from (f"no header declares {name}: {each}" for each in sorted(set(lines) - members))
    yield from (f"no header is behind the section {name}"
                for name in sorted(set(filed.sections) - set(known)))
    headers = {header.name for header in ROOT.glob("qv/*/*.h")}
    yield from (f"there is no header {name}" for name in sorted(filed.reasons - headers))
    if sum(map(len, known.values())) < 250:
        yield "too few members were read from the headers"


def unmeasured(filed, rows):
    """Lines whose row is not there, has no peer, or lacks a size."""
    for name, lines in filed.sections.items():
        for member, (how, what) in lines.items():
            if how == "==" and (what not in lines or lines[what][0] == "=="):
                yield f"{name}: {member} is like {what}, which has no line with a row or a reason"
            if how != "->":
                continue
            for row in what.split():
                if row not in rows:
                    yield f"{name}: {member} is measured by {row}, which is no row"
                    continue
                for size in filed.sizes.get(name) or rows[row]:
                    if not {"ours"} < rows[row].get(size, set()):
                        yield f"{name}: {row} lacks ours or a peer at {size}"


def unused_limits(rows):
    """Limits that judge no row, since another one comes first or the row has another name."""
    judged = set()
    for row, sizes in rows.items():
        for size, names in sizes.items():
            operation = f"{row}/{size}"
            for peer in names - {"ours"} if "ours" in names else ():
                judged.add(next((limit for limit in targets.TARGETS if limit[1] == peer
                                 and re.fullmatch(limit[0], operation)), None))
    yield from (f"no row is judged by the limit {limit}" for limit in targets.TARGETS
                if limit not in judged)


def main():
    [program] = sys.argv[1:]
    filed = Filed(ROOT / "bench/members.txt")
    rows = rows_of(program)
    wrong = [*filed.wrong, *uncovered(filed), *unmeasured(filed, rows), *unused_limits(rows)]
    for line in wrong:
        print(line)
    return bool(wrong)


if __name__ == "__main__":
    sys.exit(main())
