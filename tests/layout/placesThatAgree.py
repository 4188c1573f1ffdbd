#!/usr/bin/env python3
"""Holds the tables of CONTRIBUTING.md, which say where a new word, member, capacity or outcome has to
stand, to the tree.

- Each file of a table holds its whole set, as the source of that set has it.
- No other tracked file but the record of mutants holds a whole set: a new copy is a new row.
- A made-up addition to a source is missed in each file of its set. Of the capacities this is as
  much as can be said: another new number may be in a file already, as a size.
- The tests that the tables name are there.

usage: placesThatAgree.py SOURCE_FOLDER
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "model"))
import rowsCoverMembers  # noqa: E402
import stringPages  # noqa: E402 found by the one above

ROW = re.compile(r"^\| `([^`]+)` \| ([^|]+) \| ([^|]*)\|$", re.M)


def words(texts):
    return set(re.findall(r'^    \{"(\w+)",', texts["sender/commandTable.cpp"], re.M))


def usage_words(texts):
    silent = re.findall(r'^    \{"(\w+)", nullptr,', texts["sender/commandTable.cpp"], re.M)
    return words(texts) - set(silent)


def code_names(texts):
    return set(re.findall(r'^    "(.+?)",', texts["qv/client/qvClientCommandName.cpp"], re.M))


def members(of):
    """The names of the public members of some strings, those left out that are no word."""
    def read(texts):
        with tempfile.TemporaryDirectory() as folder:
            for path, text in texts.items():
                if re.fullmatch(r"qv/strings/\w+\.h", path):
                    (pathlib.Path(folder) / pathlib.Path(path).name).write_text(text)
            stringPages.STRINGS = pathlib.Path(folder)
            stringPages.declarations.cache_clear()
            found = {member for name in of for _, member, _ in rowsCoverMembers.members(name)}
        return {member for member in found if re.fullmatch(r"(?!operator)\w+", member)}
    return read


def capacities(header, macro):
    def read(texts):
        body = re.search(rf"#define {macro}\(DO\)(.*?)\n\n", texts[f"qv/strings/{header}"], re.S)[1]
        return set(re.findall(r"\bDO\((\d+)\)", body))
    return read


def both(texts):
    return SETS["8-bit capacities"](texts) | SETS["16-bit capacities"](texts)


def outcomes(texts):
    return set(re.findall(r'^    \{"(\w+)", \d, ', texts["sender/outcome.cpp"], re.M))


def verdicts(texts):
    return set(re.findall(r'^    \{MailboxProblem::\w+, "(\w+)",', texts["viewer/mailboxVerdict.cpp"],
                          re.M))


STRINGS_16 = [name for name, unit in rowsCoverMembers.STRINGS.items() if unit != "char"]
STRINGS_8 = [name for name in rowsCoverMembers.STRINGS if name not in STRINGS_16]

SETS = {
    "words": words,
    "words of the usage text": usage_words,
    "names of the command codes": code_names,
    "members": members(rowsCoverMembers.STRINGS),
    "members of the 8-bit strings": members(STRINGS_8),
    "members of the 16-bit strings": members(STRINGS_16),
    "8-bit capacities": capacities("capacities8.h", "QV_STRING8_CAPACITIES"),
    "16-bit capacities": capacities("capacities16.h", "QV_STRING16_CAPACITIES"),
    "both": both,
    "outcomes": outcomes,
    "verdicts of the viewer": verdicts,
}

# What is added to a source, and the sets that grow by it. The source itself is not missed then.
ADDITIONS = [
    ("sender/commandTable.cpp", "constexpr Command commands[] = {\n",
     '    {"madeUp", "MadeUp", {ClientMessageType::command, 99}},\n',
     ("words", "words of the usage text")),
    ("qv/client/qvClientCommandName.cpp", '    "None", // 0\n', '    "Made up",\n',
     ("names of the command codes",)),
    ("qv/strings/members.h", "    /// \\name Append\n", "    void madeUp() {}\n",
     ("members", "members of the 8-bit strings", "members of the 16-bit strings")),
    ("qv/strings/capacities8.h", "#define QV_STRING8_CAPACITIES(DO)", " DO(4999)",
     ("8-bit capacities", "both")),
    ("qv/strings/capacities16.h", "#define QV_STRING16_CAPACITIES(DO)", " DO(4999)",
     ("16-bit capacities", "both")),
    ("sender/outcome.cpp", "constexpr OutcomeRow rows[] = {\n", '    {"madeUp", 9, "made up"},\n',
     ("outcomes",)),
    ("viewer/mailboxVerdict.cpp", '"A client is attached, and its queue has room.", "",',
     '}}, \n    {MailboxProblem::madeUp, "madeUp",', ("verdicts of the viewer",)),
]


RECORD = "tests/mutation/results.txt"  # names all that was tried; nobody adds to it by hand


class Places:
    """The tables, and what the files of the tree hold."""

    def __init__(self, root):
        tracked = subprocess.run(["git", "-C", root, "ls-files", "-z"], check=True,
                                 capture_output=True, text=True).stdout.split("\0")
        self.texts = {}
        for path in filter(None, tracked):
            try:
                self.texts[path] = (pathlib.Path(root) / path).read_text(encoding="utf-8")
            except (UnicodeDecodeError, FileNotFoundError, IsADirectoryError):
                pass  # no text, or a link
        self.tokens = {path: set(re.findall(r"\w+", text.lower()))
                       for path, text in self.texts.items()}
        guide = self.texts["CONTRIBUTING.md"]
        self.tests = set(re.findall(r"`(\w+)`", " ".join(row[2] for row in ROW.findall(guide))))
        self.tables = [[(file, kind) for file, kind, _ in ROW.findall(section)]
                       for section in re.split(r"^### ", guide, flags=re.M)[1:]]

    def missing(self, path, wanted):
        return {each for each in wanted if each.lower() not in self.tokens[path] and
                (re.fullmatch(r"\w+", each) or each not in self.texts[path])}

    def mistakes(self):
        for table in self.tables:
            files = {file for file, _ in table}
            for kind in {kind for _, kind in table}:
                wanted = SETS[kind](self.texts)
                if len(wanted) < 10:
                    yield f"only {len(wanted)} {kind} were read"
                for path in self.texts.keys() - files - {RECORD}:
                    if not self.missing(path, wanted):
                        yield f"{path}: holds all {kind}, and CONTRIBUTING.md does not name it"
            for file, kind in table:
                if file not in self.texts:
                    yield f"{file}: named in CONTRIBUTING.md, not in the tree"
                    continue
                for each in sorted(self.missing(file, SETS[kind](self.texts))):
                    yield f"{file}: lacks {each} of the {kind}"

    def missed_additions(self):
        """A made-up addition that a file of its set would not be told to take."""
        for source, behind, added, kinds in ADDITIONS:
            text = self.texts[source]
            if behind not in text:
                yield f"{source}: no place for an addition"
                continue
            grown = {**self.texts, source: text.replace(behind, behind + added, 1)}
            for table in self.tables:
                for file, kind in table:
                    if kind in kinds and file != source and \
                            not self.missing(file, SETS[kind](grown) - SETS[kind](self.texts)):
                        yield f"{file}: would not miss a new one of the {kind}"

    def unknown_tests(self):
        lists = "\n".join(text for path, text in self.texts.items() if path.startswith("tests/") and
                          path.endswith("CMakeLists.txt"))
        named = set(re.findall(r"(?:add_test\(NAME|qv_test\()\s*(\w+)", lists))
        named |= {f"{name}Replay" for name in re.findall(r"qv_fuzz\((\w+)", lists)}
        named |= set(re.findall(r"\b\w+Test\b", lists))
        return [f"CONTRIBUTING.md: no test {name}" for name in sorted(self.tests - named)]


def main():
    root, = sys.argv[1:]
    if not shutil.which("git") or not (pathlib.Path(root) / ".git").exists():
        print("not a checkout: nothing tells which files are tracked")
        return 77
    places = Places(root)
    found = [*places.mistakes(), *places.missed_additions(), *places.unknown_tests()]
    if {kind for table in places.tables for _, kind in table} != SETS.keys():
        found.append("CONTRIBUTING.md: not every set has its rows")
    print("\n".join(found))
    return len(found) != 0


sys.exit(main())
