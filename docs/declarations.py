"""Reads what a header declares, with its comments, groups and access.

A reader for this tree's headers and no parser of C++: each declaration begins on a line of its own
behind its `///` comment, groups are `\\name`, text, `@{` ... `@}`.
"""

import dataclasses
import re

CLASS = re.compile(r"(?:class|struct|union)\s+(?:\w+\s+)*?(\w+)")
FUNCTION = re.compile(r"\boperator\b\s*([^\w\s(][^\s(]*|\(\)|[\w:<>&* ]+?)\s*\(|(~?\w+)\s*\(")


@dataclasses.dataclass
class Group:
    """Members of one task. A header may open it several times."""
    name: str
    text: list


@dataclasses.dataclass
class Declaration:
    file: str
    line: int
    comment: list  # its lines, from "///" on
    code: str  # up to its ";" or body, as it stands
    scope: str  # the class, or "" in a namespace
    scopeCode: str  # how that class begins
    isPublic: bool
    group: Group

    def head(self):
        """The code on one line, without what stands ahead of the type."""
        head = re.sub(r"\s+", " ", re.sub(r"//.*|\[\[.*?\]\]", "", self.code))
        while (match := re.match(r"(template |requires ?)", head)):
            head = head[balancedEnd(head, match.end(), "<>" if match[0] == "template " else "()"):]
            head = head.strip()
        return re.sub(r"\b(QV_CHECKS|QV_KEEPS_STORAGE|static|inline|constexpr|explicit|friend) ", "",
                      head).strip()

    def function(self):
        """Its result type, name, parameters and the rest; None for anything else."""
        head = self.head()
        match = FUNCTION.search(head)
        if not match or re.match(r"(using|typedef|static_assert|enum|concept)\b", head):
            return None
        if re.search(r"[=[]", head[:match.start()]) or self.isClass():
            return None
        name = match[2]
        if match[1]:
            name = ("operator " if re.match(r"\w", match[1]) else "operator") + match[1]
        end = balancedEnd(head, match.end() - 1, "()")
        return head[:match.start()].strip(), name, head[match.end():end - 1], head[end:].strip()

    def isClass(self):
        return bool(re.match(r"(class|struct|union)\b", self.head()))

    def isDeleted(self):
        return self.code.endswith("= delete")

    def returnsSomething(self):
        """Whether a caller gets a value from it."""
        function = self.function()
        if function is None or self.isDeleted():
            return False
        result, name = function[:2]
        return name.startswith("operator ") or result not in ("", "void")


def balancedEnd(text, at, pair):
    """The place behind the bracket that closes the first one at or behind `at`."""
    at, depth = text.index(pair[0], at), 0
    while True:
        depth += {pair[0]: 1, pair[1]: -1}.get(text[at], 0)
        at += 1
        if depth == 0:
            return at


def codeEnd(text, at):
    """The place of the ";" or "{" that ends the code of the declaration at `at`."""
    depth = 0
    while depth or text[at] not in ";{":
        if text.startswith("//", at):
            at = text.index("\n", at)
        elif text[at] in "\"'":
            at = re.compile(r"(['\"])(?:\\.|(?!\1).)*\1").match(text, at).end()
        else:
            depth += {"(": 1, "[": 1, ")": -1, "]": -1}.get(text[at], 0)
            at += 1
    return at


def bodyEnd(text, at):
    """The place behind the "}" that closes the "{" at `at`."""
    part = re.compile(r"//[^\n]*|\"(?:\\.|[^\"\\])*\"|'(?:\\.|[^'\\])*'|[{}]")
    depth = 0
    while True:
        found = part.search(text, at)
        at = found.end()
        depth += {"{": 1, "}": -1}.get(found[0], 0)
        if depth == 0:
            return at


class Reader:
    def __init__(self, file, text):
        self.file, self.text = file, text
        self.at = 0
        self.comment, self.group = [], None
        self.scopes = []  # (class or "", its code, whether public now)
        self.found = []

    def read(self):
        while self.skipped():
            pass
        while self.at < len(self.text):
            self.declaration()
            while self.skipped():
                pass
        return self.found

    def skipped(self):
        """Steps over one thing that is no declaration."""
        rest = re.compile(r"(?P<blank>[ \t]*\n)|(?P<space>[ \t]+)|(?P<doc>///.*\n)|(?P<note>//.*\n)"
                          r"|(?P<directive>#(?:.*\\\n)*.*\n)|(?P<end>\};?)"
                          r"|(?P<access>public|protected|private):"
                          r"|(?P<macro>[A-Z][A-Z0-9_]+(?:\(\w*\))?\n)").match(self.text, self.at)
        if not rest:
            return False
        atLineStart = self.at == 0 or self.text[self.at - 1] == "\n"
        self.at = rest.end()
        kind = rest.lastgroup
        if kind == "blank" and atLineStart:
            self.comment = []
        elif kind == "doc":
            self.documented(rest["doc"].rstrip())
        elif kind == "end" and self.scopes:
            self.scopes.pop()
            self.comment = []
        elif kind == "access":
            self.scopes[-1] = (*self.scopes[-1][:2], rest["access"] == "public")
        return True

    def documented(self, line):
        if line.startswith("/// @cond"):
            self.at = self.text.index("@endcond", self.at) + len("@endcond")
        elif line.startswith("/// \\name"):
            self.group = Group(line.removeprefix("/// \\name").strip(), [])
            self.comment = []
        elif line == "/// @{":
            self.group.text = self.comment
            self.comment = []
        elif line == "/// @}":
            self.group, self.comment = None, []
        elif not line.startswith("///<"):
            self.comment.append(line)

    def declaration(self):
        begin, end = self.at, codeEnd(self.text, self.at)
        code = self.text[begin:end].rstrip()
        scope, scopeCode, isPublic = self.scopes[-1] if self.scopes else ("", "", True)
        found = Declaration(self.file, self.text.count("\n", 0, begin) + 1, self.comment, code,
                            scope, scopeCode, isPublic, self.group)
        self.comment = []
        self.at = end + 1
        if self.text[end] == "{":
            if re.match(r"(inline )?namespace\b", code):
                self.scopes.append(("", "", True))
                return
            if found.isClass():
                name = CLASS.search(found.head())[1]
                self.scopes.append((name, code, not found.head().startswith("class")))
            else:
                self.at = bodyEnd(self.text, end)
                if found.function() is None:
                    self.at = self.text.index(";", self.at) + 1
        self.found.append(found)


def declarationsOf(file):
    """Every declaration of a header, private ones too."""
    with open(file, encoding="utf-8") as header:
        return Reader(str(file), header.read()).read()
