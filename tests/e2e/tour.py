"""A tour of the windows: tour.py KVEXRULES FOLDER

Makes a rule, orders the list and switches a rule off by real key presses, on a database of its
own; puts a picture of each window into FOLDER. Status 1 when a window does not do as expected.
"""

import sys
from pathlib import Path

from accessibility import State
from desktop import Desktop, TimedOut, wait_for
from kvexrules import KvexRules, initialise
from names import ACTIONS, CONDITIONS, NAME, RULES


def print_rules(heading, database):
    print(heading)
    for rule in database.rules():
        switch = "on " if rule["ACTIVE"] == 1 else "off"
        print(f"  {rule['PRIORITY']:3} {switch} {rule['ID']:3} {rule['Name']}")


class Tour:
    def __init__(self, desktop, program, database, folder):
        self.desktop = desktop
        self.program = program
        self.database = database
        self.folder = folder

    def picture(self, name):
        path = self.folder / f"{name}.png"
        self.desktop.screenshot_of_active(path)
        print(f"tour: {path}")

    def make_a_rule(self, name):
        editor = self.program.window("New Rule")
        print(f"tour: the rule editor is open; a new rule deletes all messages: {name}")
        editor.list(CONDITIONS).tab_to().tick("For All Messages")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        editor.text_box(NAME).tab_to().replace(name)
        self.picture("frmRuleEdit")
        self.desktop.press("Return")
        wait_for("the new rule in the database", lambda: self.database.rule(name))

    def order_the_rules(self, name):
        rules = self.program.window("SMS Rules").list(RULES)
        rules.tab_to().go_to(name)
        self.picture("frmRules")
        print("tour: the new rule moves down, and the rule now before it is switched off")
        at = rules.row_names().index(name)
        self.desktop.press("alt+d")
        wait_for("the new rule to move", lambda: rules.row_names().index(name) == at + 1)
        other = rules.row_names()[at]
        rules.tab_to().tick(other, not rules.row(other).has(State.CHECKED))
        self.picture("frmRules-ordered")
        self.desktop.press("alt+o")


def main():
    kvexrules, folder = (Path(argument).absolute() for argument in sys.argv[1:])
    with Desktop() as desktop:
        database = initialise(kvexrules, desktop.home / "sample.db", "--sample")
        print_rules("tour: the rules before", database)
        program = KvexRules(desktop, kvexrules, database)
        tour = Tour(desktop, program, database, folder)
        try:
            tour.make_a_rule("Silence")
            tour.order_the_rules("Silence")
            status, result = program.finish()
        except TimedOut as missed:
            desktop.screenshot(folder / "failure.png")
            print(f"tour: {missed}\n{program.report()}\ntour: see {folder / 'failure.png'}",
                  file=sys.stderr)
            return 1
        print_rules("tour: the rules after", database)
        print(f"tour: kvexrules ended with status {status}, {result}")
        return 0 if (status, result) == (0, "result: 99") else 1


if __name__ == "__main__":
    sys.exit(main())
