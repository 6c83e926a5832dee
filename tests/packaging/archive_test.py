"""The source archive: what its builds need, and that they always give the same bytes."""

import hashlib
import os
import shutil
import subprocess
import unittest
from pathlib import Path

from installation import output, temporary_folder

PROJECT = Path(__file__).parents[2]
FOLDER = Path(os.environ["KVEX_BUILD"]) / "archive"
WITHOUT_TEST_LIBRARIES = ["-D", "CMAKE_DISABLE_FIND_PACKAGE_GTest=ON",
                          "-D", "CMAKE_DISABLE_FIND_PACKAGE_benchmark=ON"]


def archive(test):
    """The archive of the sources as they are now, with changes that are not committed."""
    changed = output("git", "stash", "create", cwd=PROJECT).strip()
    folder = temporary_folder(test)
    return Path(output(PROJECT / "script/dist", changed or "HEAD", folder).strip())


def unpacked(sources, name):
    """The sources in a folder of this name. It is the same each time, so that a compiler's cache
    knows its files."""
    folder = FOLDER / name
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    output("tar", "--extract", "--strip-components=1", "--directory", folder, "--file", sources)
    return folder


def run(folder, *command, **variables):
    """Runs a command where git always fails. A compiler's cache takes nothing from other folders."""
    git = FOLDER / "no-git/git"
    git.parent.mkdir(exist_ok=True)
    git.write_text("#!/bin/sh\nexit 1\n", encoding="utf-8")
    git.chmod(0o755)
    path = f"{git.parent}:{os.environ['PATH']}"
    done = subprocess.run(
        command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
        check=False, env={**os.environ, "PATH": path, "CCACHE_BASEDIR": "", **variables})
    if done.returncode != 0:
        raise AssertionError(f"{command}: status {done.returncode}\n{done.stdout}")


def digests(folder, pattern):
    return {str(file.relative_to(folder)): hashlib.sha256(file.read_bytes()).hexdigest()
            for file in folder.glob(pattern) if file.is_file()}


class Archive(unittest.TestCase):
    def testOfACommitIsTheSameEachTime(self):
        first, second = (output(PROJECT / "script/dist", "HEAD", temporary_folder(self)).strip()
                         for _ in range(2))
        self.assertNotEqual(first, second)
        self.assertEqual(Path(first).read_bytes(), Path(second).read_bytes())

    def testGivesTheSamePackagesInTwoFolders(self):
        sources = archive(self)
        built = []
        for name in ("packages", "packages-in-a-longer-folder"):
            folder = unpacked(sources, name)
            run(folder, "script/package", *WITHOUT_TEST_LIBRARIES)
            built.append(folder / "build/package")
        for kind, least in (("bin/*", 6), ("*.deb", 5)):
            first, second = (digests(folder, kind) for folder in built)
            self.assertGreaterEqual(len(first), least)
            self.assertEqual(first, second)

    def testBuildsWithClangAndWithoutGitAndTestLibraries(self):
        folder = unpacked(archive(self), "clang")
        run(folder, "cmake", "-B", "build", "-G", "Ninja", "-D", "BUILD_TESTING=OFF",
            *WITHOUT_TEST_LIBRARIES, CXX="clang++")
        run(folder, "cmake", "--build", "build")
        commit = (folder / "cmake/Commit.txt").read_text(encoding="utf-8")
        self.assertRegex(commit, "^[0-9a-f]{40}\n$")
        self.assertIn(f"\ncommit: {commit[:12]}\n", output(folder / "build/bin/kvexrules", "version"))

    def testTreatsWarningsAsErrorsOnlyWhenItIsAskedTo(self):
        folder = unpacked(archive(self), "warnings")
        for build, asked in (("usual", []), ("strict", ["-D", "KVEX_WERROR=ON"])):
            run(folder, "cmake", "-B", build, "-G", "Ninja", "-D", "BUILD_TESTING=OFF", *asked)
            commands = (folder / build / "compile_commands.json").read_text(encoding="utf-8")
            self.assertEqual("-Werror" in commands, bool(asked))


if __name__ == "__main__":
    unittest.main()
