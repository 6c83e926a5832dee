"""A database server of its own for a test."""

import subprocess


class Server:
    """A server with an empty database. `serve` is the program that starts it."""

    def __init__(self, serve, kind):
        self.process = subprocess.Popen([serve, kind], text=True, encoding="utf-8",
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.connection = self.process.stdout.readline().strip()

    def rows(self, statement):
        """Each row as text, its columns joined by "|"."""
        print(statement, file=self.process.stdin, flush=True)
        count = int(self.process.stdout.readline())
        return [self.process.stdout.readline().rstrip("\n") for _ in range(count)]

    def stop(self):
        self.process.stdin.close()
        self.process.wait()
        self.process.stdout.close()
