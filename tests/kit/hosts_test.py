"""The hosts of examples/host, as programs on a desktop."""

import os
import subprocess
import unittest

from accessibility import State
from desktop import Desktop, wait_for
from kit import HOST, PREFIX, PYTHON, PYTHON_EDITOR, PYTHON_READER, for_python, library_folder
from kvexrules import Program, ProgramTest, initialise
from names import ACTIONS, CONDITIONS, DELETE, FROM_PEOPLE, NAME, RULES, SELECTED_PEOPLE

DESKTOP = Desktop()
SEVENTH = ("Apply this Rule after the message arrives\r\nFor ALL Messages"
           "\r\nThen distribute the message to SYSTEM")


def setUpModule():  # pylint: disable=invalid-name
    unittest.enterModuleContext(DESKTOP)


def without_display(*command, environ=None):
    """Runs the command. Its errors go to standard error, because no box can show them."""
    environ = dict(environ or os.environ)
    del environ["DISPLAY"]
    done = subprocess.run(command, env=environ, capture_output=True, check=False)
    done.stdout, done.stderr = (text.decode("utf-8") for text in (done.stdout, done.stderr))
    return done


class Host(ProgramTest):
    """The database has the sample data."""

    def setUp(self):
        self.database = initialise(os.environ["KVEXRULES"], DESKTOP.home / f"{self.id()}.db", "--sample")

    def start(self, *words):
        self.program = Program(DESKTOP, [HOST, self.database.path, *words])

    def python(self, program, *words):
        return [PYTHON, "-B", program, library_folder(PREFIX), self.database.path, *words]

    def close_rules(self):
        DESKTOP.press("Escape")
        self.program.window("SMS Rules")
        DESKTOP.press("Escape")

    def printed(self):
        return self.program.output.read_bytes().decode("utf-8")

    def testItsAddressBookGivesTheNumbersAndTheResultIs99(self):
        self.start("edit", "1", "", "+4411", "+4422")
        editor = self.program.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick(FROM_PEOPLE)
        DESKTOP.press("alt+e")
        people = self.program.window("Select People")
        DESKTOP.press("alt+b")
        people.list(SELECTED_PEOPLE).row("    +4422")
        DESKTOP.press("alt+o")
        editor.wait_until(State.ACTIVE)
        editor.list(ACTIONS).tab_to().tick(DELETE)
        editor.text_box(NAME).tab_to().replace("Callers")
        DESKTOP.press("Return")
        self.program.window("SMS Rules").list(RULES).row("Callers")
        DESKTOP.press("alt+o")
        self.assertEqual(self.program.finish(), (
            0, "The user may have edited something. The rules are read again."))
        self.assertIn("<PEOPLE><CON><ANY>+4411;+4422</PEOPLE>",
                      self.database.rule("Callers")["QueryParam"])

    def testItsAddressBookWithoutNumbersIsReported(self):
        self.start("edit", "1", "")
        editor = self.program.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick(FROM_PEOPLE)
        DESKTOP.press("alt+e")
        people = self.program.window("Select People")
        DESKTOP.press("alt+b")
        people.wait_until(State.ACTIVE)
        DESKTOP.press("Escape")
        editor.wait_until(State.ACTIVE)
        self.close_rules()
        self.program.finish()
        self.assertEqual(self.program.errors.read_text(encoding="utf-8"), (
            "log: KVEXMessageRules: Recipient selection failed on ManageContacts.\n"))

    def testWithoutAnEditTheResultIs1AndTheRuleIsReadAgain(self):
        self.start("edit", "1", "7")
        self.program.window("Modify Rule")
        self.close_rules()
        self.assertEqual(self.program.finish()[0], 0)
        self.assertEqual(self.printed(), (
            f"No edit was noted, but rules may be gone. The rules are read again.\n{SEVENTH}\n"))

    def testItAsksInTheMessageBoxOfTheSuite(self):
        self.start("edit", "1", "1")
        self.program.window("Modify Rule")
        DESKTOP.press("Escape")
        rules = self.program.window("SMS Rules").list(RULES).tab_to()
        before = len(rules.rows())
        DESKTOP.press("alt+r")
        self.program.message("Are you sure you want to remove this rule?")
        DESKTOP.press("alt+y")
        wait_for("the rule to go", lambda: len(rules.rows()) == before - 1)
        DESKTOP.press("Escape")
        self.assertEqual(self.program.finish(), (0, "There is no rule 1"))

    def testWithoutADisplayTheResultIs0AndTheLogSaysWhy(self):
        done = without_display(HOST, self.database.path, "edit", "1", "")
        self.assertEqual((done.returncode, done.stdout),
                         (1, "The editor could not be opened. The log says why.\n"))
        self.assertIn("Sub: ShowRuleUI, Module: RuleUI: error 429, No window can be shown",
                      done.stderr)

    def testItReadsRulesWithoutADisplay(self):
        done = without_display(HOST, self.database.path, "show", "7", "999")
        self.assertEqual(done.stdout, f"{SEVENTH}\nThere is no rule 999\n")

    def testPythonReadsRules(self):
        done = without_display(*self.python(PYTHON_READER, "7"), environ=for_python())
        self.assertEqual(done.stdout, f"{SEVENTH}\n")

    def testPythonOpensTheEditor(self):
        self.program = Program(DESKTOP, self.python(PYTHON_EDITOR, "1", ""), for_python())
        self.program.window("New Rule")
        self.close_rules()
        self.assertEqual(self.program.finish(), (0, "result: 1"))

    def testPythonGetsFailuresAsErrors(self):
        self.database.path.unlink()
        done = without_display(*self.python(PYTHON_READER, "7"), environ=for_python())
        self.assertEqual(done.returncode, 1)
        self.assertIn("OSError: 0x80004005", done.stderr)


if __name__ == "__main__":
    unittest.main()
