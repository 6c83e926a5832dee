"""Hosts with and without an event loop of their own, and hosts that call from several threads."""

import os
import re
import unittest
from pathlib import Path

from desktop import Desktop, wait_for
from kit import EXAMPLE, PREFIX, PYTHON, for_python, library_folder
from kvexrules import Program, ProgramTest, initialise

DESKTOP = Desktop()
HERE = Path(__file__).parent
QT_HOST = os.environ["QT_HOST"]


def setUpModule():  # pylint: disable=invalid-name
    unittest.enterModuleContext(DESKTOP)


class Loops(ProgramTest):
    """The database has no rules."""

    def setUp(self):
        self.database = initialise(os.environ["KVEXRULES"], DESKTOP.home / f"{self.id()}.db")

    def start(self, *command, environ=None):
        self.program = Program(DESKTOP, command, environ)

    def start_python(self, name):
        environ = for_python()
        # GTK's events block this test's client of accessibility; the windows of the editor do not.
        environ.update(PYTHONPATH=str(EXAMPLE), NO_AT_BRIDGE="1")
        self.start(PYTHON, "-B", HERE / name, library_folder(PREFIX), self.database.path,
                   environ=environ)

    def close_rules(self):
        self.program.window("New Rule")
        DESKTOP.press("Escape")
        self.program.window("SMS Rules")
        DESKTOP.press("Escape")

    def printed(self, line):
        """How often the program has printed this line."""
        return self.program.output.read_text(encoding="utf-8").splitlines().count(line)

    def wait_for_beat(self):
        before = self.printed("beat")
        wait_for("the host's timer", lambda: self.printed("beat") > before)

    def assert_edits_and_goes_on(self):
        """The host's timer runs while the editor is open, and afterwards. It edits twice."""
        for count in (1, 2):
            wait_for("the host's window", lambda: DESKTOP.xdotool(
                "getactivewindow", "getwindowname", may_fail=True) == "Host")
            DESKTOP.press("space")
            self.program.window("New Rule")
            self.wait_for_beat()
            self.close_rules()
            wait_for("the result", lambda count=count: self.printed("result 1") == count)
            self.wait_for_beat()

    def testAQtProgramEditsFromAButton(self):
        self.start(QT_HOST, self.database.path)
        self.assert_edits_and_goes_on()

    def testAQtProgramWithoutWindowsGoesOnAfterTheLastWindow(self):
        self.start(QT_HOST, self.database.path, "unseen")
        self.close_rules()
        self.assertEqual(self.program.finish(), (7, "result 1"))

    def testAGtkProgramEditsFromAButton(self):
        self.start_python("gtk_host.py")
        self.assert_edits_and_goes_on()

    def testAQtProgramThatCallsFromAnotherThreadIsToldWhichOwnsTheWindows(self):
        self.start(QT_HOST, self.database.path, "thread")
        status, last = self.program.finish()
        self.assertEqual(status, 0)
        self.assertRegex(last, r"^5 No window can be shown from the thread \d+ \(qt_host\)\. The"
                               r" windows of this program belong to the thread that made its"
                               r" QApplication\. Call from there\.")
        self.assertIn("result 0\n", self.program.output.read_text(encoding="utf-8"))

    def testAnotherThreadIsToldWhichShowedTheFirstWindow(self):
        self.start_python("threads_host.py")
        self.close_rules()
        status, _ = self.program.finish()
        self.assertEqual(status, 0)
        first, second = re.findall(r"thread (\d+) result (\d+)",
                                   self.program.output.read_text(encoding="utf-8"))
        self.assertEqual((first[1], second[1]), ("1", "0"))
        log = DESKTOP.home / "home" / ".local" / "state" / "kvex" / "KVEX.log"
        self.assertRegex(log.read_text(encoding="utf-8"), (
            rf"No window can be shown from the thread {second[0]} \(.*\)\. The windows of this"
            rf" program belong to the thread {first[0]}(, which has ended| \(.*\))\. It showed the"
            r" first window\. Call from there\."))


if __name__ == "__main__":
    unittest.main()
