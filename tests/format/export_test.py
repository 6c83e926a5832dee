#!/usr/bin/python3
"""Exports and imports of rules as documents: their schema, the rows that they keep, ten thousand
rules, and imports that are killed."""

import json
import os
import random
import signal
import sqlite3
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

import jsonschema

from rule_format import text_of

DOCS = Path(__file__).resolve().parents[2] / "docs"
SCHEMA = json.loads((DOCS / "format/export.schema.json").read_text(encoding="utf-8"))
VECTORS = json.loads((DOCS / "format/vectors.json").read_text(encoding="utf-8"))
CHECK = jsonschema.Draft202012Validator(SCHEMA)
KILLS = 200


def is_storable(text):
    """Databases keep whole surrogate pairs alone."""
    return text is None or "utf16" not in text


def stored(column):
    """The text of a column in the vectors, with whole characters."""
    if column is None:
        return None
    return text_of(column).encode("utf-16", "surrogatepass").decode("utf-16")


class ExportTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.database = self.folder / "rules.db"
        self.environment = {"HOME": str(self.folder), "KVEX_DATABASE": str(self.database)}
        for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS"):
            if name in os.environ:
                self.environment[name] = os.environ[name]
        self.kvexrules("init", "--sample")

    def start(self, *arguments):
        return subprocess.Popen([os.environ["KVEXRULES"], *arguments], cwd=self.folder,
                                env=self.environment, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE)

    def kvexrules(self, *arguments):
        program = self.start(*arguments)
        output, errors = program.communicate()
        self.assertEqual((program.returncode, errors.decode()), (0, ""))
        return output.decode("utf-8")

    def execute(self, statement, rows=((),)):
        with sqlite3.connect(self.database) as connection:
            connection.executemany(statement, rows)
        connection.close()

    def export(self):
        """The text of an export, and the document, which follows the schema."""
        text = self.kvexrules("export")
        document = json.loads(text)
        CHECK.validate(document)
        return text, document

    def write(self, name, document):
        text = json.dumps(document, ensure_ascii=False, indent=2) + "\n"
        (self.folder / name).write_text(text, encoding="utf-8")
        return text

    def testTheSchemaIsOne(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def testEveryRowOfTheTestVectorsComesBack(self):
        rows = [row for row in VECTORS["rows"]
                if is_storable(row["queryParam"]) and is_storable(row["actionParam"])]
        self.assertGreater(len(rows), 300)
        self.execute("DELETE FROM SMS_RULES")
        self.execute("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam) VALUES (?, ?, ?)",
                     [(row["name"], stored(row["queryParam"]), stored(row["actionParam"]))
                      for row in rows])
        text, document = self.export()
        for row, exported in zip(rows, document["rules"], strict=True):
            with self.subTest(row["name"]):
                self.assertEqual(exported["name"], row["name"])
                if "repeat" not in str(row["rule"]):
                    self.assertEqual(exported["rule"], row["rule"])
                self.assertEqual(exported["error"], row["error"])
                self.assertEqual(set(exported), set(SCHEMA["$defs"]["row"]["properties"]))
        (self.folder / "rules.json").write_text(text, encoding="utf-8", newline="")
        self.execute("DELETE FROM SMS_RULES")
        self.kvexrules("import", "rules.json")
        self.assertEqual(self.export()[0], text)

    def testTenThousandRulesComeBack(self):
        document = self.export()[1]
        rules = document["rules"]
        document["rules"] = [{**rules[number % len(rules)], "name": f"Rule {number}"}
                             for number in range(10_000)]
        text = self.write("rules.json", document)
        self.execute("DELETE FROM SMS_RULES")
        self.assertTrue(self.kvexrules("import", "rules.json").endswith(
            "10000 rules added, 0 changed, 0 removed, 0 unchanged.\n"))
        self.assertTrue(self.kvexrules("export") == text)
        self.assertEqual(self.kvexrules("import", "rules.json", "--replace"),
                         "0 rules added, 0 changed, 0 removed, 10000 unchanged.\n")

    def testTheExamplesOfFieldsAloneFitTheSchema(self):
        document = {"format": "kvex-rules", "version": 1, "rules": [
            {"name": "a", "active": True, "rule": {"people": {"entries": ["98"]}, "delete": "YES"}}]}
        CHECK.validate(document)
        for broken in ({"name": "a", "active": True},
                       {"name": "a", "active": True, "rule": {"delet": "YES"}},
                       {"name": "a", "active": True, "queryParam": ""}):
            with self.assertRaises(jsonschema.ValidationError):
                CHECK.validate({**document, "rules": [broken]})

    def testAnImportThatIsKilledStoresAllOrNothing(self):
        old, document = self.export()
        rules = document["rules"]
        document["rules"] = [
            {**rule, "name": f"{rule['name']} {copy}"[-50:], "active": copy % 2 == 0}
            for copy in range(30) for rule in rules] + [{**rules[3], "active": False}]
        new = self.write("rules.json", document)
        before = self.database.read_bytes()
        started = time.monotonic()
        self.kvexrules("import", "rules.json", "--replace")
        duration = time.monotonic() - started
        self.assertTrue(self.kvexrules("export") == new)
        chance = random.Random(5)
        seen = {old: 0, new: 0}
        killed = 0
        while killed < KILLS:
            for file in self.folder.glob("rules.db*"):
                file.unlink()
            self.database.write_bytes(before)
            program = self.start("import", "rules.json", "--replace")
            time.sleep(chance.uniform(0, duration))
            program.send_signal(signal.SIGKILL)
            program.communicate()
            killed += program.returncode == -signal.SIGKILL
            text = self.kvexrules("export")
            self.assertIn(text, seen, f"kill {killed}: neither the old rules nor the new ones")
            seen[text] += 1
        print(f"{seen[old]} imports left the old rules, and {seen[new]} the new ones")


if __name__ == "__main__":
    unittest.main()
