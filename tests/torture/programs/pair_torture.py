"""Two users of one database store something in two processes of kvexrules edit at the same moment.
Whatever a program does not refuse must be stored, as if one user had come after the other."""

import itertools
import random
import tempfile
import time
from collections import Counter, defaultdict
from contextlib import ExitStack
from pathlib import Path

from operations import OPERATIONS
from places import Places
from share import Broken, Share
from stored import difference, stored_rules
from user import User

SHORT_RUNS = 3
RUNS_WITH_ONE_ON_EACH_SERVER = 7
# Both keys fall within this time, after a moment in which both users get ready.
LATEST = 0.05
MOMENT = 0.1
# How often both users take the same rule.
SAME_RULE = 0.6


class Attack:
    def __init__(self, stack):
        folder = Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="kvex-pair-")))
        self.places = Places(stack, folder, RUNS_WITH_ONE_ON_EACH_SERVER)
        self.users = [User(), User()]
        for user in self.users:
            stack.callback(user.end)
        self.pairs = defaultdict(Counter)

    def run(self, seed):
        chance = random.Random(seed)
        place = self.places.of(seed)
        first, second = chance.choices(list(place.initial)[1:], k=2)
        if chance.random() < SAME_RULE:
            second = first
        operations = [chance.choice(OPERATIONS)(number, f"Stored by {user} of {seed}")
                      for user, number in enumerate((first, second), 1)]
        moments = [chance.uniform(0, LATEST) for _ in self.users]
        place.restore()
        said = self.play(place, operations, moments)
        place.wait_until_left()
        self.check(place, operations, said)
        refusals = len([text for text in said if text])
        self.pairs[place.title]["one refused" if refusals else "both stored"] += 1

    def play(self, place, operations, moments):
        """What each program said to its user."""
        for user, operation in zip(self.users, operations):
            user.prepare(operation, place.database)
        for user in self.users:
            user.answer()
        now = time.monotonic() + MOMENT
        for user, moment in zip(self.users, moments):
            user.press_at(now + moment)
        said = [user.answer() for user in self.users]
        for user in self.users:
            user.leave()
        return said

    def check(self, place, operations, said):
        names = f"{operations[0]} beside {operations[1]} on {place.title}; they said {said}"
        problem = place.problem()
        if problem:
            raise Broken(f"{names}: {problem}")
        rules = stored_rules(place)
        if rules not in list(sequences(place.initial, operations, said)):
            raise Broken(f"{names}: no sequence of them gives what is stored."
                         f" {difference(place.initial, rules)}")
        if all(said):
            raise Broken(f"{names}: both were refused")
        for refused, other, text in zip(operations, reversed(operations), said):
            if text and not conflicts(place.initial, refused, other):
                raise Broken(f"{names}: the refusal has no reason")

    def line(self):
        return ", ".join(
            f"{title} {sum(ends.values())} (both stored {ends['both stored']},"
            f" one refused {ends['one refused']})" for title, ends in sorted(self.pairs.items()))


def after(rules, initial, operation, text):
    """What the operation makes of the rules, given what its program said; None when it cannot."""
    if rules is None:
        return None
    return operation.refused(rules, initial, text) if text else operation.applied(rules, initial)


def sequences(initial, operations, said):
    """What the operations can make of the initial state, one after the other."""
    for (first, first_text), (second, second_text) in itertools.permutations(zip(operations, said)):
        between = after(initial, initial, first, first_text)
        yield after(between, initial, second, second_text)


def conflicts(initial, refused, other):
    return refused.applied(other.applied(initial, initial), initial) is None


def main():
    share = Share("pair", SHORT_RUNS)
    with ExitStack() as stack:
        attack = Attack(stack)
        for seed in share:
            try:
                attack.run(seed)
            except Broken as problem:
                share.fail(seed, problem)
        print(f"pair: {attack.line()}")


if __name__ == "__main__":
    main()
