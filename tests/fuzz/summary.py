#!/usr/bin/env python3
"""Reads the output of `./dev fuzz` and prints one line of figures for each target.

Fails when a target was begun and did not come to its end.
"""
import re
import sys

BEGIN = re.compile(r"dev: fuzzing (\w+) for ")
FEATURES = re.compile(r"#\d+\s+DONE\s.* ft: (\d+)")
EXECUTIONS = re.compile(r"stat::number_of_executed_units: (\d+)")


def main() -> int:
    figures: dict[str, dict[str, str]] = {}
    current: dict[str, str] = {}
    for line in sys.stdin:
        if begin := BEGIN.match(line):
            current = figures.setdefault(begin[1], {})
        elif features := FEATURES.match(line):
            current["features"] = features[1]
        elif executions := EXECUTIONS.match(line):
            current["executions"] = executions[1]

    for name, found in figures.items():
        if len(found) != 2:
            print(f"summary.py: {name} was not fuzzed to the end", file=sys.stderr)
            return 1
        print(f"proof: fuzz target={name} executions={found['executions']}"
              f" features={found['features']}")
    if not figures:
        print("summary.py: no target was fuzzed", file=sys.stderr)
    return 0 if figures else 1


if __name__ == "__main__":
    sys.exit(main())
