#!/usr/bin/python3
"""The manual page, read by the programs that check and show manual pages."""

import os
import subprocess
import unittest
from pathlib import Path

PAGE = Path(os.environ["PAGES"], "kvexrules.1")


def printed(*command):
    """What the command prints, errors included."""
    environment = {**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "80", "MAN_KEEP_FORMATTING": ""}
    return subprocess.run(command, env=environment, text=True, check=False,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT).stdout


class ManualPageTest(unittest.TestCase):
    def testMandocFindsNothing(self):
        self.assertEqual(printed("mandoc", "-T", "lint", PAGE), "")

    def testManFindsNothing(self):
        shown = subprocess.run(
            ["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", PAGE], text=True,
            env={**os.environ, "LC_ALL": "C.UTF-8"}, capture_output=True, check=True)
        self.assertEqual(shown.stderr, "")

    def testItShowsCommandsAsTheyAreTyped(self):
        text = printed("man", "-l", PAGE)
        for line in ("NAME\n       kvexrules - edit and list the rules of an SMS notification server\n",
                     "       kvexrules [COMMAND] [OPTION...] [WORD...]\n",
                     "   contacts export [OPTION...] [FILE]\n",
                     "       --format vcard|csv\n",
                     "           $ printf 'Name,Mobile\\nMeera,98111 00066\\nLee,?\\n' > office.csv\n",
                     "EXIT STATUS\n             0   done\n"):
            self.assertIn(line, text)


if __name__ == "__main__":
    unittest.main()
