#!/usr/bin/env python3
"""Holds the written reference to what it has to show: on the page of each string all members, each
task under its name with its example; and the manual pages, the examples and the tables.

usage: checkReference.py FOLDER
"""

import collections
import html
import pathlib
import re
import sys

import stringPages

ROOT = pathlib.Path(__file__).resolve().parents[1]


def listed(text):
    """The names in a page's list of members, by task."""
    found, task = collections.defaultdict(collections.Counter), None
    for heading, example, name in re.findall(
            r'class="groupheader">(?:<a [^>]*></a>)?\s*(.*?)</h2>|(<div class="fragment">)'
            r'|class="memItemRight"[^>]*>(?:<a class="el"[^>]*>|<b>)(.*?)</(?:a|b)>', text):
        task = heading or task
        found[task]["example" if example else html.unescape(name).replace("< ", "<").replace(
            " >", ">")] += not heading
    return found


def faultsOf(name, folder):
    page = folder / f"class{name.replace('_', '__')}.html"
    text = page.read_text(encoding="utf-8").partition('<a name="details"')[0]
    shown = listed(text)
    tasks = [task for task in shown if task and not task.startswith("Public ")]
    members = stringPages.membersOf(name)
    expected = list(dict.fromkeys(task for task, _ in members))
    if tasks != expected:
        yield f"the tasks are {tasks}, expected {expected}"
    for task in expected:
        names = collections.Counter(
            stringPages.spelled(each.function()[1], name) for found, each in members
            if found == task)
        names["example"] = 1
        if names != +shown[task]:
            yield f"{task} shows {dict(shown[task])}, expected {dict(names)}"


def main():
    folder = pathlib.Path(sys.argv[1])
    faults = [f"{name}: {fault}" for name in stringPages.CLASSES
              for fault in faultsOf(name, folder)]
    pages = [f"{page.stem}_{page.suffix[1:]}.html" for page in (ROOT / "docs/man").iterdir()]
    pages += [f"{example.stem}_8cpp-example.html" for example in (ROOT / "examples").glob("*.cpp")]
    pages += ["manual.html", "examples.html", "md_docs_string_members.html",
              "md_docs_string_conversions.html"]
    faults += [f"{page} is missing" for page in pages if not (folder / page).exists()]
    return "\n".join(faults)


sys.exit(main() or 0)
