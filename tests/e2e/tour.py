"""A tour of the windows: tour.py KVEXRULES FOLDER

Composes a rule of all conditions and all actions, orders the list and switches a rule off by real
key presses, on a database of its own; puts a picture of each window into FOLDER. Status 1 when a window does not do as expected.
"""

import sys
from pathlib import Path

from accessibility import State
from desktop import Desktop, TimedOut, wait_for
from kvexrules import KvexRules, initialise
from names import RULES
from whole_rule import ACTION, QUERY, Composer


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

    def compose_a_rule(self, name):
        print(f"tour: kvexrules edit; the new rule {name!r} gets every condition and every action")
        self.start()
        Composer(self.program, self.picture).compose(name)
        self.desktop.press("Return")
        rules = self.program.window("SMS Rules").list(RULES)
        rules.row(name).wait_until(State.SELECTED)
        self.picture("frmRules")
        self.finish()
        stored = self.database.rule(name)
        for column, expected in (("QueryParam", QUERY), ("ActionParam", ACTION)):
            print(f"tour: {column} {stored[column]}")
            if stored[column] != expected:
                raise TimedOut(f"{expected} was expected")

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


    def keep_failure(self):
        """Keeps what the user sees now. Gives the file."""
        path = self.folder / "failure.png"
        self.desktop.screenshot(path)
        return path

    def run(self):
        """Plays the whole tour. Gives its exit status."""
        print_rules("tour: the rules before", self.database)
        try:
            self.compose_a_rule("Everything")
            self.order_the_rules("Everything")
        except TimedOut as missed:
            print(f"tour: {missed}\n{self.program.report()}\ntour: see {self.keep_failure()}",
                  file=sys.stderr)
            return 1
        print_rules("tour: the rules after", self.database)
        return 0


def main():
    kvexrules, folder = (Path(argument).absolute() for argument in sys.argv[1:])
    with Desktop() as desktop:
        return Tour(desktop, kvexrules, folder).run()


if __name__ == "__main__":
    sys.exit(main())
