"""What the editor does with the locale of its process."""

import os
import unittest
from pathlib import Path

from desktop import Desktop
from kit import EXAMPLE, PREFIX, PYTHON, for_python, library_folder, run
from kvexrules import Program, ProgramTest, initialise

DESKTOP = Desktop()
GERMAN = "de_DE.UTF-8"
OTHERS = "LC_NUMERIC={0} LC_TIME={0} LC_COLLATE={0} LC_MONETARY={0} LC_MESSAGES={0}"


def setUpModule():  # pylint: disable=invalid-name
    unittest.enterModuleContext(DESKTOP)


class Locale(ProgramTest):
    """The user's locale is German, whose decimal point is a comma."""

    def locales(self, of_process):
        """The locales that the host prints, whose own locale is `of_process` at its start."""
        run("localedef", "-f", "UTF-8", "-i", "de_DE", DESKTOP.home / GERMAN)
        database = initialise(os.environ["KVEXRULES"], DESKTOP.home / f"{self.id()}.db", "--sample")
        environ = for_python()
        environ.update(LOCPATH=str(DESKTOP.home), LC_ALL=GERMAN, PYTHONPATH=str(EXAMPLE))
        self.program = Program(
            DESKTOP, [PYTHON, "-B", Path(__file__).with_name("locale_host.py"),
                      library_folder(PREFIX), database.path, of_process], environ)
        self.program.window("New Rule")
        DESKTOP.press("Escape")
        self.program.window("SMS Rules")
        DESKTOP.press("Escape")
        self.assertEqual(self.program.finish()[0], 0)
        lines = self.program.output.read_text(encoding="utf-8").splitlines()
        self.assertIn("result 1", lines)
        return [line.removeprefix("LOCALE ") for line in lines if line.startswith("LOCALE ")]

    def testOnlyTheCharactersFollowTheUser(self):
        unchanged = "LC_CTYPE=C " + OTHERS.format("C")
        self.assertEqual(self.locales("C"), [
            unchanged, unchanged, f"LC_CTYPE={GERMAN} " + OTHERS.format("C")])

    def testALocaleThatTheHostHasSetStays(self):
        unchanged = f"LC_CTYPE={GERMAN} " + OTHERS.format(GERMAN)
        self.assertEqual(self.locales(""), [unchanged] * 3)


if __name__ == "__main__":
    unittest.main()
