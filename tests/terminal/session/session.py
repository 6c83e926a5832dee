"""kvexrules edit on a terminal, and its database."""

import os
import tempfile
import unittest
from pathlib import Path

from accessibility import State
from kvexrules import initialise
from terminal import Terminal
from windows import Window, box_text, box_title, words

PROGRAM = Path(os.environ.get("KVEXRULES", "kvexrules"))


class Session:
    """kvexrules edit, once it runs. It can take the place of a program on a desktop."""

    def __init__(self, program, database, *arguments, **options):
        self.database = database
        self.terminal = Terminal(
            [program, "edit", "--log", database.path.with_suffix(".log"), *arguments],
            KVEX_DATABASE=str(database.path), **options)
        self.desktop = self.terminal  # its keys

    def window(self, title):
        return Window(self.terminal, title).wait_until(State.ACTIVE)

    def message(self, text):
        """Waits for the box with this text."""
        self.terminal.wait_for(f"the message {text!r}",
                               lambda: words(text) in box_text(self.terminal))

    def help(self):
        """Opens the box with the keys."""
        self.terminal.press("F1")
        self.awaited_help()

    def awaited_help(self):
        self.terminal.wait_for("the keys", lambda: box_title(self.terminal) == "Help")

    def printed(self):
        """What the user sees after the windows have gone."""
        return [line for line in self.terminal.lines() if line]

    def finish(self):
        """Waits for its end: the exit status and the last line it printed."""
        status = self.terminal.ended()
        lines = self.printed()
        return status, lines[-1] if lines else ""

    def report(self):
        """What helps to find the cause of a failure."""
        return "\n".join([self.terminal.state(), self.terminal.picture(), "log:", self.log()])

    def log(self):
        log = self.database.path.with_suffix(".log")
        return log.read_text(encoding="utf-8") if log.exists() else ""


class SessionTest(unittest.TestCase):
    """Starts sessions, which end with the test."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kvex-terminal-test-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def new_database(self, *arguments):
        self.database = initialise(PROGRAM, self.folder / "rules.db", *arguments)
        return self.database

    def start(self, *arguments, **options):
        session = Session(PROGRAM, self.database, *arguments, **options)
        self.addCleanup(session.terminal.close)
        return session
