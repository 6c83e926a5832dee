"""A Debian system that has only apt. It takes packages from where this machine takes its own."""

import os
import subprocess
from pathlib import Path


def sources():
    """The name of this machine's release, and its sources of Debian's own packages."""
    with open("/etc/os-release", encoding="utf-8") as file:
        (codename,) = (line.split("=")[1].strip() for line in file
                       if line.startswith("VERSION_CODENAME="))
    listed = subprocess.run(
        ["apt-get", "indextargets", "--format", "deb $(REPO_URI) $(RELEASE) $(COMPONENT)",
         "Created-By: Packages", "Origin: Debian"],
        stdout=subprocess.PIPE, text=True, check=True).stdout.splitlines()
    lines = sorted({line for line in listed if line.split()[2].startswith(codename)})
    if not lines:
        raise AssertionError(f"apt has no list of Debian {codename}: run apt-get update")
    return codename, lines


def run_in_bare_system(packages, steps, results):
    """Runs the script `steps` as root in a new system, where the folder `packages` is /packages.
    What it leaves in /results comes into the folder `results`."""
    codename, lines = sources()
    hooks = ["mkdir \"$1\"/packages \"$1\"/results",
             f"sync-in {packages} /packages",
             f"copy-in {steps} /tmp",
             f"chroot \"$1\" sh -eu /tmp/{steps.name}",
             f"sync-out /results {results}"]
    command = ["mmdebstrap", "--variant=apt", "--dpkgopt=force-unsafe-io",
               "--aptopt=APT::Install-Recommends \"false\"",
               *(f"--customize-hook={hook}" for hook in hooks), codename, "/dev/null", *lines]
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=False, env={**os.environ, "DEBIAN_FRONTEND": "noninteractive"})
    if done.returncode != 0:
        raise AssertionError(f"the bare system: status {done.returncode}\n{done.stdout}")
