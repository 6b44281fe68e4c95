# SPDX-License-Identifier: MIT
"""The application's windows as assistive technology sees and uses them (AT-SPI), and its icon in the tray."""
import re
import subprocess

import gi

gi.require_version("Atspi", "2.0")
# pylint: disable=wrong-import-position
from gi.repository import Atspi, GLib  # noqa: E402

import bus  # noqa: E402
from waiting import until  # noqa: E402

Atspi.set_timeout(5000, 5000)
State = Atspi.StateType

# What AT-SPI called roles before 2.54, and since: the new names are used here.
RENAMED_ROLES = {"push button": "button"}


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


class Element:
    """One control, or a whole window."""

    def __init__(self, node):
        self.node = node

    @property
    def role(self):
        name = self.node.get_role_name()
        return RENAMED_ROLES.get(name, name)

    @property
    def name(self):
        self.node.clear_cache()
        return self.node.get_name() or ""

    def has(self, state):
        self.node.clear_cache()
        return self.node.get_state_set().contains(state)

    @property
    def is_showing(self):
        return self.has(State.SHOWING)

    @property
    def area(self):
        """x, y, width and height on the screen."""
        extents = self.node.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return extents.x, extents.y, extents.width, extents.height

    # What is in it

    def children(self):
        self.node.clear_cache()
        # A child that vanishes meanwhile is None.
        nodes = [self.node.get_child_at_index(i) for i in range(self.node.get_child_count())]
        return [Element(node) for node in nodes if node]

    def walk(self):
        yield self
        for child in self.children():
            yield from child.walk()

    def look(self, name, *roles):
        """The first that shows, or None; a picker goes by its description."""
        try:
            for element in self.walk():
                said = (element.node.get_name(), element.node.get_description())
                if (name is None or name in said) and (not roles or element.role in roles) and element.is_showing:
                    return element
        except GLib.Error:
            pass  # something vanished while it was looked at
        return None

    def find(self, name, *roles):
        return until(lambda: self.look(name, *roles), f"{' or '.join(roles) or 'an element'} {name!r}")

    def shows(self, text):
        try:
            return any(element.role == "label" and text in element.name and element.is_showing
                       for element in self.walk())
        except GLib.Error:
            return False

    def until_shows(self, text):
        until(lambda: self.shows(text), f"the text {text!r}")

    # What can be done with it

    def _act(self, *names):
        actions = self.node.get_action_iface()
        offered = [actions.get_action_name(i) for i in range(actions.get_n_actions())]
        actions.do_action(next(offered.index(name) for name in names if name in offered))

    def press(self):
        # Newer versions of Qt offer check boxes both, and press only after a moment.
        self._act("Toggle", "Press")

    def click(self):
        x, y, width, height = self.area
        output("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", "1")

    def choose(self, entry):
        """An entry of a picker."""
        self._act("ShowMenu")
        item = self.find(entry, "list item")
        # The list unfolds.
        until_at_rest(lambda: item.area[2] > 0 and item.area, f"the entry {entry!r}")
        item.click()
        until(lambda: self.name == entry, f"{entry!r} chosen")


def until_at_rest(place, what):
    """Only what stays where it is can be clicked."""
    places = []
    until(lambda: places.append(place()) or (places[-1] and len(places) > 3 and len(set(places[-4:])) == 1),
          f"{what} at rest")
    return places[-1]


def application(process):
    """The application of that process; a theme of the desktop may add a second one of another toolkit."""
    def look():
        return next((each for each in Element(Atspi.get_desktop(0)).children()
                     if each.node.get_process_id() == process and each.node.get_toolkit_name() == "Qt"), None)
    return until(look, f"process {process} on the accessibility bus")


def look_for_window(process, name):
    return next((each for each in application(process).children() if each.name == name and each.is_showing), None)


def window(process, name):
    """The window of that title."""
    return until(lambda: look_for_window(process, name), f"the window {name!r}")


def until_closed(process, name):
    until(lambda: not look_for_window(process, name), f"the end of the window {name!r}")


def until_in_front(name):
    """The window of that title has the keyboard."""
    until(lambda: output("xdotool", "getactivewindow", "getwindowname") == f"{name}\n",
          f"the window {name!r} in front")


def press_keys(*keys):
    output("xdotool", "key", *keys)


def click_at(x, y):
    """As a hand does: what happens between press and release is part of it."""
    output("xdotool", "mousemove", str(x), str(y), "mousedown", "1", "sleep", "0.08", "mouseup", "1")


class StatusNotifierIcon:
    """An icon that its host draws and asks for by D-Bus."""

    ITEM = "org.kde.StatusNotifierItem"
    WATCHER = "org.kde.StatusNotifierWatcher"

    def __init__(self):
        items = until(lambda: bus.read_property(self.WATCHER, "/StatusNotifierWatcher", self.WATCHER,
                                                "RegisteredStatusNotifierItems"), "its icon in the tray")
        self._name, self._path = re.fullmatch("([^/@]+)@?(/.*)", items[0]).groups()

    @staticmethod
    def click():
        """At the right end of the desktop's panel, once the host has drawn it there."""
        width = int(output("xdotool", "getdisplaygeometry").split()[0])
        until(lambda: int(output("import", "-window", "root", "-crop", f"24x24+{width - 26}+2", "-format", "%k",
                                 "info:")) > 4, "the bell in the panel")
        click_at(width - 14, 14)

    def activate(self):
        """As a host does that doesn't know where the icon is."""
        bus.call(self._name, self._path, self.ITEM, "Activate", "(ii)", 0, 0)

    def icon_name(self):
        return bus.read_property(self._name, self._path, self.ITEM, "IconName")

    def menu(self):
        """Labels and numbers of the menu's entries."""
        path = bus.read_property(self._name, self._path, self.ITEM, "Menu")
        layout = bus.call(self._name, path, "com.canonical.dbusmenu", "GetLayout", "(iias)", 0, -1, [])[1]
        return {entry[1]["label"].replace("_", ""): (path, entry[0])
                for entry in layout[2] if "label" in entry[1]}

    def choose(self, label):
        path, number = self.menu()[label]
        bus.call(self._name, path, "com.canonical.dbusmenu", "Event", "(isvu)", number, "clicked",
                 GLib.Variant("i", 0), 0)
