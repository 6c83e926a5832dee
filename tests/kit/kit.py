"""The kit, as setup_test.py has installed it in a folder of its own, and what is built with it."""

import os
import subprocess
from pathlib import Path

KIT = Path(os.environ["KIT"])
PREFIX = KIT / "prefix"
HOST = KIT / "host" / "bin" / "rules-host"
SOURCES = Path(os.environ["SOURCES"])
EXAMPLE = SOURCES / "examples" / "host"
PYTHON_EDITOR = EXAMPLE / "rules_host.py"
PYTHON_READER = EXAMPLE / "read_rules.py"
PYTHON = "/usr/bin/python3"
STRICT = "-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror " + os.environ.get("CXXFLAGS", "")


def run(*command, **options):
    """What the command prints. Raises its output when it fails."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=False, **options)
    if done.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))}: status {done.returncode}\n{done.stdout}")
    return done.stdout


def install(prefix):
    """Installs what a program needs that embeds the editor: the libraries and the kit."""
    for component in ("library", "qt", "terminal", "dev"):
        run(os.environ["CMAKE"], "--install", os.environ["BUILD"], "--component", component,
            "--prefix", prefix)


def library_folder(prefix):
    """The folder of the installed libraries. Its place depends on the system."""
    return next(prefix.glob("lib*/**/libKVEXMessageRules.so")).parent


def build(source, folder, prefix, *options):
    """Configures, builds and installs a CMake project in `folder`, with the kit in `prefix`."""
    cmake = os.environ["CMAKE"]
    run(cmake, "-S", source, "-B", folder / "build", f"-DCMAKE_PREFIX_PATH={prefix}",
        f"-DCMAKE_INSTALL_PREFIX={folder}", "-DCMAKE_CXX_STANDARD=17",
        f"-DCMAKE_CXX_FLAGS={STRICT}", *options)
    run(cmake, "--build", folder / "build")
    run(cmake, "--install", folder / "build")


def for_python():
    """The environment of a Python program that loads the libraries."""
    return {**os.environ, "LD_PRELOAD": os.environ.get("PRELOAD", "")}
