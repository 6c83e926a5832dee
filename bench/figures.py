"""What the benchmarks show, and what is to be reached.

A figure's values are those of the benchmarks NAME/n; what it is compared with is NAME.peer/n.
"""

from dataclasses import dataclass
from math import log


@dataclass(frozen=True)
class Figure:
    name: str
    what: str
    peer: str = "–"
    # The most that it may be of its peer's; nothing where there is no such limit.
    ratio: float | None = None
    # The most by which it may exceed its peer, in milliseconds.
    more: float | None = None
    # The most by which it may grow from the smaller of two sizes to the larger.
    growth: float | None = None
    # These two. The ratio counts at the first.
    sizes: tuple[int, int] = (10_000, 100_000)


def linear(small, large):
    return large / small


def log_linear(small, large):
    return large * log(large) / (small * log(small))


RULES = (10_000, 100_000)

FIGURES = [
    Figure(
        "session",
        "opening the session (SQLite)",
        "SQLite's C API: the five queries, every column read",
        ratio=1.3,
    ),
    Figure(
        "session_memory",
        "memory of the open session",
        "1.5 × the bytes of text read + 64 bytes a field",
        ratio=1,
    ),
]
