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
    def __init__(self, desktop, kvexrules, folder):
        self.desktop = desktop
        self.kvexrules = kvexrules
        self.folder = folder
        self.database = initialise(kvexrules, desktop.home / "sample.db", "--sample")
        self.program = None

    def start(self, *arguments):
        self.program = KvexRules(self.desktop, self.kvexrules, self.database, *arguments)

    def finish(self):
        self.desktop.press("alt+o")
        status, result = self.program.finish()
        print(f"tour: kvexrules ended with status {status}, {result}")
        if (status, result) != (0, "result: 99"):
            raise TimedOut("status 0 and result: 99 were expected")

    def picture(self, name):
        path = self.folder / f"{name}.png"
        self.desktop.screenshot_of_active(path)
        print(f"tour: picture {path}")

    def make_a_rule(self, name):
        print(f"tour: kvexrules edit; the new rule {name!r} deletes every message")
        self.start()
        editor = self.program.window("New Rule")
        editor.list(CONDITIONS).tab_to().tick("For All Messages")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        editor.text_box(NAME).tab_to().replace(name)
        self.picture("frmRuleEdit")
        self.desktop.press("Return")
        rules = self.program.window("SMS Rules").list(RULES)
        rules.row(name).wait_until(State.SELECTED)
        self.picture("frmRules")
        self.finish()

    def order_the_rules(self, name):
        number = self.database.rule(name)["ID"]
        print(f"tour: kvexrules edit --rule {number}; it moves down and the one before it goes off")
        self.start("--rule", str(number))
        self.program.window("Modify Rule")
        self.desktop.press("Escape")
        rules = self.program.window("SMS Rules").list(RULES)
        rules.tab_to().go_to(name)
        other = rules.row_names()[1]
        self.desktop.press("alt+d")
        wait_for(f"{name!r} to stand second", lambda: rules.row_names()[:2] == [other, name])
        rules.tab_to().tick(other, not rules.row(other).has(State.CHECKED))
        self.picture("frmRules-ordered")
        self.finish()


def main():
    kvexrules, folder = (Path(argument).absolute() for argument in sys.argv[1:])
    with Desktop() as desktop:
        tour = Tour(desktop, kvexrules, folder)
        print_rules("tour: the rules before", tour.database)
        try:
            tour.make_a_rule("Silence")
            tour.order_the_rules("Silence")
        except TimedOut as missed:
            desktop.screenshot(folder / "failure.png")
            print(f"tour: {missed}\n{tour.program.report()}\ntour: see {folder / 'failure.png'}",
                  file=sys.stderr)
            return 1
        print_rules("tour: the rules after", tour.database)
        return 0


if __name__ == "__main__":
    sys.exit(main())
