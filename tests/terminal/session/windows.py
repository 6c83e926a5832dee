"""What a user sees of a program's windows on a terminal: controls, found by their labels. The
classes have the methods of those in e2e/accessibility.py, so that the same user can play on both."""

import re

from accessibility import State
from desktop import TimedOut

TICKED = re.compile(r"\[([ x])\] ?")
PICTURED = re.compile(r"[@#v] ")
PICKER = re.compile(r"\[([ x])\] ([\d/:]+)?")
PICKERS = ["From Date", "From Time", "To Date", "To Time"]
BOX_TITLES = ["SMS Rules", "Help"]
# As they are drawn in UTF-8 and in other character sets.
SIDES = ("│", "█", "|", "#")
CORNERS = ("┌", "+")
BOX_TOP = re.compile(r"[┌+][─-] (.+?) [─-]*(?:\[x\])?[─-]*[┐+]")


def words(text):
    return " ".join(text.split())


class Control:
    """A part of the screen: from `top` and `left` to before `bottom` and `right`. It is found anew
    when it is asked for."""

    def __init__(self, window, name, find):
        self.window = window
        self.terminal = window.terminal
        self.name = name
        self.find = find

    def __str__(self):
        return f"{type(self).__name__} {self.name!r}"

    @property
    def place(self):
        """top, left, bottom, right; None when it is not to be seen."""
        return self.find()

    def has(self, state):
        return self.place is not None and bool(self.states()[state]())

    def states(self):
        return {State.FOCUSED: self.has_cursor}

    def has_cursor(self):
        cursor = self.terminal.screen.cursor
        top, left, bottom, right = self.place
        return not cursor.hidden and top <= cursor.y < bottom and left <= cursor.x < right

    def wait_until(self, state, wanted=True):
        self.terminal.wait_for(f"{self} to be {'' if wanted else 'not '}{state.value_nick}",
                               lambda: self.has(state) == wanted)
        return self

    def tab_to(self):
        """Moves the focus to it by the Tab key."""
        def cursor():
            return self.terminal.screen.cursor.x, self.terminal.screen.cursor.y

        for _ in range(30):
            if self.has(State.FOCUSED):
                return self
            before = cursor()
            self.terminal.press("Tab")
            self.terminal.wait_for("the focus to move", lambda: cursor() != before)  # pylint: disable=cell-var-from-loop
        raise TimedOut(f"Tab does not reach {self}\n{self.terminal.picture()}")


class TextBox(Control):
    @property
    def text(self):
        top, left, bottom, right = self.place
        return "\n".join(self.window.part(row, left, right) for row in range(top, bottom)).rstrip()

    def replace(self, text):
        """Replaces the whole text by typing; the text box must have the focus."""
        self.terminal.press("ctrl+a")
        self.terminal.type(text)
        self.terminal.wait_for(f"{self} to hold {text!r}", lambda: self.text == text)


class Picker(TextBox):
    """Its check box and its parts are one place of the focus."""

    def states(self):
        return {**super().states(), State.CHECKED: lambda: "[x]" in super(Picker, self).text}

    @property
    def text(self):
        return super().text.split("] ", 1)[-1]

    def type_date(self, digits, shown):
        self.terminal.type(digits)
        self.terminal.wait_for(f"{self} to hold {shown!r}", lambda: self.text == shown)


class Tick(Control):
    """A check box or an option."""

    def states(self):
        return {**super().states(), State.CHECKED: lambda: self.window.part(*self.mark()) in "x*"}

    def mark(self):
        top, left, _, _ = self.place
        return top, left + 1, left + 2


class Row:
    def __init__(self, rows, number, name, ticked, selected):
        self.rows = rows
        self.number = number
        self.name = name
        self.ticked = ticked
        self.selected = selected

    def has(self, state):
        return {State.SELECTED: self.selected, State.CHECKED: self.ticked}[state]

    def wait_until(self, state, wanted=True):
        self.rows.terminal.wait_for(f"the row {self.name!r} to change", lambda: (
            (row := self.rows.visible_row(self.name)) and row.has(state) == wanted))
        return self


class List(Control):
    def rows_seen(self):
        self.terminal.catch_up()
        if not self.place:
            return []
        top, left, bottom, right = self.place
        rows = []
        for number in range(top, bottom):
            text = self.window.part(number, left, right).rstrip()
            first = self.window.cell(number, left + len(text) - len(text.lstrip()))
            if not text or (first.bold and not first.reverse):
                continue  # nothing, or the headers
            ticked = TICKED.match(text)
            text = text[ticked.end():] if ticked else text
            text = PICTURED.sub("", text, 1) if PICTURED.match(text) else text
            name = re.match(r"(\s*.*?)(\s{2,}.*)?$", text)[1]
            rows.append(Row(self, number, name, bool(ticked and ticked[1] == "x"),
                            self.window.cell(number, left).reverse))
        return rows

    def row_names(self):
        """The names of the rows that are to be seen."""
        return [row.name for row in self.rows_seen()]

    def visible_row(self, name):
        return next((row for row in self.rows_seen() if row.name == name), None)

    def row(self, name):
        """Waits for the row. A list with the focus scrolls to it."""
        if self.has(State.FOCUSED) and not self.visible_row(name):
            return self.go_to(name)
        return self.terminal.wait_for(f"the row {name!r} in {self}",
                                      lambda: self.visible_row(name))

    def selected_row(self):
        return next((row for row in self.rows_seen() if row.selected), None)

    def selected_name(self):
        row = self.selected_row()
        return row.name if row else None

    def wait_for_selected(self, name):
        self.terminal.wait_for(f"{self} to have {name!r} selected",
                               lambda: self.selected_name() == name)
        return self.selected_row()

    def go_to(self, name):
        """Selects a row by keys; the list must have the focus."""
        def state():
            row = self.selected_row()
            return row and (row.number, row.name)

        self.terminal.press("Home")
        self.terminal.wait_for("the first row", lambda: (
            (rows := self.rows_seen()) and rows[0].selected))
        for _ in range(100):
            if self.selected_name() == name:
                return self.selected_row()
            before = state()
            self.terminal.press("Down")
            self.terminal.wait_for(f"the row after {before} on the way to {name!r}",
                                   lambda: state() != before)  # pylint: disable=cell-var-from-loop
        raise TimedOut(f"{self} has no row {name!r}\n{self.terminal.picture()}")

    def tick(self, name, ticked=True):
        """Toggles a row's check box by the space key; the list must have the focus."""
        row = self.go_to(name)
        self.terminal.press("space")
        return row.wait_until(State.CHECKED, ticked)


class Window:
    """The window in front."""

    def __init__(self, terminal, title):
        self.terminal = terminal
        self.title = title

    def __str__(self):
        return f"the window {self.title!r}"

    def cell(self, row, column):
        return self.terminal.screen.buffer[row][column]

    def part(self, row, left, right):
        return "".join(self.cell(row, column).data for column in range(left, right))

    def is_active(self):
        return (self.part(0, 1, 1 + len(self.title) + 1) == self.title + " "
                and self.cell(0, 1).reverse and box_title(self.terminal) is None)

    def has(self, state):
        assert state == State.ACTIVE
        return self.is_active()

    def wait_until(self, state):
        assert state == State.ACTIVE
        return self.wait_until_active()

    def wait_until_active(self):
        self.terminal.wait_for(f"{self} to be active", self.is_active)
        return self

    def label(self, text):
        """Row and column of a label."""
        pattern = re.compile(rf"(?:^|  |\s|[│|┘┐+])(?P<label>{re.escape(text)})(?=$|  |\s*[:│|\[]|\s+$)")
        for row in range(1, self.terminal.screen.lines - 1):
            line = self.part(row, 0, self.terminal.screen.columns)
            if any(side in line.split(text)[0] for side in SIDES[::2]) and not line.startswith(" " + text):
                continue  # a row of a list
            if found := pattern.search(line):
                return row, len_in_cells(line[:found.start("label")])
        return None

    def inside_of(self, row, column):
        """What is inside the bars or brackets that begin in this cell."""
        kind = self.cell(row, column).data
        if kind == "[":
            end = self.terminal.screen.columns
            while end > column and self.cell(row, end - 1).data != "]":
                end -= 1
            line = self.part(row, column, self.terminal.screen.columns)
            close = line.find("]")
            return row, column + 1, row + 1, column + (close if close > 0 else end)
        framed = kind in CORNERS
        top = row + 1 if framed else row
        bottom = top
        while (bottom < self.terminal.screen.lines - 1
               and self.cell(bottom, column).data in SIDES):
            bottom += 1
        right = column + 1
        while (right < self.terminal.screen.columns - 1
               and self.cell(top, right).data not in SIDES):
            right += 1
        return top, column + 1, bottom, right

    def area_below(self, text):
        """The box or list under a label, or the box after it."""
        place = self.label(text)
        if place is None:
            return None
        row, column = place
        after = column + len(text)
        while after < self.terminal.screen.columns and self.cell(row, after).data in (" ", ":"):
            after += 1
        if self.cell(row, after).data == "[" and self.cell(row + 1, column).data not in SIDES + CORNERS:
            return self.inside_of(row, after)
        for start in range(row + 1, min(row + 3, self.terminal.screen.lines - 1)):
            if self.cell(start, column).data in ("[", *SIDES, *CORNERS):
                return self.inside_of(start, column)
        return None

    def last_area(self):
        """The last list of the window: it has no label."""
        columns = [1, 0]
        for row in range(self.terminal.screen.lines - 2, 0, -1):
            for column in columns:
                if self.cell(row, column).data in SIDES[::2]:
                    top = row
                    while self.cell(top - 1, column).data in SIDES[::2]:
                        top -= 1
                    return self.inside_of(top, column)
        return None

    def list(self, name):
        return List(self, name, lambda: self.area_below(name) or self.last_area())

    def text_box(self, name):
        return TextBox(self, name, lambda: self.area_below(name))

    def ticked(self, caption):
        """The place of a check box or an option."""
        for row in range(1, self.terminal.screen.lines - 1):
            line = self.part(row, 0, self.terminal.screen.columns)
            if found := re.search(rf"[\[(][ x*][\])] {re.escape(caption)}", line):
                column = len_in_cells(line[:found.start()])
                return row, column, row + 1, column + 4 + len(caption)
        return None

    def check_box(self, caption):
        picker = caption.removesuffix(": has a value")
        return self.picker(picker) if picker in PICKERS else self.option(caption)

    def option(self, caption):
        return Tick(self, caption, lambda: self.ticked(caption))

    def picker(self, name):
        return Picker(self, name, lambda: self.picker_place(PICKERS.index(name)))

    def picker_place(self, number):
        found = [(row, match) for row in range(1, self.terminal.screen.lines - 1)
                 for match in PICKER.finditer(self.part(row, 0, self.terminal.screen.columns))]
        if number >= len(found):
            return None
        row, match = found[number]
        return row, match.start(), row + 1, match.end()

    def status(self):
        return self.part(self.terminal.screen.lines - 1, 0, self.terminal.screen.columns).strip()


def len_in_cells(text):
    """The columns of the text in a line: wide characters are followed by an empty cell."""
    from wcwidth import wcswidth  # pylint: disable=import-outside-toplevel
    return max(wcswidth(text), 0)


def box_rows(terminal):
    """The rows of the box in front, without its border; none when there is none."""
    lines = terminal.lines()
    for number, line in enumerate(lines):
        found = BOX_TOP.search(line)
        if found and found[1] in BOX_TITLES:
            left, right = found.start() + 1, found.end() - 1
            rows = []
            for inner in lines[number + 1:]:
                if inner[left - 1:left] in ("└", "+"):
                    return found[1], rows
                rows.append(inner[left:right])
    return None, []


def box_title(terminal):
    return box_rows(terminal)[0]


def box_text(terminal):
    """The text of the box in front, on one line."""
    return words(" ".join(box_rows(terminal)[1]))
