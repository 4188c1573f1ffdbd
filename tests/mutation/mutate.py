#!/usr/bin/env python3
"""Breaks the product in one place at a time and sees whether a test notices.

What came of each mutant is kept in results.txt (record.py), and only what that doesn't tell is tried.
The exit status is 0 if nothing is owed, 97 % were killed, and every survivor has its reason.
"""

import argparse
import collections
import concurrent.futures
import math
import pathlib
import queue
import resource
import shutil
import sys
import threading
import time

import record
from build import Build
from programs import Builder, CAPACITIES, ROOT, STRINGS, STRING_TESTS
from trial import Bench, Image

LEAST_PERCENT = 97
MOST_MEMORY = 4 << 30  # of one run
MOST_OUTPUT = 1 << 28
MOST_KILLERS = 4  # of a function that are asked ahead of whole programs
MOST_NEIGHBOURS = 8  # that one job tries, one after the other
TRIES_UNHARMED = 3  # where the machine is busy a test of time may fail
PAGE = 4096
SECONDS_BETWEEN_REPORTS = 30


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build/release",
                        help="a build with tests, only read (default build/release)")
    parser.add_argument("--folder", type=pathlib.Path, default=ROOT / "build/mutation",
                        help="where ours is built, made anew (default build/mutation)")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--source", nargs="+", default=[""],
                        help="only sources whose path begins so")
    parser.add_argument("--programs", nargs="+", default=[], metavar="NAME",
                        help="ask only these test programs, and keep only what they kill")
    parser.add_argument("--minutes", type=float, default=math.inf,
                        help="stop after so many; the next run goes on from there")
    parser.add_argument("--check", action="store_true",
                        help="try nothing, say what the record owes")
    parser.add_argument("--as-filed", dest="asFiled", action="store_true",
                        help="the same of the record by itself, which takes no build")
    return parser.parse_args()


def say(what):
    print(f"{time.strftime('%H:%M:%S')} {what}", flush=True)


def measure(program, image, mutants, folder):
    """The program unharmed: it has to pass, and tells its time and the mutants it comes by."""
    bench = Bench(folder / f"{program.name}Alone")
    reachedMap = bench.folder / "reached.map"
    reachedMap.write_bytes(bytes((len(mutants) // PAGE + 1) * PAGE))
    for _ in range(TRIES_UNHARMED):
        ended = bench.run(program, image, test=program.tests)
        if ended.passed:
            break
        say(f"{program.name} fails without a mutant")
    else:
        raise SystemExit(f"mutate: {program.name} fails each time")
    program.expect(ended.seconds, ended.cpu)
    reached = reachedMap.read_bytes()
    program.reached = {mutant.number for mutant in mutants
                       if reached[mutant.number] and program.judges(mutant)}
    shutil.rmtree(bench.folder)


def idleIn(mutants, images, programs):
    """The functions that the linker leaves out, a second copy or one that nobody calls, and those
    of template copies that no program comes by: the compiler wrote them out because a class is
    instantiated whole, and put what they do into their callers."""
    reached = set().union(*(program.reached for program in programs))
    linked = {function(mutant) for mutant in mutants
              if any(image.holds(mutant) for image in images.values())}
    running = {function(mutant) for mutant in mutants if mutant.number in reached}
    return {function(mutant): mutant for mutant in mutants if function(mutant) not in linked or
            mutant.source in CAPACITIES and function(mutant) not in running}


def function(mutant):
    return mutant.source, mutant.symbol


def byFunction(mutants):
    """Lists of neighbours, long ones first so that no job is left alone with one at the end."""
    functions = collections.defaultdict(list)
    for mutant in mutants:
        functions[function(mutant)].append(mutant)
    parts = [each[at:at + MOST_NEIGHBOURS] for each in functions.values()
             for at in range(0, len(each), MOST_NEIGHBOURS)]
    return sorted(parts, key=len, reverse=True)


class Trials:
    def __init__(self, programs, images, options, known):
        self.programs = sorted(programs, key=lambda program: program.seconds)
        self.images, self.record = images, known
        self.asked = {program.name for program in programs}
        self.asksEvery = not options.programs
        self.benches = queue.Queue()
        for job in range(options.jobs):
            self.benches.put(Bench(options.folder / f"job{job}"))
        self.begun = self.reported = time.monotonic()
        self.seconds = 60 * options.minutes
        self.recording = threading.Lock()
        self.tried = self.survived = 0
        self.latest = collections.defaultdict(list)  # function -> killers, the last one first

    def asksAll(self, mutant):
        """Else a survivor may die by another program."""
        return self.asksEvery or mutant.source.startswith(STRINGS) and self.asked >= set(STRING_TESTS)

    def tryFunction(self, mutants):
        bench = self.benches.get()
        for mutant in mutants:
            if time.monotonic() > self.begun + self.seconds:
                break
            killer = self.killerOf(mutant, bench, self.latest[mutant.function])
            if killer:
                others = [other for other in self.latest[mutant.function] if other != killer]
                self.latest[mutant.function] = [killer, *others][:MOST_KILLERS]
            self.keep(mutant, killer)
        self.benches.put(bench)

    def keep(self, mutant, killer):
        """What came of it, for good: the next run goes on behind it."""
        with self.recording:
            row = record.rowOf(mutant, record.killedBy(killer[0].name, killer[1]) if killer else
                               "survived")
            if killer or self.asksAll(mutant):
                self.record.put(row)
            if killer is None:
                say(f"survived (line {mutant.line}): {row.function}: {row.place}: {row.kind}: "
                    f"{row.line}")
            self.tried += 1
            self.survived += killer is None
            if time.monotonic() > self.reported + SECONDS_BETWEEN_REPORTS:
                self.reported = time.monotonic()
                self.record.write()
                say(f"{self.tried} tried, {self.survived} survived")

    def killerOf(self, mutant, bench, latest):
        """Asks the tests that killed a neighbour, then all programs, the quickest first."""
        for program, test in latest:
            if mutant.number in program.reached and not bench.run(
                    program, self.images[program.image], mutant, test).passed:
                return program, test
        for program in self.programs:
            if mutant.number in program.reached:
                ended = bench.run(program, self.images[program.image], mutant, program.tests)
                if not ended.passed:
                    return program, ended.failedTest or "*"
        return None


def table(rows):
    widths = [max(len(str(row[column])) for row in rows) for column in range(len(rows[0]))]
    for row in rows:
        print("  ".join([row[0].ljust(widths[0]),
                         *(str(cell).rjust(width) for cell, width in zip(row[1:], widths[1:]))]))


def judge(mutants, known):
    """The table and the line of figures. True when nothing is owed."""
    counts = collections.defaultdict(collections.Counter)
    for mutant in mutants:
        row = known.of(mutant)
        if row and row.isIdle:
            continue
        count = counts[mutant.source]
        count["mutants"] += 1
        count["killed"] += row is not None and row.isKilled
        count["explained"] += row is not None and row.isExplained
        if row and row.isUnexplained:
            count["survived"] += 1
            print(f"survived (line {mutant.line}): {row.function}: {row.place}: {row.kind}: "
                  f"{row.line}")
    columns = ("mutants", "killed", "explained", "survived")
    table([("source", *columns),
           *((source, *(count[column] for column in columns)) for source, count in counts.items())])
    total = sum(counts.values(), collections.Counter())
    missing, stale = known.known(mutants)
    percent = 100 * total["killed"] / max(total["mutants"] - missing - stale, 1)
    print(f"proof: mutation sources={len(counts)} mutants={total['mutants']} "
          f"killed={total['killed']} explained={total['explained']} "
          f"unexplained={total['survived']} missing={missing} stale={stale} percent={percent:.1f}")
    return percent >= LEAST_PERCENT and not total["survived"] and not missing and not stale


def judgeAsFiled(known):
    """The record by itself, without a look at the product: what it tells has to be true of the
    tests. What it owes is counted, for it may grow over many runs."""
    rows = [row for row in known.rows.values() if not row.isIdle and not row.isPast]
    gone = [row for row in rows if not record.isThere(row)]
    for row in gone:
        print(f"killed by a test that is gone: {row.verdict}: {row.function}: {row.line}")
    killed = sum(row.isKilled for row in rows)
    print(f"{len(rows)} mutants, {killed} killed, "
          f"{sum(row.isUnexplained for row in rows)} neither killed nor explained, "
          f"{sum(not record.holds(row) for row in rows)} killed by a test that has changed since")
    if not known.isSorted:
        print("the lines are not sorted")
    return known.isSorted and not gone


def main():
    options = arguments()
    known = record.Record()
    if options.asFiled:
        return 0 if judgeAsFiled(known) else 1
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (MOST_OUTPUT, MOST_OUTPUT))
    shutil.rmtree(options.folder, ignore_errors=True)
    options.folder.mkdir(parents=True)

    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        say("compiling")
        builder = Builder(Build(options.build.resolve()), options.folder.resolve(), pool)
        builder.markProduct(tuple(options.source))
        mutants = builder.mutants
        owed = [mutant for mutant in mutants
                if known.of(mutant) is None or known.of(mutant).isUnexplained]
        say(f"{len(mutants)} mutants, {len(owed)} are to be tried")
        if owed and not options.check:
            tryAll(owed, builder, pool, options, known)
            # Over all there is, sources that are no more go too.
            sources = builder.sources | (known.sources() if options.source == [""] else set())
            known.keepOnly(mutants, sources)
            known.write()
    return 0 if judge(mutants, known) else 1


def tryAll(owed, builder, pool, options, known):
    say("building")
    programs = builder.programs(options.programs)
    images = {program.image: Image(program.image) for program in programs}
    say(f"running {len(programs)} test programs without a mutant")
    list(pool.map(lambda program: measure(program, images[program.image], builder.mutants,
                                          options.folder), programs))
    trials = Trials(programs, images, options, known)
    # What some programs don't come by, others may.
    idle = idleIn([mutant for mutant in owed if trials.asksAll(mutant)], images, programs)
    for mutant in idle.values():
        known.put(record.idleRow(mutant))
    functions = byFunction([mutant for mutant in owed if function(mutant) not in idle])
    say(f"{sum(map(len, functions))} mutants to be tried")
    for done in concurrent.futures.as_completed(
            [pool.submit(trials.tryFunction, each) for each in functions]):
        done.result()


if __name__ == "__main__":
    sys.exit(main())
