"""A moving picture of the real windows: movie.py KVEXRULES FILE.gif

Makes one rule by real keys on a database with the sample data, and takes a picture at each step.
FILE shows these pictures for half a minute, each with a line that says what the user does. Status
1 when a window does not do as expected.
"""

import subprocess
import sys
from pathlib import Path

from accessibility import State
from desktop import Desktop, TimedOut
from kvexrules import KvexRules, initialise
from names import (ACTIONS, CONDITIONS, CONTACTS, CONTAINS_WORDS, DISTRIBUTE, FIND, FROM_PEOPLE,
                   NAME, PEOPLE, RECIPIENTS, REPLY, REPLY_ACCOUNT, REPLY_TEXT, RULES,
                   SELECTED_PEOPLE, SELECTED_USERS, SELECTED_WORDS, USERS)
from screenshots import settings

SIZE = (720, 660)
LINE = 44  # the height of the line below the picture


class Movie:
    """Collects pictures of the whole screen, and for how long each is shown."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.folder = desktop.home / "movie"
        self.line = ""
        self.shown = []  # file, seconds

    def say(self, line):
        self.line = line

    def show(self, seconds):
        picture = self.folder / f"{len(self.shown):03}.png"
        self.desktop.screenshot(picture)
        around = ["-bordercolor", "black", "-border", "1", "-fill", "#46607c",
                  "-draw", "color 0,0 floodfill", "-shave", "1x1"]
        subprocess.run(["convert", picture, *around, "-background", "#232629", "-fill", "#eff0f1",
                        "-gravity", "south", "-splice", f"0x{LINE}", "-font", "DejaVu-Sans",
                        "-pointsize", "17", "-annotate", "+0+11", self.line, picture], check=True)
        self.shown.append((picture, seconds))

    def type(self, text):
        """Shows the typing in a few steps."""
        step = max(1, len(text) // 6)
        for start in range(0, len(text), step):
            self.desktop.type(text[start:start + step])
            self.show(0.1)

    def press(self, key, seconds=0.5):
        self.desktop.press(key)
        self.show(seconds)

    def write(self, file):
        command = ["convert", "-loop", "0"]
        for picture, seconds in self.shown:
            command += ["-delay", str(round(seconds * 100)), picture]
        subprocess.run([*command, "+dither", "-colors", "64", file], check=True)
        subprocess.run(["gifsicle", "--batch", "-O3", "--colors", "256", "--lossy=20", file],
                       check=True)
        return sum(seconds for _, seconds in self.shown)


class Story:
    """What the user does: a rule for alarms, from the first key to its place in the list."""

    def __init__(self, movie, program):
        self.movie = movie
        self.program = program
        self.editor = None

    def play(self):
        self.begin()
        self.people()
        self.words()
        self.distribution()
        self.reply()
        self.finish()

    def begin(self):
        self.editor = self.program.window("New Rule")
        self.movie.say("kvexrules edit opens on a new rule")
        self.movie.show(1.5)

    def tick(self, rows, row, line):
        self.movie.say(line)
        self.editor.list(rows).tab_to().tick(row)
        self.movie.show(1)

    def dialog(self, key, title):
        self.movie.desktop.press(key)
        window = self.program.window(title)
        self.movie.show(0.8)
        return window

    def done(self):
        """OK in the dialog: the editor describes the rule so far."""
        self.movie.desktop.press("alt+o")
        self.editor.wait_until(State.ACTIVE)
        self.movie.show(1.3)

    def people(self):
        self.tick(CONDITIONS, FROM_PEOPLE, "A condition: messages from these people")
        window = self.dialog("alt+e", "Select People")
        window.text_box(PEOPLE).wait_until(State.FOCUSED)
        self.movie.type("9811100011")
        self.movie.press("Return")
        window.list(SELECTED_PEOPLE).row("    9811100011")
        self.movie.say("The address book finds the others")
        book = self.dialog("alt+b", "Address Book")
        book.text_box(FIND).wait_until(State.FOCUSED)
        self.movie.type("field")
        book.list(CONTACTS).tab_to().tick("Field engineer")
        self.movie.show(0.8)
        self.movie.desktop.press("Return")
        window.wait_until(State.ACTIVE)
        window.list(SELECTED_PEOPLE).row("    9811100022")
        self.movie.show(1)
        self.done()

    def words(self):
        self.tick(CONDITIONS, CONTAINS_WORDS, "Another: one of these words")
        window = self.dialog("alt+e", "Select Words")
        window.text_box("Words").wait_until(State.FOCUSED)
        for word in ("ALARM", "FAULT"):
            self.movie.type(word)
            self.movie.press("Return")
            window.list(SELECTED_WORDS).row(f"    {word}")
        self.done()

    def distribution(self):
        self.tick(ACTIONS, DISTRIBUTE, "An action: hand the message to a user")
        window = self.dialog("alt+s", "Distribution List")
        window.list(USERS).wait_until(State.FOCUSED).go_to("Meera Nair")
        self.movie.show(0.6)
        self.movie.press("alt+s")
        window.list(SELECTED_USERS).row("Meera Nair")
        self.done()

    def reply(self):
        self.tick(ACTIONS, REPLY, "Another: answer the sender")
        window = self.dialog("alt+s", "Configure Automated Reply")
        window.text_box(REPLY_TEXT).wait_until(State.FOCUSED)
        self.movie.type("Someone is on the way")
        window.list(REPLY_ACCOUNT).tab_to().tick("Bulk sending")
        self.movie.show(0.8)
        self.done()

    def finish(self):
        self.movie.say("The rule as the server will read it; now a name")
        self.editor.text_box(NAME).tab_to()
        self.movie.desktop.press("ctrl+a")
        self.movie.type("Alarms at night")
        self.movie.show(2)
        self.movie.desktop.press("Return")
        rules = self.program.window("SMS Rules").list(RULES)
        rules.row("Alarms at night").wait_until(State.SELECTED)
        self.movie.say("Saved: the first rule that the server asks")
        self.movie.show(2)
        rules.tab_to().go_to("Strangers")
        self.movie.say("Keys move the rules, and turn them off and on")
        self.movie.show(0.8)
        for _ in range(2):
            self.movie.press("alt+u", 0.8)
        rules.tab_to().tick("Strangers", False)
        self.movie.show(2)
        self.movie.desktop.press("alt+o")
        if self.program.finish() != (0, "result: 99"):
            raise TimedOut("status 0 and result: 99 were expected")


def number_the_rules(database):
    """Numbers the rules without gaps, as the window's OK does."""
    database.run("UPDATE SMS_RULES SET PRIORITY = ID")


def make(kvexrules, file):
    with Desktop(*SIZE, {".config/kdeglobals": settings("light", 9)}) as desktop:
        database = initialise(kvexrules, desktop.home / "sample.db", "--sample")
        number_the_rules(database)
        program = KvexRules(desktop, kvexrules, database)
        movie = Movie(desktop)
        try:
            Story(movie, program).play()
        except TimedOut as missed:
            desktop.screenshot(file.with_suffix(".failure.png"))
            print(f"movie: {missed}\n{program.report()}\n"
                  f"movie: see {file.with_suffix('.failure.png')}", file=sys.stderr)
            return False
        seconds = movie.write(file)
        print(f"movie: {file}, {seconds:.0f} s, {file.stat().st_size // 1024} KiB")
    return True


def main():
    kvexrules, file = (Path(argument).absolute() for argument in sys.argv[1:])
    return 0 if make(kvexrules, file) else 1


if __name__ == "__main__":
    sys.exit(main())
