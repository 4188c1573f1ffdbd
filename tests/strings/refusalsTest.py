#!/usr/bin/env python3
"""What the string headers refuse is refused with a first line that says what to do instead, by each
of our compilers; what fits one of several members is still taken by it.

usage: refusalsTest.py SOURCE_FOLDER
"""
import itertools
import os
import re
import subprocess
import sys

UNIT = """
#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"

struct Fields { unsigned short narrow : 3; unsigned bits : 3; long long wide : 40; };
enum Plain { plain };
enum Small : unsigned char { small };
enum Wide : long long { wide };
enum WideUnsigned : unsigned long long { wideUnsigned };
struct Int { operator int() const; };
struct LongLong { operator long long() const; };

template <typename String, typename Number>
concept Takes = requires(String& s, Number number) { s.addNr(number); };

void call([[maybe_unused]] _qvString8_allSize<25>& s, [[maybe_unused]] _qvString<25>& w,
          [[maybe_unused]] _qvString8_evenSize_old<50>& even, [[maybe_unused]] _qvString_old<25>& old,
          [[maybe_unused]] Fields fields, [[maybe_unused]] unsigned long number)
{
STATEMENTS
}
"""

CAPACITIES_8 = ("8-bit strings exist for these capacities only: 6 7 8 10 12 14 15 20 25 29 30 40 50"
                " 75 100 125 150 200 250 500 1000 2000 3000 5000")
CAPACITIES_16 = ("16-bit strings exist for these capacities only: 10 15 25 30 48 50 75 100 125 150"
                 " 200 225 250 500 1000 2500")
ALIAS = "qvStrings::CastToLongLongOrUnsignedLongLong"
ALIAS_OF_FIELD = "qvStrings::CastToLongLong"
ALIAS_HEX = "qvStrings::CastToIntOrUnsignedInt"


def capacity(header, width, given, said):
    tests = f" || qvStrings::isTestCapacity16<{given}>" if width == 16 else ""
    return (f"qv/strings/{header}: error: static assertion failed: {said}",
            f"qv/strings/{header}: error: static_assert failed due to requirement "
            f"'qvStrings::isCapacity{width}({given}){tests}' \"{said}\"")


def number(string, member, alias, rest=""):
    return (f"<stdin>: error: use of deleted function 'void {string}<N>::{member}({alias}&&{rest}) "
            f"[with int N = 25; {alias} = long double]'",
            f"<stdin>: error: call to deleted member function '{member}'")


ADD_NR = number("_qvString8_allSize", "addNr", ALIAS)
ADD_NR_WIDTH = number("_qvString8_allSize", "addNr", ALIAS_OF_FIELD, ", const unsigned char&")
ADD_NR_16 = number("_qvString", "addNr", ALIAS)
ADD_HEX = number("_qvString8_allSize", "addHexCode", ALIAS_HEX)

# A statement, and the first lines that say of it what is wrong: of g++, of clang.
REFUSED = [
    ("_qvString8_allSize<64> t", capacity("qvString8.h", 8, 64, CAPACITIES_8)),
    ("_qvString8_allSize<0> t", capacity("qvString8.h", 8, 0, CAPACITIES_8)),
    ("_qvString8_evenSize_old<64> t", capacity("qvString8_old.h", 8, 64, CAPACITIES_8)),
    ("_qvString8_UnevenSize_old<9> t", capacity("qvString8_old.h", 8, 9, CAPACITIES_8)),
    ("_qvString<20> t", capacity("qvString.h", 16, 20, CAPACITIES_16)),
    ("_qvString_old<5000> t", capacity("qvString_old.h", 16, 5000, CAPACITIES_16)),
    ("s.addNr(number)", ADD_NR),
    ("s.addNr(5ul)", ADD_NR),
    ("s.addNr(5l)", ADD_NR),
    ("s.addNr(5u)", ADD_NR),
    ("s.addNr(5.0)", ADD_NR),
    ("s.addNr(sizeof s, 4)", ADD_NR_WIDTH),
    ("s.addNr(5u, 4)", ADD_NR_WIDTH),
    ("s.addHexCode(number)", ADD_HEX),
    ("s.addHexCode(5ll)", ADD_HEX),
    ("w.addNr(number)", ADD_NR_16),
    ("w.addNr(5l)", ADD_NR_16),
]

TAKEN = [
    "s = nullptr; even = nullptr; old.addNr(number); w.addNr(number, 4)",
    "s.addNr(5); s.addNr(5ll); s.addNr(5ull); s.addNr(5, 4); s.addNr(5ll, 4)",
    "s.addNr('a'); s.addNr(true); s.addNr(u'a'); s.addNr(L'a'); s.addNr(short{5}, 4)",
    "s.addNr(fields.narrow); s.addNr(fields.wide)",
    "s.addNr(plain == small); s.addNr(small); s.addNr(wide); s.addNr(wideUnsigned); s.addNr(wide, 4)",
    "s.addNr(Int{}); s.addNr(LongLong{}); w.addNr(Int{}); s.addHexCode(Int{})",
    "s.addHexCode('a'); s.addHexCode(5); s.addHexCode(5u); s.addHexCode(short{5}); s.addHexCode(u'a')",
    "s.addHexCode(fields.narrow); s.addHexCode(small)",
    "w.addNr(5); w.addNr(5u); w.addNr(5ll); w.addNr(5ull); w.addNr('a'); w.addNr(fields.narrow)",
    "static_assert(Takes<_qvString8_allSize<25>, int> && !Takes<_qvString8_allSize<25>, long>)",
]

# Bit-fields of unsigned are an int to the language, but not to g++ beside an overload for it.
TAKEN_BY_CLANG = ["s.addNr(fields.bits)", "s.addNr(fields.bits, 4)"]


def errors(compiler, source, statements):
    """What the compiler says of a unit with these statements: a line for each error, without its
    place in the file."""
    unit = UNIT.replace("STATEMENTS", "\n".join(f"    {{ {each}; }}" for each in statements))
    run = subprocess.run([compiler, "-std=c++20", "-fsyntax-only", "-I.", "-x", "c++", "-"],
                         input=unit, cwd=source, text=True, capture_output=True,
                         env={**os.environ, "LC_ALL": "C"})
    found = re.findall(r"^(?:\./)?(\S+?):\d+:\d+: ((?:fatal )?error: .*)$", run.stderr, re.M)
    return [f"{file}: {line}" for file, line in found] or [run.stderr] * (run.returncode != 0)


def main():
    source, = sys.argv[1:]
    mistakes = 0
    for at, (compiler, taken) in enumerate((("g++", TAKEN), ("clang++", TAKEN + TAKEN_BY_CLANG))):
        refused = [(statement, lines[at]) for statement, lines in REFUSED]
        said = errors(compiler, source, [statement for statement, _ in refused])
        for (statement, line), got in itertools.zip_longest(refused, said, fillvalue=("", "")):
            if got != line:
                print(f"{compiler}: {statement}\n  said     {got}\n  expected {line}")
                mistakes += 1
        for got in errors(compiler, source, taken):
            print(f"{compiler}: refuses what has to be taken: {got}")
            mistakes += 1
    return mistakes != 0


sys.exit(main())
