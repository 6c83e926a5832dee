#!/usr/bin/python3
"""Whether docs/format.md suffices: a reader and a writer that follow it alone give the same as the
test vectors and as the editor itself. Also whether the page and the vectors belong together."""

import json
import os
import random
import re
import sqlite3
import subprocess
import tempfile
import unittest
from pathlib import Path

import jsonschema

import rule_format
from rule_format import ACTIONS, CONDITIONS, LIMITS, read, text_of, texts_of, write

DOCS = Path(__file__).resolve().parents[2] / "docs"
PAGE = (DOCS / "format.md").read_text(encoding="utf-8")
VECTORS = json.loads((DOCS / "format/vectors.json").read_text(encoding="utf-8"))
ROWS = VECTORS["rows"]
COLUMNS = ("queryParam", "actionParam")


def columns_of(row):
    return [text_of(row[column] or "") for column in COLUMNS]


def chapter(title):
    return PAGE.split(f"\n## {title}\n")[1].split("\n## ")[0]


def cells_of(table):
    """The rows of a Markdown table, without its heading."""
    lines = [line for line in table.splitlines() if line.startswith("|")]
    return [[cell.strip() for cell in line[1:-1].split("|")] for line in lines[2:]]


TAGS = [f"<{slash}{tag}>" for tag in CONDITIONS + ACTIONS for slash in ("", "/", "/")]
SCRAPS = ["<NOT>", "<CON>", "<ALL>", "<ANY>", "<ASCOMMAND>", "YES", "NO", ";", ";", " ", "x",
          "<", ">", "12", "\r\n", "\U0001F4F1", "9811100011", "word"]


def random_cases(source, count):
    """Columns of rules, most of which have scraps of tags or other text in odd places."""
    def element(tag):
        content = "".join(source.choices(SCRAPS, k=source.randrange(5)))
        if tag in ("PEOPLE", "ACCOUNT", "WORD") and source.random() < 0.7:
            modifiers = source.choice(("<CON>", "<NOT>")) + source.choice(("<ANY>", "<ALL>"))
            content = modifiers + content
        return f"<{tag}>{content}</{tag}>"

    def column(tags):
        parts = [element(tag) for tag in tags if source.random() < 0.6]
        scraps = source.choices(TAGS + SCRAPS, k=source.choice((0, 0, 1, 1, 2, 4)))
        if source.random() < 0.03:
            scraps.append("." * source.randrange(32600, 32800))
        if source.random() < 0.05:
            scraps.append("<ALLMESSAGES>")
        for scrap in scraps:
            parts.insert(source.randrange(len(parts) + 1), scrap)
        return "".join(parts)

    return [dict(zip(COLUMNS, (column(CONDITIONS), column(ACTIONS)))) for _ in range(count)]


class Format(unittest.TestCase):
    maxDiff = None

    def testVectorsFollowTheirSchema(self):
        schema = json.loads((DOCS / "format/vectors.schema.json").read_text(encoding="utf-8"))
        jsonschema.Draft202012Validator.check_schema(schema)
        jsonschema.Draft202012Validator(schema).validate(VECTORS)

    def testVectorsAreReadableByEveryReaderOfJson(self):
        text = (DOCS / "format/vectors.json").read_bytes().decode("utf-8")
        self.assertNotRegex(text, r"(?i)\\ud[89a-f]")

    def testNamesOfRowsDiffer(self):
        names = [row["name"] for row in ROWS]
        self.assertEqual(len(names), len(set(names)))
        self.assertGreaterEqual(len(names), 200)

    def testThePageSufficesToRead(self):
        for row in ROWS:
            with self.subTest(row["name"]):
                rule, error = read(*columns_of(row))
                self.assertEqual(rule, texts_of(row["rule"]))
                self.assertEqual(error, row["error"])

    def testThePageSufficesToWrite(self):
        for row in ROWS:
            with self.subTest(row["name"]):
                written = write(texts_of(row["rule"]))
                self.assertEqual(written, {c: text_of(row["written"][c]) for c in COLUMNS})
                fits = all(len(written[column]) <= LIMITS[column] for column in COLUMNS)
                self.assertEqual(fits, row["written"]["fits"])
                if "typed" in row:
                    typed = write(texts_of(row["typed"]))
                    self.assertEqual([typed[column] for column in COLUMNS], columns_of(row))

    def testWhatIsWrittenFollowsTheGrammar(self):
        grammar = re.search(r"```ebnf\n(.*?)```", PAGE, re.DOTALL)[1]
        written = [(row["rule"], row["written"], row["name"]) for row in ROWS]
        written += [(row["typed"], row, row["name"]) for row in ROWS if "typed" in row]
        for rule, columns, name in written:
            # Without a "<" in the values, each one in the columns belongs to a tag of the grammar.
            plain = "<" not in json.dumps(rule)
            special = rule_format.PLAIN if plain else rule_format.SPECIAL
            for column, start in zip(COLUMNS, ("QueryParam", "ActionParam")):
                with self.subTest(name, column=column):
                    pattern = rule_format.pattern_of(grammar, start, special)
                    self.assertRegex(text_of(columns[column]), rf"\A{pattern}\Z")
        query = rule_format.pattern_of(grammar, "QueryParam", rule_format.SPECIAL)
        self.assertNotRegex("<PEOPLE><CON><ANY>1</PEOPLE>", rf"\A{query}\Z")

    def testThePageNamesRowsThatExist(self):
        names = {row["name"] for row in ROWS}
        cases = cells_of(chapter("Odd cases"))
        self.assertGreaterEqual(len(cases), 40)
        for case, _, rows in cases:
            with self.subTest(case):
                named = re.findall(r"`([^`]+)`", rows)
                self.assertNotEqual(named, [])
                self.assertEqual(set(named) - names, set())

    def testEachTagHasItsRows(self):
        for tag in CONDITIONS + ACTIONS:
            kinds = ["alone", "empty", "twice", "lower-case", "blanks-around",
                     "trailing-semicolon", "two-trailing-semicolons",
                     "unclosed", "closing-first", "last-place", "too-far"]
            expected = {f"{tag.lower()}-{kind}" for kind in kinds}
            self.assertEqual(expected - {row["name"] for row in ROWS}, set())
            errors = [row["error"] for row in ROWS if row["error"]]
            numbers = {error["number"] for error in errors if error["tag"] == tag}
            self.assertEqual(numbers, {5, 6}, tag)
            self.assertIn(f"`{tag}`", chapter("What the editor writes"))

    def testEachMemberTakesDifferentValues(self):
        for column in COLUMNS:
            self.assertIn(None, [row[column] for row in ROWS])
        for name, value in rule_format.new_rule().items():
            values = [row["rule"][name] for row in ROWS]
            members = {name: values}
            if isinstance(value, dict):
                members = {member: [value[member] for value in values] for member in value}
            for member, taken in members.items():
                self.assertGreaterEqual(len({json.dumps(value) for value in taken}), 2, member)

    def testTheTablesAreThoseThatTheProgramMakes(self):
        types = {"INTEGER": {"key", "integer"}, "TEXT": {"name", "text"}}
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "rules.db")
            subprocess.run([os.environ["KVEXRULES"], "init", "--database", path], check=True,
                           capture_output=True, timeout=60, env={**os.environ, "HOME": folder})
            database = sqlite3.connect(path)
            sections = {section.split("`")[0]: section
                        for section in chapter("The tables").split("\n### `")[1:]}
            tables = {name for name, in database.execute(
                "SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE 'SMS%'")}
            self.assertEqual({*sections, "SMS_SCHEMA"}, tables)
            self.assertIn("`SMS_SCHEMA`", chapter("The tables"))
            for table, section in sections.items():
                documented = [(name.strip("`"), type_ == "key", None if default == "-" else default)
                              for name, type_, default, _ in cells_of(section)]
                made = database.execute(f"PRAGMA table_info({table})").fetchall()
                self.assertEqual(documented, [(c[1], c[5] == 1, c[4]) for c in made], table)
                for cells, column in zip(cells_of(section), made):
                    self.assertIn(cells[1], types[column[2]], f"{table}.{column[1]}")
            database.close()

    def testRandomTextsReadAsTheEditorReadsThem(self):
        seed = 20240301
        cases = random_cases(random.Random(seed), 5000)
        lines = "".join(json.dumps(case) + "\n" for case in cases)
        answers = subprocess.run([os.environ["FORMAT_READINGS"]], check=True, timeout=300,
                                 input=lines, encoding="utf-8", stdout=subprocess.PIPE)
        answers = [json.loads(line) for line in answers.stdout.splitlines()]
        self.assertEqual(len(answers), len(cases))
        for case, answer in zip(cases, answers):
            with self.subTest(case, seed=seed):
                rule, error = read(*columns_of(case))
                self.assertEqual(rule, texts_of(answer["rule"]))
                self.assertEqual(error and error["number"], answer["error"])
                self.assertEqual(write(rule), {c: text_of(answer["written"][c]) for c in COLUMNS})
        numbers = [answer["error"] for answer in answers]
        for number in (None, 5, 6):
            self.assertGreater(numbers.count(number), 50)


if __name__ == "__main__":
    unittest.main()
