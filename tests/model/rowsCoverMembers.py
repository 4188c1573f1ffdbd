#!/usr/bin/env python3
"""Each public member of the strings has its row in the model driver, and each row its member.

usage: rowsCoverMembers.py LIST_ROWS_PROGRAM HEADER_FOLDER
"""
import pathlib
import re
import subprocess
import sys

STRINGS = {"_qvString8_allSize": "char", "_qvString8_evenSize_old": "char",
           "_qvString8_UnevenSize_old": "char", "_qvString": "unsigned short",
           "_qvString_old": "unsigned short"}
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
    types = re.sub(r"\bSelf\b", name, re.sub(r"\bUnit\b", unit, types))
    return re.sub(r" ?([*&,()]) ?", r"\1", re.sub(r"\s+", " ", types)).strip()


def classes(folder):
    """For each class of the headers its base and its public declarations."""
    found = {}
    for header in sorted(folder.glob("*.h")):
        text = re.sub(r"//.*|^\s*#.*(?:\\\n.*)*", "", header.read_text(), flags=re.M)
        for match in re.finditer(r"\bclass (\w+)(?:<N>)?\s*:\s*public ([\w:]+)[^{;]*\{", text):
            depth, at, access, shown = 1, match.end(), "private", ""
            while depth:
                label = re.match(r"(public|private|protected):", text[at:])
                if depth == 1 and label:
                    access, at = label[1], at + label.end()
                    continue
                depth += {"{": 1, "}": -1}.get(text[at], 0)
                if access == "public" and depth == 1:
                    shown += ";" if text[at] == "}" else text[at]
                at += 1
            # A bare older image, for conversions, comes before the class with members.
            found[match[1]] = (match[2].split("::")[-1], shown.split(";"))
    return found


def parameters(text):
    """The types in a parameter list, without the names."""
    types = [re.sub(r"(?<=[\w&*>] )\w+$|(?<=[&*])\w+$", "", each.strip()) for each in text.split(",")]
    return ",".join(types)


def members(known, name):
    """The public members of a string and of its bases."""
    unit, found, at = STRINGS[name], set(), name
    while at in known:
        at_name, (at, declarations) = at, known[at]
        for declaration in declarations:
            match = re.search(r"(operator ?(?:[^\w\s(]+| ?_\w+<\d+>)|\b\w+)\s*\(([^()]*)\)\s*(const)?",
                              declaration)
            if not match or re.search(r"= default|static_assert|\busing\b", declaration):
                continue
            member = match[1].replace("operator ", "operator")
            kind = "question" if match[3] else "member"
            if member == name:
                kind, member = "constructor", ""
            copies = re.fullmatch(rf"\s*{at_name} const ?& ?\w+\s*", match[2])
            if member not in BY_HAND and not copies:
                found.add((kind, member,
                           canonical(parameters(match[2]), unit, name)))
    return found


def main():
    program, folder = sys.argv[1:]
    known = classes(pathlib.Path(folder))
    listed = subprocess.run([program], check=True, capture_output=True, text=True).stdout
    driven = {name: set() for name in STRINGS}
    for line in listed.splitlines():
        name, kind, rest = line.split(" ", 2)
        member, types = re.match(r"(.*)\|.*Exact<(.*)>[;\]]", rest).groups()
        driven[name].add((kind, member.strip().replace("operator ", "operator"),
                          canonical(types, STRINGS[name], name)))
    failed = False
    for name in STRINGS:
        declared = members(known, name)
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


sys.exit(main())
