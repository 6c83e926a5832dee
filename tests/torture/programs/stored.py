"""The rules as they are stored: the initial ones, and those that a test finds."""

from typing import NamedTuple

RULES = 300
QUERY = "<ALLMESSAGES>"
STOP = "<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"
DELETE = "<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"
# Beyond the number of rules, so that OK of the rules window changes the number of every rule.
FIRST_PRIORITY = 1001


class Rule(NamedTuple):
    """A row of SMS_RULES without its ID."""

    name: str
    query: str
    action: str
    priority: int
    active: int
    deleted: int


COLUMNS = "Name, QueryParam, ActionParam, PRIORITY, ACTIVE, DELETED"
INITIAL = [Rule(f"Rule {number}", QUERY, STOP, FIRST_PRIORITY + number, 1, 0)
           for number in range(RULES)]


def stored_rules(place):
    """The rules of the place. A new rule has its name as its key, because the database
    chooses its ID."""
    found = {}
    for number, rule in place.rules().items():
        is_new = number not in place.initial and rule.name not in found
        found[rule.name if is_new else number] = rule
    return found


def difference(expected, rules):
    """Describes it for a failure's report."""
    wrong = [key for key in {**expected, **rules} if expected.get(key) != rules.get(key)]
    lines = [f"  {key}: {rules.get(key)} instead of {expected.get(key)}" for key in wrong[:5]]
    return "\n".join([f"{len(wrong)} of {len(expected)} rules differ, the first ones are", *lines])
