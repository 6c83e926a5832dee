"""A shell in tmux, where programs can be stopped and continued as users do."""

import os
import shlex
import subprocess
import tempfile
import time
from pathlib import Path

from desktop import PATIENCE, TimedOut

# What tmux knows of the state of a terminal.
STATE = ("alternate_on", "cursor_flag", "insert_flag", "keypad_cursor_flag", "keypad_flag",
         "mouse_any_flag", "mouse_button_flag", "mouse_standard_flag", "origin_flag", "wrap_flag",
         "pane_in_mode")


class Tmux:
    """A tmux of its own with one shell. `kind` is the type of terminal that its programs see."""

    def __init__(self, kind, columns=80, rows=24, **variables):
        self.folder = tempfile.TemporaryDirectory(prefix="kvex-tmux-")
        self.home = Path(self.folder.name)
        self.environ = {"HOME": str(self.home), "PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8",
                        "TMUX_TMPDIR": str(self.home), **variables}
        (self.home / "tmux.conf").write_text(
            f"set -g default-terminal {kind}\nset -g mouse on\nset -s escape-time 0\n",
            encoding="utf-8")
        (self.home / "bashrc").write_text("PS1='$ '\n", encoding="utf-8")
        self.run("new-session", "-d", "-x", str(columns), "-y", str(rows),
                 f"bash --rcfile {self.home}/bashrc")
        try:
            self.wait_for("the prompt", lambda: self.lines()[0].startswith("$"))
        except TimedOut:
            self.close()
            raise

    def close(self):
        server = int(self.run("display-message", "-p", "#{pid}"))
        shell = int(self.run("display-message", "-p", "#{pane_pid}"))
        self.run("kill-server")
        end = time.monotonic() + PATIENCE
        while (is_running(server) or is_running(shell)) and time.monotonic() < end:
            time.sleep(0.02)
        self.folder.cleanup()

    def command(self, *words):
        return ["tmux", "-f", str(self.home / "tmux.conf"), *words]

    def run(self, *words):
        done = subprocess.run(self.command(*words), capture_output=True, text=True, check=False,
                              env=self.environ)
        if done.returncode != 0:
            raise RuntimeError(f"tmux {words}: {done.stderr}")
        return done.stdout

    def press(self, *keys):
        """Keys by the names that tmux gives them: "Enter", "Escape", "M-o", "C-z"."""
        self.run("send-keys", *keys)

    def enter(self, line):
        self.run("send-keys", "-l", line)
        self.press("Enter")

    def lines(self):
        return self.run("capture-pane", "-p").split("\n")

    def picture(self):
        return "\n".join(self.lines()).rstrip()

    def shows(self, text):
        return any(text in line for line in self.lines())

    def state(self):
        """The modes of the terminal, as tmux keeps them."""
        return dict(zip(STATE, self.run(
            "display-message", "-p", " ".join(f"#{{{name}}}" for name in STATE)).split()))

    def resize(self, columns, rows):
        self.run("resize-window", "-x", str(columns), "-y", str(rows))

    def wait_for(self, what, condition):
        end = time.monotonic() + PATIENCE
        while True:
            if value := condition():
                return value
            if time.monotonic() > end:
                raise TimedOut(f"waited for {what}\n{self.picture()}")
            time.sleep(0.02)

    def start(self, command, **variables):
        """Starts a program from the shell. Gives its process once it is there."""
        file = self.home / "pid"
        file.unlink(missing_ok=True)
        words = " ".join([f"{name}={shlex.quote(value)}" for name, value in variables.items()]
                         + ["exec", *(shlex.quote(str(word)) for word in command)])
        script = self.home / "program.sh"
        script.write_text(f"echo $$ > {file}\nexport {words.split('exec')[0]}\n"
                          f"exec{words.split('exec', 1)[1]}\n", encoding="utf-8")
        self.enter(f"sh {script}")
        return int(self.wait_for("the program", lambda: file.exists() and file.read_text().strip()))

    def settings(self):
        """The settings of the line, which the shell prints. The shell changes them while it waits
        for a command, so the shell itself asks."""
        file = self.home / "settings"
        file.unlink(missing_ok=True)
        self.enter(f"stty -g > {file}.new; mv {file}.new {file}")
        self.wait_for("the settings", file.exists)
        return file.read_text(encoding="ascii")


def is_stopped(process):
    with open(f"/proc/{process}/stat", encoding="ascii") as file:
        return file.read().rsplit(")", 1)[1].split()[0] == "T"


def is_running(process):
    return os.path.exists(f"/proc/{process}")
