#!/usr/bin/python3
"""The examples of the documents do what the documents say."""

import os
import tempfile
import unittest
from pathlib import Path

from examples import BrokenExample, Example, examples_of, findings_of

ROOT = Path(__file__).parent.parent.parent


class DocumentTest(unittest.TestCase):
    def check(self, name):
        findings = findings_of(ROOT / name, os.environ["KVEXRULES"])
        self.assertEqual(findings, [], "\n\n".join(findings))

    def testTheExamplesOfTheCommands(self):
        self.check("docs/commands.md")

    def testTheExamplesOfTheContactFiles(self):
        self.check("docs/contacts.md")

    def testTheCommandsAreThoseOfTheTable(self):
        """To accept a change: cp build/dev/pages/commands.md docs/"""
        made = Path(os.environ["PAGES"], "commands.md").read_text(encoding="utf-8")
        self.assertEqual((ROOT / "docs/commands.md").read_text(encoding="utf-8"), made)


    def testEveryDocumentWithExamplesHasATest(self):
        """A document without one could promise anything."""
        source = Path(__file__).read_text(encoding="utf-8")
        documents = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
        names = [str(document.relative_to(ROOT)) for document in documents
                 if examples_of(document.read_text(encoding="utf-8"))]
        self.assertEqual([name for name in names if f'self.check("{name}")' not in source], [])


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
