# SPDX-License-Identifier: MIT
"""The eye and the hand on a screen: pictures of it, what changed between two, and clicks as a person makes them."""
import os
import pathlib
import subprocess
import time

import bus
from gi.repository import Gio
from interface import click_at, output
from PIL import Image, ImageChops
from waiting import until

PRESSED = 0.08    # seconds
BTN_LEFT = 0x110  # of Linux' input events


def changes(before, after, area):
    """Where, inside an area, two pictures differ; None if they do not."""
    difference = ImageChops.difference(before.crop(area), after.crop(area))
    box = difference.point(lambda value: value > 8).getbbox()
    return box and tuple(edge + area[i % 2] for i, edge in enumerate(box))


def luminance(colour):
    """Relative, as the Web Content Accessibility Guidelines 2.1 define it."""
    linear = [c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4 for c in (part / 255 for part in colour)]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(picture, area):
    """Between the most frequent colour and the one that differs from it most."""
    inside = picture.crop(area)
    counted = inside.getcolors(inside.width * inside.height)
    ground = luminance(max(counted)[1])
    return max((max(ground, each) + 0.05) / (min(ground, each) + 0.05)
               for each in (luminance(colour) for _, colour in counted))


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
        return Image.open(self._file).convert("RGB")

    def settled(self):
        """A picture of what has stayed as it is for two seconds: explanations at the pointer go away late."""
        since = [time.monotonic(), self.picture()]

        def look():
            now = self.picture()
            if now.tobytes() != since[1].tobytes():  # files also hold when they were made
                since[:] = time.monotonic(), now
            return time.monotonic() - since[0] > 2
        until(look, "a screen at rest", 30)
        return since[1]

    def until_changed(self, before, area, what):
        """Where the screen has changed and stays as it is; and the picture."""
        seen = []

        def look():
            seen.append(self.picture())
            return len(seen) > 2 and changes(before, seen[-1], area) and not any(
                changes(each, seen[-1], area) for each in seen[-3:-1])
        until(look, what, 20)
        return changes(before, seen[-1], area), seen[-1]


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
