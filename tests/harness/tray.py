# SPDX-License-Identifier: MIT
"""The application's icon in the tray, of either kind, as the user clicks it."""
import re
import subprocess

from gi.repository import GLib

import application
from waiting import until

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"


class StatusNotifierIcon:
    """An icon that its host draws and asks for by D-Bus."""

    def __init__(self):
        items = until(self._items, "its icon in the tray")
        self._name, _, path = items[0].partition("/")
        self._path = "/" + path

    @staticmethod
    def _items():
        return application.call(WATCHER, "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties", "Get",
                              GLib.Variant("(ss)", (WATCHER, "RegisteredStatusNotifierItems")))[0]

    def click(self):
        application.call(self._name, self._path, ITEM, "Activate", GLib.Variant("(ii)", (0, 0)))

    def icon_name(self):
        return application.call(self._name, self._path, "org.freedesktop.DBus.Properties", "Get",
                              GLib.Variant("(ss)", (ITEM, "IconName")))[0]

    def menu(self):
        """Labels and numbers of the menu's entries."""
        path = application.call(self._name, self._path, "org.freedesktop.DBus.Properties", "Get",
                              GLib.Variant("(ss)", (ITEM, "Menu")))[0]
        layout = application.call(self._name, path, "com.canonical.dbusmenu", "GetLayout",
                                GLib.Variant("(iias)", (0, -1, [])))[1]
        return {entry[1]["label"].replace("_", ""): (path, entry[0])
                for entry in layout[2] if "label" in entry[1]}

    def choose(self, label):
        path, number = self.menu()[label]
        application.call(self._name, path, "com.canonical.dbusmenu", "Event",
                       GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("i", 0), 0)))


class EmbeddedIcon:
    """A small window of ours inside the host's."""

    def click(self, button=1):
        places = []
        # The host takes it in, moves and resizes it: only where it stays can it be clicked.
        until(lambda: places.append(self._place()) or (places[-1] and len(places) > 3 and len(set(places[-4:])) == 1),
              "its icon at rest in the tray")
        subprocess.run(["xdotool", "mousemove", "--window", places[-1][0], "5", "5", "click", str(button)], check=True)

    def _place(self):
        """The window, and where it shows; nothing while it does not."""
        window = self._window()
        if not window:
            return None
        said = subprocess.run(["xwininfo", "-id", window], capture_output=True, text=True, check=False).stdout
        if "IsViewable" not in said:
            return None
        return window, *re.findall(r"(?:Absolute upper-left [XY]|Width|Height): +(-?\d+)", said)

    @staticmethod
    def _window():
        tree = subprocess.run(["xwininfo", "-root", "-tree"], capture_output=True, text=True, check=True).stdout
        # Small, and inside another window: not one of those that are ordinary windows.
        found = re.findall(r"^\s+(0x[0-9a-f]+) .*\(\"chimewell\".*?\)\s+(\d+)x(\d+)\+", tree, re.M)
        return next((window for window, width, height in found if int(width) < 64 and int(height) < 64 and
                     int(width) > 8), None)
