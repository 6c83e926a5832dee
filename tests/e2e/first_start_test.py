"""kvexrules on a desktop where the database does not exist yet."""

import os
import unittest
from pathlib import Path

from desktop import Desktop
from kvexrules import Database, KvexRules, ProgramTest

PROGRAM = Path(os.environ["KVEXRULES"])
DESKTOP = Desktop()


def setUpModule():  # pylint: disable=invalid-name
    unittest.enterModuleContext(DESKTOP)


class FirstStart(ProgramTest):
    """The database does not exist yet."""

    def setUp(self):
        self.database = Database(DESKTOP.home / f"{self.id()}.db")
        self.program = KvexRules(DESKTOP, PROGRAM, self.database)
        self.program.message(f"The database file {self.database.path} does not exist. The database"
                             " was named by $KVEX_DATABASE. Make it, without rules?")

    def testYesMakesTheDatabaseAndOpensTheEditor(self):
        DESKTOP.press("alt+y")
        self.program.window("New Rule")
        self.assertEqual(self.database.run("SELECT count(*) AS n FROM SMS_RULES"), [{"n": 0}])
        self.assertEqual(self.database.path.stat().st_mode & 0o777, 0o600)

    def testNoEndsTheProgramAndMakesNothing(self):
        DESKTOP.press("alt+n")
        self.assertEqual(self.program.finish(), (2, ""))
        self.assertEqual(self.program.errors.read_text(encoding="utf-8"),
                         f"kvexrules: The database file {self.database.path} does not exist, and"
                         " was not made. Make it with kvexrules init, or name another"
                         " database.\n")
        self.assertFalse(self.database.path.exists())


if __name__ == "__main__":
    unittest.main()
