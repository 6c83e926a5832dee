"""What assistive technology sees of a program: its windows and controls, by role and name."""

import gi
from desktop import TimedOut, wait_for

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  pylint: disable=wrong-import-position

Role = Atspi.Role
State = Atspi.StateType

WINDOWS = {Role.FRAME, Role.DIALOG, Role.ALERT, Role.WINDOW}
LISTS = {Role.TABLE, Role.TREE, Role.TREE_TABLE}


class Node:
    """A window, control or row. Each property is read when it is asked for. A node that no
    longer exists has none."""

    def __init__(self, desktop, accessible):
        self.desktop = desktop
        self.accessible = accessible

    @property
    def name(self):
        return self.ask(self.accessible.get_name, "")

    @property
    def description(self):
        return self.ask(self.accessible.get_description, "")

    @property
    def role(self):
        return self.ask(self.accessible.get_role, Role.INVALID)

    def has(self, state):
        states = self.ask(self.accessible.get_state_set, None)
        return states is not None and states.contains(state)

    @property
    def text(self):
        length = self.ask(self.accessible.get_character_count, 0)
        return self.ask(lambda: self.accessible.get_text(0, length), "") if length > 0 else ""

    def children(self):
        count = self.ask(self.accessible.get_child_count, 0)
        found = (self.ask(lambda i=i: self.accessible.get_child_at_index(i), None)
                 for i in range(count))
        return [Node(self.desktop, child) for child in found if child is not None]

    def descendants(self):
        for child in self.children():
            yield child
            yield from child.descendants()

    @staticmethod
    def ask(question, otherwise):
        try:
            return question()
        except GLib.Error:  # it is gone, or busy
            return otherwise

    def __str__(self):
        return f"{self.role.value_nick} {self.name!r}"

    def outline(self, depth=0):
        """The tree from here on, for a failure's report."""
        states = self.ask(self.accessible.get_state_set, None)
        said = [state.value_nick for state in states.get_states()] if states else []
        lines = [f"{'  ' * depth}{self} {self.description!r} {' '.join(said)}"]
        for child in self.children():
            lines += child.outline(depth + 1)
        return lines

    def wait_until(self, state, wanted=True):
        what = f"{self} to be {'' if wanted else 'not '}{state.value_nick}"
        wait_for(what, lambda: self.has(state) == wanted)
        return self

    def tab_to(self):
        """Moves the focus to it by the Tab key."""
        for _ in range(30):
            if self.has(State.FOCUSED):
                return self
            self.desktop.press("Tab")
        raise TimedOut(f"Tab does not reach {self}")

    def replace(self, text):
        """Replaces the whole text by typing; the text box must have the focus."""
        self.desktop.press("ctrl+a")
        self.desktop.type(text)
        wait_for(f"{self} to hold {text!r}", lambda: self.text == text)


class ListNode(Node):
    """A list of rows with check boxes."""

    def rows(self):
        """The first cell of each row: the others are hidden."""
        columns = self.ask(self.accessible.get_n_columns, 1)
        return [node for node in self.children() if node.role == Role.TABLE_CELL][::max(columns, 1)]

    def row_names(self):
        return [row.name for row in self.rows()]

    def row(self, name):
        return wait_for(f"the row {name!r} in {self}",
                        lambda: next((row for row in self.rows() if row.name == name), None))

    def selected_row(self):
        return next((row for row in self.rows() if row.has(State.SELECTED)), None)

    def selected_name(self):
        row = self.selected_row()
        return row.name if row else None

    def go_to(self, name):
        """Selects a row by keys; the list must have the focus."""
        place = self.row_names().index(self.row(name).name)
        self.desktop.press("Home", *["Down"] * place)
        return self.row(name).wait_until(State.SELECTED)

    def tick(self, name, ticked=True):
        """Toggles a row's check box by the space key; the list must have the focus."""
        row = self.go_to(name)
        self.desktop.press("space")
        return row.wait_until(State.CHECKED, ticked)


class PickerNode(Node):
    """The field of a date or time picker."""

    def type_date(self, digits, shown):
        """Types all parts; Tab must just have moved the focus to the first."""
        self.desktop.type(digits)
        wait_for(f"{self} to hold {shown!r}", lambda: self.text == shown)


class WindowNode(Node):
    def find(self, roles, name, kind=Node):
        def found():
            for node in self.descendants():
                if node.role in roles and node.name == name:
                    return kind(self.desktop, node.accessible)
            return None

        return wait_for(f"{name!r} in {self}", found)

    def list(self, name):
        return self.find(LISTS, name, ListNode)

    def text_box(self, name):
        return self.find({Role.TEXT}, name)

    def check_box(self, caption):
        return self.find({Role.CHECK_BOX}, caption)

    def option(self, caption):
        return self.find({Role.RADIO_BUTTON}, caption)

    def picker(self, name):
        return self.find({Role.SPIN_BUTTON}, name, PickerNode)

    def button(self, caption):
        return self.find({Role.PUSH_BUTTON}, caption)

    def says(self, text):
        """Whether a label, such as that of a message box, shows this text."""
        return any(node.role == Role.LABEL and node.name == text for node in self.descendants())


class Application:
    """A process on the desktop as assistive technology sees it."""

    def __init__(self, desktop, process):
        self.desktop = desktop
        self.process = process

    def root(self):
        everything = Atspi.get_desktop(0)
        everything.set_cache_mask(Atspi.Cache.NONE)
        for node in Node(self.desktop, everything).children():
            if Node.ask(node.accessible.get_process_id, 0) == self.process.pid:
                return node
        return None

    def windows(self):
        """The visible windows."""
        root = self.root()
        return [WindowNode(self.desktop, node.accessible) for node in (root.children() if root else [])
                if node.role in WINDOWS and node.has(State.SHOWING)]

    def active_window(self, what, wanted):
        """Waits until the wanted window is active, and gives it."""
        def found():
            if self.process.poll() is not None:
                raise TimedOut(f"the program ended with status {self.process.returncode}"
                               f" while {what} was waited for")
            return next((window for window in self.windows()
                         if window.has(State.ACTIVE) and wanted(window)), None)

        return wait_for(f"{what} to be active", found)

    def window(self, title):
        return self.active_window(f"the window {title!r}", lambda window: window.name == title)

    def message(self, text):
        """The message box that shows `text`."""
        return self.active_window(f"the message {text!r}", lambda window: window.says(text))

    def outline(self):
        root = self.root()
        return "\n".join(root.outline()) if root else "(the program shows nothing)"
