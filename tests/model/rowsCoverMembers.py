#!/usr/bin/env python3
"""Each public member of the strings has its row in the model driver, and each row its member. The
members are those that the pages of the reference show, so these leave none out.

usage: rowsCoverMembers.py LIST_ROWS_PROGRAM
"""
import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "docs"))
import stringPages  # noqa: E402 from that folder

STRINGS = {name: unit for name, (_, _, unit) in stringPages.CLASSES.items()}
# By hand, in rows of their own: they hand out the object, or write into a caller's buffer.
BY_HAND = {"asChar", "toChar", "asUni"}


def canonical(types, unit, name):
    """One spelling for types as the headers and as the compilers write them."""
    types = types.replace("short unsigned int", "unsigned short").replace("short int", "short")
    types = re.sub(r"std::(?:__cxx11::)?basic_string<char(?:,[^&]*)?>(?=&| )",
                   "std::string", types)
    types = types.replace("long long unsigned int", "unsigned long long")
    types = types.replace("long long int", "long long")
    types = re.sub(r"\bconst ((?:unsigned |signed |long )*[\w:]+(?:<[^<>]*>)?)", r"\1 const", types)
    types = re.sub(r"<[^<>]*>", "", types)
    types = re.sub(r"\b(?:Self|Members)\b", name, re.sub(r"\bUnit\b", unit, types))
    return re.sub(r" ?([*&,()]) ?", r"\1", re.sub(r"\s+", " ", types)).strip()


def members(name):
    """The public members of a string and of its bases."""
    unit, found = STRINGS[name], set()
    for _, declaration in stringPages.membersOf(name):
        _, member, takes, rest = declaration.function()
        kind = "question" if rest.startswith("const") else "member"
        if member == declaration.scope:
            kind, member = "constructor", ""
        types = canonical(",".join(stringPages.typesIn(takes)), unit, name)
        copies = member in ("", "operator=") and types == f"{name} const&"
        if member not in BY_HAND and not copies:
            found.add((kind, member.replace("operator ", "operator"), types))
    return found


def main():
    [program] = sys.argv[1:]
    listed = subprocess.run([program], check=True, capture_output=True, text=True).stdout
    driven = {name: set() for name in STRINGS}
    for line in listed.splitlines():
        name, kind, rest = line.split(" ", 2)
        member, types = re.match(r"(.*)\|.*Exact<(.*)>[;\]]", rest).groups()
        driven[name].add((kind, member.strip().replace("operator ", "operator"),
                          canonical(types, STRINGS[name], name)))
    failed = False
    for name in STRINGS:
        declared = members(name)
        # Copies are the compiler's to declare.
        implied = {("constructor", "", f"{name} const&"), ("member", "operator=", f"{name} const&")}
        for what, odd in (("no row drives", declared - driven[name]),
                          ("no header declares", driven[name] - declared - implied)):
            for kind, member, types in sorted(odd):
                print(f"{what} {name}: {kind} {member}({types})")
                failed = True
        if len(declared) < 70:
            print(f"{name}: only {len(declared)} members were read from the headers")
            failed = True
    return failed


if __name__ == "__main__":
    sys.exit(main())
