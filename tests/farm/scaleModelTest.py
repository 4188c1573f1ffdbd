"""The simulation behind docs/scale.md: on what can be worked out by hand, and beside the measured
points that it was not fitted to."""

import unittest

import scaleModel
from scaleModel import Connection, Engine, Machine, simulate, throughGateways

NEAR = 1.5  # either way: these are times of a machine that does other things too


class ByHand(unittest.TestCase):
    def test_the_engine_is_the_limit(self):
        # 1 s of start, 100 launches of 0.1 s, and the last connection of 0.2 s.
        self.assertAlmostEqual(
            simulate(100, Engine(1, 0.1), Connection(0.05, 0.15), Machine(2, 64)), 11.2)

    def test_the_processors_are_the_limit(self):
        # 100 times 1 s on two processors, behind the first launch.
        self.assertAlmostEqual(
            simulate(100, Engine(0, 0.01), Connection(1, 0), Machine(2, 100)), 50.02, delta=0.01)

    def test_the_fan_out_is_the_limit(self):
        # Ten rounds of ten connections of 1 s, each round begun by ten launches.
        self.assertAlmostEqual(
            simulate(100, Engine(0, 0.001), Connection(0, 1), Machine(2, 10)), 10.019, delta=0.01)

    def test_a_stale_lock_holds_up_its_own_connection_alone(self):
        engine, connection, machine = Engine(0, 0.01), Connection(0, 0), Machine(2, 10)
        self.assertAlmostEqual(simulate(1000, engine, connection, machine, {0: 2.5}), 10.0)
        self.assertAlmostEqual(simulate(1000, engine, connection, machine, {999: 2.5}), 12.5)

    def test_gateways_share_the_nodes(self):
        # Each of ten sends to ten nodes in 1 + 10 x 0.1 s; the last of them is begun after 2 s.
        self.assertAlmostEqual(
            throughGateways(100, 10, Engine(1, 0.1), Connection(0, 0), Machine(2, 64),
                            startOfGateway=0.5, fold=0.01), 2 + 0.5 + 2 + 1)


class BesideTheMeasured(unittest.TestCase):
    def test_many_nodes_are_foretold_by_few(self):
        looked = []
        for engine in scaleModel.ENGINES:
            for run in scaleModel.runsOf(engine):
                if run["nodes"] < scaleModel.MANY:
                    continue
                foretold = scaleModel.simulatedFarm(engine, run["nodes"], run["lockFailed"])
                ratio = foretold / run["seconds"]
                with self.subTest(engine=engine, nodes=run["nodes"], ratio=round(ratio, 2)):
                    self.assertTrue(1 / NEAR < ratio < NEAR)
                looked.append((engine, run["nodes"]))
        self.assertEqual(looked, [(engine, nodes) for engine in ("clush", "pdsh", "parallel")
                                  for nodes in (200, 500, 1000)])


if __name__ == "__main__":
    unittest.main()
