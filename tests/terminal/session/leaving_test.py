"""Whatever ends or stops the program, the terminal is then as it was before."""

import os
import signal
import unittest

from session import PROGRAM, SessionTest
from tmux import Tmux, is_running, is_stopped

KINDS = ("xterm-256color", "screen", "tmux-256color")
# What the shell reports of each. A hang-up closes the windows as by their frames.
ENDS = {
    signal.SIGTERM: 143, signal.SIGINT: 130, signal.SIGQUIT: 131, signal.SIGHUP: 0,
    signal.SIGSEGV: 139, signal.SIGABRT: 134,
}
# Sanitizers leave the signals to the program.
SANITIZERS = {"ASAN_OPTIONS": ":".join(filter(None, [
    os.environ.get("ASAN_OPTIONS"), "handle_segv=0", "handle_abort=0"])),
    "LSAN_OPTIONS": os.environ.get("LSAN_OPTIONS", "")}


class Leaving(SessionTest):
    def setUp(self):
        super().setUp()
        self.new_database("--sample")

    def shell(self, kind):
        shell = Tmux(kind)
        self.addCleanup(shell.close)
        self.before = shell.settings(), shell.state()
        shell.enter("clear; echo here")
        return shell

    def begin(self, shell):
        process = shell.start([PROGRAM, "edit", "--toolkit", "terminal", "--log",
                               self.folder / "kvex.log"],
                              KVEX_DATABASE=str(self.database.path), **SANITIZERS)
        shell.wait_for("the editor", lambda: shell.shows("4. Rule Name"))
        self.assertEqual(shell.state()["alternate_on"], "1")
        self.assertNotEqual(shell.state(), self.before[1])
        return process

    def assert_as_before(self, shell, printed=None):
        """The shell's screen is back, and what is typed can be seen."""
        shell.wait_for("the shell's screen", lambda: shell.shows("here"))
        if printed:
            shell.wait_for(printed, lambda: shell.shows(printed))
        shell.enter("echo status $?")
        shell.wait_for("the echo", lambda: shell.shows("echo status") and shell.shows("status "))
        self.assertEqual((shell.settings(), shell.state()), self.before, shell.picture())

    def on_each_kind(self, test):
        for kind in KINDS:
            with self.subTest(kind):
                test(self.shell(kind))

    def leave(self, shell, result=1):
        shell.press("Escape")
        shell.wait_for("the rules", lambda: shell.shows("Rule description"))
        shell.press("Escape")
        self.assert_as_before(shell, f"result: {result}")

    def testByCancelGivesTheTerminalBack(self):
        def test(shell):
            self.begin(shell)
            self.leave(shell)

        self.on_each_kind(test)

    def testByASignalGivesTheTerminalBack(self):
        def test(shell):
            for number, status in ENDS.items():
                with self.subTest(number.name):
                    process = self.begin(shell)
                    os.kill(process, number)
                    shell.wait_for("the end", lambda: not is_running(process))  # pylint: disable=cell-var-from-loop
                    self.assert_as_before(shell)
                    self.assertIn(f"status {status}", shell.picture())
                    shell.enter("clear; echo here")

        self.on_each_kind(test)

    def stopped_and_continued(self, shell, stop):
        process = self.begin(shell)
        shell.press("BTab", "BTab", "BTab", "C-a")
        shell.run("send-keys", "-l", "Half a name")
        shell.wait_for("the text", lambda: shell.shows("Half a name"))
        for _ in range(2):
            stop(process)
            shell.wait_for("the stop", lambda: is_stopped(process))
            self.assert_as_before(shell, "Stopped")
            shell.enter("fg")
            shell.wait_for("the editor", lambda: shell.shows("Half a name")
                           and shell.state()["alternate_on"] == "1")
        self.leave(shell, 99)

    def testForAStopFromOutsideLendsTheTerminal(self):
        self.on_each_kind(lambda shell: self.stopped_and_continued(
            shell, lambda process: os.kill(process, signal.SIGTSTP)))

    def testForAStopByKeyLendsTheTerminal(self):
        self.on_each_kind(lambda shell: self.stopped_and_continued(
            shell, lambda process: shell.press("C-z")))

    def testAfterAStopTheWindowHasTheNewSize(self):
        shell = self.shell("xterm-256color")
        process = self.begin(shell)
        os.kill(process, signal.SIGTSTP)
        shell.wait_for("the stop", lambda: is_stopped(process))
        shell.resize(100, 30)
        shell.enter("fg")
        shell.wait_for("the status in the last row", lambda: "F1" in shell.lines()[29])
        self.leave(shell)


if __name__ == "__main__":
    unittest.main()
