"""A user with a desktop of their own, in a process of its own: a process has only one desktop."""

import multiprocessing
import time
from contextlib import ExitStack, suppress

from accessibility import Role
from desktop import Desktop, TimedOut, wait_for
from kvexrules import Database
from operations import Keys, Removal
from share import Broken

# How many looks in a row must find an operation acknowledged. The program may answer the first one
# while it still handles the key.
LOOKS = 3


def messages(program):
    """The texts of the message boxes that are showing."""
    return [" ".join(node.name for node in window.children() if node.role == Role.LABEL).strip()
            for window in program.windows() if window.role == Role.ALERT]


def outcome(operation, program):
    """Waits for what the user sees after the key: a message, or "" when the program goes on."""
    acknowledged = 0

    def seen():
        nonlocal acknowledged
        said = messages(program)
        if any(said) and Removal.question not in said:  # one that closes has lost its text
            return said
        goes_on = not said and operation.is_acknowledged(program)
        acknowledged = acknowledged + 1 if goes_on else 0
        return [""] if acknowledged == LOOKS else None

    return wait_for(f"the end of {operation}", seen)[0]


def use(pipe):
    """Plays one operation after another, as its other end says, until that closes."""
    with suppress(EOFError), ExitStack() as stack:
        desktop = stack.enter_context(Desktop())
        keys = Keys()
        stack.callback(keys.close)
        while True:
            operation, path = pipe.recv()
            program = operation.start(desktop, Database(path))
            try:
                operation.prepare(program)
                pipe.send((True, None))
                time.sleep(max(0, pipe.recv() - time.monotonic()))
                keys.press(operation.key)
                pipe.send((True, outcome(operation, program)))
            except TimedOut as problem:
                pipe.send((False, f"{problem}\n{program.report()}"))
            pipe.recv()
            program.process.kill()
            program.process.wait()
            pipe.send((True, None))


class User:
    """The other end of the pipe."""

    def __init__(self):
        processes = multiprocessing.get_context("spawn")
        self.pipe, other = processes.Pipe()
        self.process = processes.Process(target=use, args=(other,))
        self.process.start()
        other.close()

    def answer(self):
        is_well, said = self.pipe.recv()
        if not is_well:
            raise Broken(said)
        return said

    def prepare(self, operation, database):
        """Begins to prepare; `answer` waits for its end."""
        self.pipe.send((operation, database.path))

    def press_at(self, moment):
        """Presses the key at this moment of the monotonic clock. The answer is the message that
        the program then shows, or ""."""
        self.pipe.send(moment)

    def leave(self):
        """Ends the program."""
        self.pipe.send("leave")
        self.answer()

    def end(self):
        self.pipe.close()
        self.process.join()
