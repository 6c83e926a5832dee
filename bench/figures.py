"""The figures that the benchmarks measure, and their limits.

The benchmarks NAME/n measure the figure NAME; NAME.peer/n measure what it is compared with.
"""

from dataclasses import dataclass
from math import log


@dataclass(frozen=True)
class Figure:
    name: str
    what: str
    peer: str = "–"
    # The largest allowed ratio to its peer. Each limit is None when there is none.
    ratio: float | None = None
    # How many milliseconds longer than its peer it may take.
    more: float | None = None
    # The largest allowed factor of growth from the smaller of two sizes to the larger.
    growth: float | None = None
    # These two sizes. The limit of the ratio applies to the first one.
    sizes: tuple[int, int] = (10_000, 100_000)


def linear(small, large):
    return large / small


def log_linear(small, large):
    return large * log(large) / (small * log(small))


FIGURES = [
    Figure(
        "session",
        "opening the session (SQLite)",
        "SQLite's C API: the five queries, every column read",
        ratio=1.3,
    ),
    Figure(
        "session_memory",
        "memory of the open session (bytes)",
        "1.5 × the bytes of text read + 64 bytes a field",
        ratio=1,
    ),
    Figure(
        "describe_all",
        "loading and describing all rules",
        "one find of each tag, one copy of what is shown",
        ratio=3,
    ),
    Figure(
        "describe_all_first",
        "the same for the first time in a session",
        "the same",
    ),
    Figure(
        "renumber",
        "OK that renumbers every rule (SQLite), file in memory",
        "SQLite's C API: one prepared UPDATE by key a row",
        ratio=1.2,
    ),
    Figure(
        "renumber_on_disk",
        "the same, file on the disk",
        "the same, file on the disk",
        ratio=1.2,
    ),
    Figure(
        "save",
        "saving one rule of 5,000 characters (SQLite), file on the disk",
        "SQLite's C API: the same INSERT and SELECT",
        ratio=1.5,
    ),
    Figure(
        "save_in_memory",
        "the same, file in memory",
        "the same, file in memory",
    ),
    Figure(
        "postgresql_session",
        "opening the session (PostgreSQL)",
        "libpq: the five queries, every value read",
        ratio=1.5,
    ),
    Figure(
        "postgresql_renumber",
        "OK that renumbers every rule (PostgreSQL)",
        "libpq: the same statement, prepared once",
        ratio=1.5,
    ),
    Figure(
        "mariadb_session",
        "opening the session (MariaDB)",
        "libmariadb: the five queries, every value read",
        ratio=1.5,
    ),
    Figure(
        "mariadb_renumber",
        "OK that renumbers every rule (MariaDB)",
        "libmariadb: the same statement, prepared once",
        ratio=1.5,
    ),
    Figure(
        "rules_window",
        "ListRules and first painting of the rules window",
        "QTableView on QSqlTableModel, all rows fetched",
        ratio=0.5,
    ),
    Figure(
        "session_and_rules_window",
        "the same with the opening of the session",
        "the same",
    ),
    Figure(
        "row_click",
        "ten clicks on rows: find, load, describe, paint",
        "the same texts set into a bare QTextEdit and painted",
        ratio=1.5,
        growth=1.2,
    ),
    Figure(
        "move_up",
        "99 steps of Move Up, each painted",
        growth=1.2 * log_linear(10_000, 100_000),
    ),
    Figure(
        "people_dialog",
        "people dialog with n numbers: open, add, remove, OK",
        growth=1.2 * linear(500, 5_000),
        sizes=(500, 5_000),
    ),
    Figure(
        "account_dialog",
        "account dialog with n accounts: open, add, remove, OK",
        growth=1.2 * linear(500, 5_000),
        sizes=(500, 5_000),
    ),
    Figure(
        "address_book",
        "address book with n contacts: open, add, remove, Select",
        growth=1.2 * linear(5_000, 50_000),
        sizes=(5_000, 50_000),
    ),
    Figure(
        "rules_window_memory",
        "resident memory of the process that shows the rules (bytes)",
        "QTableView on QSqlTableModel, all rows fetched",
        ratio=0.8,
    ),
    Figure(
        "list",
        "kvexrules list, whole process",
        "sqlite3 FILE 'SELECT …' of the same columns",
        ratio=2,
    ),
    Figure(
        "try",
        "kvexrules try --messages with n messages and 1,000 rules",
        "grep -c -F -f with the same words and numbers",
        ratio=3,
        sizes=(1_000_000, 1_000_000),
    ),
    Figure(
        "first_window",
        "process start to the first window painted",
        "a Qt program with one empty dialog",
        ratio=1.3,
        more=40,
    ),
    Figure(
        "same_widgets",
        "a Qt program with one dialog of the same widgets and texts",
        "a Qt program with one empty dialog",
    ),
    Figure(
        "terminal_key",
        "terminal: arrow down in a list of n rows, to the last byte",
        "the whole screen written by hand",
        ratio=1.5,
    ),
    Figure(
        "terminal_scroll",
        "terminal: the same at the bottom of the view, which scrolls",
        "the same",
    ),
    Figure(
        "terminal_key_bytes",
        "terminal: bytes for the arrow down that selects a row",
        "400 bytes",
        ratio=1,
    ),
    Figure(
        "terminal_scroll_bytes",
        "terminal: bytes for the arrow down that also scrolls",
        "400 bytes",
        ratio=1,
    ),
    Figure(
        "terminal_start",
        "terminal: process start to the first whole screen",
        "dialog --menu with as many rows",
        ratio=1.5,
    ),
    Figure(
        "terminal_memory",
        "terminal: resident memory of the process with n rules (bytes)",
        "the same windows on Qt",
        ratio=0.4,
    ),
    Figure("component_size", "the stripped component with its toolkit (bytes)"),
]
