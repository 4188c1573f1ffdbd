"""How long a command takes to reach many nodes: a small simulation, and what it is fed with.

An engine starts connections one after another, each of which costs it some time, and has at most as
many open at once as its fan-out. A connection then takes work of one of the machine's processors, with
the engine's own work for it, and a wait for the other side. Through gateways each connection of the first machine is a whole
such run on another one.

The times of an engine are fitted to what `./dev farm --write` has measured on few nodes
(figures.json); scaleModelTest.py holds the simulation against what was measured on many.
"""

import dataclasses
import functools
import heapq
import json
import math
import pathlib

FIGURES = pathlib.Path(__file__).with_name("figures.json")
ENGINES = ["clush", "pdsh", "parallel"]
LOCK_WAIT = 2.5
FEW, MANY = 100, 200 # nodes: what the engines' times are fitted to, and what is foretold


@dataclasses.dataclass(frozen=True)
class Engine:
    start: float    # seconds until it makes its first connection
    launch: float   # seconds for each connection, one after another


@dataclasses.dataclass(frozen=True)
class Connection:
    work: float     # seconds of a processor on this side
    wait: float     # seconds for the other side


@dataclasses.dataclass(frozen=True)
class Machine:
    cores: int
    fanOut: int


def simulate(nodes, engine, connection, machine, slow=None):
    """Seconds until the last of the nodes has answered. `slow`: further seconds by node."""
    now = engine.start
    slots = [0.0] * min(machine.fanOut, nodes)   # when each becomes free
    cores = [0.0] * machine.cores
    last = 0.0
    for node in range(nodes):
        now = max(now, heapq.heappop(slots)) + engine.launch
        done = max(now, heapq.heappop(cores)) + connection.work
        heapq.heappush(cores, done)
        done += connection.wait + (slow or {}).get(node, 0.0)
        heapq.heappush(slots, done)
        last = max(last, done)
    return last


def throughGateways(nodes, gateways, engine, connection, machine, startOfGateway, fold):
    """The same through gateways, machines of the same kind. `fold`: seconds of the first machine
    for each node's answer."""
    each = simulate(math.ceil(nodes / gateways), engine, connection, machine)
    toGateway = Connection(connection.work, connection.wait + startOfGateway + each)
    return simulate(gateways, engine, toGateway, machine) + nodes * fold


@functools.cache
def figures():
    return json.loads(FIGURES.read_text())


def runsOf(engine):
    return sorted((run for run in figures()["runs"] if run["engine"] == engine),
                  key=lambda run: run["nodes"])


def slope(points):
    """Least squares, as a line through (x, y): what is there at 0, and what each x adds."""
    count = len(points)
    meanX, meanY = (sum(values) / count for values in zip(*points))
    rise = (sum((x - meanX) * (y - meanY) for x, y in points)
            / sum((x - meanX) ** 2 for x, _ in points))
    return meanY - rise * meanX, rise


def workOf(engine, whose):
    """Seconds of a processor for each node: the engine's own, or those of its children."""
    return slope([(run["nodes"], run[whose]) for run in runsOf(engine)])[1]


def farmConnection(engine):
    """Of the measured farm: the stand-in for ssh, whose nodes are on the same machine."""
    return Connection(workOf(engine, "ownSeconds") + workOf(engine, "childSeconds"), 0.0)


@functools.cache
def fitted(engine):
    """The engine's times by what few nodes took."""
    few = [(run["nodes"], run["seconds"]) for run in runsOf(engine) if run["nodes"] <= FEW]
    start, launch = slope(few)
    return Engine(max(start, 0.0), launch)


def farmMachine():
    return Machine(figures()["cores"], figures()["fanOut"])


def simulatedFarm(engine, nodes, stale=()):
    return simulate(nodes, fitted(engine), farmConnection(engine), farmMachine(),
                    dict.fromkeys(stale, LOCK_WAIT))


def realConnection(engine, kind):
    cost = figures()["connections"][kind]
    return Connection(workOf(engine, "ownSeconds") + cost["ownSeconds"],
                      cost["seconds"] - cost["ownSeconds"])


def foldOf(run):
    """Seconds of the first machine for a node and its answer, by a run of clush without its start."""
    start = runsOf("tree")[0]
    return (run["ownSeconds"] - start["ownSeconds"]) / (run["nodes"] - start["nodes"])


def startOfGateway():
    """What the first gateways add to a run on few nodes."""
    return max(0.0, runsOf("tree")[0]["seconds"] - runsOf("clush")[0]["seconds"])
