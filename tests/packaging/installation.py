"""The build, installed into temporary folders, and kvexrules run from there."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

BUILD = Path(os.environ["KVEX_BUILD"])


def output(*command, **options):
    """What the command prints. It must succeed and write no errors."""
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          check=False, **options)
    if done.returncode != 0 or done.stderr:
        raise AssertionError(f"{command}: status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def install(prefix, *arguments, **variables):
    output("cmake", "--install", BUILD, "--prefix", prefix, *arguments,
           env={**os.environ, **variables})


def temporary_folder(test):
    """A folder that is removed after the test."""
    folder = tempfile.TemporaryDirectory(prefix="kvex-installed-")
    test.addCleanup(folder.cleanup)
    return Path(folder.name)


def flat_copy(prefix, folder):
    """Copies the program and its libraries into one folder, as plain files."""
    folder.mkdir()
    for file in [prefix / "bin/kvexrules", *libraries(prefix).iterdir()]:
        shutil.copy(file, folder)
    return folder / "kvexrules"


def libraries(prefix):
    """The private folder of the libraries."""
    (component,) = prefix.rglob("libKVEXMessageRules.so")
    return component.parent
