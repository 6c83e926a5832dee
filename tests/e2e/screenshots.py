"""Pictures of every window: screenshots.py KVEXRULES FOLDER light|dark POINTS

Composes one whole rule by keys on a database with the sample data, in these colours and with a
font of this size, and puts a picture of each window, once it is filled, into FOLDER. Status 1 when
a window does not do as expected.
"""

import subprocess
import sys
from pathlib import Path

from accessibility import State
from desktop import Desktop, TimedOut
from kvexrules import KvexRules, initialise
from names import RULES
from whole_rule import Composer

NAME = "All conditions, all actions"

# Background and text, by what is drawn.
COLOURS = {
    "light": {"Window": ("239,240,241", "35,38,41"), "View": ("252,252,252", "35,38,41"),
              "Button": ("239,240,241", "35,38,41"), "Tooltip": ("247,247,247", "35,38,41"),
              "Selection": ("61,174,233", "252,252,252")},
    "dark": {"Window": ("49,54,59", "239,240,241"), "View": ("35,38,41", "239,240,241"),
             "Button": ("49,54,59", "239,240,241"), "Tooltip": ("49,54,59", "239,240,241"),
             "Selection": ("61,174,233", "252,252,252")},
}


def settings(colours, size):
    """The desktop's settings as its session keeps them for all programs."""
    lines = ["[General]", f"font=DejaVu Sans,{size},-1,5,50,0,0,0,0,0"]
    for group, (background, foreground) in COLOURS[colours].items():
        lines += [f"[Colors:{group}]", f"BackgroundNormal={background}",
                  f"ForegroundNormal={foreground}"]
    return "\n".join(lines) + "\n"


def reduce(picture):
    """Fewer colours: half the size."""
    subprocess.run(["convert", picture, "-strip", "+dither", "-colors", "128",
                    f"png8:{picture}"], check=True)


def take(kvexrules, folder, colours, size):
    with Desktop(1600, 1400, {".config/kdeglobals": settings(colours, size)}) as desktop:
        database = initialise(kvexrules, desktop.home / "sample.db", "--sample")
        program = KvexRules(desktop, kvexrules, database)

        def picture(window):
            desktop.screenshot_of_active(folder / f"{window}.png")
            reduce(folder / f"{window}.png")

        try:
            Composer(program, picture).compose(NAME)
            desktop.press("Return")
            rules = program.window("SMS Rules").list(RULES)
            rules.row(NAME).wait_until(State.SELECTED)
            picture("frmRules")
            desktop.press("Escape")
            program.finish()
        except TimedOut as missed:
            desktop.screenshot(folder / "failure.png")
            print(f"screenshots: {missed}\n{program.report()}\n"
                  f"screenshots: see {folder / 'failure.png'}", file=sys.stderr)
            return False
    print(f"screenshots: {folder}, {colours}, {size} pt")
    return True


def main():
    kvexrules, folder = (Path(argument).absolute() for argument in sys.argv[1:3])
    return 0 if take(kvexrules, folder, sys.argv[3], int(sys.argv[4])) else 1


if __name__ == "__main__":
    sys.exit(main())
