"""The Debian packages: what Debian's checker says of them, and their life in a bare system."""

import os
import re
import subprocess
import unittest
from pathlib import Path

from bare_system import run_in_bare_system
from installation import output, temporary_folder

PACKAGES = Path(os.environ["PACKAGES"])
STEPS = Path(__file__).with_name("bare_system_steps.sh")
VERSION = (Path(__file__).parents[2] / "VERSION").read_text(encoding="utf-8").strip()
NEXT = f"{VERSION}-2"
NAMES = ["kvex-toolkit-qt", "kvex-toolkit-terminal", "kvexrules", "libkvexmessagerules",
         "libkvexmessagerules-dev"]


def package(name):
    (file,) = PACKAGES.glob(f"{name}_*.deb")
    return file


def field(name, key):
    return output("dpkg-deb", "--field", package(name), key).strip()


def names_in(relation):
    """The packages that a field of relations names."""
    return set(re.findall(r"(?:^|, |\| )([a-z0-9+.-]+)", relation))


def with_next_version(file, folder):
    """The same package with the next version, in the folder."""
    content = folder / "content"
    output("dpkg-deb", "--raw-extract", file, content)
    control = content / "DEBIAN/control"
    control.write_text(control.read_text(encoding="utf-8").replace(f"{VERSION}-1", NEXT),
                       encoding="utf-8")
    output("dpkg-deb", "--root-owner-group", "--build", content, folder / "new" / file.name)
    output("rm", "-r", content)


class Packages(unittest.TestCase):
    def testAreOneForEachUse(self):
        self.assertEqual(sorted(file.name.split("_")[0] for file in PACKAGES.glob("*.deb")), NAMES)

    def testHaveNoErrorsAndNoWarningsOfLintian(self):
        done = subprocess.run(
            ["lintian", "--allow-root", "--fail-on", "error,warning", "--tag-display-limit", "0",
             *PACKAGES.glob("*.deb")],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def testNeedEachOtherInOneVersion(self):
        for name in ("kvex-toolkit-qt", "kvex-toolkit-terminal", "kvexrules",
                     "libkvexmessagerules-dev"):
            self.assertIn(f"libkvexmessagerules (= {VERSION}-1)", field(name, "Depends"))
        self.assertIn(f"kvex-toolkit-terminal (= {VERSION}-1)", field("kvexrules", "Depends"))

    def testNeedTheLibrariesThatTheyUseAndRecommendTheDrivers(self):
        libraries = {"libc6", "libodbc2", "libsqlite3-0", "libstdc++6", "libutf8proc2"}
        self.assertLessEqual(libraries, names_in(field("kvexrules", "Depends")))
        self.assertLessEqual(libraries, names_in(field("libkvexmessagerules", "Depends")))
        self.assertLessEqual({"libqt6widgets6"}, names_in(field("kvex-toolkit-qt", "Depends")))
        self.assertEqual(names_in(field("kvex-toolkit-terminal", "Depends")) - {"libgcc-s1"},
                         {"libc6", "libkvexmessagerules", "libstdc++6", "libtinfo6",
                          "libutf8proc2"})
        self.assertEqual(field("libkvexmessagerules", "Recommends"),
                         "kvex-toolkit-qt | kvex-toolkit-terminal, odbc-postgresql, odbc-mariadb")
        self.assertEqual(names_in(field("kvexrules", "Recommends")), {"kvex-toolkit-qt"})
        self.assertEqual(names_in(field("kvex-toolkit-qt", "Recommends")), {"qt6-wayland"})

    def testAreInstalledUsedUpgradedAndPurged(self):
        folder = temporary_folder(self)
        results = folder / "results"
        (folder / "packages/new").mkdir(parents=True)
        results.mkdir()
        for name in NAMES:
            output("cp", package(name), folder / "packages")
            with_next_version(package(name), folder / "packages")
        run_in_bare_system(folder / "packages", STEPS, results)

        def result(name):
            return (results / name).read_text(encoding="utf-8")

        self.assertEqual(result("changed-files"), "")
        self.assertEqual(result("installed"), "".join(f"{name}\t{VERSION}-1\n" for name in NAMES))
        version = result("version").splitlines()
        self.assertEqual(version[0], f"kvexrules {VERSION}")
        self.assertRegex(version[1], "^commit: [0-9a-f]{12}$")
        self.assertRegex(version[2], "^component: /usr/lib/[^/]+/kvex/libKVEXMessageRules.so$")
        self.assertRegex(version[3], r"^toolkit qt: Qt 6\.")
        self.assertRegex(version[4], r"^toolkit terminal: .*terminfo 6\.")
        self.assertEqual(result("init"),
                         "ready: /home/user/.local/share/kvex/rules.db\nstatus 0\n")
        self.assertEqual(len(result("list").splitlines()), 7 + 1)
        self.assertIn("For ALL Messages", result("show"))
        self.assertTrue(result("show").endswith("\nstatus 0\n"))
        self.assertIn("kvexrules: No window can be shown. The toolkit \"qt\" cannot be used. There"
                      " is no display", result("edit"))
        self.assertTrue(result("edit").endswith("\nstatus 2\n"))
        self.assertEqual(result("edit-in-terminal"), "result: 1\nstatus 0\n")
        self.assertRegex(result("edit-without-qt"), (
            "/libKVEXQt.so does not exist. Install this library. The toolkit \"terminal\" cannot be"
            " used. The standard input and output are no terminal."))
        commands = result("commands").splitlines()
        printed = {command: result(f"command-{number}") for number, command in enumerate(commands, 1)}
        self.assertEqual({command: text for command, text in printed.items()
                          if not text.endswith("status 0\n")}, {})
        self.assertEqual(printed["./first rules.db"], "result: 1\nstatus 0\n")
        self.assertEqual(printed["build/rules-host rules.db show 1 2"].count("Apply this Rule"), 2)
        self.assertIn("Apply this Rule", printed[commands[-1]])
        self.assertLessEqual({"odbc-postgresql", "odbc-mariadb", "qt6-wayland"},
                             set(result("recommended").split()))
        self.assertEqual(result("upgraded"), "".join(f"{name}\t{NEXT}\n" for name in NAMES))
        self.assertEqual(result("list-after-upgrade"), result("list"))
        self.assertEqual(result("known"), "")
        self.assertTrue(result("remove").endswith("-before-remove.db\nstatus 0\n"))
        self.assertEqual(result("left").splitlines(),
                         ["/home/user/.local/share/kvex", "/home/user/.local/state/kvex"])


if __name__ == "__main__":
    unittest.main()
