"""Input that no user types, broken lines and tiny terminals: nothing stored is lost, and no rule
changes that the user did not change."""

import random
import unittest

from desktop import PATIENCE
from names import ACTIONS, CONDITIONS, NAME
from session import SessionTest

SIZES = [(120, 40), (60, 16), (40, 12), (1, 1), (10, 3), (200, 60), (80, 24)]
# How often the line breaks while a rule is saved.
BROKEN_SAVES = 12
FLOOD = 500_000
# The status of a program that cannot print its result.
UNPRINTED = 2


class BadInput(SessionTest):
    def setUp(self):
        super().setUp()
        self.new_database("--sample")
        self.before = self.database.rules()

    def leave(self, session, result="result: 1"):
        session.terminal.press("Escape")
        session.window("SMS Rules")
        session.terminal.press("Escape")
        self.assertEqual(session.finish(), (0, result))

    def fill(self, session, name):
        editor = session.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick("For All Messages")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        editor.text_box(NAME).tab_to().replace(name)
        return editor

    def testOfManyBytesThatAreNoKeyChangesNothing(self):
        session = self.start()
        session.window("New Rule")
        chance = random.Random(16)
        sent = 0
        while sent < FLOOD:
            # No byte below 0x80 except in sequences that no terminal sends.
            block = bytes(chance.choices(range(0x80, 0x100), k=20_000)) + chance.choice(
                [b"\x1b[999;999;999~", b"\x1b[?7777u", b"\x1bOz", b"\x1b[1;99Q", b"\x00"])
            session.terminal.send(block)
            sent += len(block)
        session.help()
        session.terminal.press("Escape")
        session.window("New Rule")
        self.leave(session)
        self.assertEqual(self.database.rules(), self.before)

    def testOfHalfASequenceIsNotWaitedFor(self):
        session = self.start()
        editor = session.window("New Rule")
        for half in (b"\x1b[", b"\x1b[1;", b"\x1bO", b"\x1b[200", b"\xe2\x80"):
            with self.subTest(half):
                editor.list(CONDITIONS).tab_to()
                session.terminal.send(half)
                editor.list(ACTIONS).tab_to()
        editor.text_box(NAME).tab_to().replace("After all that")
        self.leave(session, "result: 99")
        self.assertEqual(self.database.rules(), self.before)

    def testAPasteWithoutAnEndIsNotWaitedForAfterTheLineBreaks(self):
        session = self.start()
        session.window("New Rule")
        session.terminal.send(b"\x1b[200~never ended")
        session.terminal.hang_up()
        self.assertEqual(session.terminal.process.wait(PATIENCE), UNPRINTED)
        self.assertEqual(self.database.rules(), self.before)

    def testTheWindowKeepsWhatWasTypedInEverySize(self):
        session = self.start()
        self.fill(session, "Kept")
        for columns, rows in SIZES:
            session.terminal.resize(columns, rows)
            if columns >= 40:
                session.terminal.wait_for(f"the name at {columns} x {rows}",
                                          lambda: session.terminal.shows("Kept"))
        session.terminal.press("Return")
        session.window("SMS Rules")
        session.terminal.press("alt+o")
        self.assertEqual(session.finish(), (0, "result: 99"))
        self.assertIsNotNone(self.database.rule("Kept"))

    def testATerminalOfOneCellCanBeUsed(self):
        session = self.start(columns=1, rows=1)
        session.terminal.wait_for("the first picture", lambda: session.terminal.written)
        session.terminal.press("Tab", "shift+Tab", "F1")
        session.terminal.resize(80, 24)
        session.awaited_help()
        session.terminal.press("Escape")
        session.window("New Rule")
        self.leave(session)

    def testAMessageKeepsItsPlaceOverTheWindowInEverySize(self):
        session = self.start()
        editor = session.window("New Rule")
        session.terminal.press("alt+o")
        session.message("Please select some conditions for this Rule.")
        session.terminal.resize(40, 12)
        session.message("Please select some conditions for this Rule.")
        session.terminal.resize(80, 24)
        session.message("Please select some conditions for this Rule.")
        session.terminal.press("Return")
        editor.wait_until_active()

    def testABrokenLineClosesTheWindowsAsByTheirFrames(self):
        session = self.start()
        self.fill(session, "Not saved")
        session.terminal.hang_up()
        self.assertEqual(session.terminal.process.wait(PATIENCE), UNPRINTED)
        self.assertEqual(self.database.rules(), self.before)

    def testALineThatBreaksDuringASaveLeavesARuleWholeOrAbsent(self):
        for number in range(BROKEN_SAVES):
            name = f"Rule of attempt {number}"
            session = self.start()
            self.fill(session, name)
            session.terminal.press("Return")
            if number % 2:
                # The program has begun to write what follows the save.
                written = len(session.terminal.written)
                session.terminal.wait_for("an answer", lambda: len(session.terminal.written) > written)  # pylint: disable=cell-var-from-loop
            session.terminal.hang_up()
            self.assertEqual(session.terminal.process.wait(PATIENCE), UNPRINTED)
            stored = self.database.rule(name)
            if stored:
                self.assertEqual((stored["QueryParam"], stored["ActionParam"]),
                                 ("<ALLMESSAGES>",
                                  "<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"))
            if number % 2:
                self.assertIsNotNone(stored)
        self.assertEqual([rule for rule in self.database.rules()
                          if not rule["Name"].startswith("Rule of attempt")], self.before)


if __name__ == "__main__":
    unittest.main()
