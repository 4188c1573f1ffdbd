#!/usr/bin/env python3
"""Breaks the product in one place at a time and sees whether a test notices.

The exit status is 0 if all mutants of sender/ and qv/segment/ and 95 % of all died, and every
survivor has its reason in survivors.txt.
"""

import argparse
import collections
import concurrent.futures
import pathlib
import queue
import random
import resource
import shutil
import sys
import time

import survivors
from build import Build
from programs import Builder, CAPACITIES, ROOT
from trial import Bench, Image

LEAST_PERCENT = 95
MOST_MEMORY = 4 << 30  # of one run
MOST_OUTPUT = 1 << 28
MOST_KILLERS = 4  # of a function that are asked ahead of whole programs
PAGE = 4096
SECONDS_BETWEEN_REPORTS = 30


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build/release",
                        help="a build with tests, only read (default build/release)")
    parser.add_argument("--folder", type=pathlib.Path, default=ROOT / "build/mutation",
                        help="where ours is built, made anew (default build/mutation)")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--source", default="", help="only sources with this in their path")
    parser.add_argument("--sample", type=int, metavar="N",
                        help="only N mutants of what is neither in sender/ nor in qv/segment/")
    parser.add_argument("--all", action="store_true",
                        help="try also what survivors.txt explains, to see that it still survives")
    return parser.parse_args()


def say(what):
    print(f"{time.strftime('%H:%M:%S')} {what}", flush=True)


def measure(program, image, mutants, folder):
    """The program unharmed: it has to pass, and tells its time and the mutants it comes by."""
    bench = Bench(folder / f"{program.name}Alone")
    reachedMap = bench.folder / "reached.map"
    reachedMap.write_bytes(bytes((len(mutants) // PAGE + 1) * PAGE))
    ended = bench.run(program, image)
    if not ended.passed:
        raise SystemExit(f"mutate: {program.name} fails without a mutant")
    program.expect(ended.seconds, ended.cpu)
    reached = reachedMap.read_bytes()
    program.reached = {mutant.number for mutant in mutants if reached[mutant.number]}
    shutil.rmtree(bench.folder)


def withoutIdle(mutants, programs):
    """Without the functions of template copies that no program comes by: the compiler wrote them
    out because a class is instantiated whole, and put what they do into their callers."""
    reached = set().union(*(program.reached for program in programs))
    running = {mutant.symbol for mutant in mutants if mutant.number in reached}
    return [mutant for mutant in mutants
            if mutant.source not in CAPACITIES or mutant.symbol in running]


def doubtful(mutants, every, explanations):
    """Without those of which survivors.txt says that no test can kill them. Where it explains only
    some of those that read alike, all of them are tried, also when a sample took only one."""
    def place(mutant):
        return mutant.symbol, survivors.keyOf(mutant, ROOT)

    alike = collections.Counter(place(mutant) for mutant in every)
    return [mutant for mutant in mutants
            if alike[place(mutant)] > explanations[place(mutant)[1]]]


def sample(mutants, size):
    """All of sender/ and qv/segment/, and so many of all others."""
    others = [mutant.number for mutant in mutants if not mustDie(mutant)]
    taken = set(random.Random(1).sample(others, min(size, len(others))))
    return [mutant for mutant in mutants if mustDie(mutant) or mutant.number in taken]


def byFunction(mutants):
    """Lists of neighbours, long ones first so that no job is left alone with one at the end."""
    functions = collections.defaultdict(list)
    for mutant in mutants:
        functions[mutant.symbol].append(mutant)
    return sorted(functions.values(), key=len, reverse=True)


def mustDie(mutant):
    return mutant.source.startswith(("sender/", "qv/segment/"))


class Trials:
    def __init__(self, programs, images, options):
        self.programs = sorted(programs, key=lambda program: program.seconds)
        self.images = images
        self.benches = queue.Queue()
        for job in range(options.jobs):
            self.benches.put(Bench(options.folder / f"job{job}"))
        self.killers = {}  # mutant's number -> program and test, None for a survivor
        self.reported = time.monotonic()
        self.latest = collections.defaultdict(list)  # function -> killers, the last one first

    def tryFunction(self, mutants):
        bench = self.benches.get()
        for mutant in mutants:
            killer = self.killerOf(mutant, bench, self.latest[mutant.function])
            self.killers[mutant.number] = killer
            if killer:
                others = [other for other in self.latest[mutant.function] if other != killer]
                self.latest[mutant.function] = [killer, *others][:MOST_KILLERS]
        self.benches.put(bench)

    def report(self):
        """A line now and then."""
        if time.monotonic() > self.reported + SECONDS_BETWEEN_REPORTS:
            self.reported = time.monotonic()
            survived = list(self.killers.values()).count(None)
            say(f"{len(self.killers)} tried, {survived} survived")

    def killerOf(self, mutant, bench, latest):
        """Asks the tests that killed a neighbour, then all programs, the quickest first."""
        for program, test in latest:
            if mutant.number in program.reached and not bench.run(
                    program, self.images[program.image], mutant, test).passed:
                return program, test
        for program in self.programs:
            if mutant.number in program.reached:
                ended = bench.run(program, self.images[program.image], mutant)
                if not ended.passed:
                    return program, ended.failedTest or "*"
        return None


def table(rows):
    widths = [max(len(str(row[column])) for row in rows) for column in range(len(rows[0]))]
    for row in rows:
        print("  ".join([row[0].ljust(widths[0]),
                         *(str(cell).rjust(width) for cell, width in zip(row[1:], widths[1:]))]))


def judge(mutants, killers, programs, explanations):
    reached = set().union(*(program.reached for program in programs))
    counts = collections.defaultdict(collections.Counter)
    left = collections.defaultdict(lambda: collections.Counter(explanations))
    unexplained = []
    for mutant in mutants:
        count = counts[mutant.source]
        count["mutants"] += 1
        if killers.get(mutant.number):
            count["killed"] += 1
            continue
        key = survivors.keyOf(mutant, ROOT)
        left[mutant.symbol][key] -= 1
        if left[mutant.symbol][key] >= 0:
            count["explained"] += 1
        else:
            count["survived"] += 1
            reach = "" if mutant.number in reached else ", not reached"
            unexplained.append(f"survived (line {mutant.line} of {mutant.symbol}{reach}): {key}")
    columns = ("mutants", "killed", "explained", "survived")
    table([("source", *columns),
           *((source, *(count[column] for column in columns)) for source, count in counts.items())])
    for line in unexplained:
        print(line)
    total = sum(counts.values(), collections.Counter())
    percent = 100 * total["killed"] / max(total["mutants"], 1)
    print(f"proof: mutation sources={len(counts)} mutants={total['mutants']} "
          f"killed={total['killed']} explained={total['explained']} percent={percent:.1f}")
    return percent >= LEAST_PERCENT and not unexplained


def main():
    options = arguments()
    explanations = survivors.explained()
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (MOST_OUTPUT, MOST_OUTPUT))
    shutil.rmtree(options.folder, ignore_errors=True)
    options.folder.mkdir(parents=True)

    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        say("building")
        builder = Builder(Build(options.build.resolve()), options.folder.resolve(), pool)
        programs = builder.programs()
        images = {program.image: Image(program.image) for program in programs}
        say(f"running {len(programs)} test programs without a mutant")
        list(pool.map(lambda program: measure(program, images[program.image], builder.mutants,
                                              options.folder), programs))
        # What the linker left out is a second copy, or a function that nobody calls.
        mutants = [mutant for mutant in builder.mutants if options.source in mutant.source
                   and any(image.holds(mutant) for image in images.values())]
        mutants = every = withoutIdle(mutants, programs)
        if options.sample is not None:
            mutants = sample(mutants, options.sample)
        functions = byFunction(mutants if options.all else doubtful(mutants, every, explanations))
        say(f"{len(builder.mutants)} mutants found, {len(mutants)} taken, "
            f"{sum(map(len, functions))} of them to be tried")
        trials = Trials(programs, images, options)
        for done in concurrent.futures.as_completed(
                [pool.submit(trials.tryFunction, function) for function in functions]):
            done.result()
            trials.report()
    return 0 if judge(mutants, trials.killers, programs, explanations) else 1


if __name__ == "__main__":
    sys.exit(main())
