"""The public headers, each by itself."""

import subprocess
import unittest
from concurrent.futures import ThreadPoolExecutor
from itertools import product
from pathlib import Path

from kit import EXAMPLE, PREFIX, STRICT

INCLUDE = PREFIX / "include"
HEADERS = sorted(path.name for path in (INCLUDE / "kvex").iterdir())


def complaints(case):
    header, compiler, standard = case
    done = subprocess.run(
        [compiler, f"-std={standard}", *STRICT.split(), f"-I{INCLUDE}", "-fsyntax-only", "-x", "c++",
         "-"], input=f"#include <kvex/{header}>\n#include <kvex/{header}>\n", text=True,
        capture_output=True, check=False)
    return f"{case}: {done.stderr}" if done.returncode != 0 or done.stderr else ""


class Headers(unittest.TestCase):
    def testEachCompilesAloneInBothStandardsWithBothCompilers(self):
        cases = product(HEADERS, ("g++", "clang++"), ("c++17", "c++20"))
        with ThreadPoolExecutor(2) as pool:
            self.assertEqual([found for found in pool.map(complaints, cases) if found], [])

    def testThoseThatAHostNeedsAreInstalled(self):
        self.assertEqual(HEADERS, [
            "ClassServer.h", "ComObject.h", "ComPointer.h", "Component.h", "HelpContext.h",
            "HostSuite.h", "MessageBox.h", "RuleStrings.h", "RuleUI.h", "ServedObject.h", "SuiteConfiguration.h"])

    def testNoneNeedsAnotherFolder(self):
        for header in HEADERS:
            for line in (INCLUDE / "kvex" / header).read_text(encoding="utf-8").splitlines():
                if line.startswith("#include \""):
                    self.assertTrue((INCLUDE / line.split('"')[1]).exists(), f"{header}: {line}")

    def testTheExampleUsesNothingElse(self):
        for source in EXAMPLE.glob("*.[ch]*"):
            for line in source.read_text(encoding="utf-8").splitlines():
                if line.startswith("#include"):
                    name = line[10:-1]
                    self.assertTrue(name.startswith("kvex/") or "/" not in name, line)


if __name__ == "__main__":
    unittest.main()
