"""What a user does in kvexrules edit until it is stored, and what it makes of the rules."""

import re
import subprocess

from accessibility import Role, State
from desktop import wait_for
from kvexrules import KvexRules
from names import ACTIONS, CONDITIONS, NAME
from names import RULES as RULES_LIST
from places import PROGRAM
from stored import DELETE, QUERY, Rule

EDITOR_OF_NEW, EDITOR, RULES_WINDOW = "New Rule", "Modify Rule", "SMS Rules"


class Keys:
    """Presses keys at once, without the start of a process."""

    def __init__(self):
        self.xdotool = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, text=True)

    def press(self, key):
        print(f"key {key}", file=self.xdotool.stdin, flush=True)

    def close(self):
        self.xdotool.stdin.close()
        self.xdotool.wait()


class Operation:
    """`number` is the ID of the rule that it is about, `text` makes its name different from all
    others. The key stores it, in the state that `prepare` leaves."""

    opens_at_rule = True
    key = "alt+o"

    def __init__(self, number, text):
        self.number = number
        self.text = text

    def __str__(self):
        return f"{type(self).__name__} of rule {self.number}"

    def start(self, desktop, database):
        arguments = ("--rule", str(self.number)) if self.opens_at_rule else ()
        return KvexRules(desktop, PROGRAM, database, *arguments)

    def prepare(self, program):
        """The steps before the key."""
        raise NotImplementedError

    def applied(self, rules, seen):
        """The rules after it, for a user who saw `seen`. None when it must be refused, because it
        would overwrite what somebody else stored. A new rule has its name as its key."""
        raise NotImplementedError

    def refused(self, rules, seen, text):
        """The rules after its refusal, for a user who saw `seen` and now reads `text`. None when the
        text does not say what is stored."""
        del seen
        return rules if "was not stored" in text else None

    def is_acknowledged(self, program):
        """Whether the program goes on after the key, unless it shows a message."""
        return any(window.name == RULES_WINDOW and window.has(State.ACTIVE)
                   for window in program.windows() if window.role != Role.ALERT)


def rules_window(program):
    """Leaves the editor, which opens first."""
    program.window(EDITOR)
    program.desktop.press("Escape")
    return program.window(RULES_WINDOW)


class Change(Operation):
    """OK of the editor for a rule with another name and another action."""

    def prepare(self, program):
        editor = program.window(EDITOR)
        editor.list(ACTIONS).tab_to().tick("Delete it")
        editor.text_box(NAME).tab_to().replace(self.text)

    def applied(self, rules, seen):
        rule, before = rules.get(self.number), seen[self.number]
        if rule is None or (rule.name, rule.action) != (before.name, before.action):
            return None
        return {**rules, self.number: rule._replace(name=self.text, action=DELETE)}


class New(Operation):
    """OK of the editor for a new rule."""

    opens_at_rule = False

    def __str__(self):
        return "New"

    def prepare(self, program):
        editor = program.window(EDITOR_OF_NEW)
        editor.list(CONDITIONS).tab_to().tick("For All Messages")
        editor.list(ACTIONS).tab_to().tick("Delete it")
        editor.text_box(NAME).tab_to().replace(self.text)

    def applied(self, rules, seen):
        return {**rules, self.text: Rule(self.text, QUERY, DELETE, 0, 1, 0)}


class Tick(Operation):
    """Switches a rule off in the rules window."""

    key = "space"

    def __init__(self, number, text):
        super().__init__(number, text)
        self.row = None

    def prepare(self, program):
        rules = rules_window(program).list(RULES_LIST).wait_until(State.FOCUSED)
        self.row = wait_for("a selected rule", rules.selected_row)
        self.row.wait_until(State.CHECKED)

    def applied(self, rules, seen):
        rule = rules.get(self.number)
        if rule is None or rule.active != seen[self.number].active:
            return None
        return {**rules, self.number: rule._replace(active=0)}

    def is_acknowledged(self, program):
        return not self.row.has(State.CHECKED) and super().is_acknowledged(program)


class Removal(Operation):
    """Answers Yes to the question before a removal."""

    key = "alt+y"
    question = "Are you sure you want to remove this rule?"

    def prepare(self, program):
        rules_window(program)
        program.desktop.press("alt+r")
        program.message(self.question)

    def applied(self, rules, seen):
        if rules.get(self.number) != seen[self.number]:
            return None
        return {number: rule for number, rule in rules.items() if number != self.number}


class Order(Operation):
    """OK of the rules window after a rule has moved up. The stored numbers are larger than the
    places of all rules, so the moved rule and its neighbour come first."""

    def prepare(self, program):
        rules_window(program)
        program.desktop.press("alt+u")

    def order(self, seen):
        numbers = sorted(seen, key=lambda number: seen[number].priority)
        place = numbers.index(self.number)
        if place == 0:
            return numbers
        moved = [self.number, numbers[place - 1]]
        return moved + [number for number in numbers if number not in moved]

    def applied(self, rules, seen):
        if any(number not in rules or rules[number].priority != rule.priority
               for number, rule in seen.items()):
            return None
        return rules | {number: rules[number]._replace(priority=place)
                        for place, number in enumerate(self.order(seen), 1)}

    def refused(self, rules, seen, text):
        if "The old order is stored." in text:
            return rules
        said = re.search(r"The first (\d+ )?rules? of the list ha", text)
        first = self.order(seen)[:int(said[1] or 1)] if said else [None]
        if any(number not in rules for number in first):
            return None
        return rules | {number: rules[number]._replace(priority=place)
                        for place, number in enumerate(first, 1)}

    def is_acknowledged(self, program):
        return program.process.poll() is not None


OPERATIONS = (Change, New, Tick, Removal, Order)
