"""The checks of script/lint: that they find what they look for, and that the project passes."""

import subprocess
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(__file__).parents[3]


class Checks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def run_check(self, check, root=None):
        """The check's status and the lines it printed."""
        done = subprocess.run(
            [PROJECT / "script" / check, root or self.root],
            stdout=subprocess.PIPE, text=True, check=False,
        )
        return done.returncode, done.stdout.splitlines()

    def assert_refused(self, check, place):
        status, lines = self.run_check(check)
        self.assertEqual(status, 1)
        self.assertEqual(len(lines), 1, lines)
        self.assertTrue(lines[0].startswith(place), lines[0])

    def assert_passes(self, check, root=None):
        self.assertEqual(self.run_check(check, root), (0, []))

    def testTheProjectIncludesOnlyWhatItMay(self):
        self.assert_passes("check-includes", PROJECT)

    def testTheProjectsSentencesAreShort(self):
        self.assert_passes("check-prose", PROJECT)

    def testAnAdapterInTheRulesIsRefusedWithFileLineAndRule(self):
        self.write("rules/Load.cpp", '#include "platform/Text.h"\n#include "adapters/qt/Window.h"\n')
        status, lines = self.run_check("check-includes")
        self.assertEqual(status, 1)
        self.assertEqual(
            lines,
            ["rules/Load.cpp:2: includes adapters/qt/Window.h; rules/ may include the standard "
             "library, platform/, component/session/, rules/"],
        )

    def testAnIncludeInAngleBracketsIsNoWayAround(self):
        self.write("ui/rules/frmRules.cpp", "#include <adapters/qt/Window.h>\n")
        self.assert_refused("check-includes", "ui/rules/frmRules.cpp:1:")

    def testAPathThatDoesNotStartAtTheRootIsRefused(self):
        self.write("ui/rules/frmRules.cpp", '#include "frmRules.h"\n')
        self.assert_refused("check-includes", "ui/rules/frmRules.cpp:1:")

    def testALibraryInTheInterfacesIsRefused(self):
        self.write("platform/controls/ListView.h", "#include <vector>\n#  include <QWidget>\n")
        self.assert_refused("check-includes", "platform/controls/ListView.h:2:")

    def testAnotherAdaptersLibraryIsRefused(self):
        self.write("adapters/qt/List.cpp", "#include <QListView>\n#include <sqlite3.h>\n")
        self.assert_refused("check-includes", "adapters/qt/List.cpp:2:")

    def testAnotherAdapterIsRefused(self):
        self.write("adapters/qt/List.cpp", '#include "adapters/headless/List.h"\n')
        self.assert_refused("check-includes", "adapters/qt/List.cpp:1:")

    def testAFolderWithoutARuleIsRefused(self):
        self.write("adapters/new/Thing.h", "#include <vector>\n")
        self.assert_refused("check-includes", "adapters/new/Thing.h:1:")

    def testTheComponentNamesAdaptersInItsCompositionAlone(self):
        self.write("component/Composition.cpp", '#include "adapters/qt/Toolkit.h"\n')
        self.assert_passes("check-includes")
        self.write("component/RuleUIClass.cpp", '#include "adapters/qt/Toolkit.h"\n')
        self.assert_refused("check-includes", "component/RuleUIClass.cpp:1:")

    def testTheSessionSeesNothingOfTheRulesAboveIt(self):
        self.write("component/session/Session.h", '#include "platform/Platform.h"\n')
        self.write("rules/Load.cpp", '#include "component/session/Session.h"\n')
        self.assert_passes("check-includes")
        self.write("component/session/Session.cpp", '#include "rules/RuleState.h"\n')
        self.assert_refused("check-includes", "component/session/Session.cpp:1:")

    def testTheRulesSeeOfTheComponentItsSessionAlone(self):
        self.write("rules/Load.cpp", '#include "component/RuleUIClass.h"\n')
        self.assert_refused("check-includes", "rules/Load.cpp:1:")

    def testAHostSeesOfTheComponentItsPublicHeaderAlone(self):
        self.write("host/kvexrules/main.cpp", '#include "kvex/RuleUI.h"\n')
        self.assert_passes("check-includes")
        self.write("host/kvexrules/show.cpp", '#include "rules/Describe.h"\n')
        self.assert_refused("check-includes", "host/kvexrules/show.cpp:1:")

    def testTheAddressBookIncludesTheSuiteAndNeverTheOtherWayRound(self):
        self.write("host/addressbook/Contacts.cpp", '#include "host/suite/Databases.h"\n')
        self.assert_passes("check-includes")
        self.write("host/suite/Server.cpp", '#include "host/addressbook/Contacts.h"\n')
        self.assert_refused("check-includes", "host/suite/Server.cpp:1:")

    def testTheSuitesServerSeesSuiteAddressBookAndToolkit(self):
        self.write(
            "host/suiteserver/Server.cpp",
            '#include "adapters/toolkits/LoadedToolkit.h"\n'
            '#include "host/addressbook/Contacts.h"\n'
            '#include "host/suite/Databases.h"\n',
        )
        self.assert_passes("check-includes")

    def testTheProgramIncludesNoToolkit(self):
        self.write("host/kvexrules/main.cpp", '#include "adapters/qt/QtToolkit.h"\n')
        self.assert_refused("check-includes", "host/kvexrules/main.cpp:1:")

    def testADocumentsSentenceHasAtMostTwentyFiveWords(self):
        self.write("docs/a.md", "One.\n\n" + "word " * 24 + "word.\n")
        self.assert_passes("check-prose")
        self.write("docs/a.md", "One.\n\n" + "word " * 25 + "word.\n")
        self.assert_refused("check-prose", "docs/a.md:3: a sentence of 26 words")

    def testAHeadersSentenceIsReadAcrossItsLines(self):
        self.write("a/b.h", "/// " + "word " * 13 + "\n/// " + "word " * 13 + "\nint a;\n")
        self.assert_refused("check-prose", "a/b.h:1: a sentence of 26 words")

    def testSentencesItemsAndCellsAreReadOneByOne(self):
        half = "word " * 14
        self.write("docs/a.md", f"{half}. {half}.\n- {half}\n- {half}\n\n| {half} | {half} |\n")
        self.assert_passes("check-prose")

    def testCodeIsOneWordAndAFenceNone(self):
        long = "word " * 30
        self.write("docs/a.md", f"`{long}`\n\n```\n{long}\n```\n\n    {long}\n")
        self.assert_passes("check-prose")

    def testAPhraseThatMakesReadersStumbleIsRefused(self):
        self.write("a/b.h", "// It writes as " + "far as it can.\n")
        self.assert_refused("check-prose", "a/b.h:1: says 'as " + "far as'; write: say the condition")

    def testWhatIsBuiltIsNotRead(self):
        self.write("build/dev/a.md", "word " * 30 + "\n")
        self.assert_passes("check-prose")


if __name__ == "__main__":
    unittest.main()
