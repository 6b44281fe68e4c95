# SPDX-License-Identifier: MIT
"""The installed application as others see it: on the bus, through its helper, by its files."""
import json
import os
import pathlib
import subprocess

from gi.repository import Gio, GLib

from waiting import until

NAME = "app.chimewell.Chimewell"
PATH = "/app/chimewell/Chimewell"


def call(destination, path, interface, method, arguments=None, seconds=10):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    reply = bus.call_sync(destination, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                          int(seconds * 1000), None)
    return reply.unpack()


def bus_call(method, signature, *arguments):
    return call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
                GLib.Variant(signature, arguments))[0]


def has_owner(name):
    return bus_call("NameHasOwner", "(s)", name)


def process_of(name):
    """The process behind a bus name, 0 when nobody has it."""
    return bus_call("GetConnectionUnixProcessID", "(s)", name) if has_owner(name) else 0


def activate():
    """What starting it by hand does."""
    call(NAME, PATH, "org.freedesktop.Application", "Activate", GLib.Variant("(a{sv})", ({},)))


def act(action):
    call(NAME, PATH, "org.freedesktop.Application", "ActivateAction",
         GLib.Variant("(sava{sv})", (action, [], {})))


def folder():
    return pathlib.Path(os.environ["XDG_DATA_HOME"], "Chimewell")


def write_settings(events=(), **settings):
    """`events` are the settings that differ from the defaults, each with its event's name."""
    folder().mkdir(parents=True, exist_ok=True)
    settings = {"hasCompletedOnboarding": True, **settings}
    if events:
        settings["events"] = list(events)
    (folder() / "settings.json").write_text(json.dumps(settings))


def stored():
    return json.loads((folder() / "settings.json").read_text())


def install(build):
    """Installs what is built in `build` for the user of the virtual desktop, and tells its bus."""
    installed = Installation(pathlib.Path(os.environ["HOME"], ".local"))
    subprocess.run(["cmake", "--install", build, "--prefix", installed.prefix], check=True,
                   stdout=subprocess.DEVNULL)
    subprocess.run(["update-desktop-database", installed.prefix / "share/applications"], check=True)
    call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "ReloadConfig")
    return installed


class Installation:
    def __init__(self, prefix):
        self.prefix = pathlib.Path(prefix)
        self.program = self.prefix / "bin/chimewell"
        self.helper = self.prefix / "libexec/chimewell/chimewell-hook"
        self.sounds = self.prefix / "share/chimewell/sounds"

    def start(self):
        """By hand, without the bus."""
        return subprocess.Popen([self.program], stdin=subprocess.DEVNULL)

    def hook(self, *arguments, payload="", **environment):
        """Runs the helper as an agent does: environment and folder of its own, the payload on its input."""
        done = subprocess.run([self.helper, *arguments], input=payload.encode(), capture_output=True,
                              env={**os.environ, **environment}, timeout=20, check=False)
        if done.returncode or done.stdout or done.stderr:
            raise AssertionError(f"the helper left with {done.returncode}: {done.stdout!r} {done.stderr!r}")

    def claude(self, event, session, cwd="/tmp", message=None, **members):
        hooks = {"finished": "Stop", "waiting_input": "Notification", "user_acted": "UserPromptSubmit"}
        payload = {"session_id": session, "transcript_path": f"{cwd}/{session}.jsonl", "cwd": str(cwd),
                   "hook_event_name": hooks[event], **members}
        if message is not None:
            payload |= {"message": message, "notification_type": "permission_prompt"}
        self.hook("claude", event, payload=json.dumps(payload) + "\n", TERM_PROGRAM="kitty")

    def helpers(self):
        """The helper's processes, children that deliver included."""
        found = []
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if (process / "exe").samefile(self.helper):
                    found.append(int(process.name))
            except OSError:
                pass
        return found


def end():
    """Ends the running application as the end of the session does; it leaves no marker."""
    process = process_of(NAME)
    if process:
        os.kill(process, 15)
        until(lambda: not has_owner(NAME), "the end of the application")
