"""The user's steps in kvexrules: keys in real windows, rows in the database."""

import os
import unittest
from pathlib import Path

from accessibility import State
from desktop import Desktop, wait_for
from kvexrules import KvexRules, ProgramTest, initialise
from names import ACTIONS, CONDITIONS, CONTACTS, FIND, NAME, RULES, SELECTED_PEOPLE
from whole_rule import ACTION, LESSER_ACTION, LESSER_QUERY, QUERY, Composer

PROGRAM = Path(os.environ["KVEXRULES"])
DESKTOP = Desktop()

ALL_MESSAGES = "<ALLMESSAGES>"
STOP = "<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"
DELETE = "<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"


def setUpModule():  # pylint: disable=invalid-name
    unittest.enterModuleContext(DESKTOP)


class RuleEditor(ProgramTest):
    """The database has three rules: Boss, Weather and Night, which is switched off."""

    def setUp(self):
        self.database = initialise(PROGRAM, DESKTOP.home / f"{self.id()}.db")
        for number, (name, active) in enumerate([("Boss", 1), ("Weather", 1), ("Night", 0)], 1):
            self.database.run(
                "INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE)"
                f" VALUES ('{name}', '{ALL_MESSAGES}', '{STOP}', {number}, {active})")

    def start(self, *arguments):
        self.program = KvexRules(DESKTOP, PROGRAM, self.database, *arguments)

    def editor(self, title="New Rule"):
        return self.program.window(title)

    def rules_window(self):
        """Starts the program, leaves the editor, and gives the rules window."""
        self.start()
        self.editor()
        DESKTOP.press("Escape")
        return self.program.window("SMS Rules")

    def assert_ends(self, result):
        self.assertEqual(self.program.finish(), (0, f"result: {result}"))

    def stored(self, *columns):
        return [tuple(rule[column] for column in columns) for rule in self.database.rules()]

    def assert_stored(self, name, query, action):
        rule = self.database.rule(name)
        self.assertEqual((rule["QueryParam"], rule["ActionParam"]), (query, action))

    def assert_refused(self, editor, message):
        """OK shows the message; after it, the editor is active again."""
        DESKTOP.press("alt+o")
        self.program.message(message)
        DESKTOP.press("Return")
        editor.wait_until(State.ACTIVE)

    def answer_the_question(self, key):
        self.program.message("Are you sure you want to remove this rule?")
        DESKTOP.press(key)

    def testANewRuleIsMadeByKeyboardAlone(self):
        self.start()
        editor = self.editor()
        editor.list(CONDITIONS).tab_to().tick("For All Messages")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        editor.text_box(NAME).tab_to().replace("Nothing at night")
        DESKTOP.press("Return")
        rules = self.program.window("SMS Rules")
        self.assertEqual(rules.list(RULES).row_names(), ["Nothing at night", "Boss", "Weather", "Night"])
        made = self.database.rule("Nothing at night")
        self.assertEqual((made["QueryParam"], made["ActionParam"]), (ALL_MESSAGES, DELETE))
        self.assertEqual((made["PRIORITY"], made["ACTIVE"]), (0, 1))
        DESKTOP.press("alt+o")
        self.assert_ends(99)
        self.assertEqual(self.stored("Name", "PRIORITY"),
                         [("Nothing at night", 1), ("Boss", 2), ("Weather", 3), ("Night", 4)])

    def testAWholeRuleIsComposedInAllDialogsByKeyboardAlone(self):
        self.database = initialise(PROGRAM, DESKTOP.home / f"{self.id()}-sample.db", "--sample")
        self.start()
        Composer(self.program).compose("Whole")
        DESKTOP.press("Return")
        rules = self.program.window("SMS Rules")
        rules.list(RULES).row("Whole").wait_until(State.SELECTED)
        self.assert_stored("Whole", QUERY, ACTION)

        DESKTOP.press("alt+m")
        Composer(self.program).reduce()
        DESKTOP.press("alt+o")
        rules.wait_until(State.ACTIVE)
        self.assert_stored("Whole", LESSER_QUERY, LESSER_ACTION)
        DESKTOP.press("alt+o")
        self.assert_ends(99)

    def testTheNextNewRuleIsNumberedAfterTheHighestId(self):
        self.start()
        self.assertEqual(self.editor().text_box(NAME).text, "New Rule #4")

    def testARuleIsRenamedAndItsActionsChange(self):
        self.start("--rule", "2")
        editor = self.editor("Modify Rule")
        self.assertEqual(editor.text_box(NAME).text, "Weather")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        wait_for("the last action to be locked", lambda: "Stays ticked" in
                 editor.list(ACTIONS).row("Do not process any more Rules").description)
        editor.text_box(NAME).tab_to().replace("Rain")
        DESKTOP.press("Return")
        self.assertEqual(self.program.window("SMS Rules").list(RULES).row_names(),
                         ["Boss", "Rain", "Night"])
        self.assertEqual(self.database.rule("Rain")["ActionParam"], DELETE)
        DESKTOP.press("alt+o")
        self.assert_ends(99)

    def testModifyOpensTheSelectedRule(self):
        rules = self.rules_window()
        rules.list(RULES).tab_to().go_to("Night")
        DESKTOP.press("alt+m")
        editor = self.editor("Modify Rule")
        self.assertEqual(editor.text_box(NAME).text, "Night")
        self.assertTrue(editor.list(CONDITIONS).row("For All Messages").has(State.CHECKED))

    def testATakenNameIsRefused(self):
        self.start("--rule", "2")
        editor = self.editor("Modify Rule")
        editor.text_box(NAME).tab_to().replace("boss")
        self.assert_refused(
            editor, "A Rule already exists in this name, please select a different name.")
        editor.text_box(NAME).wait_until(State.FOCUSED)
        self.assertEqual(self.stored("Name"), [("Boss",), ("Weather",), ("Night",)])

    def testOkSaysWhatIsMissing(self):
        self.start()
        editor = self.editor()
        self.assert_refused(editor, "Please select some conditions for this Rule.")
        editor.list(CONDITIONS).tab_to().tick("Where the message is From specified people")
        self.assert_refused(editor, "Please select some actions for this Rule.")
        editor.list(ACTIONS).tab_to().tick("Do not process any more Rules")
        editor.text_box(NAME).tab_to().replace("   ")
        self.assert_refused(editor, "Type a name for this Rule.")
        editor.text_box(NAME).wait_until(State.FOCUSED)
        editor.text_box(NAME).replace("Friends")
        self.assert_refused(
            editor, "Insufficient information. Please select the People for this rule.")
        self.assertEqual(len(self.database.rules()), 3)

    def testThePeopleOfARuleComeFromTheAddressBook(self):
        self.database.run(
            "INSERT INTO SMS_CONTACTS (USER_ID, NAME, MOBILE) VALUES (1, 'Asha Rao', '98111-00011'),"
            " (NULL, 'Ravi', '9811100022'), (2, 'Another''s', '3')")
        self.start()
        editor = self.editor()
        editor.list(CONDITIONS).tab_to().tick("Where the message is From specified people")
        DESKTOP.press("alt+e")
        self.program.window("Select People")
        DESKTOP.press("alt+b")
        book = self.program.window("Address Book")
        contacts = book.list(CONTACTS)
        self.assertEqual(contacts.row_names(), ["Asha Rao", "Ravi"])
        book.text_box(FIND).wait_until(State.FOCUSED)
        book.text_box(FIND).replace("9811100011")
        wait_for("the search", lambda: contacts.row_names() == ["Asha Rao"])
        contacts.tab_to().tick("Asha Rao")
        DESKTOP.press("alt+f", "ctrl+a", "BackSpace")
        wait_for("the search to end", lambda: contacts.row_names() == ["Asha Rao", "Ravi"])
        contacts.tab_to().tick("Ravi")
        wait_for("the count", lambda: book.says("2 contacts selected"))
        DESKTOP.press("Return")
        people = self.program.window("Select People")
        wait_for("the numbers", lambda: people.list(SELECTED_PEOPLE).row_names()[1:]
                 == ["    98111-00011", "    9811100022"])

    def testForAllMessagesLocksTheOtherConditions(self):
        self.start()
        conditions = self.editor().list(CONDITIONS).tab_to()
        conditions.tick("Ignore this Rule for Service messages")
        conditions.tick("For All Messages")
        locked = conditions.row("Ignore this Rule for Service messages")
        locked.wait_until(State.CHECKED, False)
        wait_for("the row to say why", lambda: "Not available" in locked.description)

    def testEscapeLeavesTheEditorAndTheRulesUnchanged(self):
        before = self.database.rules()
        self.rules_window()
        DESKTOP.press("Escape")
        self.assert_ends(1)
        self.assertEqual(self.database.rules(), before)

    def testBothWindowsCloseByTheirFrames(self):
        before = self.database.rules()
        self.start()
        self.editor()
        DESKTOP.close_by_frame("New Rule")
        self.program.window("SMS Rules")
        DESKTOP.close_by_frame("SMS Rules")
        self.assert_ends(1)
        self.assertEqual(self.database.rules(), before)

    def testRemoveAsksAndNoKeepsTheRule(self):
        rules = self.rules_window()
        rules.list(RULES).tab_to().go_to("Boss")
        DESKTOP.press("alt+r")
        self.answer_the_question("alt+n")
        self.program.window("SMS Rules")
        self.assertEqual(rules.list(RULES).row_names(), ["Boss", "Weather", "Night"])
        self.assertEqual(len(self.database.rules()), 3)

    def testRemoveAnsweredYesDeletesTheRow(self):
        rules = self.rules_window()
        rules.list(RULES).tab_to().go_to("Boss")
        DESKTOP.press("alt+r")
        self.answer_the_question("alt+y")
        wait_for("the row to go", lambda: rules.list(RULES).row_names() == ["Weather", "Night"])
        self.assertEqual(self.database.run("SELECT ID FROM SMS_RULES ORDER BY ID"),
                         [{"ID": 2}, {"ID": 3}])
        DESKTOP.press("Escape")
        self.assert_ends(1)

    def testARuleSwitchedOffStaysOffAfterCancel(self):
        rules = self.rules_window()
        rules.list(RULES).tab_to().tick("Weather", False)
        wait_for("the row to be stored", lambda: self.database.rule("Weather")["ACTIVE"] == 0)
        DESKTOP.press("Escape")
        self.assert_ends(99)
        self.assertEqual(self.stored("Name", "ACTIVE"), [("Boss", 1), ("Weather", 0), ("Night", 0)])

    def testOkStoresTheOrderOnTheScreen(self):
        rules = self.rules_window()
        rules.list(RULES).tab_to().go_to("Night")
        DESKTOP.press("alt+u")
        wait_for("the row to move",
                 lambda: rules.list(RULES).row_names() == ["Boss", "Night", "Weather"])
        DESKTOP.press("alt+u", "alt+u", "alt+d")
        DESKTOP.press("alt+o")
        self.assert_ends(99)
        self.assertEqual(self.stored("Name", "PRIORITY"), [("Boss", 1), ("Night", 2), ("Weather", 3)])

    def testCancelStoresNoOrder(self):
        rules = self.rules_window()
        rules.list(RULES).tab_to().go_to("Night")
        DESKTOP.press("alt+u")
        wait_for("the row to move",
                 lambda: rules.list(RULES).row_names() == ["Boss", "Night", "Weather"])
        DESKTOP.press("Escape")
        self.assert_ends(99)
        self.assertEqual(self.stored("Name", "PRIORITY"), [("Boss", 1), ("Weather", 2), ("Night", 3)])

    def testAnUnknownRuleLeavesTheRulesWindowOpen(self):
        self.start("--rule", "77")
        self.program.window("SMS Rules")
        self.assertIn("Sub: Form_Load, Module: frmRules", self.program.log())
        DESKTOP.press("Escape")
        self.assert_ends(1)


if __name__ == "__main__":
    unittest.main()
