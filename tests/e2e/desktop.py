"""A desktop for tests: a virtual display with a window manager, a session bus,
accessibility and a home folder. Everything that was started on it ends with it.
"""

import ctypes
import os
import signal
import subprocess
import tempfile
import time
from pathlib import Path

AT_SPI_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
PATIENCE = 30  # the limit in seconds for a state that should come within one


class TimedOut(Exception):
    """The awaited state was not reached."""


class ServerEnded(Exception):
    """A server of the desktop ended before it was ready."""


def wait_for(what, condition, seconds=PATIENCE):
    """Waits until `condition` gives a true value, and gives that value."""
    end = time.monotonic() + seconds
    while True:
        if value := condition():
            return value
        if time.monotonic() > end:
            raise TimedOut(f"waited {seconds} s for {what}")
        time.sleep(0.02)


def adopt_orphans():
    """Makes orphaned descendants children of this process, which can then end them."""
    pr_set_child_subreaper = 36
    ctypes.CDLL(None).prctl(pr_set_child_subreaper, 1, 0, 0, 0)


def children():
    path = Path(f"/proc/{os.getpid()}/task/{os.getpid()}/children")
    return [int(pid) for pid in path.read_text(encoding="ascii").split()]


def end_all_children():
    """Asks all children to end, then kills them and their orphans."""
    for request, seconds in ((signal.SIGTERM, 5), (signal.SIGKILL, PATIENCE)):
        asked = set()
        end = time.monotonic() + seconds
        while (pids := children()) and time.monotonic() < end:
            for pid in set(pids) - asked:
                os.kill(pid, request)
                asked.add(pid)
            if os.waitpid(-1, os.WNOHANG) == (0, 0):
                time.sleep(0.02)


class Desktop:
    """The environment names the desktop, so a process has only one at a time. `files` go into its
    home folder, for example the settings of a session that Qt follows."""

    def __init__(self, width=1280, height=1024, files=None):
        self.size = f"{width}x{height}x24"
        self.files = files or {}
        self.folder = tempfile.TemporaryDirectory(prefix="kvex-desktop-")
        self.home = Path(self.folder.name)
        self.servers = []

    def __enter__(self):
        adopt_orphans()
        try:
            self.start()
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *_):
        self.stop()

    def start(self):
        for name in list(os.environ):
            if name.startswith(("XDG_", "QT_", "DBUS_", "AT_SPI_", "WAYLAND_", "KVEX_")):
                del os.environ[name]
        for name, place in (
            ("HOME", "home"), ("XDG_RUNTIME_DIR", "run"), ("XDG_CONFIG_HOME", "home/.config"),
            ("XDG_DATA_HOME", "home/.local/share"), ("XDG_STATE_HOME", "home/.local/state"),
            ("XDG_CACHE_HOME", "home/.cache"),
        ):
            (self.home / place).mkdir(parents=True, mode=0o700)
            os.environ[name] = str(self.home / place)
        for name, text in self.files.items():
            (self.home / "home" / name).write_text(text, encoding="utf-8")
        if self.files:
            os.environ.update(XDG_CURRENT_DESKTOP="KDE", KDE_FULL_SESSION="true",
                              KDE_SESSION_VERSION="5")
        os.environ.update(LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb", NO_AT_BRIDGE="0",
                          QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        os.environ["DISPLAY"] = self.start_display()
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.announced(
            ["dbus-daemon", "--session", "--nofork", "--print-address={}"])
        self.spawn([AT_SPI_LAUNCHER, "--launch-immediately", "--a11y=1"])
        self.spawn(["openbox", "--sm-disable"])
        wait_for("the window manager", lambda: self.xdotool("get_desktop", may_fail=True))

    def stop(self):
        end_all_children()
        for server in self.servers:
            server.poll()  # records that it has ended
        self.folder.cleanup()

    def start_display(self):
        """Its number depends on the process. A server that takes the lowest free number can lose
        its socket when another server ends."""
        for attempt in range(10):
            display = f":{1000 + (os.getpid() * 10 + attempt) % 50000}"
            try:
                self.announced(["Xvfb", display, "-displayfd", "{}", "-screen", "0", self.size,
                                "-nolisten", "tcp", "-noreset"])
                return display
            except ServerEnded as ended:
                problem = ended
        raise problem

    def spawn(self, command, **options):
        """Starts a server of the desktop; its output goes to a file in the home folder."""
        log = self.home / (Path(command[0]).name + ".log")
        with log.open("ab") as out:
            self.servers.append(subprocess.Popen(
                command, stdin=subprocess.DEVNULL, stdout=out, stderr=out, **options))
        return self.servers[-1]

    def announced(self, command):
        """Starts a server that writes a line to the descriptor "{}" when it is ready. Gives that
        line."""
        reading, writing = os.pipe()
        server = self.spawn([word.format(writing) for word in command], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as pipe:
            if line := pipe.readline().strip():
                return line
        raise ServerEnded(f"{command[0]} ended with status {server.wait()} before it was ready")

    def xdotool(self, *words, may_fail=False):
        """What xdotool prints; None for a failure that is allowed."""
        done = subprocess.run(["xdotool", *words], capture_output=True, text=True, check=False)
        if done.returncode == 0:
            return done.stdout.strip()
        if may_fail:
            return None
        raise RuntimeError(f"xdotool {' '.join(words)}: {done.stderr.strip()}")

    def press(self, *keys):
        """Presses keys one after another: "alt+n", "Escape", "space"."""
        self.xdotool("key", "--delay", "15", *keys)

    def type(self, text):
        self.xdotool("type", "--delay", "15", "--", text)

    def close_by_frame(self, title):
        """Closes the active window as the cross in its frame does.

        The window manager learns of a new focus after the window itself. Until then it closes
        nothing.
        """
        def is_active():
            name = self.xdotool("getactivewindow", "getwindowname", may_fail=True)
            return name == title

        wait_for(f"the window manager to see {title!r} as active", is_active)
        self.press("alt+F4")

    def screenshot(self, path, window="root"):
        """`window` is an X window's number, or the whole screen. Waits until it stands still."""
        Path(path).parent.mkdir(parents=True, exist_ok=True)
        pixels = [b""]

        def stands_still():
            pixels.append(subprocess.run(["import", "-frame", "-window", window, "ppm:-"],
                                         capture_output=True, check=True).stdout)
            return pixels[-1] == pixels[-2]

        wait_for("the picture to stand still", stands_still)
        subprocess.run(["convert", "ppm:-", path], input=pixels[-1], check=True)

    def screenshot_of_active(self, path):
        self.screenshot(path, self.xdotool("getactivewindow"))
