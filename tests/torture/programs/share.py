"""How much a torture program does: a short fixed share, or what fits into its minutes."""

import argparse
import itertools
import sys
import time


class Broken(Exception):
    """The attack found something."""


class Share:
    """Iterates over the seeds of the runs: the seed of the command line, then the next numbers. So
    the seed of a failed run repeats it as the first run."""

    def __init__(self, name, short_runs):
        parser = argparse.ArgumentParser(prog=f"{name}_torture")
        parser.add_argument("--minutes", type=float)
        parser.add_argument("--seed", type=int, default=1)
        arguments = parser.parse_args()
        self.name = name
        self.first = arguments.seed
        self.runs = short_runs if arguments.minutes is None else None
        self.end = time.monotonic() + 60 * (arguments.minutes or 0)

    def __iter__(self):
        for run in itertools.count():
            is_done = time.monotonic() >= self.end if self.runs is None else run >= self.runs
            if is_done and run > 0:
                return
            yield self.first + run

    def fail(self, seed, problem, report=""):
        """Says what is wrong and how to repeat it, and ends the program with 1."""
        print(f"{report}\n{self.name}: {problem}\nrepeat: {self.name}_torture --seed {seed}")
        sys.exit(1)
