"""The five string classes as their users see them: each class whole, its members by task.

In the headers the members of a class are spread over it and its bases. Here they come together, for
the pages of the reference, the table of members and the checks.
"""

import functools
import pathlib
import re
import textwrap

from declarations import declarationsOf

STRINGS = pathlib.Path(__file__).resolve().parents[1] / "qv/strings"

# In the order of a page. A task whose members begin with those of the class itself says so.
TASKS = ["Construction", "Assignment", "Length and state", "Append", "Numbers to text",
         "Text to numbers", "Equality", "Order", "Position search", "Containment",
         "Start and end of the text", "Editing in place", "Slices", "Text out"]
OWN_FIRST = {"Construction", "Assignment"}

# class -> header, the layer of its width, a unit of its text
CLASSES = {
    "_qvString8_allSize": ("qvString8.h", "Members8", "char"),
    "_qvString8_evenSize_old": ("qvString8_old.h", "Members8", "char"),
    "_qvString8_UnevenSize_old": ("qvString8_old.h", "Members8", "char"),
    "_qvString": ("qvString.h", "Members16", "unsigned short"),
    "_qvString_old": ("qvString_old.h", "Members16", "unsigned short"),
}
TABLES = "@see @ref md_docs_string_conversions, @ref md_docs_string_members"
EXAMPLES = pathlib.Path(__file__).resolve().parents[1] / "examples"
LAYERS = {"Members": "members.h", "Members8": "members8.h", "Members16": "members16.h"}


def piecesOf(example):
    """The pieces of an example that show a task, between two lines with its name."""
    text = (EXAMPLES / example).read_text(encoding="utf-8")
    found = re.findall(r"^ *// \[(.+)\]\n((?:.*\n)*?) *// \[\1\]$", text, re.M)
    return {task: textwrap.dedent(piece).rstrip().splitlines() for task, piece in found}


def exampleOf(name, task):
    """The worked example of a task: the class's own, or that of the current string of its width."""
    width = "8" if CLASSES[name][2] == "char" else "16"
    current, own = piecesOf(f"stringTasks{width}.cpp"), {}
    lead = []
    if name.endswith("_old"):
        own = piecesOf(f"olderStrings{width}.cpp")
        lead = [] if task in own else ["With the current string:"]
    return [*lead, "@code{.cpp}", *own.get(task, current[task]), "@endcode"]


@functools.cache
def declarations(header):
    return declarationsOf(STRINGS / header)


def membersIn(header, scope):
    """The public functions of one class in one header."""
    return [each for each in declarations(header)
            if each.scope == scope and each.isPublic and each.function() and not each.isDeleted()]


def typesIn(parameters):
    """The types in a parameter list, without the names."""
    return [re.sub(r"(?<=[\w&*>] )\w+$|(?<=[&*])\w+$", "", each.strip()).strip()
            for each in parameters.split(",")]


def spelled(text, name):
    """The text with the names that the bases use replaced by those of the class."""
    return re.sub(r"\bUnit\b", CLASSES[name][2], re.sub(r"\b(Self|Members)\b", name, text))


def membersOf(name):
    """Each public function of a class with its comment: (task, declaration), by task."""
    header, layer, _ = CLASSES[name]
    parts = [membersIn(LAYERS["Members"], "Members"), membersIn(LAYERS[layer], layer),
             membersIn(header, name)]
    found = []
    for task in TASKS:
        ordered = parts[::-1] if task in OWN_FIRST else parts
        inTask = [each for part in ordered for each in part
                  if each.group and each.group.name == task]
        names = [each.function()[1] for each in inTask]
        inTask.sort(key=lambda each: names.index(each.function()[1]))  # overloads side by side
        found += [(task, each) for each in inTask]
    return found


def textOf(name, task):
    """What the headers say of a task, each paragraph once."""
    paragraphs = []
    for _, each in membersOf(name):
        text = "\n".join(each.group.text)
        if each.group.name == task and text and text not in paragraphs:
            paragraphs.append(text)
    return paragraphs


def paragraphsOf(header, scope):
    """The comment of a class, by paragraphs, without its parameters and its way to the bases."""
    first = next(each for each in declarations(header)
                 if each.isClass() and re.match(rf"class {scope}\b", each.head()) and each.comment)
    text = "\n".join(line for line in first.comment if "@tparam" not in line)
    text = re.sub(r"The members are those of [^.]*\. ?", "", text)
    return [each for each in re.split(r"\n///(?:\n|$)", text) if each.strip("/ ")]


def imageOf(name):
    [code] = {each.scopeCode for each in membersIn(CLASSES[name][0], name)}
    return re.search(r"qvStrings::\w*Image\w*<N>", code)[0]


def page(name):
    """The class with all its members, as a header for Doxygen."""
    header, layer, unit = CLASSES[name]
    members = membersOf(name)
    paragraphs = (paragraphsOf(header, name) + paragraphsOf(LAYERS["Members"], "Members")[1:]
                  + paragraphsOf(LAYERS[layer], layer)[1:])
    lines = ["\n///\n".join(paragraphs), "///", f"/// {TABLES}", "/// @tparam N The capacity.", "template <int N>",
             f"class {name} : public {imageOf(name)}", "{", "public:",
             "    /// One unit of the text.", f"    using Unit = {unit};"]
    for task in TASKS:
        inTask = [each for found, each in members if found == task]
        if inTask:
            lines += ["", f"    /// \\name {task}"]
            for paragraph in textOf(name, task):
                lines += [*indented(paragraph), "    ///"]
            lines += [f"    /// {line}" for line in exampleOf(name, task)] + ["    /// @{"]
            for each in inTask:
                comment = [spelled(line, name) if "@copy" in line else line
                           for line in each.comment]
                code = spelled(re.sub(r"\bQV_(CHECKS|KEEPS_STORAGE) ", "", each.code), name)
                lines += ["", *indented("\n".join(comment)), *indented(code + ";")]
            lines += ["    /// @}"]
    return "\n".join([*lines, "};", ""])


def indented(text):
    return ["    " + line.strip() for line in text.splitlines()]


def headerForDoxygen(file, text):
    """A header of strings with its classes whole; None for a header without one."""
    names = [name for name, (header, *_) in CLASSES.items() if header == pathlib.Path(file).name]
    if not names:
        return None
    about = re.search(r"^/// @file\n(?:///.*\n)+", text, flags=re.M)
    return "\n".join(["#pragma once", about[0] if about else "", *map(page, names)])
