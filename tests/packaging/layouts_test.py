"""kvexrules finds its libraries wherever it is installed, copied or moved to."""

import os
import pwd
import subprocess
import unittest
from pathlib import Path

from desktop import Desktop
from installation import flat_copy, install, libraries, output, temporary_folder
from kvexrules import Database, KvexRules, ProgramTest

DESKTOP = Desktop()


def setUpModule():  # pylint: disable=invalid-name
    unittest.enterModuleContext(DESKTOP)


class Layouts(ProgramTest):
    def setUp(self):
        self.folder = temporary_folder(self)
        self.prefix = self.folder / "prefix"

    def assert_works(self, program, component):
        """The program uses this component, and does what needs each of its libraries."""
        lines = output(program, "version").splitlines()
        self.assertRegex(lines[0], r"^kvexrules \d+\.\d+\.\d+$")
        self.assertIn(f"component: {component}", lines)
        self.assertRegex("\n".join(lines), r"(?m)^toolkit qt: Qt 6\..*\ntoolkit terminal: ")
        database = Database(self.folder / "rules.db")
        os.environ["KVEX_DATABASE"] = str(database.path)
        database.path.unlink(missing_ok=True)
        self.assertEqual(output(program, "init", "--sample"), f"ready: {database.path}\n")
        self.assertEqual(len(output(program, "list").splitlines()), 7)
        self.assertIn("For ALL Messages", output(program, "show", "7"))
        self.program = KvexRules(DESKTOP, program, database)
        self.program.window("New Rule")
        DESKTOP.press("Escape")
        self.program.window("SMS Rules")
        DESKTOP.press("Escape")
        self.assertEqual(self.program.finish(), (0, "result: 1"))

    def assert_installation_works(self, prefix):
        self.assert_works(prefix / "bin/kvexrules", libraries(prefix) / "libKVEXMessageRules.so")

    def testASplitPrefixWorksAlsoAfterItHasMoved(self):
        install(self.prefix)
        self.assert_installation_works(self.prefix)
        moved = self.folder / "elsewhere/moved"
        moved.parent.mkdir()
        self.prefix.rename(moved)
        self.assert_installation_works(moved)

    def testAStagingFolderWorks(self):
        install("/opt/kvex", DESTDIR=str(self.folder / "stage"))
        self.assert_installation_works(self.folder / "stage/opt/kvex")

    def testOneFolderWorksAlsoAfterItHasMoved(self):
        install(self.prefix)
        program = flat_copy(self.prefix, self.folder / "flat")
        self.prefix.rename(self.folder / "gone")
        self.assert_works(program, program.with_name("libKVEXMessageRules.so"))
        moved = (self.folder / "flat").rename(self.folder / "moved") / "kvexrules"
        self.assert_works(moved, moved.with_name("libKVEXMessageRules.so"))

    def testALinkToTheProgramWorks(self):
        install(self.prefix)
        link = self.folder / "kvexrules"
        link.symlink_to(self.prefix / "bin/kvexrules")
        self.assert_works(link, libraries(self.prefix) / "libKVEXMessageRules.so")

    def testRegisterNamesTheInstalledComponent(self):
        install(self.prefix)
        component = libraries(self.prefix) / "libKVEXMessageRules.so"
        self.assertEqual(output(self.prefix / "bin/kvexrules", "register"),
                         f"registered: {component}\n")
        (file,) = Path(os.environ["XDG_DATA_HOME"], "kvex/classes").iterdir()
        self.addCleanup(file.unlink)
        written = file.read_text(encoding="utf-8")
        self.assertIn(f"Server={component}\n", written)
        installed = self.prefix / "share/kvex/classes" / file.name
        self.assertEqual(
            written.replace(str(component), "../../../lib/kvex/libKVEXMessageRules.so"),
            installed.read_text(encoding="utf-8"))

    def testTheInstalledRegistrationServesOtherProgramsAlsoAfterAMove(self):
        install(self.prefix)
        other = flat_copy(self.prefix, self.folder / "other")
        for library in other.parent.glob("libKVEX*"):
            if not library.name.startswith("libKVEXClassServer"):
                library.unlink()
        os.environ["KVEX_DATABASE"] = str(self.folder / "rules.db")
        output(other, "init", "--sample")
        os.environ["XDG_DATA_DIRS"] = str(self.prefix / "share")
        self.addCleanup(os.environ.pop, "XDG_DATA_DIRS")
        self.assertIn("For ALL Messages", output(other, "show", "7"))
        moved = self.prefix.rename(self.folder / "moved")
        refused = subprocess.run([other, "show", "7"], capture_output=True, text=True, check=False)
        self.assertEqual(refused.returncode, 2)
        self.assertIn("There is no rule component", refused.stderr)
        os.environ["XDG_DATA_DIRS"] = str(moved / "share")
        self.assertIn("For ALL Messages", output(other, "show", "7"))


class Log(unittest.TestCase):
    """The log of a user who may write everywhere, and is not root."""

    def setUp(self):
        self.folder = temporary_folder(self)
        install(self.folder / "prefix")
        flat_copy(self.folder / "prefix", self.folder / "flat")
        self.home = self.folder / "home"
        self.home.mkdir()

    def log_of(self, program):
        """Lets the program meet a rule that it cannot read. Gives the logs that exist then."""
        database = self.folder / "rules.db"
        variables = {"HOME": str(self.home), "KVEX_DATABASE": str(database)}
        user = {}
        if os.geteuid() == 0:
            nobody = pwd.getpwnam("nobody")
            user = {"user": nobody.pw_uid, "group": nobody.pw_gid}
            output("chown", "-R", "nobody:", self.folder)
        output(program, "init", "--sample", env=variables, **user)
        Database(database).run("UPDATE SMS_RULES SET Name = NULL WHERE ID = 1")
        shown = subprocess.run([program, "show", "1"], capture_output=True, env=variables, text=True,
                               check=False, **user)
        self.assertEqual(shown.returncode, 1, shown.stderr)
        return [str(log.relative_to(self.folder)) for log in self.folder.rglob("KVEX.log")]

    def testOfAnInstalledProgramIsInTheUsersStateFolder(self):
        self.assertEqual(self.log_of(self.folder / "prefix/bin/kvexrules"),
                         ["home/.local/state/kvex/KVEX.log"])

    def testOfAPortableFolderIsInIt(self):
        self.assertEqual(self.log_of(self.folder / "flat/kvexrules"), ["flat/KVEX.log"])


if __name__ == "__main__":
    unittest.main()
