#!/usr/bin/python3
"""The SQL of docs/databases.md gives an owner and an editor what the page says."""

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


def statements(begin):
    """The block of SQL that begins with this line, with a password."""
    blocks = re.findall(r"```sql\n(.*?)```", PAGE.read_text(encoding="utf-8"), re.DOTALL)
    [block] = [block for block in blocks if block.startswith(begin)]
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


if __name__ == "__main__":
    unittest.main()
