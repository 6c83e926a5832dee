"""kvexrules on a database server: the rule editor in real windows, rows checked with the server's
own client."""

import os
import subprocess
import unittest
from pathlib import Path

from accessibility import State
from desktop import Desktop
from kvexrules import KvexRules, initialise
from names import ACTIONS, NAME, RULES
from whole_rule import ACTION, QUERY, Composer

PROGRAM = Path(os.environ["KVEXRULES"])
SERVE = Path(os.environ["SERVE"])
DESKTOP = Desktop()


def setUpModule():  # pylint: disable=invalid-name
    unittest.enterModuleContext(DESKTOP)


class Server:
    """A server of its own, with an empty database."""

    def __init__(self, kind):
        self.process = subprocess.Popen([SERVE, kind], text=True, encoding="utf-8",
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.connection = self.process.stdout.readline().strip()

    def rows(self, statement):
        """Each row as text, its columns joined by "|"."""
        print(statement, file=self.process.stdin, flush=True)
        count = int(self.process.stdout.readline())
        return [self.process.stdout.readline().rstrip("\n") for _ in range(count)]

    def stop(self):
        self.process.stdin.close()
        self.process.wait()
        self.process.stdout.close()


class Servers(unittest.TestCase):
    def play(self, kind):
        """On the sample rules: one more is composed by keys alone, another moves and is changed."""
        server = Server(kind)
        self.addCleanup(server.stop)
        database = initialise(PROGRAM, server.connection, "--sample")
        self.addCleanup(lambda: program.process.poll() is None and program.process.kill())

        program = KvexRules(DESKTOP, PROGRAM, database)
        Composer(program).compose("Whole")
        DESKTOP.press("Return")
        rules = program.window("SMS Rules").list(RULES)
        rules.row("Whole").wait_until(State.SELECTED)
        self.assertEqual(
            server.rows("SELECT QueryParam FROM SMS_RULES WHERE Name = 'Whole'"), [QUERY])
        self.assertEqual(
            server.rows("SELECT ActionParam FROM SMS_RULES WHERE Name = 'Whole'"), [ACTION])

        rules.tab_to().go_to("दिल्ली के संदेश")
        DESKTOP.press("alt+u", "alt+m")
        editor = program.window("Modify Rule")
        self.assertEqual(editor.text_box(NAME).text, "दिल्ली के संदेश")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        DESKTOP.press("alt+o")
        program.window("SMS Rules")
        DESKTOP.press("alt+o")
        self.assertEqual(program.finish(), (0, "result: 99"))
        self.assertEqual(
            server.rows("SELECT Name FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY")[:4],
            ["Whole", "Not stopped in March", "दिल्ली के संदेश", "Help 🌙 at night"])
        self.assertEqual(
            server.rows("SELECT Name FROM SMS_RULES WHERE ActionParam LIKE"
                        " '%<DELETE>YES</DELETE>%' AND PRIORITY = 3"), ["दिल्ली के संदेश"])
        self.assertEqual(program.log(), "")

    def testAWholeRuleIsComposedOnPostgreSql(self):
        self.play("postgresql")

    def testAWholeRuleIsComposedOnMariaDb(self):
        self.play("mariadb")


if __name__ == "__main__":
    unittest.main()
