"""The toolkit that kvexrules edit takes where there is a terminal."""

import subprocess
import unittest

from session import PROGRAM, SessionTest
from terminal import Terminal
from windows import box_text

UNREACHABLE = ":7777"


class Choice(SessionTest):
    def assert_opens(self, *arguments, **variables):
        """The windows open in the terminal."""
        session = self.start(*arguments, **variables)
        session.window("New Rule")
        session.terminal.press("Escape")
        session.window("SMS Rules")
        session.terminal.press("Escape")
        self.assertEqual(session.finish(), (0, "result: 1"))

    def testIsTheTerminalWithoutADisplay(self):
        self.new_database()
        self.assert_opens()
        self.assert_opens(DISPLAY="", WAYLAND_DISPLAY="")

    def testIsTheTerminalWhereTheDisplayCannotBeReached(self):
        self.new_database()
        self.assert_opens(DISPLAY=UNREACHABLE)

    def testIsTheTerminalThatTheUserNames(self):
        self.new_database()
        self.assert_opens("--toolkit", "terminal", QT_QPA_PLATFORM="offscreen")
        self.assert_opens(KVEX_TOOLKIT="terminal", QT_QPA_PLATFORM="offscreen")
        self.assert_opens("--toolkit=terminal", KVEX_TOOLKIT="qt")

    def testIsNotTheTerminalWhereThereIsADisplay(self):
        self.new_database()
        session = self.start(QT_QPA_PLATFORM="offscreen", QT_DEBUG_PLUGINS="1")
        session.terminal.wait_for("Qt's windows", lambda: b"libqoffscreen" in session.terminal.written
                                  and b"styles" in session.terminal.written)
        self.assertNotIn(b"\x1b[?1049h", session.terminal.written)

    def testAsksForTheDatabaseInTheTerminal(self):
        path = self.folder / "new.db"
        terminal = Terminal(["/bin/sh", "-c", f"exec {PROGRAM} edit 2>{self.folder}/errors"],
                            KVEX_DATABASE=str(path))
        self.addCleanup(terminal.close)
        terminal.wait_for("the question", lambda: "Make it, without rules?" in box_text(terminal))
        terminal.press("alt+y")
        terminal.wait_for("the editor", lambda: terminal.shows("4. Rule Name"))
        self.assertTrue(path.exists())
        terminal.press("Escape")
        terminal.wait_for("the rules", lambda: terminal.shows("Rule description"))
        terminal.press("Escape")
        self.assertEqual(terminal.ended(), 0)
        self.assertEqual((self.folder / "errors").read_text(encoding="utf-8"), "")

    def testMakesNoDatabaseAfterNo(self):
        path = self.folder / "new.db"
        terminal = Terminal(["/bin/sh", "-c", f"exec {PROGRAM} edit 2>{self.folder}/errors"],
                            KVEX_DATABASE=str(path))
        self.addCleanup(terminal.close)
        terminal.wait_for("the question", lambda: "Make it, without rules?" in box_text(terminal))
        terminal.press("alt+n")
        self.assertEqual(terminal.ended(), 2)
        self.assertFalse(path.exists())

    def testNeedsInputAndOutputOfATerminal(self):
        self.new_database()
        terminal = Terminal(["/bin/sh", "-c", f"{PROGRAM} edit --toolkit terminal </dev/null"],
                            KVEX_DATABASE=str(self.database.path))
        self.addCleanup(terminal.close)
        self.assertEqual(terminal.ended(), 2)
        self.assertIn("are no terminal", " ".join(terminal.lines()))
        self.assertTrue(terminal.is_as_before())

    def testKeepsTheDiagnosticStreamForTheEnd(self):
        self.new_database("--sample")
        self.database.run("CREATE TRIGGER never BEFORE UPDATE ON SMS_RULES"
                          " BEGIN SELECT RAISE(ABORT, 'never here'); END")
        session = self.start()
        session.window("New Rule")
        session.terminal.press("Escape")
        rules = session.window("SMS Rules")
        name = rules.list("These rules will be applied to incoming short messages").tab_to()
        session.terminal.press("Home", "space")
        session.message("never here")
        before = session.terminal.picture()
        self.assertEqual(before.count("never here"), 1)
        session.terminal.press("Return")
        rules.wait_until_active()
        session.terminal.press("Escape")
        session.finish()
        self.assertTrue(any("never here" in line for line in session.printed()),
                        session.terminal.picture())
        del name


class TwoPrograms(SessionTest):
    def testUseTwoTerminalsAtOnce(self):
        self.new_database()
        sessions = [self.start(), self.start(kind="screen")]
        for session in sessions:
            session.window("New Rule")
        for session in sessions:
            session.terminal.press("Escape")
            session.window("SMS Rules")
            session.terminal.press("Escape")
            self.assertEqual(session.finish(), (0, "result: 1"))


if __name__ == "__main__":
    unittest.main()
