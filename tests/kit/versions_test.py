"""Two versions of the kit on one computer, and in one process."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from kit import EXAMPLE, PREFIX, PYTHON, PYTHON_READER, for_python, library_folder
from kvexrules import initialise

CLASS_FILE = "{2E9C6A10-5D43-4B7B-8A60-1F0D7C35B201}.class"
OTHER = Path(os.environ["OTHER"])
FAR = Path(os.environ["FAR"])
VERSION_1 = "Apply this Rule after the message arrives"
VERSION_2 = "version 2"

# Takes the registered component.
REGISTERED = """
import sys
from read_rules import describe
from rules_host import Kit
kit = Kit(*sys.argv[1:3], component=b"")
if sys.argv[3:]:
    print(kit.server.CoRegisterServer(sys.argv[3].encode()))
describe(kit, "7")
"""


class Versions(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kvex-versions-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.system = self.folder / "system"
        self.environ = {name: value for name, value in for_python().items() if name != "DISPLAY"}
        self.environ.update(HOME=str(self.folder), XDG_DATA_HOME=str(self.folder / "user"),
                            XDG_STATE_HOME=str(self.folder / "state"), XDG_DATA_DIRS=str(self.system),
                            PYTHONPATH=str(EXAMPLE))
        self.database = initialise(os.environ["KVEXRULES"], self.folder / "a.db", "--sample").path

    def first_line(self, *command):
        done = subprocess.run([PYTHON, "-B", *command], env=self.environ, capture_output=True,
                              text=True, check=False)
        return (done.stdout or done.stderr.splitlines()[-1]).splitlines()[0]

    def registered(self, *words):
        return self.first_line("-c", REGISTERED, library_folder(PREFIX), self.database, *words)

    def register(self, data, component):
        classes = data / "kvex" / "classes"
        classes.mkdir(parents=True, exist_ok=True)
        (classes / CLASS_FILE).write_text(
            f"ProgramId=KVEXMessageRules.RuleUI\nServer={component}\n", encoding="utf-8")

    def testEachProgramTakesTheComponentOfItsOwnKit(self):
        other = self.folder / "kit2"
        shutil.copytree(library_folder(PREFIX), other, symlinks=True)
        (other / "libKVEXMessageRules.so").unlink()
        shutil.copy(OTHER, other / "libKVEXMessageRules.so")
        self.register(self.folder / "user", OTHER)
        for folder, said in ((library_folder(PREFIX), VERSION_1), (other, VERSION_2)):
            self.assertEqual(self.first_line(PYTHON_READER, folder, self.database, "7"), said)

    def testTheUsersRegistrationCountsBeforeTheSystems(self):
        real = library_folder(PREFIX) / "libKVEXMessageRules.so"
        for user, system, said in ((OTHER, real, VERSION_2), (real, OTHER, VERSION_1)):
            self.register(self.folder / "user", user)
            self.register(self.system, system)
            self.assertEqual(self.registered(), said)
        (self.folder / "user" / "kvex" / "classes" / CLASS_FILE).unlink()
        self.assertEqual(self.registered(), VERSION_2)

    def testAProgramThatRegistersAnotherVersionTakesItAtOnce(self):
        self.register(self.system, library_folder(PREFIX) / "libKVEXMessageRules.so")
        self.assertEqual(self.registered(), VERSION_1)
        self.assertEqual(self.registered(OTHER), "0")
        self.assertEqual(self.registered(), VERSION_2)

    def testAComponentOfAnotherClassServerFindsNoUtilityObject(self):
        self.register(self.folder / "user", FAR)
        self.assertEqual(self.registered(), "OSError: 0x800A01AD")


if __name__ == "__main__":
    unittest.main()
