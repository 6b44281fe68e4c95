# SPDX-License-Identifier: MIT
"""The application's windows as assistive technology sees and uses them (AT-SPI)."""
import subprocess

import gi

gi.require_version("Atspi", "2.0")
# pylint: disable=wrong-import-position
from gi.repository import Atspi, GLib  # noqa: E402

from waiting import until  # noqa: E402

Atspi.set_timeout(5000, 5000)
State = Atspi.StateType

# What AT-SPI called roles before 2.54, and since: the new names are used here.
RENAMED_ROLES = {"push button": "button"}


class Element:
    """One control, or a whole window."""

    def __init__(self, node):
        self.node = node

    # What it is

    @property
    def role(self):
        name = self.node.get_role_name()
        return RENAMED_ROLES.get(name, name)

    @property
    def name(self):
        self.node.clear_cache()
        return self.node.get_name() or ""

    @property
    def description(self):
        return self.node.get_description() or ""

    def has(self, state):
        self.node.clear_cache()
        return self.node.get_state_set().contains(state)

    @property
    def is_checked(self):
        return self.has(State.CHECKED)

    @property
    def is_enabled(self):
        return self.has(State.ENABLED)

    @property
    def is_showing(self):
        return self.has(State.SHOWING)

    @property
    def is_focusable(self):
        return self.has(State.FOCUSABLE)

    @property
    def area(self):
        """x, y, width and height on the screen."""
        extents = self.node.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return extents.x, extents.y, extents.width, extents.height

    @property
    def value(self):
        return self.node.get_value_iface().get_current_value()

    # What is in it

    def walk(self):
        yield self
        for i in range(self.node.get_child_count()):
            child = self.node.get_child_at_index(i)
            if child is not None:
                yield from Element(child).walk()

    def _all(self, name, roles):
        self.node.clear_cache()
        for element in self.walk():
            said = (element.node.get_name() or "", element.description)
            if (name is None or name in said) and (not roles or element.role in roles) and element.is_showing:
                yield element

    def look(self, name, *roles):
        """The first that shows, or None; a picker goes by its description."""
        try:
            return next(self._all(name, roles), None)
        except GLib.Error:
            return None  # something vanished while it was looked at

    def find(self, name, *roles, seconds=10):
        return until(lambda: self.look(name, *roles), f"{' or '.join(roles) or 'an element'} {name!r}", seconds)

    def texts(self):
        """Every text that shows."""
        self.node.clear_cache()
        return [element.node.get_name() for element in self.walk() if element.role == "label" and element.is_showing]

    def shows(self, text):
        try:
            return any(text in (said or "") for said in self.texts())
        except GLib.Error:
            return False

    def until_shows(self, text, seconds=10):
        until(lambda: self.shows(text), f"the text {text!r}", seconds)

    # What can be done with it

    def _act(self, *names):
        actions = self.node.get_action_iface()
        offered = [actions.get_action_name(i) for i in range(actions.get_n_actions())]
        actions.do_action(next(offered.index(name) for name in names if name in offered))

    def press(self):
        # Newer versions of Qt offer check boxes both, and press only after a moment.
        self._act("Toggle", "Press")

    def focus(self):
        self.node.get_component_iface().grab_focus()

    def click(self, button=1):
        x, y, width, height = self.area
        subprocess.run(["xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", str(button)],
                       check=True)

    def write(self, text):
        self.node.get_editable_text_iface().set_text_contents(text)

    def step(self, by):
        self.node.get_value_iface().set_current_value(self.value + by)

    def choose(self, entry):
        """An entry of a picker."""
        self._act("ShowMenu")
        item = self.find(entry, "list item")
        seen = []
        # The list unfolds: only where it stays can it be clicked.
        until(lambda: seen.append(item.area) or (len(seen) > 3 and len(set(seen[-3:])) == 1 and seen[-1][2] > 0),
              f"the entry {entry!r} on the screen")
        item.click()
        until(lambda: self.name == entry, f"{entry!r} chosen")


def application(process):
    """The application of that process; a theme of the desktop may add a second one of another toolkit."""
    def look():
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            found = desktop.get_child_at_index(i)
            if found and found.get_process_id() == process and found.get_toolkit_name() == "Qt":
                return Element(found)
        return None
    return until(look, f"process {process} on the accessibility bus")


def _look_for_window(root, name):
    root.node.clear_cache()
    for i in range(root.node.get_child_count()):
        child = root.node.get_child_at_index(i)  # nothing, if the window went meanwhile
        if child and name == child.get_name() and Element(child).is_showing:
            return Element(child)
    return None


def window(process, name, seconds=10):
    """The window of that title."""
    root = application(process)
    return until(lambda: _look_for_window(root, name), f"the window {name!r}", seconds)


def has_window(process, name):
    return _look_for_window(application(process), name) is not None


def until_in_front(name):
    """The window of that title has the keyboard."""
    def title():
        asked = ["xdotool", "getactivewindow", "getwindowname"]
        return subprocess.run(asked, capture_output=True, text=True, check=False).stdout == f"{name}\n"
    until(title, f"the window {name!r} in front")


def press_keys(*keys):
    subprocess.run(["xdotool", "key", *keys], check=True)
