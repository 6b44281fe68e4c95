# SPDX-License-Identifier: MIT
"""The installed application as others see it: on the bus, through its helper, by its files."""
import json
import os
import pathlib
import subprocess

import bus
from waiting import until

NAME = "app.chimewell.Chimewell"
PATH = "/app/chimewell/Chimewell"
FOLDER = pathlib.Path(os.environ["XDG_DATA_HOME"], "Chimewell")
SETTINGS = FOLDER / "settings.json"
DORMANT_MARKER = FOLDER / "dormant"
HOOKS = {"finished": "Stop", "waiting_input": "Notification", "user_acted": "UserPromptSubmit"}


def is_running():
    return bus.has_owner(NAME)


def process():
    return bus.process_of(NAME)


def activate():
    """What starting it by hand does; its process."""
    bus.call(NAME, PATH, "org.freedesktop.Application", "Activate", "(a{sv})", {})
    return process()


def act(action):
    bus.call(NAME, PATH, "org.freedesktop.Application", "ActivateAction", "(sava{sv})", action, [], {})


def end():
    """Ends the running application as the end of the session does; it leaves no marker."""
    if process():
        os.kill(process(), 15)
        until_ended()


def until_ended():
    until(lambda: not is_running(), "the end of the application")


def write_settings(events=(), **settings):
    """`events` are the settings that differ from the defaults, each with its event's name."""
    FOLDER.mkdir(parents=True, exist_ok=True)
    settings = {"hasCompletedOnboarding": True, **settings}
    if events:
        settings["events"] = list(events)
    SETTINGS.write_text(json.dumps(settings))


def stored():
    """The stored settings; a file of ours holds little until the application writes its first change."""
    return {"events": [], "globalMuted": False, **json.loads(SETTINGS.read_text())}


def install(build):
    """Installs what is built in a folder for the user of the desktop."""
    prefix = pathlib.Path(os.environ["HOME"], ".local")
    subprocess.run(["cmake", "--install", build, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["update-desktop-database", prefix / "share/applications"], check=True)
    bus.call_bus("ReloadConfig")
    return Installation(prefix)


class Installation:
    """The programs below a prefix."""

    def __init__(self, prefix):
        self.program = pathlib.Path(prefix, "bin/chimewell")
        self.helper = pathlib.Path(prefix, "libexec/chimewell/chimewell-hook")

    def start(self):
        """By hand, without the bus; its process."""
        subprocess.Popen([self.program], stdin=subprocess.DEVNULL)
        return until(process, "the application on the bus")

    def claude(self, event, session, cwd="/tmp", message=None):
        """Runs the helper as Claude Code does."""
        payload = {"session_id": session, "transcript_path": f"{cwd}/{session}.jsonl", "cwd": str(cwd),
                   "hook_event_name": HOOKS[event]}
        if message is not None:
            payload |= {"message": message, "notification_type": "permission_prompt"}
        done = subprocess.run([self.helper, "claude", event], input=json.dumps(payload).encode(), capture_output=True,
                              env={**os.environ, "TERM_PROGRAM": "kitty"}, timeout=20, check=False)
        if done.returncode or done.stdout or done.stderr:
            raise AssertionError(f"the helper exited with {done.returncode}: {done.stdout!r} {done.stderr!r}")

    def until_helpers_ended(self):
        """The children that deliver, too."""
        until(lambda: not any(self._runs_helper(each) for each in pathlib.Path("/proc").glob("[0-9]*")),
              "the end of every helper")

    def _runs_helper(self, folder):
        try:
            return (folder / "exe").samefile(self.helper)
        except OSError:
            return False
