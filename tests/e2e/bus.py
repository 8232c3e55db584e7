"""The programs' windows as the accessibility bus tells of them: each control is found by its role and
its name, and pressed where it stands on the screen. Who waits has a deadline.

The module of the bus belongs to Debian's own interpreter, /usr/bin/python3."""

import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

STEP = 0.03  # s between two looks
PATIENCE = 20  # s for what should come at once, on a machine with other work

CHOICE = ("check box", "radio button", "toggle button")
BUTTON = ("push button", *CHOICE)  # one that holds its state is pressed like any other
FIELD = ("text", "password text", "entry")
# What somebody can press, fill in or read as a thing of its own: none of these without a name.
CONTROLS = (*BUTTON, *FIELD, "combo box", "list", "list item", "table", "table cell",
            "table column header", "image", "dialog", "alert", "slider", "spin button")


class Failed(AssertionError):
    """What the test has seen is not what it expects."""


def check(what, expected, actual):
    if expected != actual:
        raise Failed(f"{what}: {actual!r}, not {expected!r}")


def wait(what, look, limit=PATIENCE):
    """The first answer of look() that counts as true. What a window is just changing counts as
    nothing seen."""
    end = time.monotonic() + limit
    while True:
        try:
            seen = look()
        except GLib.Error:
            seen = None
        if seen:
            return seen
        if time.monotonic() > end:
            raise Failed(f"{what}: nothing within {limit} s")
        time.sleep(STEP)


def one_line(caption):
    """How a caption is read aloud: in one line."""
    return caption.replace("¬", " ").replace("\r\n", " ").replace("\n", " ").strip()


class Control:
    def __init__(self, node, display):
        self.node = node
        self.display = display

    # ---- what it is

    @property
    def name(self):
        return self.node.get_name() or ""

    @property
    def role(self):
        return self.node.get_role_name()

    @property
    def states(self):
        return {state.value_nick for state in self.node.get_state_set().get_states()}

    @property
    def shown(self):
        return "showing" in self.states

    @property
    def enabled(self):
        return "enabled" in self.states

    @property
    def checked(self):
        return "checked" in self.states

    @property
    def bounds(self):
        """Left, top, width and height on the screen, in pixels."""
        at = self.node.get_extents(Atspi.CoordType.SCREEN)
        return at.x, at.y, at.width, at.height

    def __repr__(self):
        try:
            return f"{self.role} {self.name!r}"
        except GLib.Error:
            return "what has gone"

    @property
    def seen(self):
        """Of a window: the screen shows it. One that is minimised counts as shown on the bus."""
        return self.x("search", "--onlyvisible", "--name", f"^{self.name}$", fails=True) == 0

    # ---- what it holds

    def children(self):
        # Of a table of thousands of rows the headings and the first rows stand for all.
        for i in range(min(self.node.get_child_count(), 600)):
            child = self.node.get_child_at_index(i)
            if child is not None:
                yield Control(child, self.display)

    def walk(self):
        """All that is shown in it, itself first. What cannot be asked any more has gone."""
        try:
            if not self.shown:
                return
            yield self
            inside = list(self.children())
        except GLib.Error:
            return
        for child in inside:
            yield from child.walk()

    def all(self, roles, name=None):
        """What is shown in it of these roles, and of this name."""
        roles = (roles,) if isinstance(roles, str) else roles
        return [each for each in self.walk()
                if each.role in roles and (name is None or each.name == name)]

    def find(self, roles, name, limit=PATIENCE):
        """The only control of these roles and this name."""
        def look():
            found = self.all(roles, name)
            if len(found) > 1:
                raise Failed(f"{len(found)} controls are called {name!r} in {self!r}")
            return found and found[0]
        try:
            return wait(f"{name!r} in {self!r}", look, limit)
        except Failed as failure:
            raise Failed(f"{failure}\n{self.told()}") from None

    def button(self, name, limit=PATIENCE):
        return self.find(BUTTON, name, limit)

    def buttons(self):
        """All that can be pressed in it, by name: for who presses many."""
        return {each.name: each for each in self.all(BUTTON)}

    def choice(self, name, limit=PATIENCE):
        return self.find(CHOICE, name, limit)

    def field(self, name, limit=PATIENCE):
        return self.find(FIELD, name, limit)

    def table(self, name, limit=PATIENCE):
        return Table(self.find("table", name, limit).node, self.display)

    def texts(self):
        """What its labels say, in the order of the window."""
        return [each.name for each in self.all("label") if each.name]

    def says(self, text, limit=PATIENCE):
        """Waits until a label says it."""
        return self.find("label", text, limit)

    def told(self):
        """A list of all that is shown in it, for people."""
        lines = []
        for each in self.walk():
            left, top, width, height = each.bounds
            lines.append(f"  {each.role} {each.name!r} {left},{top} {width}x{height}"
                         f"{'' if each.enabled else ' (off)'}{' (checked)' if each.checked else ''}")
        return "\n".join(lines)

    # ---- what one does with it

    def place(self, limit=PATIENCE):
        """Its middle on the screen, once it is shown, enabled and at rest."""
        last = []

        def look():
            if not (self.shown and self.enabled):
                return None
            last.append(self.bounds)
            at_rest = len(last) > 1 and last[-1] == last[-2] and last[-1][2] > 0 and last[-1][3] > 0
            return at_rest and last[-1]
        try:
            left, top, width, height = wait(f"{self!r} that can be pressed", look, limit)
        except GLib.Error:
            raise Failed(f"{self!r} has gone before it was pressed") from None
        return left + width // 2, top + height // 2

    def press(self, limit=PATIENCE, button=1):
        x, y = self.place(limit)
        self.x("mousemove", str(x), str(y), "click", str(button))

    def type(self, text):
        """Into the field, over what it holds."""
        self.press()
        wait(f"the keyboard in {self!r}", lambda: "focused" in self.states)
        self.x("key", "ctrl+a")
        self.x("type", "--delay", "5", text)
        self.reads(text)

    def reads(self, text, limit=PATIENCE):
        wait(f"{text!r} in {self!r}", lambda: self.value() == text, limit)

    def value(self):
        """What the field holds."""
        return Atspi.Text.get_text(self.node, 0, Atspi.Text.get_character_count(self.node))

    def length(self):
        """How many characters it holds: all that is told of a password."""
        return Atspi.Text.get_character_count(self.node)

    def key(self, *keys):
        self.x("key", *keys)

    def x(self, *command, fails=False):
        return subprocess.run(["xdotool", *command], check=not fails, stdout=subprocess.DEVNULL,
                              env={**os.environ, "DISPLAY": self.display}).returncode


class Table(Control):
    def titles(self):
        """Titles of the columns that are shown, from left to right."""
        heads = [each for each in self.children() if each.role == "table column header"]
        seen = [(each.bounds[0], each.name) for each in heads if each.bounds[2] > 0]
        return [name for _, name in sorted(seen)]

    def columns(self):
        """Number of each column by its title; hidden ones too, where their title is the only one."""
        # Not by the children: a table of thousands of rows has tens of thousands of them.
        return {Atspi.Table.get_column_description(self.node, i): i
                for i in range(Atspi.Table.get_n_columns(self.node))}

    def count(self):
        return Atspi.Table.get_n_rows(self.node)

    def cell(self, row, title):
        node = Atspi.Table.get_accessible_at(self.node, row, self.columns()[title])
        if node is None:
            raise Failed(f"{self!r} has no row {row}")
        return Control(node, self.display)

    def rows(self):
        """One dictionary a row: what stands under each title."""
        columns = self.columns()
        titles = self.titles()
        return [{title: Atspi.Table.get_accessible_at(self.node, row, columns[title]).get_name()
                 for title in titles} for row in range(self.count())]

    def row_of(self, title, text):
        """The only row that has this text under this title."""
        found = [i for i, row in enumerate(self.rows()) if row[title] == text]
        if len(found) != 1:
            raise Failed(f"{len(found)} rows have {text!r} under {title!r}")
        return found[0]


class Program:
    """One process on the bus. Its windows are on the given display."""

    def __init__(self, pid, display=None, limit=30):
        self.pid = int(pid)
        self.display = display or os.environ["DISPLAY"]
        self.app = wait(f"process {pid} on the bus", self._application, limit)

    def _application(self):
        desktop = Atspi.get_desktop(0)
        # Nobody here hears the notices that would keep what has been read up to date.
        desktop.set_cache_mask(Atspi.Cache.NONE)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            try:
                if child is not None and child.get_process_id() == self.pid:
                    child.set_cache_mask(Atspi.Cache.NONE)
                    return child
            except GLib.Error:
                continue  # it has just ended
        return None

    def windows(self):
        shown = []
        for i in range(self.app.get_child_count()):
            node = self.app.get_child_at_index(i)
            window = Control(node, self.display) if node is not None else None
            if window is not None and window.shown:
                shown.append(window)
        return shown

    def window(self, name, holding=None, limit=PATIENCE):
        """The only window of this name; of several with one title, the one that holds a control
        called like this."""
        def look():
            found = [each for each in self.windows() if each.name == name and
                     (holding is None or any(part.name == holding for part in each.walk()))]
            if len(found) > 1:
                raise Failed(f"{len(found)} windows are called {name!r}")
            return found and found[0]
        what = f"the window {name!r}" + (f" with {holding!r}" if holding else "")
        try:
            return wait(what, look, limit)
        except Failed as failure:
            raise Failed(f"{failure}\n{self.told()}") from None

    def gone(self, window, limit=PATIENCE):
        """Sees this very window go; another one may come up under its name."""
        def look():
            try:
                return not window.shown
            except GLib.Error:
                return True
        wait(f"the end of {window!r}", look, limit)

    def answer(self, title, button, text=None, limit=PATIENCE):
        """Presses a button of a message, whose text must be this, and sees the message go."""
        dialog = self.window(title, limit=limit)
        if text is not None:
            said = "\n".join(dialog.texts()[1:]).replace("\r\n", "\n")
            check(f"the text of {title!r}", text.replace("\r\n", "\n"), said)
        check_names(dialog)
        dialog.button(button).press()
        self.gone(dialog)

    def told(self):
        return "\n".join(each.told() for each in self.windows())


def nameless(window):
    """The window, and the controls in it, that nobody can call by a name."""
    return [each for each in window.walk()
            if (each.role in CONTROLS or each.node == window.node) and not each.name.strip()]


def check_names(window):
    check(f"controls of {window!r} without a name", [], nameless(window))
