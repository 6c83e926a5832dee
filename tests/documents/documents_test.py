#!/usr/bin/python3
"""The examples of the documents do what the documents say."""

import json
import os
import re
import tempfile
import unittest
from pathlib import Path

from examples import BrokenExample, Example, blocks_of, examples_of, findings_of

ROOT = Path(__file__).parent.parent.parent

# The commands in blocks of the kind `sh`. Each stands beside the test that runs it, and beside how
# it is written there.
RUN_BY = {
    "script/run": ("tests/documents/sources_test.py", '"script/run"'),
    "script/test": (".ci/run", "script/test"),
    "script/package": ("tests/packaging/archive_test.py", '"script/package"'),
    "sudo apt install ./build/package/*.deb": (
        "tests/packaging/bare_system_steps.sh", "apt-get install -y /packages/*.deb"),
    "cmake -B build -D CMAKE_BUILD_TYPE=Release -D BUILD_TESTING=OFF": (
        "tests/packaging/archive_test.py", '"cmake", "-B", "build"'),
    "cmake --build build": ("tests/packaging/archive_test.py", '"cmake", "--build", "build"'),
    "cmake --install build --prefix /opt/kvex": (
        "tests/packaging/installation.py", '"cmake", "--install"'),
}
# Another test runs the commands of these documents as they stand.
RUN_WHOLE = {"embedding.md": "tests/kit/document_test.py"}


def documents():
    return [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]


def shell_commands(text):
    """The lines of the blocks of the kind `sh`, without comments."""
    lines = (line.split(" #")[0].strip()
             for kind, block in blocks_of(text) if kind == "sh" for line in block)
    return [line for line in lines if line]


def anchors_of(text):
    """The names that a page of Markdown gives to its headings."""
    return {re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")
            for heading in re.findall(r"^#+ (.*)$", text, re.MULTILINE)}


class DocumentTest(unittest.TestCase):
    def check(self, name):
        findings = findings_of(ROOT / name, os.environ["KVEXRULES"])
        self.assertEqual(findings, [], "\n\n".join(findings))

    def testTheExamplesOfTheReadme(self):
        self.check("README.md")

    def testTheExamplesOfTheCommands(self):
        self.check("docs/commands.md")

    def testTheExamplesOfTheContactFiles(self):
        self.check("docs/contacts.md")

    def testTheExamplesOfTheDatabases(self):
        self.check("docs/databases.md")

    def testTheCommandsAreThoseOfTheTable(self):
        """To accept a change: cp build/dev/pages/commands.md docs/"""
        made = Path(os.environ["PAGES"], "commands.md").read_text(encoding="utf-8")
        self.assertEqual((ROOT / "docs/commands.md").read_text(encoding="utf-8"), made)

    def testEveryDocumentWithExamplesHasATest(self):
        """A document without one could promise anything."""
        source = Path(__file__).read_text(encoding="utf-8")
        names = [str(document.relative_to(ROOT)) for document in documents()
                 if examples_of(document.read_text(encoding="utf-8"))]
        self.assertEqual([name for name in names if f'self.check("{name}")' not in source], [])

    def testEveryOtherCommandIsRunByATest(self):
        commands = {command for document in documents() if document.name not in RUN_WHOLE
                    for command in shell_commands(document.read_text(encoding="utf-8"))}
        self.assertEqual(commands, set(RUN_BY))
        for document, test in RUN_WHOLE.items():
            self.assertIn(f'"{document}"', (ROOT / test).read_text(encoding="utf-8"))
        for command, (test, written) in RUN_BY.items():
            self.assertIn(written, (ROOT / test).read_text(encoding="utf-8"), command)

    def testABlockOfCommandsSaysSo(self):
        """A block without a kind holds a file, a line of one, or what a command prints."""
        for document in documents():
            for kind, lines in blocks_of(document.read_text(encoding="utf-8")):
                for line in lines if kind == "" else []:
                    self.assertNotRegex(line, r"^\s*(kvexrules|script/\w+|sudo|cmake|apt)( |$)",
                                        document.name)

    def testTheIndexNamesEveryDocument(self):
        index = (ROOT / "docs/README.md").read_text(encoding="utf-8")
        named = re.findall(r"^\| \[.*?\]\((.*?)\) \|", index, re.MULTILINE)
        self.assertEqual(len(named), len(set(named)))
        self.assertEqual({ROOT / "docs" / name for name in named if "/" not in name},
                         set(documents()) - {ROOT / "README.md", ROOT / "docs/README.md"})

    def testLinksLeadToFilesAndHeadings(self):
        others = ("CHANGELOG.md", "CONTRIBUTING.md", "SECURITY.md", "tests/README.md")
        for page in [*documents(), *(ROOT / name for name in others)]:
            text = page.read_text(encoding="utf-8")
            for link in re.findall(r"\]\(([^)\s]+)\)", text):
                if link.startswith("https://"):
                    continue
                name, _, heading = link.partition("#")
                target = (page.parent / name).resolve() if name else page
                self.assertTrue(target.exists(), f"{page.name}: {link}")
                if heading:
                    self.assertIn(heading, anchors_of(target.read_text(encoding="utf-8")),
                                  f"{page.name}: {link}")

    def testTheReadmeIsReadInAMinute(self):
        readme = (ROOT / "README.md").read_text(encoding="utf-8")
        self.assertLessEqual(len(readme.splitlines()), 120)
        vectors = json.loads((ROOT / "docs/format/vectors.json").read_text(encoding="utf-8"))
        self.assertIn(f"{len(vectors['rows'])} test vectors", readme)


class ExamplesTest(unittest.TestCase):
    """What the documents above rely on."""

    def testExamplesAreTypedInOrderAndOthersAreNot(self):
        found = examples_of("```\nnot typed\n```\n<!-- before\ntouch a\n-->\n```console\n$ ls\na\n\n"
                            "$ cat <<X\n> b\n> X\nb\n```\n")
        self.assertEqual([(one.line, one.command, one.expected, one.is_shown) for one in found], [
            (4, "touch a\n", [], False),
            (8, "ls", ["a", ""], True),
            (11, "cat <<X\nb\nX", ["b"], True),
        ])

    def testBlocksAreFoundOneAfterTheOther(self):
        self.assertEqual(
            blocks_of("```sql\nA\n```\ntext\n```\nB\n\nC\n```\n\n- item\n  ```sh\n  D\n"
                      "  ```\n"),
            [("sql", ["A"]), ("", ["B", "", "C"]), ("sh", ["D"])])

    def testABlockThatIsNoExampleIsRefused(self):
        for text in ("```console\nls\n```\n", "```\n$ ls\n```\n", "```console\n$ ls\n"):
            with self.assertRaises(BrokenExample):
                examples_of(text)

    def testThreeDotsStandForText(self):
        example = Example(1, "ls", ["a...z", "...", "c"])
        self.assertTrue(example.accepts("a/b/z\nc\n"))
        self.assertTrue(example.accepts("az\nx\ny\nc\n"))
        self.assertFalse(example.accepts("az\nx\nC\n"))
        self.assertFalse(example.accepts("az\nc\nd\n"))
        self.assertTrue(Example(1, "true", []).accepts(""))
        self.assertFalse(Example(1, "echo", []).accepts("\n"))

    def testOnlyACommandThatShowsAMessageMayFail(self):
        self.assertTrue(Example(1, "x", ["kvexrules: no"]).may_fail())
        self.assertFalse(Example(1, "x", ["error: no"]).may_fail())

    def testFindingsNameTheLineAndBothOutputs(self):
        with tempfile.TemporaryDirectory(prefix="kvex-document-") as folder:
            document = Path(folder, "findings.md")
            document.write_text("```console\n$ cd /\n$ pwd; false\n/home\n$ echo $HOME\n"
                                "/home/you\n```\n", encoding="utf-8")
            findings = findings_of(document, os.environ["KVEXRULES"])
        self.assertEqual(findings, [
            "findings.md:3: $ pwd; false\nshould print\n/home\nbut prints\n/\n",
            "findings.md:3: $ pwd; false\nends with the status 1: /\n",
        ])


if __name__ == "__main__":
    unittest.main()
