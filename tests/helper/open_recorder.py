# SPDX-License-Identifier: MIT
"""open_recorder.py FILE: owns the application's name on the session bus and appends a line "ready" to FILE, then the
URL of every Open call that it gets. It ends with the bus."""
import sys

from gi.repository import Gio, GLib

NAME, PATH = "app.chimewell.Chimewell", "/app/chimewell/Chimewell"
INTERFACE = """<node><interface name="org.freedesktop.Application"><method name="Open">
<arg type="as" direction="in"/><arg type="a{sv}" direction="in"/></method></interface></node>"""


def record(line):
    with open(sys.argv[1], "a", encoding="ascii") as file:
        file.write(f"{line}\n")


def take(_connection, _sender, _path, _interface, _method, arguments, invocation):
    record(arguments.unpack()[0][0])
    invocation.return_value(None)


bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], take, None, None)
bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
              GLib.Variant("(su)", (NAME, 0)), None, Gio.DBusCallFlags.NONE, -1, None)
record("ready")
GLib.MainLoop().run()
