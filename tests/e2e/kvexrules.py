"""kvexrules as a process on a desktop, and its database."""

import json
import os
import subprocess
import unittest
from pathlib import Path

from accessibility import Application
from desktop import PATIENCE, TimedOut


class Database:
    """An SQLite file, read and written with the database's own client."""

    def __init__(self, path):
        self.path = path

    def run(self, statement):
        """The rows of the result, each a dictionary."""
        done = subprocess.run(
            ["sqlite3", "-json", "-cmd", ".timeout 5000", self.path, statement],
            capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise RuntimeError(f"{statement}: {done.stderr.strip()}")
        return json.loads(done.stdout) if done.stdout.strip() else []

    def rules(self):
        """In the order in which they apply."""
        return self.run("SELECT ID, Name, QueryParam, ActionParam, PRIORITY, ACTIVE"
                        " FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY, ID")

    def rule(self, name):
        """The rule of this name; None when there is none."""
        return next((rule for rule in self.rules() if rule["Name"] == name), None)


class Program(Application):
    """A program, once it runs. `command` is its file and its arguments."""

    def __init__(self, desktop, command, environ=None):
        self.output = desktop.home / "program.out"
        self.errors = desktop.home / "program.err"
        with self.output.open("wb") as out, self.errors.open("wb") as err:
            super().__init__(desktop, subprocess.Popen(
                command, env=environ, stdin=subprocess.DEVNULL, stdout=out, stderr=err))

    def finish(self):
        """Waits for its end: the exit status and the last line it printed."""
        try:
            status = self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise TimedOut(f"waited {PATIENCE} s for the program to end") from None
        lines = self.output.read_text(encoding="utf-8").splitlines()
        return status, lines[-1] if lines else ""

    def report(self):
        """What helps to find the cause of a failure."""
        return "\n".join([
            "windows:", self.outline(),
            "printed:", self.output.read_text(encoding="utf-8", errors="replace"),
            "errors:", self.errors.read_text(encoding="utf-8", errors="replace")])


class KvexRules(Program):
    """kvexrules edit, once it runs."""

    def __init__(self, desktop, program, database, *arguments):
        super().__init__(
            desktop, [program, "edit", "--log", desktop.home / "kvexrules.log", *arguments],
            environment(database.path))

    def log(self):
        log = self.desktop.home / "kvexrules.log"
        return log.read_text(encoding="utf-8") if log.exists() else ""

    def report(self):
        return "\n".join([super().report(), "log:", self.log()])


class ProgramTest(unittest.TestCase):
    """Tests a program that runs as self.program, and ends it with the test. A failure leaves a
    picture of the screen beside the program's file, and prints a report."""

    program = None

    def tearDown(self):
        if not self.program:
            return
        result = self._outcome.result
        if result.errors or result.failures:
            program = Path(self.program.process.args[0])
            self.program.desktop.screenshot(program.with_name(f"{self.id()}.png"))
            print(self.program.report())
        if self.program.process.poll() is None:
            self.program.process.kill()
            self.program.process.wait()


def environment(path):
    """Names the database in a variable, as arguments are public and it may hold a password."""
    return {**os.environ, "KVEX_DATABASE": str(path)}


def initialise(program, path, *arguments):
    """Lets the program make a new database, or the tables in that of a server."""
    subprocess.run([program, "init", *arguments], check=True, stdout=subprocess.DEVNULL,
                   env=environment(path))
    return Database(path)
