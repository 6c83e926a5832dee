"""Reads and writes rules as docs/format.md says, and as nothing else in the project does.

A text is a str of UTF-16 units here: half a surrogate pair is one character. A rule has the form of
the test vectors.
"""

import re

CONDITIONS = ["IGNOREIFSERVICE", "PEOPLE", "ACCOUNT", "WORD", "DATETIME"]
ACTIONS = ["DIST", "REPLY", "ALERT", "DELETE", "IGNOREFURTHERRULES"]
LAST_POSITION = 32767
LIMITS = {"queryParam": 5000, "actionParam": 2500}


class ReadingError(Exception):
    def __init__(self, number, tag):
        super().__init__(number, tag)
        self.json = {"number": number, "tag": tag}


def units(text):
    """The UTF-16 units of a text of characters."""
    data = text.encode("utf-16-le", "surrogatepass")
    return "".join(chr(data[at] + 256 * data[at + 1]) for at in range(0, len(data), 2))


def text_of(value):
    """A text of the test vectors."""
    if isinstance(value, str):
        return units(value)
    if "utf16" in value:
        return "".join(chr(int(unit, 16)) for unit in value["utf16"].split())
    return units(value["before"] + value["repeat"] * value["times"] + value["after"])


def texts_of(value):
    """The same for each text within a rule."""
    if isinstance(value, list):
        return [texts_of(item) for item in value]
    if isinstance(value, dict) and not {"utf16", "repeat"} & value.keys():
        return {name: texts_of(member) for name, member in value.items()}
    return value if isinstance(value, bool) else text_of(value)


def new_rule():
    return {
        "allMessages": False,
        "ignoreIfService": "NO",
        "people": {"not": False, "all": False, "entries": []},
        "accounts": {"not": False, "all": False, "entries": []},
        "words": {"not": False, "all": False, "asCommand": False, "entries": []},
        "dateTime": "",
        "distribution": [],
        "reply": {"text": "", "account": ""},
        "alert": {"text": "", "account": "", "recipients": []},
        "delete": "NO",
        "ignoreFurtherRules": "NO",
    }


def without_last_semicolon(text):
    return text[:-1] if text.endswith(";") else text


def entries_of(text):
    return text.split(";") if text else []


def content_of(column, tag):
    """What stands between the tags, or None without an opening tag."""
    opening, closing = f"<{tag}>", f"</{tag}>"
    if opening not in column:
        return None
    begin = column.index(opening) + len(opening)
    end = column.find(closing)
    if max(begin, end) + 1 > LAST_POSITION:
        raise ReadingError(6, tag)
    if end < begin:
        raise ReadingError(5, tag)
    return column[begin:end]


def read_list(condition, content, head, mark=None):
    if content == "":
        return
    condition["not"] = "<NOT>" in content[:head]
    condition["all"] = "<ALL>" in content[:head]
    dropped = 10
    if mark is not None:
        condition["asCommand"] = mark in content[:head]
        dropped = 21 if condition["asCommand"] else 10
    condition["entries"] = entries_of(content[dropped:])


def read_content(rule, tag, content):
    if tag in CONDITIONS or tag == "DIST":
        content = without_last_semicolon(content)
    else:
        content = content.strip(" ")
    if tag == "PEOPLE":
        read_list(rule["people"], content, 10)
    elif tag == "ACCOUNT":
        read_list(rule["accounts"], content, 10)
    elif tag == "WORD":
        read_list(rule["words"], content, 21, "<ASCOMMAND>")
    elif tag == "IGNOREIFSERVICE":
        rule["ignoreIfService"] = content
    elif tag == "DATETIME":
        rule["dateTime"] = content
    elif tag == "DIST":
        rule["distribution"] = entries_of(content)
    elif tag == "REPLY":
        text, _, account = content.partition(";")
        rule["reply"] = {"text": text, "account": without_last_semicolon(account)}
    elif tag == "ALERT":
        text, account, recipients, *_ = [*content.split(";", 2), "", ""]
        rule["alert"] = {"text": text, "account": account,
                         "recipients": entries_of(without_last_semicolon(recipients))}
    else:
        name = "delete" if tag == "DELETE" else "ignoreFurtherRules"
        rule[name] = without_last_semicolon(content)


def read(query_param, action_param):
    """Returns the rule, and the error that ended the reading or None."""
    rule = new_rule()
    rule["allMessages"] = "<ALLMESSAGES>" in query_param
    conditions = [] if rule["allMessages"] else CONDITIONS
    try:
        for column, tags in ((query_param, conditions), (action_param, ACTIONS)):
            for tag in tags:
                content = content_of(column, tag)
                if content is not None:
                    read_content(rule, tag, content)
    except ReadingError as error:
        return rule, error.json
    return rule, None


def write(rule):
    """Returns the two columns."""
    def tagged(tag, decider, content):
        return f"<{tag}>{content}</{tag}>" if decider.strip(" ") else ""

    def yes_no(value):
        return "YES" if value == "YES" else "NO"

    def condition(tag, values):
        entries = ";".join(values["entries"]).strip(" ")
        head = "<NOT>" if values["not"] else "<CON>"
        head += "<ALL>" if values["all"] else "<ANY>"
        head += "<ASCOMMAND>" if values.get("asCommand") else ""
        return tagged(tag, entries, head + entries)

    query = "<ALLMESSAGES>" if rule["allMessages"] else "".join([
        f"<IGNOREIFSERVICE>{yes_no(rule['ignoreIfService'])}</IGNOREIFSERVICE>",
        condition("PEOPLE", rule["people"]),
        condition("ACCOUNT", rule["accounts"]),
        condition("WORD", rule["words"]),
        tagged("DATETIME", rule["dateTime"], rule["dateTime"].strip(" ")),
    ])
    users = ";".join(rule["distribution"]).strip(" ")
    reply, alert = rule["reply"], rule["alert"]
    recipients = ";".join(alert["recipients"])
    action = "".join([
        tagged("DIST", users, users),
        tagged("REPLY", reply["text"],
               ";".join(part.strip(" ") for part in (reply["text"], reply["account"]))),
        tagged("ALERT", recipients,
               ";".join(part.strip(" ") for part in (alert["text"], alert["account"], recipients))),
        tagged("DELETE", rule["delete"], yes_no(rule["delete"])),
        tagged("IGNOREFURTHERRULES", rule["ignoreFurtherRules"],
               yes_no(rule["ignoreFurtherRules"])),
    ])
    return {"queryParam": query, "actionParam": action}


# What the special sequences of the grammar mean, also for texts without a "<".
SPECIAL = {"any characters": ".*", 'any characters except ";"': "[^;]*"}
PLAIN = {"any characters": "[^<]*", 'any characters except ";"': "[^<;]*"}


def pattern_of(grammar, start, special):
    """A regular expression for a rule of the EBNF, which must not be recursive."""
    rules = dict(re.findall(r"(\w+)\s*=\s*((?:\"[^\"]*\"|\?[^?]*\?|[^;\"?])*);", grammar))
    marks = {"[": "(?:", "]": ")?", "{": "(?:", "}": ")*", "(": "(?:", ")": ")", "|": "|", ",": ""}

    def pattern(name):
        pieces = re.findall(r"\"[^\"]*\"|\?[^?]*\?|\w+|[^\s\w]", rules[name])
        return "(?:" + "".join(piece_pattern(piece) for piece in pieces) + ")"

    def piece_pattern(piece):
        if piece[0] == '"':
            return re.escape(piece[1:-1])
        if piece[0] == "?":
            return special[piece[1:-1].strip()]
        return marks[piece] if piece in marks else pattern(piece)

    return "(?s:" + pattern(start) + ")"
