# SPDX-License-Identifier: MIT
"""The eye and the hand on a screen: pictures of it, what changed between two, and clicks as a person makes them."""
import collections
import os
import pathlib
import subprocess
import time

import bus
from desktops import WIDTH
from gi.repository import Gio
from interface import click_at, output
from waiting import until

PRESSED = 0.08    # seconds
BTN_LEFT = 0x110  # of Linux' input events


class Picture:
    def __init__(self, file):
        self.pixels = subprocess.run(["convert", file, "-depth", "8", "rgb:-"], capture_output=True, check=True).stdout

    def row(self, y, left, right):
        return self.pixels[3 * (y * WIDTH + left):3 * (y * WIDTH + right)]

    def colours(self, area):
        left, top, right, bottom = area
        for y in range(top, bottom):
            row = self.row(y, left, right)
            yield from zip(row[::3], row[1::3], row[2::3])

    def changes(self, other, area):
        """Where, inside an area, another picture differs; None if it does not."""
        left, top, right, bottom = area
        columns, rows = [], []
        for y in range(top, bottom):
            mine, others = self.row(y, left, right), other.row(y, left, right)
            if mine != others:
                rows.append(y)
                different = [i for i, (a, b) in enumerate(zip(mine, others)) if abs(a - b) > 8]
                if different:
                    columns += (left + different[0] // 3, left + different[-1] // 3)
        return (min(columns), rows[0], max(columns) + 1, rows[-1] + 1) if columns else None


def luminance(colour):
    """Relative, as the Web Content Accessibility Guidelines 2.1 define it."""
    linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in (part / 255 for part in colour)]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(picture, area):
    """Between the most frequent colour and the one that differs from it most."""
    counted = collections.Counter(picture.colours(area))
    ground = luminance(counted.most_common(1)[0][0])
    return max((max(ground, each) + 0.05) / (min(ground, each) + 0.05) for each in map(luminance, counted))


class Screen:
    """Of an X server. `area` is left, top, right and bottom, in pixels."""

    def __init__(self, folder):
        self._file = pathlib.Path(folder, "screen.png")

    def photograph(self, file):
        subprocess.run(["import", "-window", "root", file], check=True)

    def point(self, x, y):
        output("xdotool", "mousemove", str(x), str(y))

    def click(self, x, y, times=1):
        for _ in range(times):
            click_at(x, y)

    def picture(self):
        self.photograph(self._file)
        return Picture(self._file)

    def settled(self):
        """A picture of what has stayed as it is for two seconds: explanations at the pointer go away late."""
        since = [time.monotonic(), self.picture()]

        def look():
            now = self.picture()
            if now.pixels != since[1].pixels:
                since[:] = time.monotonic(), now
            return time.monotonic() - since[0] > 2
        until(look, "a screen at rest", 30)
        return since[1]

    def until_changed(self, before, area, what):
        """Where the screen has changed and stays as it is; and the picture."""
        seen = []

        def look():
            seen.append(self.picture())
            return len(seen) > 2 and seen[-1].changes(before, area) and all(
                not seen[-1].changes(each, area) for each in seen[-3:-1])
        until(look, what, 20)
        return seen[-1].changes(before, area), seen[-1]


class GnomeScreen(Screen):
    """By the interfaces of the shell and its compositor."""
    REMOTE = "org.gnome.Mutter.RemoteDesktop"

    def __init__(self, folder):
        super().__init__(folder)
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)  # one connection for all calls
        bus.call_bus("RequestName", "(su)", "org.gnome.Screenshot", 0)  # whom the shell lets take pictures
        self._session = bus.call(self.REMOTE, "/org/gnome/Mutter/RemoteDesktop", self.REMOTE, "CreateSession")[0]
        self._call("Start")

    def _call(self, method, signature="()", *arguments):
        bus.call(self.REMOTE, self._session, self.REMOTE + ".Session", method, signature, *arguments)

    def photograph(self, file):
        shot, _ = bus.call("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot", "org.gnome.Shell.Screenshot",
                           "Screenshot", "(bbs)", False, False, os.fspath(file))
        assert shot

    def point(self, x, y):
        # From the corner, where every motion that is too far ends.
        for dx, dy in (-10000.0, -10000.0), (float(x), float(y)):
            self._call("NotifyPointerMotionRelative", "(dd)", dx, dy)

    def click(self, x, y, times=1):
        self.point(x, y)
        for pressed in (True, False) * times:
            self._call("NotifyPointerButton", "(ib)", BTN_LEFT, pressed)
            time.sleep(PRESSED)


def screen_of(desktop):
    return (GnomeScreen if desktop.name == "GNOME" else Screen)(desktop.folder)
