#!/usr/bin/env python3
"""Has spin look at every order of the steps in mailbox.pml.

    tests/lock/allOrders.py           proves what holds, finds what doesn't, and fails when one of
                                      them is not so, or docs/mailbox.md draws another road to it
    tests/lock/allOrders.py --write   draws the roads anew
    tests/lock/allOrders.py --short   leaves out what takes longest: that three senders all end

What holds is proved for two and three senders. What doesn't is found by its shortest road. And
since a property that cannot fail says nothing, each is seen to fail in a model that is broken on
purpose.
"""

import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
MODEL = HERE / "mailbox.pml"
DOCUMENT = HERE.parent.parent / "docs/mailbox.md"

# The switches of the model, and the properties that hold under them.
HOLD = {
    # Fairness to every process takes long to look at, and how long the queue is changes no waiting.
    "CAPACITY=1 DEATHS": ["ends"],
    "DEATHS": ["inside", "bounded"],
    "": ["freed"],
    "CONTENTS DEATHS LOCK_IN_ONE_STEP": ["apart", "kept", "once", "whole", "written"],
}
# Those that don't, by design; the document draws the road to each.
FAIL = {
    "": ["apart"],
    "CONTENTS CLIENT_COMES_LATE": ["kept", "whole"],
    "CONTENTS": ["once"],
    "CONTENTS CLIENT_WITHOUT_LOCK LOCK_IN_ONE_STEP": ["written"],
    "DEATHS": ["freed"],
}
# Those that fail where the model is broken. The five that need the lock in one step do so above.
BREAK = {
    "BREAK_NO_ROOM_CHECK": ["inside", "bounded"],
    "BREAK_COUNT_READ_TWICE": ["inside", "bounded"],
    "BREAK_FULL_KEEPS_LOCK": ["freed"],
    "BREAK_WAITS_WITHOUT_END DEATHS": ["ends"],
    "CONTENTS": ["written"],
}


def run(command, folder):
    done = subprocess.run(command, cwd=folder, text=True, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if done.returncode != 0:
        sys.exit(f"{' '.join(command)}: status {done.returncode}\n{done.stdout}")
    return done.stdout


def look_at(switches, senders, claims, options):
    """For each claim, that its properties hold: how many states pan saw, and the road to one where
    not all of them do. Pan is compiled once for all claims."""
    with tempfile.TemporaryDirectory() as folder:
        model = MODEL.read_text()
        for number, names in enumerate(claims):
            claim = f"<> ({names[0]})" if names == ["ends"] else f"[] ({' && '.join(names)})"
            model += f"\nltl claim{number} {{ {claim} }}\n"
        pathlib.Path(folder, MODEL.name).write_text(model)
        defines = [f"-D{name}" for name in switches.split()] + [f"-DSENDERS={senders}"]
        run(["spin", "-a", *defines, MODEL.name], folder)
        # Dying is a meeting of two processes, which spin's reduction of orders doesn't get right.
        options = [*options, *(["-DNFAIR=3"] if ["ends"] in claims else ["-DSAFETY"])]
        run(["gcc", "-w", *options, "-DNOREDUCE", "-o", "pan", "pan.c"], folder)
        return [look_at_claim(folder, f"claim{number}", names) for number, names in enumerate(claims)]


def look_at_claim(folder, claim, names):
    """The same for one claim, by the pan in that folder."""
    always = ["-a", "-f"] if names == ["ends"] else []
    # A table for 2^20 states: the usual one takes longer to clear than most of the looks, as a stack
    # of a million steps does.
    said = run(["./pan", *always, "-N", claim, "-m100000", "-w20"], folder)
    errors = re.search(r"errors: (\d+)", said)
    if not errors or "max search depth too small" in said or "out of memory" in said:
        sys.exit(f"{names}: pan didn't look at everything\n{said}")
    if f"({claim})" not in said:
        sys.exit(f"{names}: pan looked at something else\n{said}")
    road = []
    if errors[1] != "0":
        replay = subprocess.run(["./pan", "-r", f"{MODEL.name}.trail", "-N", claim], cwd=folder,
                                text=True, stdout=subprocess.PIPE, check=False).stdout
        road = re.findall(r"^(begin|\d) (.+)$", replay, re.M)
    return int(re.search(r"(\d+) states, stored", said)[1]), road


def draw(road):
    """A row for each step, in the column of who takes it, and the two bytes behind the step."""
    lock, count = "0", road[0][1]
    columns = ["sender 1", "sender 2", "client"]
    rows = [["", *columns, "lock byte", "count"], ["", "", "", "", lock, count]]
    for number, (who, what) in enumerate(road[1:], 1):
        lock = {"takes": "1", "gives back": "0"}.get(what, lock)
        if what.startswith("writes count"):
            count = what.split()[-1]
        if what == "looks: 0" and "takes" not in [text for _, text in road]:
            lock = "1" # looking is taking, where that is one step
        row = [str(number), "", "", "", lock, count]
        row[int(who) or 3] = what
        rows.append(row)
    widths = [max(len(row[i]) for row in rows) for i in range(6)]
    drawn = ["  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip()
             for row in rows]
    return "\n".join(["```", *drawn, "```"])


def main():
    # Compiling takes longer than looking, but for three senders.
    short = sys.argv[1:] == ["--short"]
    tasks = [("holds", switches, senders, [names], ["-Og" if senders == 3 else "-O0"])
             for senders in (3, 2) for switches, names in HOLD.items()
             if not (short and senders == 3 and names == ["ends"])]
    tasks += [("fails", switches, 2, [[name] for name in names], ["-O0", "-DBFS"])
              for switches, names in FAIL.items()]
    tasks += [("broken", switches, 2, [[name] for name in names], ["-O0"])
              for switches, names in BREAK.items()]

    wrong = proved = states = 0
    text = DOCUMENT.read_text()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda task: look_at(*task[1:]), tasks)
        looks = ((*task[:3], names, *look) for task, result in zip(tasks, results)
                 for names, look in zip(task[3], result))
        for kind, switches, senders, names, seen, road in looks:
            print(f"{', '.join(names)}: {'broken' if road else 'held'} by {senders} senders, "
                  f"{seen} states, {switches or 'as it is'}")
            wrong += bool(road) != (kind != "holds")
            if kind == "holds":
                proved += len(names)
                states += seen
            for name in names:
                if f"`{name}`" not in text:
                    print(f"{DOCUMENT.name} doesn't name {name}")
                    wrong += 1
            if kind == "fails" and road:
                text, places = re.subn(f"(<!-- road to not {names[0]} -->\n).*?(?=\n<!-- end -->)",
                                       lambda found, road=road: found[1] + draw(road), text,
                                       flags=re.S)
                if places != 1:
                    print(f"{DOCUMENT.name} has no place for the road to not {names[0]}")
                    wrong += 1
    if sys.argv[1:] == ["--write"]:
        DOCUMENT.write_text(text)
    elif text != DOCUMENT.read_text():
        print(f"{DOCUMENT.name}: other roads are shorter; allOrders.py --write draws them")
        wrong += 1
    if wrong:
        sys.exit(f"{wrong} mistakes")
    print(f"proof: lock properties={proved} states={states}")


main()
