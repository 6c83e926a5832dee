"""Hosts in a terminal, without a display."""

import os
import tempfile
import unittest
from pathlib import Path

from accessibility import State
from kit import EXAMPLE, HOST, PREFIX, PYTHON, for_python, library_folder
from kvexrules import initialise
from names import RULES
from terminal import Terminal
from windows import Window

HERE = Path(__file__).parent


class HostInATerminal(unittest.TestCase):
    """The database has the sample data."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kvex-kit-terminal-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.rules = initialise(os.environ["KVEXRULES"], self.folder / "rules.db", "--sample")
        self.database = self.rules.path

    def start(self, *command, **options):
        self.terminal = Terminal(command, **options)
        self.addCleanup(self.terminal.close)

    def start_python(self, name, *words, **options):
        self.start(PYTHON, "-B", HERE / name, library_folder(PREFIX), self.database, *words,
                   PYTHONPATH=str(EXAMPLE), LD_PRELOAD=for_python()["LD_PRELOAD"], **options)

    def close_rules(self):
        self.close_window("4. Rule Name")
        self.close_window("Rule description")

    def close_window(self, text):
        self.terminal.wait_for(text, lambda: self.terminal.shows(text))
        self.terminal.press("Escape")

    def printed(self, begin):
        """The lines on the terminal that begin so, once the host has ended. It is as before then."""
        self.assertEqual(self.terminal.ended(), 0, self.terminal.picture())
        self.assertTrue(self.terminal.is_as_before())
        return [line for line in self.terminal.lines() if line.startswith(begin)]

    def testEditsThereAndGoesOn(self):
        self.start(HOST, self.database, "edit", "1", "7")
        self.close_rules()
        self.assertEqual(self.printed("No edit"), [
            "No edit was noted, but rules may be gone. The rules are read again."])
        self.assertTrue(self.terminal.shows("Apply this Rule after the message arrives"))

    def testWritesItsLogAfterTheWindows(self):
        self.rules.run("UPDATE SMS_USERS SET NAME = NULL WHERE NAME = 'SYSTEM'")
        self.start(HOST, self.database, "edit", "1", "", columns=120)
        self.close_window("4. Rule Name")
        Window(self.terminal, "SMS Rules").wait_until(State.ACTIVE).list(RULES).tab_to()
        self.terminal.press("End")
        self.terminal.wait_for("rule 7", lambda: self.terminal.shows("Then distribute"))
        self.assertNotIn(b"log:", self.terminal.written)
        self.close_window("Rule description")
        self.assertEqual(set(self.printed("log:")), {
            "log: KVEXMessageRules: Error occured. Sub: GetUserName, Module: General: error 94,"
            " Invalid use of Null"})

    def testMayEditOnOneThreadAfterTheOther(self):
        self.start_python("threads_host.py")
        self.close_rules()
        self.close_rules()
        first, second = (line.split() for line in self.printed("thread"))
        self.assertNotEqual(first[1], second[1])
        self.assertEqual((first[2:], second[2:]), (["result", "1"], ["result", "1"]))

    def testKeepsItsLocale(self):
        self.start_python("locale_host.py", "C", rows=50)
        self.close_rules()
        lines = self.printed("LOCALE")
        self.assertEqual(len(lines), 3)
        self.assertEqual(set(lines), {lines[0]})
        self.assertIn("LC_CTYPE=C LC_NUMERIC=C ", lines[0])


if __name__ == "__main__":
    unittest.main()
