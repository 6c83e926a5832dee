"""Texts of all kinds are typed, pasted and shown in a terminal, and stored unharmed."""

import re
import unittest

from names import ACTIONS, CONDITIONS, FROM_PEOPLE, NAME, PEOPLE, REPLY, REPLY_ACCOUNT, REPLY_TEXT
from session import SessionTest

NAMES = ["हिन्दी नियम क्षत्रिय", "مرحبا بالعالم", "👩‍👩‍👧‍👦 🇮🇳 👍🏽", "é ñ 漢字 ﬁ", "a\\u{41}%s;--\""]
COLOUR = re.compile(rb"\x1b\[3[0-7]m")


class Text(SessionTest):
    def setUp(self):
        super().setUp()
        self.new_database("--sample")

    def save(self, session, enter, **options):
        editor = session.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick("For All Messages")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        editor.text_box(NAME).tab_to()
        session.terminal.press("ctrl+a")
        enter()
        session.terminal.press("Return")
        session.window("SMS Rules")
        session.terminal.press("alt+o")
        self.assertEqual(session.finish(), (0, "result: 99"))

    def newest(self):
        (row,) = self.database.run("SELECT Name FROM SMS_RULES ORDER BY ID DESC LIMIT 1")
        return row["Name"]

    def testTypedIsStoredAsTyped(self):
        for text in NAMES:
            with self.subTest(text):
                session = self.start()
                self.save(session, lambda: session.terminal.type(text))  # pylint: disable=cell-var-from-loop
                self.assertEqual(self.newest(), text)

    def testPastedIsStoredAsPasted(self):
        for text in NAMES:
            with self.subTest(text):
                session = self.start()
                self.save(session, lambda: session.terminal.paste(text))  # pylint: disable=cell-var-from-loop
                self.assertEqual(self.newest(), text)

    def testOfOneLineTakesTheFirstLine(self):
        session = self.start()
        self.save(session, lambda: session.terminal.paste("First\nSecond"))
        self.assertEqual(self.newest(), "First")

    def testOfANumberTakesTheSameCharactersTypedAndPasted(self):
        session = self.start()
        editor = session.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick(FROM_PEOPLE)
        session.terminal.press("alt+e")
        people = session.window("Select People")
        for enter in (session.terminal.type, session.terminal.paste):
            session.terminal.press("ctrl+a")
            enter("+98x11'1;2<3>")
            session.terminal.wait_for("the text", lambda: people.text_box(PEOPLE).text.endswith("3"))
            self.assertEqual(people.text_box(PEOPLE).text, "9811123")

    def testOfSeveralLinesKeepsThem(self):
        session = self.start()
        editor = session.window("New Rule")
        editor.list(ACTIONS).tab_to().tick(REPLY)
        session.terminal.press("alt+s")
        reply = session.window("Configure Automated Reply").text_box(REPLY_TEXT)
        session.terminal.paste("One\nTwo\r\nThree")
        session.terminal.wait_for("the lines", lambda: [line.strip() for line in reply.text.split("\n")]
                                  [:3] == ["One", "Two", "Three"])

    def testWithAnApostropheIsStoredInAReply(self):
        session = self.start()
        editor = session.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick("For All Messages")
        editor.list(ACTIONS).tab_to().tick(REPLY)
        session.terminal.press("alt+s")
        reply = session.window("Configure Automated Reply")
        reply.text_box(REPLY_TEXT).replace("It's O'Brien")
        reply.list(REPLY_ACCOUNT).tab_to().tick("Bulk sending")
        session.terminal.press("alt+o")
        editor.wait_until_active()
        editor.text_box(NAME).tab_to()
        session.terminal.press("Return")
        session.window("SMS Rules")
        (row,) = self.database.run("SELECT ActionParam FROM SMS_RULES ORDER BY ID DESC LIMIT 1")
        self.assertIn("<REPLY>It's O'Brien;2</REPLY>", row["ActionParam"])

    def testIsEditedByWholeClusters(self):
        session = self.start()

        def enter():
            session.terminal.type("aक्षि👩‍👩‍👧‍👦b")
            session.terminal.press("Left", "Left", "Delete")

        self.save(session, enter)
        self.assertEqual(self.newest(), "aक्षिb")

    def testOfAnotherScriptIsShownAsEscapesInTheCLocaleAndStaysUnharmed(self):
        before = self.database.rules()
        number = next(rule["ID"] for rule in before if rule["Name"].startswith("दि"))
        session = self.start("--rule", str(number), LC_ALL="C")
        editor = session.window("Modify Rule")
        self.assertIn("\\u{938}\\u{902}", editor.text_box(NAME).text)
        editor.list(ACTIONS).tab_to().tick("Delete it")
        session.terminal.press("alt+o")
        session.window("SMS Rules")
        session.terminal.press("alt+o")
        self.assertEqual(session.finish(), (0, "result: 99"))
        self.assertTrue(session.terminal.written.isascii())
        self.assertEqual({rule["ID"]: rule["Name"] for rule in self.database.rules()},
                         {rule["ID"]: rule["Name"] for rule in before})

    def testHasNoColoursWithNoColor(self):
        for variables, has_colours in (({}, True), ({"NO_COLOR": "1"}, False)):
            session = self.start("--rule", "1", **variables)
            session.window("Modify Rule")
            session.terminal.press("Escape")
            session.window("SMS Rules")
            session.terminal.press("Escape")
            session.finish()
            self.assertEqual(bool(COLOUR.search(session.terminal.written)), has_colours)


if __name__ == "__main__":
    unittest.main()
