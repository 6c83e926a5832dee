"""Composes one rule by keys alone, with every condition and every action, each in its dialog. The
database must have the sample data."""

from accessibility import State
from names import (ACCOUNTS, ACTIONS, ALERT, ALERT_ACCOUNT, ALERT_TEXT, AS_COMMAND, CONDITIONS,
                   CONTACTS, CONTAINS_WORDS, DELETE, DISTRIBUTE, FROM_PEOPLE, IGNORE_SERVICE, NAME, PEOPLE,
                   RECIPIENTS, REPLY, REPLY_ACCOUNT, REPLY_TEXT, SELECTED_ACCOUNTS,
                   SELECTED_PEOPLE, SELECTED_RECIPIENTS, SELECTED_USERS, SELECTED_WORDS, STOP,
                   THROUGH_ACCOUNTS, USERS, WITHIN_DATES)


def whole_query(accounts):
    """The conditions, with these ids of accounts."""
    return ("<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>"
            "<PEOPLE><CON><ANY>9811100011;9811100022</PEOPLE>"
            f"<ACCOUNT><CON><ANY>{accounts}</ACCOUNT>"
            "<WORD><NOT><ALL><ASCOMMAND>STOP;HALT</WORD>"
            "<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>")


def whole_action(users, account):
    """The actions, with these ids of users, and one account for reply and alert."""
    return (f"<DIST>{users}</DIST><REPLY>Received;{account}</REPLY>"
            f"<ALERT>New message;{account};9811100033;9811100044</ALERT>"
            "<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>")


# For a database in which the ids of the sample count from 1.
QUERY = whole_query("1;4")
ACTION = whole_action("3;7", "2")

# The rule after `reduce`: without service, accounts and deletion.
LESSER_QUERY = ("<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>"
                "<PEOPLE><CON><ANY>9811100011;9811100022</PEOPLE>"
                "<WORD><NOT><ALL><ASCOMMAND>STOP;HALT</WORD>"
                "<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>")
LESSER_ACTION = ("<DIST>3;7</DIST><REPLY>Received;2</REPLY>"
                 "<ALERT>New message;2;9811100033;9811100044</ALERT>"
                 "<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>")


class Composer:
    """Plays the user in the editor of a new rule. `seen(window)` is called with the name of each
    window once it is filled."""

    def __init__(self, program, seen=lambda window: None):
        self.program = program
        self.desktop = program.desktop
        self.seen = seen
        self.editor = None

    def compose(self, name):
        """Fills the editor and leaves it open: Return saves the rule."""
        self.editor = self.program.window("New Rule")
        self.condition(IGNORE_SERVICE)
        self.condition(FROM_PEOPLE, "Select People", self.people)
        self.condition(THROUGH_ACCOUNTS, "Select Accounts", self.accounts)
        self.condition(CONTAINS_WORDS, "Select Words", self.words)
        self.condition(WITHIN_DATES, "Select Date/Time Range", self.dates)
        self.action(DISTRIBUTE, "Distribution List", self.distribution)
        self.action(REPLY, "Configure Automated Reply", self.reply)
        self.action(ALERT, "Configure Alert", self.alert)
        self.action(DELETE)
        self.editor.text_box(NAME).tab_to().replace(name)
        self.seen("frmRuleEdit")

    def reduce(self):
        """Reduces the rule to the lesser one; the editor must be open on it."""
        self.editor = self.program.window("Modify Rule")
        conditions = self.editor.list(CONDITIONS).tab_to()
        conditions.tick(IGNORE_SERVICE, False)
        conditions.tick(THROUGH_ACCOUNTS, False)
        actions = self.editor.list(ACTIONS).tab_to()
        actions.tick(DELETE, False)
        actions.row(STOP).wait_until(State.CHECKED)

    def condition(self, row, title=None, fill=None):
        self.part(CONDITIONS, "alt+e", row, title, fill)

    def action(self, row, title=None, fill=None):
        self.part(ACTIONS, "alt+s", row, title, fill)

    def part(self, rows, key, row, title, fill):
        self.editor.list(rows).tab_to().tick(row)
        if title:
            self.desktop.press(key)
            fill(self.program.window(title))
            self.desktop.press("alt+o")
            self.editor.wait_until(State.ACTIVE)

    def add_typed(self, window, box, entries, added):
        """Types each entry and adds it by Return."""
        typed = window.text_box(box).wait_until(State.FOCUSED)
        for entry in entries:
            typed.replace(entry)
            self.desktop.press("Return")
            window.list(added).row(f"    {entry}")

    def people(self, window):
        self.add_typed(window, PEOPLE, ["9811100011"], SELECTED_PEOPLE)
        self.desktop.press("alt+b")
        self.address_book(self.program.window("Address Book"))
        window.wait_until(State.ACTIVE)
        window.list(SELECTED_PEOPLE).row("    9811100022")
        self.seen("frmRulePeople")

    def address_book(self, window):
        window.list(CONTACTS).tab_to().tick("Field engineer")
        self.seen("frmAddressBook")
        self.desktop.press("Return")

    def accounts(self, window):
        offered = window.list(ACCOUNTS).wait_until(State.FOCUSED)
        for name in ("Main line", "दिल्ली कार्यालय"):
            offered.go_to(name)
            self.desktop.press("Return")
            window.list(SELECTED_ACCOUNTS).row(f"    {name}")
        self.seen("frmRuleAccount")

    def words(self, window):
        self.add_typed(window, "Words", ["STOP", "HALT"], SELECTED_WORDS)
        self.desktop.press("alt+p")
        self.options(self.program.window("Rule Condition Options"))
        window.wait_until(State.ACTIVE)
        # The command box comes after the options, as it sets words to match one by one.
        command = window.check_box(AS_COMMAND).tab_to()
        self.desktop.press("space")
        command.wait_until(State.CHECKED)
        self.seen("frmRuleWords")

    def options(self, window):
        window.option("Message matches any one of the Words below").wait_until(State.FOCUSED)
        self.desktop.press("Up")
        window.option("Message matches all of the Words below").wait_until(State.CHECKED)
        self.desktop.press("Tab")
        window.option("Message contains the Words below").wait_until(State.FOCUSED)
        self.desktop.press("Down")
        window.option("Message does not contain the Words below").wait_until(State.CHECKED)
        self.seen("frmRuleOptions")
        self.desktop.press("Return")

    def dates(self, window):
        for picker, digits, shown in (
            ("From Date", "01032024", "01/03/2024"), ("From Time", "090000", "09:00:00"),
            ("To Date", "31032024", "31/03/2024"), ("To Time", "183000", "18:30:00"),
        ):
            box = window.check_box(f"{picker}: has a value")
            if not box.has(State.CHECKED):
                box.tab_to()
                self.desktop.press("space")
                box.wait_until(State.CHECKED)
            window.picker(picker).tab_to().type_date(digits, shown)
        self.seen("frmRuleDate")

    def distribution(self, window):
        users = window.list(USERS).wait_until(State.FOCUSED)
        for name in ("Ravi Kumar", "Meera Nair"):
            users.tab_to().go_to(name)
            self.desktop.press("alt+s")
            window.list(SELECTED_USERS).row(name)
        self.seen("frmRuleDistribute")

    def message(self, window, text_box, text, accounts):
        window.text_box(text_box).wait_until(State.FOCUSED).replace(text)
        window.list(accounts).tab_to().tick("Bulk sending")

    def reply(self, window):
        self.message(window, REPLY_TEXT, "Received", REPLY_ACCOUNT)
        self.seen("frmRuleReply")

    def alert(self, window):
        self.message(window, ALERT_TEXT, "New message", ALERT_ACCOUNT)
        window.text_box(RECIPIENTS).tab_to()
        self.add_typed(window, RECIPIENTS, ["9811100033", "9811100044"], SELECTED_RECIPIENTS)
        self.seen("frmRuleAlert")
