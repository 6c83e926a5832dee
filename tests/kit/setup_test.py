"""Installs the kit and builds the example with it, as a program of its own."""

import shutil
import unittest

from kit import EXAMPLE, HOST, KIT, PREFIX, build, install


class Kit(unittest.TestCase):
    def testIsInstalledAndBuildsTheExample(self):
        shutil.rmtree(KIT, ignore_errors=True)
        install(PREFIX)
        build(EXAMPLE, KIT / "host", PREFIX)
        self.assertTrue(HOST.exists())


if __name__ == "__main__":
    unittest.main()
