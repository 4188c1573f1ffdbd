"""Builds the programs that are mutated: the product's sources as marked assembly, linked with the
test objects of a build that is there."""

import dataclasses
import pathlib
import re

from assembly import Marker
from build import run

FOLDER = pathlib.Path(__file__).resolve().parent
ROOT = FOLDER.parent.parent
PRODUCT = ("sender", "qv")
COPIES = "sender/workingText.cpp"  # of what qvString8.cpp holds, for the tool
TOOL = "qvNodeDispatch"
TOOLS_LIBRARY = "qvMusl.dir/"  # what the tool links of the library, compiled for its C library
STATUS = "qvNodeDispatchStatus"  # its tests are scripts, which are given its path

# Unlike the release build's -O3 this keeps the branches of the source one by one, and what the
# source fills or copies at once in one run of moves or one call. Later options override earlier.
OPTIONS = ("-O1", "-g1", "-w", "-fPIE", "-fno-exceptions", "-fno-rtti", "-fno-tree-vectorize",
           # Copies of a function in its callers are one function here.
           "-Dalways_inline=noinline",
           "-mmemcpy-strategy=libcall:-1:noalign", "-mmemset-strategy=libcall:-1:noalign",
           # The release's hardening is the compiler's own: its branches are no mutants.
           "-fno-stack-protector", "-fno-stack-clash-protection", "-fcf-protection=none",
           "-U_FORTIFY_SOURCE")

# The capacities of a template are copies of each other. These few are taken: the smallest image of
# either parity and the one that most programs use; of the older ones an even and an odd one.
CAPACITIES = {
    "qv/strings/qvString8.cpp": (7, 8, 250),
    "qv/strings/qvString8_old.cpp": (8, 15),
    "qv/strings/qvString.cpp": (10, 250),
    "qv/strings/qvString_old.cpp": (10,),
}

# The strings' own tests judge the strings' mutants; all other programs use some strings too, and
# would take minutes for each mutant that these let live. Of their tests these are asked: every one
# but those that go through thousands of values at capacities that are copies, or through all pairs of
# bytes in every image, where the drivers meet the same instructions in a tenth of the time.
STRINGS = "qv/strings/"
STRING_TESTS = {
    "alikeTextTest": "*",
    "contractTest": "*",
    "conversionsTest": "*",
    "damagedLengthTest": "*",
    "damagedRecords": "*",
    "layoutTest": "*",
    "legacy8Test": "*",
    "legacy16Test": "*",
    "members8Test": "*",
    "members16Test": "-Fold16/*.throughTheMembers*",
    "string8DifferentialTest": "-String8Images.*:*/current6:*14:*/current15:*/evenOld6:*Old250",
    "string16DifferentialTest": "-String16Images.*:*15:*48:*/old250",
    "stringTest": "-EditBytes.everyPairOfBytes*",
}


@dataclasses.dataclass
class Program:
    name: str
    image: pathlib.Path  # the file that holds the mutants
    command: list  # run in the folder of a copy of the image
    seconds: float = 0  # of a run without a mutant
    limit: float = 60  # of a run with one, by the clock and of the processor's time
    cpuLimit: float = 60
    reached: set = dataclasses.field(default_factory=set)  # numbers of mutants

    def judges(self, mutant):
        return not mutant.source.startswith(STRINGS) or self.name in STRING_TESTS

    @property
    def tests(self):
        """The filter of the tests that are asked."""
        return STRING_TESTS.get(self.name, "*")

    def expect(self, seconds, cpu):
        self.seconds = seconds
        self.limit = max(20, 10 * seconds)
        self.cpuLimit = 1 + 4 * cpu


def sourceOf(compilation):
    """The path of a source of the product from the root, None for other sources."""
    if not compilation.file.is_relative_to(ROOT):
        return None
    source = compilation.file.relative_to(ROOT)
    return str(source) if source.parts[0] in PRODUCT and str(source) != COPIES else None


def kindsOf(mutants):
    """The kinds, without the names that glibc gives to calls of a later standard."""
    return [re.sub("__isoc99_|__xpg_", "", mutant.kind) for mutant in mutants]


def wantedIn(source):
    """Chooses the product's functions, and of a class's copies those of some capacities."""
    def wanted(name):
        capacity = re.search(r"<(\d+)>", name)  # the first one in a member's name is its class's
        if capacity and source in CAPACITIES and int(capacity[1]) not in CAPACITIES[source]:
            return False
        return not re.match(r"([\w ]+ )?std::", name)
    return wanted


class Builder:
    def __init__(self, build, folder, pool):
        self.build, self.folder, self.pool = build, folder, pool
        self.mutants = []
        self.sources = set()  # that are marked
        self.ours = {}  # object or archive of the build -> ours

    def programs(self, names):
        """All test programs, or those of these names."""
        commands = [command for command in self.build.testCommands()
                    if not names or pathlib.Path(command[0]).name in names]
        self.reached = self.folder / "reached.o"
        run(["g++", "-std=c++20", "-O1", "-fPIE", f"-DQV_MUTANTS={len(self.mutants)}", "-c",
             str(FOLDER / "reached.cpp"), "-o", str(self.reached)])
        targets = [str(pathlib.Path(command[0]).relative_to(self.build.folder))
                   for command in commands]
        steps = [self.build.linkStep(target) for target in targets]
        tools = [self.build.linkStep(target) for target in (TOOL, STATUS)]
        linked = sorted({word for step in [*tools, *steps] for word in step})
        self.testsOfTool = self.compileTestsOfTool(linked)
        for archive in linked:
            if archive.endswith(".a") and not archive.startswith("/"):
                self.pack(archive)
        for tool in tools:
            self.link(tool, self.ours)
        scripts = [self.script(*test) for test in self.build.shellTests(STATUS)
                   if not names or test[0] in names]
        return [*self.pool.map(self.program, commands, steps), *scripts]

    def script(self, name, command):
        path = str(self.build.folder / STATUS)
        return Program(name, self.folder / STATUS,
                       [f"./{STATUS}" if word == path else word for word in command])

    def markProduct(self, begins):
        """Marks the sources whose path begins so; the others stay as the build has compiled them."""
        found = [compilation for compilation in self.build.compilations
                 if (sourceOf(compilation) or "").startswith(begins) and sourceOf(compilation)]
        texts = self.pool.map(
            lambda compilation: compilation.run(*OPTIONS, "-S", "-o", "-"), found)
        first = {}  # source -> number of its first mutant
        for compilation, text in zip(found, texts):
            source = sourceOf(compilation)
            self.sources.add(source)
            number = first.setdefault(source, len(self.mutants))
            marker, marked = self.mark(source, number, text)
            known = self.mutants[number:number + len(marker.mutants)]
            if number != len(self.mutants) and kindsOf(marker.mutants) != kindsOf(known):
                # A source may know what the C library of the tool lacks.
                if TOOLS_LIBRARY not in compilation.output:
                    raise SystemExit(f"mutate: {source} is compiled twice, in different ways")
                number = len(self.mutants)
                marker, marked = self.mark(source, number, text)
            if number == len(self.mutants):
                self.mutants += marker.mutants
            output = self.file(".o")
            run(["as", "-o", str(output)], input=marked)
            self.ours[compilation.output] = output

    def mark(self, source, number, text):
        marker = Marker(f"{ROOT}/", source, number, wantedIn(source))
        return marker, marker.mark(text)

    def compileTestsOfTool(self, linked):
        """Tests that start the tool: ours start the one in their working directory."""
        tests = {}
        for compilation in self.build.compilations:
            if compilation.output not in linked or not any(
                    word.startswith("-DQV_TOOL_PATH=") for word in compilation.words):
                continue
            tests[compilation.output] = self.file(".o")
            compilation.run("-UQV_TOOL_PATH", f'-DQV_TOOL_PATH="./{TOOL}"', "-c", "-o",
                            str(tests[compilation.output]))
        return tests

    def file(self, suffix):
        return self.folder / f"{len(list(self.folder.iterdir()))}{suffix}"

    def pack(self, archive):
        members = self.build.members(archive)
        if self.ours.keys().isdisjoint(members):
            return
        self.ours[archive] = self.file(".a")
        run(["ar", "rcs", str(self.ours[archive]),
             *(str(self.ours.get(member, member)) for member in members)], cwd=self.build.folder)

    def link(self, step, replaced):
        words = [str(replaced.get(word, word)) for word in step]
        at = words.index("-o") + 1
        image = self.folder / pathlib.Path(words[at]).name
        words[at] = str(image)
        words.insert(at + 1, str(self.reached))  # ahead of the libraries that it asks
        run(words, cwd=self.build.folder)
        return image

    def program(self, command, step):
        name = pathlib.Path(command[0]).name
        if self.testsOfTool.keys().isdisjoint(step):
            image = self.link(step, self.ours)
            return Program(name, image, [f"./{image.name}", *command[1:]])
        # Here the tool is mutated, and the test keeps the library as it is.
        test = self.link(step, self.testsOfTool)
        return Program(name, self.folder / TOOL, [str(test), *command[1:]])
