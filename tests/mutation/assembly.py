"""Finds what can be mutated in a compiler's assembly (x86-64, AT&T) and marks it.

Every instruction of a mutant stands between two labels, by which it is found again in the linked
program. Ahead of the first one a store marks the mutant's byte of the reached map: a plain move
leaves the flags alone, so the program means what it meant before.
"""

import dataclasses
import hashlib
import re
import subprocess

FLIP = re.compile(r"j(?!mp|r?cxz)[a-z]+$|set[a-z]+$|cmov[a-z]+$")
STORE = re.compile(r"mov|add|sub|adc|sbb|and|or|xor|inc|dec|neg|not|sa[lr]|sh[lr]|ro[lr]|fst")
TO_MEMORY = re.compile(r"([^\s,()]*)\(([^()]*)\)$")
MOVE_BYTES = {"movb": 1, "movw": 2, "movl": 4, "movq": 8, "movlps": 8, "movhps": 8,
              "movups": 16, "movaps": 16, "movdqu": 16, "movdqa": 16}
LITERAL = re.compile(r"^(\.LC\d+):\n((?:\t\.(?:string|ascii|zero|byte|value|long|quad)\b.*\n)+)", re.M)
OPERATOR = re.compile(r"operator(<=>|<<|>>|<=|>=|->|<|>)")


@dataclasses.dataclass
class Mutant:
    number: int
    source: str  # what is compiled, "qv/strings/core/edit.cpp"
    symbol: str  # the function that the linker knows, one copy of a template
    name: str  # the same as people read it, without parameters
    function: str  # and without template arguments
    place: int  # among the mutants of the function
    kind: str  # "flip", "store" or "call" with the name of what is called
    file: str  # where the line stands, which may be a header of the product
    line: int
    spans: int = 0  # instructions, of which a copy has several
    content: str = ""  # a hash of the function

    def label(self, span):
        return f"qv.mutant.{self.number}.{span}"


@dataclasses.dataclass
class Bytes:
    """What a run of moves writes: neighbouring bytes from one base."""

    base: str
    begin: int
    end: int

    def takes(self, other):
        if other.base != self.base or other.begin > self.end or other.end < self.begin:
            return False
        self.begin, self.end = min(self.begin, other.begin), max(self.end, other.end)
        return True


def demangled(symbols):
    """symbol -> its name as people read it, without parameters."""
    filtered = subprocess.run(["c++filt", "--no-params"], input="\n".join(symbols),
                              capture_output=True, text=True, check=True)
    return dict(zip(symbols, filtered.stdout.splitlines()))


def withoutTemplateArguments(name):
    name = name.replace("(anonymous namespace)::", "")
    operator = OPERATOR.search(name)
    end = operator.start() if operator else len(name)
    scope, own = name[:end], name[end:]
    while (shorter := re.sub(r"<[^<>]*>", "", scope)) != scope:
        scope = shorter
    return scope.split(" ")[-1] + own  # a template's name begins with its return type


def bytesWritten(operation, destination):
    """What a plain move writes; None for any other store."""
    size, place = MOVE_BYTES.get(operation), destination[1] or "0"
    if size is None or not re.fullmatch(r"-?\d+", place):
        return None
    return Bytes(destination[2], int(place), int(place) + size)


class Marker:
    """Goes through one assembly file, row by row."""

    def __init__(self, root, source, firstNumber, wanted):
        self.root, self.source = root, source
        self.firstNumber, self.wanted = firstNumber, wanted
        self.names, self.files = {}, {}
        self.symbol = self.name = self.function = None  # of a function that is wanted
        self.file = self.line = None
        self.copy = None  # the mutant and the bytes of the copy that may go on
        self.mutants, self.rows = [], []
        self.body, self.begin = [], 0  # rows and first mutant of the function
        self.literals = {}

    def mark(self, text):
        self.literals = dict(LITERAL.findall(text))
        self.names = demangled(re.findall(r"^\t(?:\.type|call)\t([\w.]+)", text, re.M))
        for row in text.splitlines():
            self.body.append(row)
            if found := re.match(r"([^\s:]+):", row):
                self.passLabel(found[1])
            elif found := re.match(r"\t\.file (\d+) (.*)", row):
                self.files[found[1]] = "/".join(re.findall('"([^"]*)"', found[2]))
            elif found := re.match(r"\t\.loc (\d+) (\d+)", row):
                self.passLine(self.files[found[1]], int(found[2]))
            elif self.symbol and (found := re.match(r"\t([a-z]\w*)(?:\s+(.*))?$", row)):
                self.passInstruction(found[1], found[2] or "", row)
                continue
            self.rows.append(row)
        self.endFunction()
        return "\n".join(self.rows) + "\n"

    def endFunction(self):
        """Gives all mutants of the function the hash of what it is compiled to: instructions,
        tables and literals, whatever numbers the labels have."""
        if self.begin < len(self.mutants):
            numbers, told = {}, [self.symbol]

            def numbered(label):
                literal = self.literals.get(label[0])
                return literal or f".{numbers.setdefault(label[0], len(numbers))}"
            for row in self.body:
                if re.match(r"\t[a-z]|\t\.(?:long|quad)\t|\.L\d+:", row):
                    told.append(re.sub(r"\.LC?\d+\b", numbered, row))
            content = hashlib.sha256("\n".join(told).encode()).hexdigest()[:8]
            for mutant in self.mutants[self.begin:]:
                mutant.content = content
        self.body, self.begin = [], len(self.mutants)

    def passLabel(self, label):
        if not label.startswith(".L") and label in self.names:
            self.endFunction()
            name = self.name = self.names[label]
            self.symbol = label if self.wanted(name) else None
            self.function = withoutTemplateArguments(name)
        if not re.match(r"\.L[A-Z]", label):  # those only carry line numbers
            self.copy = None

    def passLine(self, file, line):
        if not file.startswith(self.root):
            return  # what the C++ library's headers bring in belongs to the line that asked for it
        if (file, line) != (self.file, self.line):
            self.copy = None
        self.file, self.line = file, line

    def passInstruction(self, operation, operands, row):
        destination = TO_MEMORY.search(operands)
        if FLIP.match(operation):
            self.span(self.mutant("flip"), row)
        elif operation == "call":
            self.span(self.mutant(f"call {self.callee(operands)}"), row)
        elif operation == "rep" and operands.startswith(("movs", "stos")):
            self.span(self.mutant("store"), row)
        elif destination and STORE.match(operation):
            self.passStore(bytesWritten(operation, destination), row)
        else:
            self.rows.append(row)
        if operation[0] == "j" or operation == "call":
            self.copy = None

    def callee(self, operands):
        symbol = re.sub("@.*", "", operands)
        return withoutTemplateArguments(self.names.get(symbol, symbol))

    def passStore(self, written, row):
        """A copy of many bytes is many moves: they go together, as they stand in the source."""
        if written and self.copy and self.copy[1].takes(written):
            self.span(self.copy[0], row)
            return
        mutant = self.mutant("store")
        self.span(mutant, row)
        self.copy = written and (mutant, written)

    def mutant(self, kind):
        mutant = Mutant(self.firstNumber + len(self.mutants), self.source, self.symbol,
                        self.name, self.function, len(self.mutants) - self.begin, kind, self.file,
                        self.line)
        self.mutants.append(mutant)
        self.rows.append(f"\tmovb\t$1, qvReached+{mutant.number}(%rip)")
        return mutant

    def span(self, mutant, row):
        label = mutant.label(mutant.spans)
        mutant.spans += 1
        self.rows += [f"{label}:", row, f"{label}.end:"]
