# SPDX-License-Identifier: MIT
"""Calls on the session bus: our own, and those that others make."""
import dataclasses
import os
import threading

from gi.repository import Gio, GLib

from waiting import until

FLAGS = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
NOTIFICATIONS = "org.freedesktop.Notifications"


def call(destination, path, interface, method, signature="()", *arguments):
    """The values of the answer."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    return bus.call_sync(destination, path, interface, method, GLib.Variant(signature, arguments), None,
                         Gio.DBusCallFlags.NONE, 10000, None).unpack()


def read_property(destination, path, interface, name):
    return call(destination, path, "org.freedesktop.DBus.Properties", "Get", "(ss)", interface, name)[0]


def call_bus(method, signature="()", *arguments):
    return call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method, signature, *arguments)


def has_owner(name):
    return call_bus("NameHasOwner", "(s)", name)[0]


def process_of(name):
    """The process that owns a bus name, 0 when nobody does."""
    return call_bus("GetConnectionUnixProcessID", "(s)", name)[0] if has_owner(name) else 0


@dataclasses.dataclass
class Call:
    arguments: tuple
    answer: tuple | None = None  # None until there is one


class BusWatch:
    """Collects every call of `member` in `interface`, from its creation until it is closed."""

    def __init__(self, interface, member):
        self._lock = threading.Lock()
        self._calls = {}  # (sender, serial) -> call, in the order in which they passed
        self._connection = Gio.DBusConnection.new_for_address_sync(
            os.environ["DBUS_SESSION_BUS_ADDRESS"], FLAGS, None, None)
        self._connection.add_filter(self._take)
        rules = [f"type='method_call',interface='{interface}',member='{member}'", "type='method_return'"]
        self._connection.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.Monitoring",
            "BecomeMonitor", GLib.Variant("(asu)", (rules, 0)), None, Gio.DBusCallFlags.NONE, -1, None)

    def close(self):
        self._connection.close_sync(None)

    def calls(self):
        with self._lock:
            return list(self._calls.values())

    def _take(self, _connection, message, incoming, *_):
        """Runs on the connection's own thread. What it returns goes on to the connection's user."""
        if not incoming:
            return message
        body = message.get_body().unpack() if message.get_body() else ()
        with self._lock:
            if message.get_message_type() == Gio.DBusMessageType.METHOD_CALL:
                self._calls[message.get_sender(), message.get_serial()] = Call(body)
                return None
            watched = self._calls.get((message.get_destination(), message.get_reply_serial()))
            if watched:
                watched.answer = body
        # The bus answers our own request to become a monitor.
        return message if message.get_sender() == "org.freedesktop.DBus" else None


@dataclasses.dataclass
class Banner:
    title: str
    body: str
    actions: dict  # identifier -> label
    is_answered: bool  # the server took it


class BannerWatch(BusWatch):
    """Collects the banners that the notification server gets."""

    def __init__(self):
        super().__init__(NOTIFICATIONS, "Notify")

    def banners(self):
        found = []
        for watched in self.calls():
            _, _, _, title, body, actions, _, _ = watched.arguments
            found.append(Banner(title, body, dict(zip(actions[::2], actions[1::2])), watched.answer is not None))
        return found

    def count(self, title):
        return [banner.title for banner in self.banners()].count(title)

    def until_shown(self, title, seconds=15):
        """The first banner with this title."""
        return until(lambda: next((b for b in self.banners() if b.title == title), None),
                     f"a banner {title!r}", seconds)

    def until_shown_again(self, title, times):
        """Waits for so many more of them than there are now."""
        wanted = self.count(title) + times
        until(lambda: self.count(title) >= wanted, f"{times} more banners {title!r}", 20)
