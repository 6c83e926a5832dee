"""Kills kvexrules edit at a random moment while it stores something. The database must then hold
the old state or the new one as a whole, and the next program must read it."""

import random
import time
from collections import Counter, defaultdict
from contextlib import ExitStack

from desktop import Desktop, TimedOut, wait_for
from operations import OPERATIONS, Keys, Order
from places import Places
from share import Broken, Share
from stored import difference, stored_rules

SHORT_RUNS = 6
RUNS_WITH_ONE_ON_EACH_SERVER = 12
# A kill at up to this part of an operation's usual duration: some come after its end.
LATEST = 1.3
# How often the steps before the key may be tried. In about one of a thousand starts the window
# manager leaves a new window without the focus.
STARTS = 3
# How often an operation's duration is measured again, because the machine may be busier.
RUNS_BEFORE_A_MEASUREMENT = 15


class Attack:
    def __init__(self, desktop, stack):
        self.desktop = desktop
        self.keys = Keys()
        stack.callback(self.keys.close)
        self.places = Places(stack, desktop.home, RUNS_WITH_ONE_ON_EACH_SERVER)
        self.durations = {}
        self.kills = defaultdict(Counter)
        self.program = None

    def run(self, seed):
        chance = random.Random(seed)
        place = self.places.of(seed)
        kind = OPERATIONS[seed % len(OPERATIONS)]
        number = chance.choice(list(place.initial)[1:])
        operation = kind(number, f"Stored by {seed}")
        duration = self.duration(place, operation)
        delay = chance.uniform(0, LATEST) * duration
        self.begin(place, operation)
        time.sleep(delay)
        state = self.end(place, operation)
        self.kills[place.title, kind.__name__][state] += 1

    def begin(self, place, operation):
        for attempt in range(STARTS):
            place.restore()
            self.program = operation.start(self.desktop, place.database)
            try:
                operation.prepare(self.program)
                break
            except TimedOut:
                if attempt + 1 == STARTS:
                    raise
                self.program.process.kill()
                self.program.process.wait()
                place.wait_until_left()
        self.keys.press(operation.key)

    def end(self, place, operation):
        """Kills the program. Says which state it left."""
        self.program.process.kill()
        self.program.process.wait()
        place.wait_until_left()
        problem = place.problem()
        if problem:
            raise Broken(f"{operation} on {place.title}: {problem}")
        rules = stored_rules(place)
        new = operation.applied(place.initial, place.initial)
        printed = self.program.output.read_text(encoding="utf-8")
        if rules == new:
            return "new"
        if "result:" in printed:
            raise Broken(f"{operation} on {place.title}: kvexrules printed {printed!r}, but what it"
                         f" stored is missing: {difference(new, rules)}")
        if rules != place.initial:
            raise Broken(f"{operation} on {place.title} is stored in part:"
                         f" {difference(new, rules)}")
        return "old"

    def duration(self, place, operation):
        """How long the operation takes, from its key until its result is in the database."""
        key = (place.title, type(operation))
        count, seconds = self.durations.get(key, (0, None))
        if count % RUNS_BEFORE_A_MEASUREMENT == 0:
            self.begin(place, operation)
            start = time.monotonic()
            self.wait_until_stored(place, operation)
            seconds = time.monotonic() - start
            if self.end(place, operation) != "new":
                raise Broken(f"{operation} on {place.title} was stored, and is no longer")
        self.durations[key] = (count + 1, seconds)
        return seconds

    def wait_until_stored(self, place, operation):
        new = operation.applied(place.initial, place.initial)
        wait_for(f"{operation} to be stored",
                 lambda: stored_rules(place) == new)
        if isinstance(operation, Order):
            self.program.process.wait()

    def lines(self):
        """A line of figures for each operation, then one that sums them up."""
        totals = defaultdict(Counter)
        for (title, kind), states in sorted(self.kills.items()):
            totals[title].update(states)
            yield f"  {title} {kind}: {figures(states)}"
        yield "kill: " + ", ".join(f"{title} {figures(states)}" for title, states in totals.items())


def figures(states):
    return f"{states['old'] + states['new']} (old {states['old']}, new {states['new']})"


def main():
    share = Share("kill", SHORT_RUNS)
    with ExitStack() as stack:
        attack = Attack(stack.enter_context(Desktop()), stack)
        for seed in share:
            try:
                attack.run(seed)
            except (Broken, TimedOut) as problem:
                report = attack.program.report() if attack.program else ""
                share.fail(seed, problem, "\n".join([report, *attack.lines()]))
        print("\n".join(attack.lines()))


if __name__ == "__main__":
    main()
