"""Programs find the kit by CMake and by pkg-config, wherever it is."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from kit import EXAMPLE, HOST, PREFIX, STRICT, build, library_folder, run

PROBE = """
#include <kvex/ComPointer.h>
#include <cstdio>
int main() {
    return std::puts(kvex::Bstr::fromUtf8("here").utf8().c_str()) < 0;
}
"""


class Building(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kvex kit ")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def pkg_config(self, prefix, *words):
        path = next(prefix.glob("lib*/**/pkgconfig"))
        return run("pkg-config", *words, "kvexmessagerules",
                   env={**os.environ, "PKG_CONFIG_PATH": str(path)}).strip()

    def compile(self, prefix):
        """Builds a program with what pkg-config says, and runs it in an empty environment."""
        source = self.folder / "probe.cpp"
        source.write_text(PROBE, encoding="utf-8")
        program = self.folder / "probe"
        flags = self.pkg_config(prefix, "--cflags", "--libs").replace("\\ ", "\0").split()
        run("g++", "-std=c++17", *STRICT.split(), source, "-o", program,
            *(flag.replace("\0", " ") for flag in flags))
        return run(program, env={})

    def testPkgConfigGivesHeadersLibraryAndRunPath(self):
        self.assertEqual(self.compile(PREFIX), "here\n")
        self.assertEqual(Path(self.pkg_config(PREFIX, "--variable=libdir")).resolve(),
                         library_folder(PREFIX).resolve())

    def testPkgConfigGivesARunPathThatNeedsNoDevelopmentPackage(self):
        self.compile(PREFIX)
        run_path = re.search(r"RUNPATH.*\[(.*)\]", run("readelf", "-d", self.folder / "probe"))[1]
        self.assertIn(os.environ["INSTALLED"], run_path.split(":"))

    def testAMovedKitIsFoundByBoth(self):
        moved = self.folder / "moved"
        shutil.copytree(PREFIX, moved, symlinks=True)
        self.assertEqual(self.compile(moved), "here\n")
        build(EXAMPLE, self.folder / "host", moved)
        program = self.folder / "host" / "bin" / "rules-host"
        libraries = run("ldd", program)
        self.assertIn(str(library_folder(moved) / "libKVEXClassServer"), libraries)
        self.assertNotIn(str(PREFIX), libraries)

    def testAnotherMajorVersionIsNotTaken(self):
        for wanted, message in (("2.0", "compatible"), ("0.9", "compatible"), ("1.0", None)):
            project = self.folder / wanted
            project.mkdir()
            (project / "CMakeLists.txt").write_text(
                "cmake_minimum_required(VERSION 3.16)\nproject(Probe CXX)\n"
                f"find_package(KVEXMessageRules {wanted} REQUIRED)\n", encoding="utf-8")
            done = subprocess.run(
                [os.environ["CMAKE"], "-S", project, "-B", project / "build",
                 f"-DCMAKE_PREFIX_PATH={PREFIX}"], capture_output=True, text=True, check=False)
            self.assertEqual(done.returncode == 0, message is None, done.stderr)
            if message:
                self.assertIn(message, re.sub(r"\s+", " ", done.stderr))

    def testTheVersionIsThatOfTheProduct(self):
        version = self.pkg_config(PREFIX, "--modversion")
        self.assertIn(version, run(os.environ["KVEXRULES"], "version"))

    def testTheInstalledProgramNeedsNoVariableToFindTheLibraries(self):
        self.assertIn(f"=> {library_folder(PREFIX)}/libKVEXClassServer",
                      run("ldd", HOST, env={"PATH": os.environ["PATH"]}))


if __name__ == "__main__":
    unittest.main()
