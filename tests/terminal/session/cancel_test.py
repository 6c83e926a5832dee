"""Esc leaves every window of the editor in a terminal, and stores nothing."""

import unittest

from names import (ACTIONS, ALERT, CONDITIONS, CONTAINS_WORDS, DISTRIBUTE, FROM_PEOPLE, NAME, REPLY, RULES,
                   THROUGH_ACCOUNTS, WITHIN_DATES)
from session import SessionTest

CONDITION_DIALOGS = {
    FROM_PEOPLE: "Select People", THROUGH_ACCOUNTS: "Select Accounts",
    CONTAINS_WORDS: "Select Words", WITHIN_DATES: "Select Date/Time Range",
}
ACTION_DIALOGS = {
    DISTRIBUTE: "Distribution List", REPLY: "Configure Automated Reply", ALERT: "Configure Alert",
}


class Cancel(SessionTest):
    def setUp(self):
        super().setUp()
        self.new_database("--sample")

    def leave_dialogs(self, session, rows, key, dialogs):
        editor = session.window("New Rule")
        for row, title in dialogs.items():
            editor.list(rows).tab_to().tick(row)
            session.terminal.press(key)
            session.window(title)
            session.terminal.press("Escape")
            session.window("New Rule")

    def testLeavesEveryDialog(self):
        before = self.database.rules()
        session = self.start()
        self.leave_dialogs(session, CONDITIONS, "alt+e", CONDITION_DIALOGS)
        self.leave_dialogs(session, ACTIONS, "alt+s", ACTION_DIALOGS)
        session.terminal.press("Escape")
        session.window("SMS Rules")
        session.terminal.press("Escape")
        self.assertEqual(session.finish(), (0, "result: 99"))
        self.assertEqual(self.database.rules(), before)

    def testLeavesTheDialogsOverOthers(self):
        before = self.database.rules()
        session = self.start()
        editor = session.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick(FROM_PEOPLE)
        session.terminal.press("alt+e")
        people = session.window("Select People")
        session.terminal.press("alt+b")
        session.window("Address Book")
        session.terminal.press("Escape")
        people.wait_until_active()
        session.terminal.press("Escape")
        session.window("New Rule")
        session.help()
        session.terminal.press("Escape")
        editor.wait_until_active()
        editor.text_box(NAME).tab_to().replace("Not this")
        session.terminal.press("Escape")
        session.window("SMS Rules")
        session.terminal.press("Escape")
        self.assertEqual(session.finish(), (0, "result: 99"))
        self.assertEqual(self.database.rules(), before)

    def testLeavesTheQuestionAndTheOrder(self):
        before = self.database.rules()
        session = self.start()
        session.window("New Rule")
        session.terminal.press("Escape")
        rules = session.window("SMS Rules").list(RULES).tab_to()
        names = rules.row_names()
        rules.go_to(names[1])
        session.terminal.press("alt+r")
        session.message("Are you sure you want to remove this rule?")
        session.terminal.press("Escape")
        session.window("SMS Rules")
        rules.tab_to().go_to(names[1])
        session.terminal.press("alt+d")
        session.terminal.wait_for("the row to move", lambda: rules.row_names()[1] == names[2])
        session.terminal.press("Escape")
        self.assertEqual(session.finish(), (0, "result: 99"))
        self.assertEqual(self.database.rules(), before)

    def testAfterAnErrorTheWindowStaysAndTheMessageStandsOverIt(self):
        session = self.start()
        editor = session.window("New Rule")
        session.terminal.press("alt+o")
        session.message("Please select some conditions for this Rule.")
        self.assertTrue(session.terminal.shows("New Rule"))
        session.terminal.press("Return")
        editor.wait_until_active()


if __name__ == "__main__":
    unittest.main()
