"""Sends one command to many nodes by each engine and tells what came of it, by name and in figures.

    runFarm.py [--real-node NODE] [--times TIMES] FARM_NODES NODES RESULT

Of TIMES runs the fastest counts. Run by runFarm.sh, which makes the place for it.
"""

import argparse
import json
import os
import pathlib
import re
import subprocess
import sys
import time

from tqdm import tqdm

COMMAND = ["qvNodeDispatchStatus", "--brief", "enable"]
# The same, and each answer with the number of a process behind it: no two are equal.
UNEQUAL = [*COMMAND, "|", "sed", "s/$/:$$/"]
FAN_OUT = 64
SIZES = [10, 20, 50, 100, 200, 500, 1000]
# What some nodes are like instead of having a client: the letter that farmNodes takes, how many of
# a thousand, the outcome. A node that is unreachable has no process.
ODD = [
    ("n", 5, "noSegment"),
    ("f", 2, "queueFull"),
    ("l", 2, "lockFailed"),
    ("u", 2, "unreachable"),
]
LEAST = 8
FARM = pathlib.Path(os.environ["QV_FARM"])


def statesOf(count):
    """A letter for each node. The odd ones are spread evenly."""
    odd = [letter for letter, share, _ in ODD for _ in range(max(1, share * count // 1000))]
    states = ["c"] * count
    for number, letter in enumerate(odd, 1):
        states[number * count // (len(odd) + 1)] = letter
    return "".join(states)


def expectedOutcome(letter):
    return next((outcome for odd, _, outcome in ODD if odd == letter), "stored")


def nameOf(number):
    return f"farm{number:06}"


class Nodes:
    """The processes that are the nodes, and what their clients have got so far."""

    def __init__(self, program, states):
        self.process = subprocess.Popen([program, states.replace("u", "")], text=True,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.pids = [int(pid) for pid in self.process.stdout.readline().split()]
        if len(self.pids) != len(states) - states.count("u"):
            sys.exit("runFarm.py: the nodes did not start")
        pids = iter(self.pids)
        for number, letter in enumerate(states):
            if letter != "u":
                place = FARM / nameOf(number)
                place.mkdir()
                (place / "pid").write_text(f"{next(pids)}\n")

    def taken(self):
        self.process.stdin.write("\n")
        self.process.stdin.flush()
        return sum(map(int, self.process.stdout.readline().split()))

    def waitTaken(self, count):
        """The clients look into their queues twice a second."""
        for _ in range(100):
            if self.taken() == count:
                return
            time.sleep(0.1)
        sys.exit(f"runFarm.py: the clients have got {self.taken()} commands, not {count}")

    def kilobytesEach(self):
        """Their share of what is in memory, segment included."""
        pss = sum(kilobytes("Pss", pid, "smaps_rollup") for pid in self.pids)
        return round(pss / len(self.pids), 1)


def byClush(nodes, *options, command=None):
    return ["clush", "-f", str(FAN_OUT), *options, "-w", folded(nodes), *(command or COMMAND)]


def byTree(nodes, command=None):
    """Through two gateways, each for half of the nodes. They run on this machine too."""
    half = (len(nodes) + 1) // 2
    gates = FARM / "topology.conf"
    gates.write_text(f"[routes]\n{os.uname().nodename.split('.')[0]}: gate[1-2]\n"
                     f"gate1: {folded(nodes[:half])}\ngate2: {folded(nodes[half:])}\n")
    for gate in ("gate1", "gate2"):
        (FARM / gate).mkdir(exist_ok=True)
        (FARM / gate / "pid").write_text(f"{os.getpid()}\n")
    return byClush(nodes, "--topology", str(gates), command=command)


def byTreeUnequal(nodes):
    return byTree(nodes, UNEQUAL)


def byPdsh(nodes):
    return ["stdbuf", "-oL", "pdsh", "-R", "ssh", "-f", str(FAN_OUT), "-w", folded(nodes), *COMMAND]


def byParallel(nodes):
    (FARM / "names").write_text("".join(f"{node}\n" for node in nodes))
    return ["parallel", "-j", str(FAN_OUT), "--tag", "-a", str(FARM / "names"), "ssh", "-n", "{}",
            *COMMAND]


ENGINES = {"clush": byClush, "tree": byTree, "pdsh": byPdsh, "parallel": byParallel}


def folded(nodes):
    """Nodes in a row, as clush and pdsh are told of them."""
    return f"farm[{nodes[0][4:]}-{nodes[-1][4:]}]"


def kilobytes(field, pid, file):
    """0 for a process that has ended."""
    found = re.search(rf"^{field}:\s*(\d+)", pathlib.Path(f"/proc/{pid}/{file}").read_text(), re.M)
    return int(found[1]) if found else 0


def megabytesOf(pid):
    """The most that a process has had so far. A forked one begins with what its parent has."""
    return kilobytes("VmHWM", pid, "status") / 1024


def send(engine, command, nodes):
    """The outcome of each node, and the figures of the run."""
    outcomes, memory = {}, 0
    start = time.monotonic()
    with open(FARM / "errors", "w", encoding="utf-8") as errors:
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=errors, text=True)
        with tqdm(total=len(nodes), desc=f"{engine:8}", unit="node", disable=None,
                  leave=False) as progress:
            for line in process.stdout:
                memory = max(memory, megabytesOf(process.pid))
                node, _, answer = line.replace("\t", ": ", 1).partition(": ")
                outcomes[node] = answer.strip().partition(":")[0]
                progress.update()
    # Ended and not yet waited for: its own time is told apart from that of its children.
    os.waitid(os.P_PID, process.pid, os.WEXITED | os.WNOWAIT)
    seconds = time.monotonic() - start
    fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rpartition(")")[2].split()
    own, children = (sum(map(int, fields[place:place + 2])) / os.sysconf("SC_CLK_TCK")
                     for place in (11, 13))
    process.wait()
    strangers = outcomes.keys() - set(nodes)
    if strangers:
        sys.exit(f"runFarm.py: {engine} tells of {sorted(strangers)}:\n"
                 + (FARM / "errors").read_text())
    for node in nodes:
        outcomes.setdefault(node, "unreachable")
    return outcomes, {
        "engine": engine, "nodes": len(nodes), "seconds": round(seconds, 3),
        "ownSeconds": round(own, 3), "childSeconds": round(children, 3),
        "megabytes": round(memory, 1),
        "lockFailed": [place for place, node in enumerate(nodes)
                       if outcomes[node] == "lockFailed"],
    }


def connection(node, options, runs=20):
    """What a command by the real ssh costs: seconds, those of a processor on this side, memory."""
    ssh = ["/usr/bin/ssh", "-F", str(FARM / "ssh_config"), *options, node]
    subprocess.run([*ssh, "true"], check=True)
    before, start = os.times(), time.monotonic()
    for _ in range(runs):
        subprocess.run([*ssh, *COMMAND], check=False, stdout=subprocess.DEVNULL)
    after, end = os.times(), time.monotonic()
    own = sum(after[2:4]) - sum(before[2:4])
    with subprocess.Popen([*ssh, "echo; read end"], stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE) as held:
        held.stdout.readline()
        memory = kilobytes("Pss", held.pid, "smaps_rollup") / 1024
        held.stdin.close()
    return {"seconds": round((end - start) / runs, 4), "ownSeconds": round(own / runs, 4),
            "megabytes": round(memory, 1)}


def connections(node):
    """By how the keys are agreed on, and over a connection that is there already."""
    kept = ["-S", str(FARM / "kept")]
    subprocess.run(["/usr/bin/ssh", "-F", str(FARM / "ssh_config"), *kept, "-M", "-f", "-N", node],
                   check=True)
    return {"default": connection(node, []),
            "curve25519": connection(node, ["-o", "KexAlgorithms=curve25519-sha256"]),
            "kept": connection(node, kept)}


def inCounts(outcomes):
    counts = {}
    for outcome in outcomes.values():
        counts[outcome] = counts.get(outcome, 0) + 1
    return ", ".join(f"{count} {outcome}" for outcome, count in
                     sorted(counts.items(), key=lambda item: (-item[1], item[0])))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--real-node")
    parser.add_argument("--times", type=int, default=1)
    parser.add_argument("program")
    parser.add_argument("nodes", type=int)
    parser.add_argument("result")
    arguments = parser.parse_args()
    if arguments.nodes < LEAST:
        sys.exit(f"runFarm.py: {LEAST} nodes at least, one of each kind among them")
    # Into a pipe clush would write all at its end.
    os.environ["PYTHONUNBUFFERED"] = "1"
    # A gateway starts the Python that has ClusterShell.
    os.environ["CLUSTERSHELL_GW_PYTHON_EXECUTABLE"] = sys.executable

    states = statesOf(arguments.nodes)
    names = [nameOf(number) for number in range(arguments.nodes)]
    expected = {name: expectedOutcome(letter) for name, letter in zip(names, states)}
    nodes = Nodes(arguments.program, states)
    result = {"cores": os.cpu_count(), "fanOut": FAN_OUT,
              "kilobytesOfNode": nodes.kilobytesEach(), "runs": []}
    if arguments.real_node:
        result["connections"] = connections(arguments.real_node)

    stored = 0

    def measure(engine, commandOf, size):
        nonlocal stored
        outcomes, figures = send(engine, commandOf(names[:size]), names[:size])
        stored += list(outcomes.values()).count("stored")
        nodes.waitTaken(stored)
        wrong = {node: outcome for node, outcome in outcomes.items() if outcome != expected[node]}
        if wrong:
            sys.exit(f"runFarm.py: {engine}: {wrong}\n" + (FARM / "errors").read_text())
        return outcomes, figures

    print(f"{'engine':8} {'nodes':>6} {'seconds':>8} {'ms a node':>9} {'MB':>6}")
    sizes = [size for size in SIZES if size < arguments.nodes] + [arguments.nodes]
    work = [(engine, commandOf, size) for size in sizes for engine, commandOf in ENGINES.items()]
    work.append(("unequal", byTreeUnequal, arguments.nodes))
    for engine, commandOf, size in work:
        # What else the machine does only adds to the time, and most to a short one.
        times = arguments.times * (3 if arguments.times > 1 and size <= 100 else 1)
        measured = [measure(engine, commandOf, size) for _ in range(times)]
        outcomes, figures = min(measured, key=lambda run: run[1]["seconds"])
        result["runs"].append(figures)
        print(f"{engine:8} {size:6} {figures['seconds']:8.2f} "
              f"{1000 * figures['seconds'] / size:9.1f} {figures['megabytes']:6.1f}", flush=True)

    print(f"memory of a node: {result['kilobytesOfNode']} kB")
    for kind, cost in result.get("connections", {}).items():
        print(f"ssh, {kind}: {1000 * cost['seconds']:.0f} ms, on this side "
              f"{1000 * cost['ownSeconds']:.0f} ms of a processor and {cost['megabytes']} MB")
    # Each engine's last outcomes were as expected, so they are one.
    for _, _, outcome in ODD:
        print(f"{outcome}: {' '.join(node for node in names if outcomes[node] == outcome)}")
    print(inCounts(outcomes))
    pathlib.Path(arguments.result).write_text(json.dumps(result, indent=1) + "\n")


if __name__ == "__main__":
    main()
