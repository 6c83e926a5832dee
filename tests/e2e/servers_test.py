"""kvexrules on every database through ODBC: the rule editor in real windows, rows checked with the
database's own client."""

import os
import subprocess
import unittest
from pathlib import Path
from unittest.mock import patch

from accessibility import State
from desktop import Desktop
from kvexrules import KvexRules, ProgramTest, initialise
from names import ACTIONS, NAME, RULES
from server import Server
from whole_rule import Composer, whole_action, whole_query

PROGRAM = Path(os.environ["KVEXRULES"])
SERVE = Path(os.environ["SERVE"])
DESKTOP = Desktop()


def setUpModule():  # pylint: disable=invalid-name
    unittest.enterModuleContext(DESKTOP)


class File:
    """An SQLite file, reached through ODBC."""

    def __init__(self, path):
        path.touch()
        self.path = path
        self.connection = f"Driver={{SQLite3}};Database={path}"

    def rows(self, statement):
        """In the form of Server.rows."""
        done = subprocess.run(["sqlite3", "-cmd", ".timeout 5000", self.path, statement],
                              capture_output=True, text=True, check=True)
        return done.stdout.splitlines()


def data_source(connection, folder):
    """Makes the data source "SMS server" from this connection string. Gives the environment in
    which ODBC finds it, and the connection string that names it."""
    parts = dict(part.split("=", 1) for part in connection.split(";"))
    user = {key: parts.pop(key) for key in ("UID", "PWD")}
    parts["Driver"] = parts["Driver"].strip("{}")
    file = folder / "odbc.ini"
    file.write_text("\n".join(["[SMS server]", *map("=".join, parts.items()), ""]),
                    encoding="utf-8")
    return {"ODBCINI": str(file)}, ";".join(["DSN=SMS server", *map("=".join, user.items())])


class Servers(ProgramTest):
    def serve(self, kind):
        server = Server(SERVE, kind)
        self.addCleanup(server.stop)
        return server

    def play(self, place, connection):
        """Composes a rule by keys alone beside the sample rules, and moves and changes another."""
        database = initialise(PROGRAM, connection, "--sample")
        self.program = KvexRules(DESKTOP, PROGRAM, database)
        Composer(self.program).compose("Whole")
        DESKTOP.press("Return")
        rules = self.program.window("SMS Rules").list(RULES)
        rules.row("Whole").wait_until(State.SELECTED)

        def ids(table, *names):
            """Some databases leave ids out."""
            return ";".join(place.rows(f"SELECT ID FROM {table} WHERE NAME = '{name}'")[0]
                            for name in names)

        self.assertEqual(
            place.rows("SELECT QueryParam FROM SMS_RULES WHERE Name = 'Whole'"),
            [whole_query(ids("SMS_ACCOUNT", "Main line", "दिल्ली कार्यालय"))])
        self.assertEqual(
            place.rows("SELECT ActionParam FROM SMS_RULES WHERE Name = 'Whole'"),
            [whole_action(ids("SMS_USERS", "Ravi Kumar", "Meera Nair"),
                          ids("SMS_ACCOUNT", "Bulk sending"))])

        rules.tab_to().go_to("दिल्ली के संदेश")
        DESKTOP.press("alt+u", "alt+m")
        editor = self.program.window("Modify Rule")
        self.assertEqual(editor.text_box(NAME).text, "दिल्ली के संदेश")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        DESKTOP.press("alt+o")
        self.program.window("SMS Rules")
        DESKTOP.press("alt+o")
        self.assertEqual(self.program.finish(), (0, "result: 99"))
        self.assertEqual(
            place.rows("SELECT Name FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY")[:4],
            ["Whole", "Not stopped in March", "दिल्ली के संदेश", "Help 🌙 at night"])
        self.assertEqual(
            place.rows("SELECT Name FROM SMS_RULES WHERE ActionParam LIKE"
                       " '%<DELETE>YES</DELETE>%' AND PRIORITY = 3"), ["दिल्ली के संदेश"])
        self.assertEqual(self.program.log(), "")

    def testAWholeRuleIsComposedOnPostgreSql(self):
        server = self.serve("postgresql")
        self.play(server, server.connection)

    def testAWholeRuleIsComposedOnMariaDbByItsDataSource(self):
        server = self.serve("mariadb")
        environment, connection = data_source(server.connection, DESKTOP.home)
        with patch.dict(os.environ, environment):
            self.play(server, connection)

    def testAWholeRuleIsComposedOnAClusterAndSeenOnAnotherNode(self):
        cluster = self.serve("galera")
        self.play(cluster, cluster.connection)

    def testAWholeRuleIsComposedInAnSqliteFileThroughOdbc(self):
        file = File(DESKTOP.home / "rules.db")
        self.play(file, file.connection)


if __name__ == "__main__":
    unittest.main()
