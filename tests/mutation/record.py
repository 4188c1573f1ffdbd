"""The record of all mutants, results.txt: which test kills each, or why none can.

A line is one mutant, in fields parted by tabs:

    SOURCE  FUNCTION  PLACE  KIND  FILE: SOURCE LINE  CONTENT  VERDICT

PLACE counts the mutants of the function, CONTENT is a hash of the function's assembly. So a line
holds until what the function is compiled to changes; a comment or a name changes nothing. VERDICT:

    killed by PROGRAM TEST HASH   holds until the text of that test changes; where no test is named,
                                  the program fell as a whole
    survived: REASON              no test can tell it from the original
    survived                      that reason or a test is still owed
    was: REASON                   the function has changed since, and the mutant has to be tried again
    idle                          for all mutants of a function: the linker drops it, or no test
                                  comes by this copy of a template
"""

import collections
import dataclasses
import functools
import hashlib
import pathlib
import re

from assembly import withoutTemplateArguments

FOLDER = pathlib.Path(__file__).resolve().parent
TESTS = FOLDER.parent
ROOT = TESTS.parent
FILE = FOLDER / "results.txt"
NONE = "-"  # in the fields that an idle function has not


def hashOf(text):
    return hashlib.sha256(text.encode()).hexdigest()[:8]


@dataclasses.dataclass(frozen=True)
class Row:
    source: str
    function: str
    place: str
    kind: str
    line: str
    content: str
    verdict: str

    @property
    def key(self):
        return self.source, self.function, self.content, self.place

    @property
    def isKilled(self):
        return self.verdict.startswith("killed by ")

    @property
    def isIdle(self):
        return self.verdict == "idle"

    @property
    def isUnexplained(self):
        return self.verdict == "survived"

    @property
    def isExplained(self):
        return self.verdict.startswith("survived: ")

    @property
    def isPast(self):
        return self.verdict.startswith("was: ")

    @property
    def reason(self):
        return self.verdict.partition(": ")[2]


@functools.cache
def linesOf(file):
    return pathlib.Path(file).read_text().splitlines()


def lineOf(mutant):
    text = " ".join(linesOf(mutant.file)[mutant.line - 1].split())
    return f"{pathlib.Path(mutant.file).relative_to(ROOT)}: {text}"


def rowOf(mutant, verdict):
    return Row(mutant.source, mutant.name, f"{mutant.place:03}", mutant.kind, lineOf(mutant),
               mutant.content, verdict)


def idleRow(mutant):
    return Row(mutant.source, mutant.name, NONE, NONE, NONE, mutant.content, "idle")


def meaning(row):
    """What a survivor is, wherever its function is compiled: a reason holds for all of these."""
    return withoutTemplateArguments(row.function), row.kind, row.line


@functools.cache
def bodies():
    """SUITE.NAME of each test -> its text."""
    found = collections.defaultdict(str)
    pattern = re.compile(r"^(?:TYPED_)?TEST(?:_F|_P)?\((\w+),\s*(\w+)\)(.*?)^}", re.M | re.S)
    for file in sorted(TESTS.rglob("*")):
        if file.suffix in (".cpp", ".h"):
            for suite, name, body in pattern.findall(file.read_text()):
                found[f"{suite}.{name}"] += body
    return found


def namesOf(test):
    """As which the text may name it: a test is told as PREFIX/SUITE/TYPE.NAME/PARAMETER."""
    suite, _, name = test.partition(".")
    return [f"{part}.{name.partition('/')[0]}" for part in suite.split("/")]


@functools.cache
def testHash(program, test):
    """Of the test's text; of a program that has no tests by name, of its source."""
    for name in namesOf(test):
        if name in bodies():
            return hashOf(bodies()[name])
    stem = program.removesuffix("Replay") + "Fuzz" if program.endswith("Replay") else program
    return hashOf("".join(file.read_text() for suffix in ("cpp", "sh")
                          for file in sorted(TESTS.rglob(f"{stem}.{suffix}"))))


def killedBy(program, test):
    return f"killed by {program} {test} {testHash(program, test)}"


def holds(row):
    """Whether the test that killed is still the same."""
    if not row.isKilled:
        return True
    program, test, known = row.verdict.split()[2:]
    return testHash(program, test) == known


def isThere(row):
    """Whether the test that killed is there, changed or not."""
    if not row.isKilled:
        return True
    test = row.verdict.split()[3]
    return test == "*" or any(name in bodies() for name in namesOf(test))


class Record:
    def __init__(self):
        lines = FILE.read_text().splitlines() if FILE.exists() else []
        told = [line for line in lines if not line.startswith("#")]
        self.isSorted = told == sorted(told)
        self.rows = {}
        for number, line in enumerate(lines, 1):
            if line.startswith("#"):
                continue
            fields = line.split("\t")
            if len(fields) != 7:
                raise SystemExit(f"{FILE.name}:{number}: not seven fields")
            row = Row(*fields)
            if row.key in self.rows:
                raise SystemExit(f"{FILE.name}:{number}: told twice")
            self.rows[row.key] = row
        self.reasons, self.most = {}, collections.Counter()
        alike = collections.Counter()
        for row in self.rows.values():
            if row.isExplained or row.isPast:
                self.reasons[meaning(row)] = row.reason
                alike[meaning(row), row.source, row.function, row.content] += 1
        for (what, *_), count in alike.items():
            self.most[what] = max(self.most[what], count)

    def of(self, mutant):
        """The row of a mutant, None where it has to be tried."""
        row = self.rows.get((mutant.source, mutant.name, mutant.content, f"{mutant.place:03}"),
                            self.rows.get((mutant.source, mutant.name, mutant.content, NONE)))
        return row if row and holds(row) and not row.isPast else None

    def put(self, row):
        """Adds what came of a trial. A survivor takes the reason over that one like it had, of as
        many of a function as have it already."""
        if row.isUnexplained and (reason := self.reasons.get(meaning(row))):
            taken = sum(1 for other in self.rows.values() if other.isExplained and
                        other.key != row.key and meaning(other) == meaning(row) and
                        other.key[:3] == row.key[:3])
            if taken < self.most[meaning(row)]:
                row = dataclasses.replace(row, verdict=f"survived: {reason}")
        self.rows[row.key] = row

    def known(self, mutants):
        """How many mutants have no row, and how many one that has outlived its function or test."""
        functions = {(row.source, row.function) for row in self.rows.values()}
        owed = [mutant for mutant in mutants if self.of(mutant) is None]
        stale = sum((mutant.source, mutant.name) in functions for mutant in owed)
        return len(owed) - stale, stale

    def sources(self):
        return {row.source for row in self.rows.values()}

    def keepOnly(self, mutants, sources):
        """Forgets what is no mutant of these sources any more, but for the reasons that a function
        had which still has to be tried."""
        keys = {(mutant.source, mutant.name, mutant.content) for mutant in mutants}
        waiting = {mutant.function for mutant in mutants if self.of(mutant) is None}
        for key, row in list(self.rows.items()):
            if row.source not in sources or key[:3] in keys:
                continue
            del self.rows[key]
            if (row.isExplained or row.isPast) and meaning(row)[0] in waiting:
                self.rows[key] = dataclasses.replace(row, verdict=f"was: {row.reason}")

    def write(self):
        told = [f"# {line}".rstrip() for line in __doc__.splitlines()]
        rows = sorted("\t".join(dataclasses.astuple(row)) for row in self.rows.values())
        beside = FILE.with_suffix(".new")
        beside.write_text("\n".join([*told, *rows]) + "\n")
        beside.replace(FILE)
