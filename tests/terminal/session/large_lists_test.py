"""Lists of many rows in a terminal."""

import unittest

from accessibility import State
from names import CONDITIONS, CONTACTS, FIND, FROM_PEOPLE, RULES, SELECTED_PEOPLE
from session import SessionTest

CONTACTS_STORED = 50_000
RULES_STORED = 10_000


class LargeLists(SessionTest):
    def setUp(self):
        super().setUp()
        self.new_database()

    def fill(self, count, statement):
        self.database.run(f"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
                          f" WHERE i < {count}) {statement}")

    def testTheAddressBookFindsAndSelectsAmongManyContacts(self):
        self.fill(CONTACTS_STORED, "INSERT INTO SMS_CONTACTS (USER_ID, NAME, MOBILE)"
                                   " SELECT 1, printf('Contact %05d', i), printf('98%08d', i) FROM n")
        session = self.start()
        editor = session.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick(FROM_PEOPLE)
        session.terminal.press("alt+e")
        session.window("Select People")
        session.terminal.press("alt+b")
        book = session.window("Address Book")
        contacts = book.list(CONTACTS)
        contacts.row("Contact 00001")
        contacts.tab_to()
        session.terminal.press("End")
        contacts.wait_for_selected("Contact 50000")
        session.terminal.press("space")
        contacts.row("Contact 50000").wait_until(State.CHECKED)
        session.terminal.press("alt+f")
        book.text_box(FIND).wait_until(State.FOCUSED)
        session.terminal.type("9800031415")
        session.terminal.wait_for("the search", lambda: contacts.row_names() == ["Contact 31415"])
        contacts.tab_to().tick("Contact 31415")
        session.terminal.press("Return")
        people = session.window("Select People").list(SELECTED_PEOPLE)
        people.row("    9800031415")
        people.row("    9800050000")

    def testManyRulesAreWalkedToTheEndAndOneIsSwitchedOff(self):
        self.fill(RULES_STORED, "INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE)"
                                " SELECT printf('Rule %05d', i), '<ALLMESSAGES>YES</ALLMESSAGES>',"
                                " '<DELETE>YES</DELETE>', i, 1 FROM n")
        session = self.start()
        session.window("New Rule")
        session.terminal.press("Escape")
        rules = session.window("SMS Rules").list(RULES).tab_to()
        session.terminal.press("End")
        rules.wait_for_selected("Rule 10000")
        session.terminal.press("Prior")
        session.terminal.wait_for("a page up", lambda: rules.selected_name() not in
                                  (None, "Rule 10000"))
        session.terminal.press("End", "space")
        rules.wait_for_selected("Rule 10000").wait_until(State.CHECKED, False)
        session.terminal.press("Escape")
        self.assertEqual(session.finish(), (0, "result: 99"))
        self.assertEqual(self.database.run("SELECT ID FROM SMS_RULES WHERE ACTIVE = 0"),
                         [{"ID": RULES_STORED}])


if __name__ == "__main__":
    unittest.main()
