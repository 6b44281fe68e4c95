# SPDX-License-Identifier: MIT
"""Calls that pass on the session bus, whoever makes them, with their answers."""
import dataclasses
import os
import threading

from gi.repository import Gio, GLib

FLAGS = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION


@dataclasses.dataclass
class Call:
    member: str
    arguments: tuple
    answer: tuple | None = None  # None until there is one


class BusWatch:
    """Collects every call of `member` in `interface`, from its creation until it is closed."""

    def __init__(self, interface, member):
        self._member = member
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
        if message.get_message_type() == Gio.DBusMessageType.METHOD_CALL:
            with self._lock:
                self._calls[message.get_sender(), message.get_serial()] = Call(self._member, body)
            return None
        with self._lock:
            call = self._calls.get((message.get_destination(), message.get_reply_serial()))
            if call:
                call.answer = body
        # The bus answers our own request to become a monitor.
        return message if message.get_sender() == "org.freedesktop.DBus" else None
