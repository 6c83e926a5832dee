"""Rules are made, changed and ordered in a terminal by keys alone, and stored as on a desktop."""

import contextlib
import io
import unittest
from types import SimpleNamespace

from accessibility import State
from names import ACTIONS, CONDITIONS, NAME, RULES
from session import PROGRAM, SessionTest
from terminal_tour import TerminalTour
from whole_rule import ACTION, LESSER_ACTION, LESSER_QUERY, QUERY, Composer

ALL_MESSAGES = "<ALLMESSAGES>YES</ALLMESSAGES>"
# The windows that the tour shows.
TITLES = {
    "frmAddressBook": "Address Book", "frmRuleAccount": "Select Accounts",
    "frmRuleAlert": "Configure Alert", "frmRuleDate": "Select Date/Time Range",
    "frmRuleDistribute": "Distribution List", "frmRuleEdit": "New Rule",
    "frmRuleOptions": "Rule Condition Options", "frmRulePeople": "Select People",
    "frmRuleReply": "Configure Automated Reply", "frmRuleWords": "Select Words",
    "frmRules": "SMS Rules", "frmRules-ordered": "SMS Rules",
}


class WholeRule(SessionTest):
    def make_rule(self, session, name):
        """Fills the editor of a new rule with the least, and saves it."""
        editor = session.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick("For All Messages")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        editor.text_box(NAME).tab_to().replace(name)
        session.terminal.press("Return")
        return session.window("SMS Rules")

    def assert_stored(self, name, query, action):
        rule = self.database.rule(name)
        self.assertEqual((rule["QueryParam"], rule["ActionParam"]), (query, action))

    def testIsComposedInAllDialogsAndReducedAgain(self):
        self.new_database("--sample")
        session = self.start()
        Composer(session).compose("Whole")
        session.terminal.press("Return")
        rules = session.window("SMS Rules")
        rules.list(RULES).row("Whole").wait_until(State.SELECTED)
        self.assert_stored("Whole", QUERY, ACTION)

        session.terminal.press("alt+m")
        Composer(session).reduce()
        session.terminal.press("alt+o")
        rules.wait_until(State.ACTIVE)
        self.assert_stored("Whole", LESSER_QUERY, LESSER_ACTION)
        session.terminal.press("alt+o")
        self.assertEqual(session.finish(), (0, "result: 99"))
        self.assertTrue(session.terminal.is_as_before())

    def testIsComposedByTheTourWhichKeepsEachWindow(self):
        with contextlib.redirect_stdout(io.StringIO()) as printed:
            status = TerminalTour(SimpleNamespace(home=self.folder), PROGRAM,
                                  self.folder / "pictures").run()
        self.assertEqual(status, 0, printed.getvalue())
        texts = {file.stem: file.read_text(encoding="utf-8")
                 for file in (self.folder / "pictures").glob("*.txt")}
        self.assertEqual({name: text.split("  ")[0].strip() for name, text in texts.items()}, TITLES)
        self.assertEqual({file.stem for file in (self.folder / "pictures").glob("*.png")},
                         set(TITLES))

    def testIsMadeOnEachKindOfTerminal(self):
        self.new_database()
        for kind in ("xterm-256color", "screen", "tmux", "linux", "vt100"):
            with self.subTest(kind):
                session = self.start(kind=kind)
                self.make_rule(session, f"Made on {kind}")
                session.terminal.press("alt+o")
                self.assertEqual(session.finish(), (0, "result: 99"))
                self.assertTrue(session.terminal.is_as_before())
                self.assertIsNotNone(self.database.rule(f"Made on {kind}"))

    def testIsMadeWhereAltDoesNotArrive(self):
        self.new_database()
        session = self.start()
        self.make_rule(session, "By F2")
        session.terminal.press("F2")
        session.terminal.wait_for(
            "the hint", lambda: session.terminal.shows("Press an underlined letter"))
        session.terminal.press("o")
        self.assertEqual(session.finish(), (0, "result: 99"))
        self.assertEqual([rule["Name"] for rule in self.database.rules()], ["By F2"])

    def testIsMovedSwitchedOffAndRemoved(self):
        self.new_database()
        for number, name in enumerate(["Boss", "Weather", "Night"], 1):
            self.database.run("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE)"
                              f" VALUES ('{name}', '{ALL_MESSAGES}', '', {number}, 1)")
        session = self.start()
        session.window("New Rule")
        session.terminal.press("Escape")
        rules = session.window("SMS Rules").list(RULES).tab_to()
        rules.go_to("Night")
        session.terminal.press("alt+u")
        session.terminal.wait_for("the row to move", lambda: rules.row_names()
                                  == ["Boss", "Night", "Weather"])
        rules.tab_to().tick("Weather", False)
        rules.go_to("Boss")
        session.terminal.press("alt+r")
        session.message("Are you sure you want to remove this rule?")
        session.terminal.press("alt+y")
        session.terminal.wait_for("the row to go", lambda: rules.row_names() == ["Night", "Weather"])
        session.terminal.press("alt+o")
        self.assertEqual(session.finish(), (0, "result: 99"))
        self.assertEqual([(rule["Name"], rule["PRIORITY"], rule["ACTIVE"])
                          for rule in self.database.rules()],
                         [("Night", 1, 1), ("Weather", 2, 0)])


if __name__ == "__main__":
    unittest.main()
