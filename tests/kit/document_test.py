"""docs/embedding.md: its code is that of the examples, and its commands work as they stand."""

import os
import re
import shutil
import unittest
from pathlib import Path

from desktop import Desktop
from kit import PREFIX, SOURCES, run
from kvexrules import Program, ProgramTest

DESKTOP = Desktop()
DOCUMENT = (SOURCES / "docs" / "embedding.md").read_text(encoding="utf-8")
BLOCKS = re.findall(r"^```(\w*)\n(.*?)^```$", DOCUMENT, re.DOTALL | re.MULTILINE)
# Each of these is built or run by another test.
EXAMPLES = [*sorted((SOURCES / "examples" / "host").iterdir()), SOURCES / "tests/kit/gtk_host.py"]


def setUpModule():  # pylint: disable=invalid-name
    unittest.enterModuleContext(DESKTOP)


def lines(text):
    return [line.strip() for line in text.splitlines() if line.strip()]


class Document(ProgramTest):
    def testItsCodeIsThatOfTheExamples(self):
        texts = ["\n".join(lines(path.read_text(encoding="utf-8"))) for path in EXAMPLES]
        quoted = [(kind, text) for kind, text in BLOCKS if kind != "sh"]
        self.assertEqual({kind for kind, _ in quoted}, {"cpp", "cmake", "python"})
        for _, text in quoted:
            block = "\n".join(lines(text))
            self.assertTrue(any(block in whole for whole in texts), text)

    def testItsCommandsWork(self):
        shutil.copytree(SOURCES / "examples", DESKTOP.home / "examples")
        shutil.copy(SOURCES / "examples" / "host" / "first.cpp", DESKTOP.home)
        os.chdir(DESKTOP.home)
        flags = os.environ.get("CXXFLAGS", "")
        os.environ.update(
            PATH=f"{Path(os.environ['KVEXRULES']).parent}:/usr/bin:/bin",
            CMAKE_PREFIX_PATH=str(PREFIX),
            PKG_CONFIG_PATH=str(next(PREFIX.glob("lib*/**/pkgconfig"))))
        commands = [line for kind, text in BLOCKS if kind == "sh" for line in lines(text)]
        printed = {command: self.perform(command.replace("g++", f"g++ {flags}"))
                   for command in commands}
        self.assertEqual(printed["./first rules.db"], "result: 1")
        self.assertNotIn("There is no rule", printed["build/rules-host rules.db show 1 2"])
        self.assertIn("Apply this Rule", printed[commands[-1]])
        self.assertEqual(len(commands), 7)

    def perform(self, command):
        """Runs the command and gives what it prints. The user closes the editor, if it opens one."""
        if not command.startswith("./first"):
            preload = os.environ.get("PRELOAD", "") if command.startswith("python3") else ""
            return run("bash", "-c", command, env={**os.environ, "LD_PRELOAD": preload})
        self.program = Program(DESKTOP, ["bash", "-c", f"exec {command}"])
        self.program.window("New Rule")
        DESKTOP.press("Escape")
        self.program.window("SMS Rules")
        DESKTOP.press("Escape")
        status, last = self.program.finish()
        self.assertEqual(status, 0)
        return last


if __name__ == "__main__":
    unittest.main()
