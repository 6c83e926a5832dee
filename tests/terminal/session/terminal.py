"""A terminal for tests: a program runs in it, and pyte keeps what it shows."""

import codecs
import copy
import fcntl
import os
import pty
import re
import select
import struct
import subprocess
import tempfile
import termios
import time
from pathlib import Path

import pyte
from desktop import PATIENCE, TimedOut
from wcwidth import wcwidth

KEYS = {
    "Escape": "\x1b", "Return": "\r", "Tab": "\t", "shift+Tab": "\x1b[Z", "space": " ",
    "BackSpace": "\x7f", "Delete": "\x1b[3~", "Up": "\x1b[A", "Down": "\x1b[B", "Right": "\x1b[C",
    "Left": "\x1b[D", "Home": "\x1b[H", "End": "\x1b[F", "Prior": "\x1b[5~", "Next": "\x1b[6~",
    "F1": "\x1bOP", "F2": "\x1bOQ", "ctrl+Home": "\x1b[1;5H", "ctrl+End": "\x1b[1;5F",
}
# Modes that a terminal has from the start: wrapping, and a visible cursor.
USUAL_MODES = {7, 25}
ALTERNATE_SCREEN = 1049
PRIVATE_MODE = re.compile(rb"\x1b\[\?([\d;]+)([hl])")


def bytes_of(key):
    """What a terminal sends for a key, named as "alt+o", "ctrl+a", "Down" or "x"."""
    if key in KEYS:
        return KEYS[key]
    modifier, _, letter = key.rpartition("+")
    if modifier == "alt":
        return "\x1b" + letter
    if modifier == "ctrl":
        return chr(ord(letter.upper()) - 0x40)
    return key


class Screen(pyte.Screen):
    """Also has an alternate screen, and keeps characters without a width."""

    def __init__(self, columns, lines):
        self.before = None
        super().__init__(columns, lines)

    def draw(self, data):
        for character in data:
            if wcwidth(character) == 0 and self.cursor.x > 0:
                self.append(character)
            else:
                super().draw(character)

    def append(self, character):
        line = self.buffer[self.cursor.y]
        at = self.cursor.x - 1
        while at > 0 and line[at].data == "":
            at -= 1
        line[at] = line[at]._replace(data=line[at].data + character)

    def set_mode(self, *modes, **options):
        if options.get("private") and ALTERNATE_SCREEN in modes and self.before is None:
            self.before = copy.deepcopy(self.buffer), copy.copy(self.cursor)
            self.erase_in_display(2)
        super().set_mode(*modes, **options)

    def reset_mode(self, *modes, **options):
        super().reset_mode(*modes, **options)
        if options.get("private") and ALTERNATE_SCREEN in modes and self.before is not None:
            buffer, self.cursor = self.before
            self.before = None
            self.buffer.clear()
            self.buffer.update(buffer)
            self.dirty.update(range(self.lines))


class Terminal:
    """A program with its own terminal and home folder. `variables` are added to its environment;
    None removes one."""

    def __init__(self, command, columns=80, rows=24, kind="xterm-256color", home=None, **variables):
        self.folder = None if home else tempfile.TemporaryDirectory(prefix="kvex-terminal-")
        self.home = Path(home or self.folder.name)
        self.screen = Screen(columns, rows)
        self.stream = pyte.Stream(self.screen)
        self.decoder = codecs.getincrementaldecoder("utf-8")(errors="replace")
        self.written = b""
        self.master, line = pty.openpty()
        self.line = os.ttyname(line)
        self.set_size(columns, rows)
        self.settings_before = termios.tcgetattr(line)
        sanitizers = {name: os.environ[name] for name in ("ASAN_OPTIONS", "LSAN_OPTIONS")
                      if name in os.environ}
        environ = {**sanitizers, "HOME": str(self.home), "PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8",
                   "TERM": kind, **variables}
        self.process = subprocess.Popen(
            command, stdin=line, stdout=line, stderr=line, start_new_session=True,
            preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0),
            env={name: value for name, value in environ.items() if value is not None})
        # Kept open: otherwise the settings would go with the last process.
        self.kept = line

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.hang_up()
        if self.folder:
            self.folder.cleanup()

    def hang_up(self):
        """Ends the line, as a broken connection does."""
        for name in ("kept", "master"):
            if getattr(self, name) is not None:
                os.close(getattr(self, name))
                setattr(self, name, None)

    # What the user does.

    def send(self, data):
        view = memoryview(data)
        while view:
            _, ready, _ = select.select([], [self.master], [], PATIENCE)
            if not ready:
                raise TimedOut("the program does not read its terminal")
            view = view[os.write(self.master, view[:512]):]
            self.read(0)

    def press(self, *keys):
        for key in keys:
            self.send(bytes_of(key).encode())

    def type(self, text):
        self.send(text.encode())

    def paste(self, text):
        self.send(b"\x1b[200~" + text.encode() + b"\x1b[201~")

    def click(self, column, row):
        for last in "Mm":
            self.send(f"\x1b[<0;{column + 1};{row + 1}{last}".encode())

    def set_size(self, columns, rows):
        fcntl.ioctl(self.master, termios.TIOCSWINSZ, struct.pack("4H", rows, columns, 0, 0))

    def resize(self, columns, rows):
        self.read(0)
        self.screen.resize(rows, columns)
        self.set_size(columns, rows)

    def signal(self, number):
        os.kill(self.process.pid, number)

    # What the user sees.

    def read(self, seconds):
        """Takes what the program writes within this time."""
        if self.master is None:
            return False
        ready, _, _ = select.select([self.master], [], [], seconds)
        if not ready:
            return False
        try:
            data = os.read(self.master, 65536)
        except OSError:  # the program has closed its side
            return False
        self.written += data
        self.stream.feed(self.decoder.decode(data))
        return bool(data)

    def catch_up(self):
        """Takes all that the program has written. A picture arrives in pieces, so it is whole when
        the program waits for the next key."""
        end = time.monotonic() + PATIENCE
        while self.read(0) or not self.is_waiting() or self.read(0):
            if time.monotonic() > end:
                raise TimedOut(f"the program does not come to rest\n{self.picture()}")
            self.read(0.002)

    def is_waiting(self):
        """Whether the program sleeps or has ended."""
        try:
            with open(f"/proc/{self.process.pid}/stat", encoding="ascii") as file:
                return file.read().rsplit(")", 1)[1].split()[0] not in "RD"
        except FileNotFoundError:
            return True

    def wait_for(self, what, condition):
        """Waits until `condition` gives a true value, and gives that value."""
        end = time.monotonic() + PATIENCE
        while True:
            self.catch_up()
            if value := condition():
                return value
            if time.monotonic() > end or (self.process.poll() is not None and not self.read(0)
                                          and not condition()):
                raise TimedOut(f"waited for {what}\n{self.picture()}\n{self.state()}")
            self.read(0.05)

    def state(self):
        return ("the program runs" if self.process.poll() is None
                else f"the program ended with {self.process.returncode}")

    def ended(self):
        """Waits for the program's end. Gives its exit status; a signal's is negative."""
        end = time.monotonic() + PATIENCE
        while self.process.poll() is None:
            self.read(0.02)
            if time.monotonic() > end:
                raise TimedOut(f"waited for the program to end\n{self.picture()}")
        self.catch_up()
        return self.process.returncode

    def lines(self):
        """The text of each row; the right half of a wide character has none."""
        buffer = self.screen.buffer
        return ["".join(buffer[row][column].data for column in range(self.screen.columns)).rstrip()
                for row in range(self.screen.lines)]

    def picture(self):
        return "\n".join(self.lines()).rstrip() + "\n"

    def shows(self, text):
        return any(text in line for line in self.lines())

    def changed_modes(self):
        """The private modes that are not as in the beginning."""
        modes = set(USUAL_MODES)
        for numbers, change in PRIVATE_MODE.findall(self.written):
            for number in map(int, numbers.split(b";")):
                (modes.add if change == b"h" else modes.discard)(number)
        return modes ^ USUAL_MODES

    def settings(self):
        """The settings of the line, as `stty -g` prints them."""
        return termios.tcgetattr(self.kept)

    def is_as_before(self):
        return (self.settings() == self.settings_before and not self.changed_modes()
                and not self.screen.cursor.hidden)
