#!/usr/bin/env python3
"""Holds the library's interface to tests/layout/interface.txt: what a program can link to.

    interface.py LIBRARY.so           fails when the file is not what abidw reads off the library,
                                      which has to have its debug information
    interface.py LIBRARY.so --write   writes the file
    interface.py LIBRARY.a            fails when the archive lacks a function of the file

A line is a function or a variable. A member that a string has for all its capacities is one line,
and one that it has from its base is its own. What is private, in an internal namespace or the C++
library's is left out, and so is what each program compiles for itself: function templates and
inline functions. Sizes and places are held by images.txt.
"""

import collections
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

HELD = pathlib.Path(__file__).resolve().parents[1] / "layout/interface.txt"
HEAD = "# Written by `tests/proof/abi.sh build/abi --write`.\n"
# The base of a string is a template over that string and its image.
BASE = re.compile(r"\bqvStrings::\w+<(_qv\w+<\d+>), qvStrings::\w+<[^<>]*>\s*>")
STRING = re.compile(r"(_qv\w+)<(\d+)>::")
LEFT_OUT = re.compile(r"^(std|__gnu_cxx|qvStrings|qvSegment|qvSupport)::")


def demangled(names):
    run = subprocess.run(["c++filt"], input="\n".join(names), text=True, stdout=subprocess.PIPE,
                         check=True)
    return dict(zip(names, run.stdout.splitlines()))


class Dump:
    """What abidw says of the library."""

    def __init__(self, library):
        xml = subprocess.check_output(["abidw", "--no-corpus-path", "--no-show-locs", library])
        root = ElementTree.fromstring(xml)
        self.binding = {symbol.get("name"): symbol.get("binding")
                        for kind in ("function", "variable")
                        for symbol in root.iterfind(f"elf-{kind}-symbols/elf-symbol")
                        if symbol.get("is-defined") == "yes"}
        self.types = {}
        self.found = {}  # mangled name -> the declaration
        self.hidden = set()
        self._read(root, ())

    def _read(self, element, scope):
        for child in element:
            if child.get("id"):
                self.types.setdefault(child.get("id"), (child, scope))
            mangled = child.get("mangled-name")
            if mangled in self.binding:
                self.found[mangled] = child
                if element.get("access", "public") != "public":
                    self.hidden.add(mangled)
            within = scope
            if child.tag in ("namespace-decl", "class-decl"):
                within = (*scope, child.get("name"))
            self._read(child, within)

    def type_name(self, key):
        element, scope = self.types[key]
        if element.tag in ("pointer-type-def", "reference-type-def"):
            mark = "*" if element.tag == "pointer-type-def" else "&"
            return self.type_name(element.get("type-id")) + mark
        if element.tag == "qualified-type-def":
            words = [word for word in ("const", "volatile") if element.get(word) == "yes"]
            return " ".join([self.type_name(element.get("type-id")), *words])
        if element.tag == "array-type-def":
            return f"{self.type_name(element.get('type-id'))}[]"
        return "::".join([*scope, element.get("name")])

    def lines(self):
        public = sorted(self.found.keys() - self.hidden)
        for mangled, text in demangled(public).items():
            # The compiler leaves out an inline function that it expands everywhere; the members of
            # a string are weak too, but asked for by name.
            if self.binding[mangled] == "weak-binding" and not STRING.match(BASE.sub(r"\1", text)):
                continue
            element = self.found[mangled]
            result = element.find("return")
            key = result.get("type-id") if result is not None else element.get("type-id")
            yield text, self.type_name(key) if key else "void"


def archive_lines(library):
    listing = subprocess.check_output(["nm", "--demangle", "--defined-only", "--extern-only",
                                       library], text=True)
    for text in re.findall(r"^[0-9a-f]{16} \w (.+)$", listing, re.M):
        yield text, ""


def folded(declarations):
    """Declarations and their types -> the text ahead of the type, and the type."""
    capacities = collections.defaultdict(set)  # string -> its capacities
    having = collections.defaultdict(set)  # declaration -> the capacities that have it
    for text, kind in declarations:
        text, kind = BASE.sub(r"\1", text), BASE.sub(r"\1", kind)
        string, capacity = "", ""
        if member := STRING.match(text):
            string, capacity = member.groups()
            capacities[string].add(int(capacity))
            own = re.compile(rf"\b{string}<{capacity}>")
            text, kind = own.sub(f"{string}<N>", text), own.sub(f"{string}<N>", kind)
        # A template's name comes behind its result, and so behind a blank ahead of the bracket.
        if not LEFT_OUT.match(text) and not re.match(r"[^(]*(?<!operator) [^(]*[<(]", text):
            having[string, text, kind].add(capacity)

    # What takes the same capacity of another string stands once for each until now.
    for string, text, kind in [key for key, some in having.items() if len(some) == 1 and key[0]]:
        capacity, = having[string, text, kind]
        same = re.compile(rf"\b(_qv\w+)<{capacity}>")
        if same.search(text):
            having.pop((string, text, kind))
            having[string, same.sub(r"\1<N>", text), same.sub(r"\1<N>", kind)].add(capacity)

    for string, all_of_it in sorted(capacities.items()):
        yield f"{string}<N>, N = {' '.join(map(str, sorted(all_of_it)))}", ""
    for (string, text, kind), some in sorted(having.items()):
        rest = capacities[string] - set(map(int, some)) if string else ()
        if len(rest) > len(some):
            text += f", N = {' '.join(sorted(some, key=int))}"
        elif rest:
            text += f", N != {' '.join(map(str, sorted(rest)))}"
        yield text, kind


def main():
    library, *options = sys.argv[1:]
    if library.endswith(".a"):
        there = {text for text, _ in folded(archive_lines(library))}
        held = HELD.read_text().splitlines()[1:]
        missing = [line for line in held if line.split(" -> ")[0] not in there]
        if missing or not held:
            sys.exit("\n".join(["the interface has these no more, or otherwise:", *missing]))
        return
    now = HEAD + "".join(f"{text} -> {kind}\n" if kind else f"{text}\n"
                         for text, kind in folded(Dump(library).lines()))
    if "--write" in options:
        HELD.write_text(now)
        return
    subprocess.run(["diff", "--label", "held", "--label", "library", "-U0", HELD, "-"], input=now,
                   text=True, check=False)
    if HELD.read_text() != now:
        sys.exit("interface.py: the interface is not what tests/layout/interface.txt says")
    print(f"proof: abi lines={now.count(chr(10)) - 1}")


main()
