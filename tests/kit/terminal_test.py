"""Hosts in a terminal, without a display."""

import os
import tempfile
import unittest
from pathlib import Path

from kit import EXAMPLE, HOST, PREFIX, PYTHON, for_python, library_folder
from kvexrules import initialise
from terminal import Terminal

HERE = Path(__file__).parent


class HostInATerminal(unittest.TestCase):
    """The database has the sample data."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kvex-kit-terminal-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.database = initialise(os.environ["KVEXRULES"], self.folder / "rules.db", "--sample").path

    def start(self, *command, **variables):
        self.terminal = Terminal(command, **variables)
        self.addCleanup(self.terminal.close)

    def start_python(self, name, *words, **variables):
        self.start(PYTHON, "-B", HERE / name, library_folder(PREFIX), self.database, *words,
                   PYTHONPATH=str(EXAMPLE), LD_PRELOAD=for_python()["LD_PRELOAD"], **variables)

    def close_rules(self):
        for window in ("4. Rule Name", "Rule description"):
            self.terminal.wait_for(window, lambda: self.terminal.shows(window))  # pylint: disable=cell-var-from-loop
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
