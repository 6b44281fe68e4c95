# SPDX-License-Identifier: MIT
"""real_agents_test.py BUILD CACHE, inside a desktop of desktop.py: Claude Code and Codex themselves, with our
entries put into their configuration by our installers and a stand-in for their models, alert through the installed
application, and no longer once the entries are taken out.

Leaves with 77 where npm cannot install the agents."""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import unittest
import uuid

import application
from agents import Agents, Unavailable
from bus import BannerWatch
from interface import until_in_front
from model_server import model_server
from sounds import Recording
from waiting import until

HOME = pathlib.Path(os.environ["HOME"])
FILES = {"claude": HOME / ".claude/settings.json", "codex": HOME / ".codex/config.toml"}
AGENTS = INSTALLED = DRIVER = None


class Hooks:
    """Of an agent in the home folder, as our installers treat them."""

    def __init__(self, provider, content):
        """The agent's file holds `content`, nothing of ours, and there is no backup of it."""
        self._command = [DRIVER, provider, INSTALLED.helper]
        self.file = FILES[provider]
        self.content = content
        shutil.rmtree(self.file.parent, ignore_errors=True)
        self.file.parent.mkdir()
        self.file.write_text(content)

    def do(self, action):
        subprocess.run([*self._command, action], stdout=subprocess.DEVNULL, check=True)


def project(name):
    folder = HOME / name
    folder.mkdir()
    return folder


class RealAgents(unittest.TestCase):
    def setUp(self):
        application.write_settings(reminderIntervalSeconds=1, reminderMaxCount=1000)
        # The server numbers the banners that it shows, those of the test before too.
        subprocess.run(["dunstctl", "close-all"], check=True)
        self.watch = BannerWatch()
        self.addCleanup(self.watch.close)
        self.addCleanup(application.end)

    def assert_silent(self, title, shown):
        """Nothing more came of that title than was shown before."""
        INSTALLED.until_helpers_ended()
        other = str(uuid.uuid4())
        INSTALLED.claude("finished", other, f"/srv/{other}")  # what is sent later is shown later
        self.watch.until_shown(f"Finished — {other}")
        self.assertEqual(self.watch.count(title), shown)

    def test_claude_code_alerts_while_our_hooks_are_installed(self):
        folder = project("claude project")
        own = {"hooks": [{"type": "command", "command": "touch own-hook"}]}
        hooks = Hooks("claude", json.dumps({"cleanupPeriodDays": 20, "hooks": {"Stop": [own]}}))
        hooks.do("install")
        installed = hooks.file.read_text()
        with Recording() as recording:
            events = AGENTS.claude_turn(folder, "Please run it. [[bash:touch made-by-claude]]")
            self.watch.until_shown("Finished — claude project")
            recording.until_heard(1)
        self.assertTrue((folder / "made-by-claude").exists())
        self.assertTrue((folder / "own-hook").exists())
        # What a hook prints or returns would reach the user or the model.
        answers = [event for event in events if event.get("subtype") == "hook_response"]
        self.assertEqual([h for h in answers if h.get("exit_code") or h.get("stdout") or h.get("stderr")], [])
        self.assertEqual({answer.get("hook_event") for answer in answers},
                         {"UserPromptSubmit", "PostToolUse", "Stop"})
        self.assertEqual(hooks.file.read_text(), installed)

        hooks.do("uninstall")
        (folder / "own-hook").unlink()
        events = AGENTS.claude_turn(folder, "Please run it. [[bash:touch made-in-silence]]")
        self.assertTrue((folder / "made-in-silence").exists())
        self.assertTrue((folder / "own-hook").exists())
        self.assertEqual({event["hook_event"] for event in events if event.get("subtype") == "hook_response"},
                         {"Stop"})
        self.assert_silent("Finished — claude project", 1)

        hooks.do("restore")
        self.assertEqual(hooks.file.read_text(), hooks.content)
        AGENTS.claude_turn(folder, "Say hello.")
        self.assert_silent("Finished — claude project", 1)

    def test_codex_alerts_while_our_hook_is_installed(self):
        folder = project("codex project")
        hooks = Hooks("codex", '# mine\nmodel_reasoning_effort = "low"\n\n[features]\nfast_mode = false\n')
        hooks.do("install")
        with Recording() as recording:
            events = AGENTS.codex_turn(folder, "Please run it. [[bash:touch made-by-codex]]")
            self.watch.until_shown("Finished — codex project")
            recording.until_heard(1)
        self.assertIn("turn.completed", [event.get("type") for event in events])
        self.assertTrue((folder / "made-by-codex").exists())

        for action in ("uninstall", "restore"):
            hooks.do(action)
            self.assertEqual(hooks.file.read_text(), hooks.content)
            events = AGENTS.codex_turn(folder, "Say hello.")
            self.assertIn("turn.completed", [event.get("type") for event in events])
            self.assert_silent("Finished — codex project", 1)

    def test_claude_code_waits_for_a_permission_until_it_is_given(self):
        folder = project("asking project")
        Hooks("claude", "{}\n").do("install")
        for title in ("terminal", "other"):
            shown = subprocess.Popen(["xterm", "-class", "kitty" if title == "terminal" else "Other", "-T", title,
                                      "-e", "sleep", "600"])
            self.addCleanup(shown.wait)
            self.addCleanup(shown.kill)
            until_in_front(title)
        reminder = "Still waiting — Waiting for input — asking project"
        with AGENTS.claude_in_terminal(folder, TERM_PROGRAM="kitty") as terminal:
            terminal.say("Please run it. [[bash:touch allowed]]")
            terminal.until_shows("Do you want to proceed?")
            waiting = self.watch.until_shown("Waiting for input — asking project", 20)
            self.assertIn("permission", waiting.body)
            self.watch.until_shown_again(reminder, 2)
            subprocess.run(["dunstctl", "action", "0"], check=True)
            until_in_front("terminal")

            terminal.say("")  # the first answer is yes
            self.watch.until_shown("Finished — asking project")
            self.assertTrue((folder / "allowed").exists())
            # Another session's reminders tell the time in which no more of ours come.
            clock = "Still waiting — Waiting for input — clock"
            INSTALLED.claude("waiting_input", "clock", "/srv/clock", "Claude needs your permission")
            self.watch.until_shown_again(clock, 1)
            count = self.watch.count(reminder)
            self.watch.until_shown_again(clock, 3)
            self.assertEqual(self.watch.count(reminder), count)


def main():
    global AGENTS, INSTALLED, DRIVER
    build, cache = sys.argv[1:3]
    INSTALLED = application.install(build)
    DRIVER = pathlib.Path(build, "tests/hooks/hook_driver")
    with model_server() as server:
        try:
            AGENTS = Agents(cache, server)
        except Unavailable as fault:
            print(f"SKIP: npm cannot install the agents: {fault}")
            return 77
        program = unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2, exit=False)
    return 0 if program.result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
