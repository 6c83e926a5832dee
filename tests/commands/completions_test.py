#!/usr/bin/python3
"""The completions, in the shells that they are for.

bash and zsh complete in their line editors, so they run on terminals. A key makes them insert all
that they offer, and then the line is printed.
"""

import os
import pty
import re
import select
import shlex
import subprocess
import tempfile
import unittest
from pathlib import Path

PAGES = Path(os.environ["PAGES"])
PATIENCE = 60  # the limit in seconds for a line that should come within one
FIRST_WORDS = ["accounts", "backup", "check", "contacts", "copy", "disable", "edit", "enable",
               "export", "help", "import", "init", "list", "move", "register", "remove", "rename",
               "restore", "show", "try", "unregister", "upgrade", "users", "version"]
INSERT_ALL = "\x07"
READY = "ready-for-the-next-line"


class Terminal:
    """A shell on its own terminal."""

    def __init__(self, command, folder, setup):
        self.text = ""
        child, self.terminal = pty.fork()
        if child == 0:
            os.chdir(folder)
            os.execvpe(command[0], command,
                       {"PATH": "/usr/bin:/bin", "HOME": str(folder), "TERM": "xterm",
                        "LC_ALL": "C.UTF-8", "COLUMNS": "500"})
        self.child = child
        for line in setup:
            self.type(line + "\r")
        # The shell joins the two words, so the echo of this line is not taken for its output.
        self.type(f"echo {READY[:5]}''{READY[5:]}\r")
        self.read_until(READY)

    def type(self, text):
        os.write(self.terminal, text.encode())

    def read_until(self, pattern):
        while not (found := re.search(pattern, self.text)):
            if not select.select([self.terminal], [], [], PATIENCE)[0]:
                raise RuntimeError(f"waited {PATIENCE} s for {pattern!r} in {self.text!r}")
            self.text += os.read(self.terminal, 65536).decode(errors="replace")
        self.text = self.text[found.end():]
        return found

    def close(self):
        os.close(self.terminal)
        os.waitpid(self.child, 0)


class Shell(unittest.TestCase):
    """The tests that every shell must pass. Each shell says how it is asked for completions."""

    maxDiff = None

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory(prefix="kvex-completion-")
        self.addCleanup(self.folder.cleanup)
        for name in ("book.vcf", "a list.csv"):
            Path(self.folder.name, name).touch()

    def expect(self, offers):
        """`offers` are lines to the cursor, and the words that the last one may become."""
        self.start()
        found = {line: self.offered(line) for line in offers}
        self.assertEqual(found, offers)

    def check_commands(self):
        self.expect({
            "kvexrules ": FIRST_WORDS,
            "kvexrules reg": ["register"],
            "kvexrules contacts ": ["export", "import", "list", "remove"],
            "kvexrules --database a.db contacts --user 3 i": ["import"],
            "kvexrules help ": FIRST_WORDS,
            "kvexrules help contacts re": ["remove"],
            "kvexrules list ": [],
        })

    def check_options(self):
        self.expect({
            "kvexrules show --": ["--all", "--database", "--format", "--help", "--log"],
            "kvexrules contacts list --": ["--database", "--help", "--user"],
            "kvexrules contacts list --us": ["--user"],
            "kvexrules --r": ["--rule"],
            "kvexrules init 3 --s": ["--sample"],
        })

    def check_values(self):
        self.expect({
            "kvexrules show --format ": ["ansi", "html", "text"],
            "kvexrules show 3 --format h": ["html"],
            "kvexrules contacts export --format c": ["csv"],
            "kvexrules show --log bo": ["book.vcf"],
            "kvexrules list --database bo": ["book.vcf"],
            "kvexrules contacts list --user ": [],
        })

    def check_files(self):
        self.expect({
            "kvexrules contacts import bo": ["book.vcf"],
            "kvexrules contacts import a": ["a list.csv"],
            "kvexrules contacts export bo": ["book.vcf"],
            "kvexrules contacts import a.vcf ": [],
            "kvexrules contacts remove ": [],
        })

    def check_value_after_sign(self):
        self.expect({
            "kvexrules show --format=h": ["html"],
            "kvexrules list --database=bo": ["book.vcf"],
        })


class TerminalShell(Shell):
    def start(self):
        self.shell = Terminal(self.command, self.folder.name, [line.format(
            PAGES=shlex.quote(str(PAGES))) for line in self.setup])
        self.addCleanup(self.shell.close)

    def offered(self, line):
        # "#" marks where the words of the line begin, and ";" ends them.
        before, _, last = line.rpartition(" ")
        self.shell.type(line + INSERT_ALL)
        self.shell.type("\x01printf '<%s>' '#' \x05 ';' ; echo\r")
        words = re.findall("<([^>]*)>", self.shell.read_until("<#>((?:<[^>]*>)*)<;>")[1])
        given = before.split(" ")
        self.assertEqual(words[:len(given)], given)
        offers = words[len(given):]
        sign = last.partition("=")[0] + "=" if "=" in last else ""
        offers = [offer.removeprefix(sign) for offer in offers]
        return [] if offers in ([last], [], [last.removeprefix(sign)]) else sorted(offers)


class BashTest(TerminalShell):
    command = ["bash", "--norc", "--noprofile", "-i"]
    setup = ["PS1=", "bind '\"\\C-g\": insert-completions'",
             "bind 'set enable-bracketed-paste off'", "source {PAGES}/kvexrules"]

    def testBashOffersCommands(self):
        self.check_commands()

    def testBashOffersTheOptionsOfACommand(self):
        self.check_options()

    def testBashOffersValuesOfOptions(self):
        self.check_values()

    def testBashOffersFiles(self):
        self.check_files()

    def testBashOffersValuesAfterASign(self):
        self.check_value_after_sign()

    def testBashLoadsItByTheNameOfTheProgram(self):
        """As bash-completion does when someone completes the program for the first time."""
        home = Path(self.folder.name, "data/bash-completion/completions")
        home.mkdir(parents=True)
        (home / "kvexrules").write_text((PAGES / "kvexrules").read_text(encoding="utf-8"))
        self.setup = [*BashTest.setup[:-1], f"XDG_DATA_HOME={self.folder.name}/data",
                      "source /usr/share/bash-completion/bash_completion"]
        self.expect({"kvexrules contacts ": ["export", "import", "list", "remove"]})


class ZshTest(TerminalShell):
    command = ["zsh", "-f", "-i"]
    setup = ["PS1= RPS1=; unsetopt prompt_cr zle_bracketed_paste; bindkey -e",
             "fpath=({PAGES} $fpath); autoload -U compinit; compinit -u -D",
             "zle -C all-matches complete-word _generic; bindkey '^G' all-matches",
             "zstyle ':completion:all-matches:*' completer _all_matches _complete",
             "zstyle ':completion:all-matches:*' insert true"]

    def testZshOffersCommands(self):
        self.check_commands()

    def testZshOffersTheOptionsOfACommand(self):
        self.check_options()

    def testZshOffersValuesOfOptions(self):
        self.check_values()

    def testZshOffersFiles(self):
        self.check_files()

    def testZshOffersValuesAfterASign(self):
        self.check_value_after_sign()


class FishTest(Shell):
    def start(self):
        pass

    def offered(self, line):
        done = subprocess.run(
            ["fish", "--no-config", "-c", f"source {shlex.quote(str(PAGES))}/kvexrules.fish;"
             f" complete -C {shlex.quote(line)}"],
            cwd=self.folder.name, env={"PATH": "/usr/bin:/bin", "HOME": self.folder.name,
                                       "LC_ALL": "C.UTF-8"},
            capture_output=True, text=True, check=True)
        self.assertEqual(done.stderr, "")
        offers = [offer.partition("\t")[0] for offer in done.stdout.splitlines()]
        return sorted(offer.rpartition("=")[2] for offer in offers)

    def testFishOffersCommands(self):
        self.check_commands()

    def testFishOffersTheOptionsOfACommand(self):
        self.check_options()

    def testFishOffersValuesOfOptions(self):
        self.check_values()

    def testFishOffersFiles(self):
        self.check_files()

    def testFishOffersValuesAfterASign(self):
        self.check_value_after_sign()


if __name__ == "__main__":
    unittest.main()
