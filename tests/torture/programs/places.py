"""The databases under attack. Each holds the sample data and 300 rules of the same kind."""

import os
import shutil
import sqlite3
import subprocess
from contextlib import closing
from pathlib import Path

from desktop import wait_for
from kvexrules import Database, environment, initialise
from server import Server
from stored import COLUMNS, INITIAL, Rule

PROGRAM = Path(os.environ["KVEXRULES"])
SERVE = Path(os.environ["SERVE"])

OTHER_TABLES = ("SMS_USERS", "SMS_ACCOUNT", "SMS_SERVICE", "SMS_SERVICECOMMANDS", "SMS_CONTACTS")


def values(columns):
    return "(" + ", ".join(f"'{column}'" if isinstance(column, str) else str(column)
                           for column in columns) + ")"


class Place:
    """A database with its initial state. A subclass says how statements run."""

    def __init__(self, title, connection):
        self.title = title
        self.database = initialise(PROGRAM, connection, "--sample")
        self.rows("DELETE FROM SMS_RULES")
        self.rows(f"INSERT INTO SMS_RULES ({COLUMNS}) VALUES {', '.join(map(values, INITIAL))}")
        self.initial = self.rules()
        self.initial_others = self.others()

    def rows(self, statement):
        """Each row as text, its columns joined by "|"."""
        raise NotImplementedError

    def rules(self):
        """Each rule by its ID."""
        found = {}
        for row in self.rows(f"SELECT ID, {COLUMNS} FROM SMS_RULES"):
            number, name, query, action, *numbers = row.split("|")
            found[int(number)] = Rule(name, query, action, *map(int, numbers))
        return found

    def others(self):
        """All rows of the tables that the editor only reads."""
        return [self.rows(f"SELECT * FROM {table} ORDER BY ID") for table in OTHER_TABLES]

    def wait_until_left(self):
        """Waits until the database knows that the programs have ended."""

    def problem(self):
        """What is wrong with the database itself; "" when nothing is. kvexrules reads it first, and
        so recovers it where that is needed."""
        listed = subprocess.run([PROGRAM, "list"], env=environment(self.database.path), check=False,
                                capture_output=True, text=True)
        if listed.returncode != 0:
            return f"kvexrules list ended with {listed.returncode}: {listed.stderr}"
        names = [line.split(maxsplit=4)[4] for line in listed.stdout.splitlines()]
        priorities = {rule.name: rule.priority for rule in self.rules().values()}
        if [priorities.get(name) for name in names] != sorted(priorities.values()):
            return "kvexrules list does not list what is stored, in its order"
        if self.others() != self.initial_others:
            return "a table changed that the editor only reads"
        return ""

    def restore(self):
        """Makes the initial state again, once no program uses the database."""
        self.rows("DELETE FROM SMS_RULES")
        rows = ", ".join(values((number, *rule)) for number, rule in self.initial.items())
        self.rows(f"INSERT INTO SMS_RULES (ID, {COLUMNS}) VALUES {rows}")

    def stop(self):
        """Ends what runs for it."""


class SqliteFile(Place):
    def __init__(self, folder):
        self.path = folder / "rules.db"
        super().__init__("SQLite", self.path)
        self.copy = Path(shutil.copy(self.path, folder / "copy.db"))

    def rows(self, statement):
        with closing(sqlite3.connect(self.path, timeout=60)) as connection, connection:
            return ["|".join(map(str, row)) for row in connection.execute(statement)]

    def problem(self):
        return super().problem() or ", ".join(
            row for row in self.rows("PRAGMA integrity_check") if row != "ok")

    def restore(self):
        for journal in self.path.parent.glob(f"{self.path.name}-*"):
            journal.unlink()
        shutil.copy(self.copy, self.path)


class ServedDatabase(Place):
    SESSIONS = {
        "postgresql": "SELECT COUNT(*) FROM pg_stat_activity"
                      " WHERE backend_type = 'client backend' AND datname = 'rules'",
        "mariadb": "SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE DB = 'rules'",
    }

    def __init__(self, title, kind):
        self.kind = kind
        self.server = Server(SERVE, kind)
        super().__init__(title, self.server.connection)

    def rows(self, statement):
        return self.server.rows(statement)

    def wait_until_left(self):
        # The server may still run the last statement of a program that is gone.
        wait_for("the server to end the sessions",
                 lambda: self.rows(self.SESSIONS[self.kind]) == ["1"])

    def restore(self):
        if self.rules() != self.initial:
            super().restore()

    def stop(self):
        self.server.stop()


class Places:
    """Gives the database for a seed. The last two of `among` seeds are on a server, all others on
    SQLite. A database starts when it is first asked for, and stops with `stack`."""

    def __init__(self, stack, folder, among):
        self.stack = stack
        self.folder = folder
        self.among = among
        self.started = {}

    def of(self, seed):
        title = {2: "PostgreSQL", 1: "MariaDB"}.get(self.among - seed % self.among, "SQLite")
        if title not in self.started:
            place = (SqliteFile(self.folder) if title == "SQLite"
                     else ServedDatabase(title, title.lower()))
            self.stack.callback(place.stop)
            self.started[title] = place
        return self.started[title]
