"""What the installation holds, and whether desktops and loaders can use it."""

import re
import struct
import unittest
from pathlib import Path

from installation import install, output, temporary_folder

PROJECT = Path(__file__).parents[2]
ICON_SIZES = [16, 22, 24, 32, 48, 64, 128, 256, 512]
CLASS_FILE = "share/kvex/classes/{2E9C6A10-5D43-4B7B-8A60-1F0D7C35B201}.class"
APPLICATION = "share/metainfo/org.example.kvexrules.metainfo.xml"


def dynamic(file, tag):
    """The value of a dynamic tag of a program or library."""
    found = re.search(rf"\({tag}\)[^\[]*\[(.*)\]", output("readelf", "--dynamic", file))
    return found and found[1]


class InstalledFiles(unittest.TestCase):
    def setUp(self):
        self.prefix = temporary_folder(self) / "prefix"

    def names(self, *components):
        for component in components:
            install(self.prefix, "--component", component)
        return {str(file.relative_to(self.prefix)) for file in self.prefix.rglob("*")
                if not file.is_dir()}

    def testOfTheLibrariesAreTheLibrariesAndTheRegistration(self):
        self.assertEqual(
            self.names("library"),
            {"share/doc/libkvexmessagerules/changelog.Debian",
             "share/doc/libkvexmessagerules/copyright",
             "share/lintian/overrides/libkvexmessagerules", CLASS_FILE,
             "lib/kvex/libKVEXClassServer.so.1",
             "lib/kvex/libKVEXHostSuite.so", "lib/kvex/libKVEXHostSuite.so.1", "lib/kvex/libKVEXMessageRules.so",
             "lib/kvex/libKVEXMessageRules.so.1"})

    def testOfEachToolkitAreItsLibrary(self):
        for name, library in (("qt", "libKVEXQt.so"), ("terminal", "libKVEXTerminal.so")):
            package = f"kvex-toolkit-{name}"
            self.prefix = temporary_folder(self) / name
            self.assertEqual(
                self.names(name),
                {f"share/doc/{package}/changelog.Debian", f"share/doc/{package}/copyright",
                 f"share/lintian/overrides/{package}", f"lib/kvex/{library}"})

    def testOfTheProgramAreInTheFoldersThatDesktopsAndShellsRead(self):
        icons = {f"share/icons/hicolor/{size}x{size}/apps/kvexrules.png" for size in ICON_SIZES}
        sources = output("git", "ls-files", "docs", cwd=PROJECT).splitlines()
        documents = {f"share/doc/kvexrules/{name}" for name in [
            "CHANGELOG.md", "README.md", "SECURITY.md", "changelog.Debian", "copyright", *sources]}
        self.assertEqual(
            icons | documents | {
                "bin/kvexrules", "share/applications/kvexrules.desktop", APPLICATION,
                "share/icons/hicolor/scalable/apps/kvexrules.svg", "share/man/man1/kvexrules.1",
                "share/bash-completion/completions/kvexrules",
                "share/zsh/vendor-completions/_kvexrules",
                "share/fish/vendor_completions.d/kvexrules.fish",
                "share/lintian/overrides/kvexrules"},
            self.names("kvexrules"))

    def testLookForLibrariesOnlyInTheirOwnFolderAndThePrivateOne(self):
        self.names("library", "qt", "terminal", "kvexrules")
        self.assertEqual(dynamic(self.prefix / "bin/kvexrules", "RUNPATH"),
                         "$ORIGIN:$ORIGIN/../lib/kvex")
        libraries = [file for file in (self.prefix / "lib/kvex").iterdir() if not file.is_symlink()]
        self.assertEqual(len(libraries), 5)
        for library in libraries:
            self.assertEqual(dynamic(library, "RUNPATH"), "$ORIGIN", library)
            name = library.name if library.suffix == ".1" else None
            self.assertEqual(dynamic(library, "SONAME"), name)

    def testDescribeTheProgramToDesktops(self):
        self.names("kvexrules")
        self.assertEqual(output("desktop-file-validate",
                                self.prefix / "share/applications/kvexrules.desktop"), "")
        output("appstreamcli", "validate", "--no-net", "--strict", self.prefix / APPLICATION)

    def testHaveIconsOfTheirSizes(self):
        self.names("kvexrules")
        for size in ICON_SIZES:
            icon = self.prefix / f"share/icons/hicolor/{size}x{size}/apps/kvexrules.png"
            header = icon.read_bytes()[:24]
            self.assertEqual(header[1:4], b"PNG")
            self.assertEqual(struct.unpack(">II", header[16:]), (size, size))

    def testHaveOneVersion(self):
        self.names("library", "kvexrules")
        version = (PROJECT / "VERSION").read_text(encoding="utf-8").strip()
        changes = (PROJECT / "CHANGELOG.md").read_text(encoding="utf-8")
        newest = re.search(r"^## \[(\d[^]]*)\] - (\d{4}-\d\d-\d\d)$", changes, re.MULTILINE)
        self.assertEqual(newest[1], version)
        self.assertEqual(output(self.prefix / "bin/kvexrules", "version").splitlines()[0],
                         f"kvexrules {version}")
        self.assertIn(f'<release version="{version}" date="{newest[2]}"/>',
                      (self.prefix / APPLICATION).read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()
