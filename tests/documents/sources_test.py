#!/usr/bin/python3
"""What README promises to those who have only the sources."""

import os
import subprocess
import unittest
from pathlib import Path

ROOT = Path(__file__).parent.parent.parent


class SourcesTest(unittest.TestCase):
    def testTheProgramIsBuiltAndShownOnAVirtualDisplay(self):
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "KVEX_DATABASE")}
        done = subprocess.run(["script/run"], cwd=ROOT, env=environment, text=True, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertIn("tour: kvexrules ended with status 0, result: 99\n", done.stdout)


if __name__ == "__main__":
    unittest.main()
