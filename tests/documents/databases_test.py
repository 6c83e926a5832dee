#!/usr/bin/python3
"""The SQL of docs/databases.md does what the page says."""

import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent.parent / "e2e"))

from server import Server  # noqa: E402

PAGE = Path(__file__).parent.parent.parent / "docs/databases.md"
PROGRAM = os.environ["KVEXRULES"]
PASSWORD = "a secret"


BLOCKS = re.findall(r"```sql\n(.*?)```", PAGE.read_text(encoding="utf-8"), re.DOTALL)


def statements(begin):
    """The block of SQL that begins with this text, with a password."""
    [block] = [block for block in BLOCKS if block.startswith(begin)]
    return block.replace("'...'", f"'{PASSWORD}'")


class DatabasesTest(unittest.TestCase):
    def serve(self, kind, client):
        """`client` makes the command of the server's own client from the parts of a connection
        string."""
        server = Server(os.environ["SERVE"], kind)
        self.addCleanup(server.stop)
        folder = tempfile.TemporaryDirectory(prefix="kvex-databases-")
        self.addCleanup(folder.cleanup)
        self.home = folder.name
        self.parts = dict(part.split("=", 1) for part in server.connection.split(";"))
        self.client = client

    def administrate(self, text, database):
        subprocess.run([*self.client(self.parts), database], input=text, text=True, check=True,
                       stdout=subprocess.DEVNULL,
                       env={**os.environ, "PGPASSWORD": self.parts.get("PWD", "")})

    def run_as(self, user, *words):
        parts = {**self.parts, "Database": "sms", "UID": user, "PWD": PASSWORD}
        connection = ";".join(f"{key}={value}" for key, value in parts.items())
        return subprocess.run(
            [PROGRAM, *words], text=True, capture_output=True, check=False,
            env={"PATH": os.environ["PATH"], "HOME": self.home, "KVEX_DATABASE": connection,
                 "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "")})

    def play(self):
        made = self.run_as("owner", "init", "--sample")
        self.assertEqual((made.returncode, made.stderr), (0, ""))

    def expect_an_editor_who_only_reads_contacts(self):
        listed = self.run_as("editor", "list")
        self.assertEqual((listed.returncode, len(listed.stdout.splitlines())), (0, 7))
        contacts = self.run_as("editor", "contacts", "list")
        [contact, *_] = contacts.stdout.splitlines()
        self.assertEqual((contacts.returncode, contacts.stderr), (0, ""))
        refused = self.run_as("editor", "contacts", "remove", contact.split("\t")[0])
        self.assertNotEqual(refused.returncode, 0)
        self.assertIn("Ask the administrator of the database for the right", refused.stderr)

    def testPostgreSqlGetsAnOwnerAndAnEditor(self):
        self.serve("postgresql", lambda parts: [
            "psql", "-q", "-v", "ON_ERROR_STOP=1", "-h", parts["Server"], "-p", parts["Port"],
            "-U", parts["UID"], "-d"])
        self.administrate(statements("CREATE ROLE owner"), self.parts["Database"])
        self.play()
        self.administrate(statements("CREATE ROLE editor"), "sms")
        self.expect_an_editor_who_only_reads_contacts()

    def testMariaDbGetsAnOwnerAndAnEditor(self):
        self.serve("mariadb", lambda parts: [
            "mariadb", "-h", parts["Server"], "-P", parts["Port"], "-u", parts["UID"],
            f"-p{parts['PWD']}", "-D"])
        self.administrate(statements("DROP USER"), self.parts["Database"])
        self.play()
        self.administrate(statements("CREATE USER editor"), "sms")
        self.expect_an_editor_who_only_reads_contacts()

    def testAValueThatCannotBeReadIsStoredAgain(self):
        folder = tempfile.TemporaryDirectory(prefix="kvex-databases-")
        self.addCleanup(folder.cleanup)
        path = Path(folder.name, "rules.db")

        def kvexrules(*words):
            return subprocess.run([PROGRAM, *words, "--database", path], text=True, check=False,
                                  capture_output=True, env={**os.environ, "HOME": folder.name})

        def run(text):
            subprocess.run(["sqlite3", path], input=text, text=True, check=True)

        kvexrules("init", "--sample")
        run("UPDATE SMS_RULES SET Name = CAST(X'FF41' AS TEXT) WHERE ID = 3;")
        refused = kvexrules("rename", "3", "another name")
        self.assertEqual(refused.returncode, 1, refused.stderr)
        self.assertIn("Name", refused.stderr)
        run(statements("UPDATE SMS_RULES"))
        self.assertIn("the name\n", kvexrules("list").stdout)
        self.assertEqual(kvexrules("rename", "3", "another name").returncode, 0)

    def testEveryBlockOfSqlIsRunAbove(self):
        source = Path(__file__).read_text(encoding="utf-8")
        begins = re.findall(r"statements\(\"(.*?)\"\)", source)
        self.assertEqual([sum(block.startswith(begin) for begin in begins) for block in BLOCKS],
                         [1] * len(BLOCKS))


if __name__ == "__main__":
    unittest.main()
