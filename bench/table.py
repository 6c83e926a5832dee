#!/usr/bin/python3
"""Prints the figures in bench/results/*.json as one table: bench/table.py [FOLDER]

A value is the least of its repetitions: on a shared machine, the longer ones measure other users.
The status is 1 when a benchmark failed or there is none. A limit that does not hold is only
printed.
"""

import json
import sys
from pathlib import Path

sys.dont_write_bytecode = True
from figures import FIGURES  # noqa: E402

HEADER = ["figure", "against", "at", "value", "ratio", "limit", "growth", "limit", ""]


class Results:
    def __init__(self, folder):
        self.values = {}
        self.failures = []
        for file in sorted(folder.glob("*.json")):
            for run in json.loads(file.read_text(encoding="utf-8"))["benchmarks"]:
                self._take(run)

    def _take(self, run):
        if run.get("error_occurred"):
            self.failures.append(f"{run['name']}: {run['error_message']}")
        elif run["run_type"] == "iteration":
            name, size = run["run_name"].split("/")[:2]
            # A time is in milliseconds.
            factor = {"ns": 1e-6, "us": 1e-3, "ms": 1, "s": 1e3}[run["time_unit"]]
            value = run.get("value", run["real_time"] * factor)
            key = (name, int(size))
            self.values[key] = min(value, self.values.get(key, value))

    def sizes(self, name):
        return sorted(size for figure, size in self.values if figure == name)

    def get(self, name, size):
        return self.values.get((name, size))


def quotient(value, other):
    return None if value is None or not other else value / other


def shown(number):
    if number is None:
        return "–"
    return f"{number:,.0f}" if number >= 1000 else f"{number:.3g}"


def verdict(results):
    """Whether all checks are true. None stands for a check that was not made."""
    made = [result for result in results if result is not None]
    return "" if not made else "holds" if all(made) else "DOES NOT HOLD"


def lines_of(figure, results):
    small, large = figure.sizes
    growth = quotient(results.get(figure.name, large), results.get(figure.name, small))
    for size in results.sizes(figure.name):
        value = results.get(figure.name, size)
        peer = results.get(figure.name + ".peer", size)
        ratio = quotient(value, peer)
        checks = []
        limits = []
        if figure.ratio is not None and ratio is not None:
            limits.append(f"≤ {figure.ratio:g}")
            checks.append(ratio <= figure.ratio)
        if figure.more is not None and peer is not None:
            limits.append(f"+ {value - peer:.1f} ≤ + {figure.more:g} ms")
            checks.append(value - peer <= figure.more)
        grows = size == large and growth is not None
        if grows and figure.growth is not None:
            checks.append(growth <= figure.growth)
        yield [
            figure.what,
            figure.peer,
            f"{size:,}",
            shown(value),
            shown(ratio),
            "; ".join(limits),
            f"× {growth:.3g}" if grows else "",
            f"≤ × {figure.growth:.3g}" if grows and figure.growth is not None else "",
            verdict(checks),
        ]


def print_table(lines):
    rows = [HEADER, *lines]
    widths = [max(len(row[column]) for row in rows) for column in range(len(HEADER))]
    for number, row in enumerate(rows):
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |")
        if number == 0:
            print("|" + "|".join("-" * (width + 2) for width in widths) + "|")


def main():
    here = Path(__file__).parent
    results = Results(Path(sys.argv[1]) if len(sys.argv) > 1 else here / "results")
    lines = [line for figure in FIGURES for line in lines_of(figure, results)]
    unknown = {name.removesuffix(".peer") for name, _ in results.values} - {
        figure.name for figure in FIGURES
    }
    print_table(lines)
    for failure in results.failures:
        print(f"failed: {failure}")
    for name in sorted(unknown):
        print(f"failed: bench/figures.py does not know {name}")
    return 1 if results.failures or unknown or not lines else 0


if __name__ == "__main__":
    sys.exit(main())
