"""A tour of the windows in a terminal: terminal_tour.py KVEXRULES FOLDER

Plays the tour of e2e/tour.py by keys alone in a terminal of 80 x 24. Puts a text of each window,
and a picture of it, into FOLDER. Status 1 when a window does not do as expected.
"""

import sys
import tempfile
from pathlib import Path
from types import SimpleNamespace

from picture import save_png
from session import Session
from tour import Tour


class TerminalTour(Tour):
    def start(self, *arguments):
        self.program = Session(self.kvexrules, self.database, "--toolkit", "terminal", *arguments)
        self.desktop = self.program.terminal

    def finish(self):
        super().finish()
        if not self.program.terminal.is_as_before():
            raise AssertionError("the terminal is not as it was before")
        self.program.terminal.close()

    def keep_picture(self, name):
        path = self.folder / f"{name}.txt"
        path.parent.mkdir(parents=True, exist_ok=True)
        terminal = self.program.terminal
        path.write_text(terminal.picture(), encoding="utf-8")
        save_png(terminal.screen, path.with_suffix(".png"))
        return path

    def picture(self, name):
        print(f"tour: picture {self.keep_picture(name)}")

    def keep_failure(self):
        return self.keep_picture("failure")


def main():
    kvexrules, folder = (Path(argument).absolute() for argument in sys.argv[1:])
    with tempfile.TemporaryDirectory(prefix="kvex-tour-") as home:
        return TerminalTour(SimpleNamespace(home=Path(home)), kvexrules, folder).run()


if __name__ == "__main__":
    sys.exit(main())
