# SPDX-License-Identifier: MIT
"""real_agents_test.py BUILD CACHE, inside the virtual desktop: Claude Code and Codex themselves, with our
entries put into their configuration by our installers and a stand-in for their models, alert through the installed
application, and no longer once the entries are taken out.

Leaves with 77 where npm cannot install the agents."""
import json
import os
import pathlib
import subprocess
import sys
import unittest
import uuid

import application
from agents import KEY, Agents, NotToBeHad
from banners import BannerWatch
from hooks import Hooks
from interface import window
from model_server import DONE, GREETING, model_server
from sounds import Recording
from terminal import Terminal
from tray import StatusNotifierIcon
from waiting import TookTooLong, until

HOME = pathlib.Path(os.environ["HOME"])
AGENTS = INSTALLED = DRIVER = None


def hooks_of(provider, content):
    return Hooks(DRIVER, INSTALLED.helper, provider, content)


def project(name):
    folder = HOME / name
    folder.mkdir()
    return folder


def trust(folder):
    """Answers the questions that Claude Code asks a new user."""
    (HOME / ".claude.json").write_text(json.dumps({
        "hasCompletedOnboarding": True, "theme": "dark", "customApiKeyResponses": {"approved": [KEY[-20:]]},
        "projects": {str(folder): {"hasTrustDialogAccepted": True, "hasCompletedProjectOnboarding": True}}}))


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
        until(lambda: not INSTALLED.helpers(), "the end of every helper")
        other = str(uuid.uuid4())
        INSTALLED.claude("finished", other, f"/srv/{other}")  # what is sent later is shown later
        self.watch.until_shown(f"Finished — {other}")
        self.assertEqual(self.watch.count(title), shown)

    def test_claude_code_alerts_while_our_hooks_are_installed(self):
        folder = project("claude project")
        own = {"hooks": [{"type": "command", "command": "touch own-hook"}]}
        hooks = hooks_of("claude", json.dumps({"cleanupPeriodDays": 20, "hooks": {"Stop": [own]}}))
        hooks.do("install")
        installed = hooks.file.read_text()
        with Recording() as recording:
            events = AGENTS.claude_turn(folder, "Please run it. [[bash:touch made-by-claude]]")
            self.watch.until_shown("Finished — claude project")
            until(lambda: "Blow" in [sound.name for sound in recording.heard(INSTALLED.sounds)], "the sound")
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
        hooks = hooks_of("codex", '# mine\nmodel_reasoning_effort = "low"\n\n[features]\nfast_mode = false\n')
        hooks.do("install")
        with Recording() as recording:
            events = AGENTS.codex_turn(folder, "Please run it. [[bash:touch made-by-codex]]")
            self.watch.until_shown("Finished — codex project")
            until(lambda: "Blow" in [sound.name for sound in recording.heard(INSTALLED.sounds)], "the sound")
        self.assertIn("turn.completed", [event.get("type") for event in events])
        self.assertTrue((folder / "made-by-codex").exists())

        for action in ("uninstall", "restore"):
            hooks.do(action)
            self.assertEqual(hooks.file.read_text(), hooks.content)
            events = AGENTS.codex_turn(folder, "Say hello.")
            self.assertIn("turn.completed", [event.get("type") for event in events])
            self.assert_silent("Finished — codex project", 1)

    def test_a_session_of_claude_code_that_runs_meanwhile_takes_the_hooks_up(self):
        folder = project("running project")
        trust(folder)
        hooks = hooks_of("claude", "{}\n")
        with Terminal([AGENTS.claude_program], folder, AGENTS.claude_environment()) as terminal:
            terminal.until_shows("? for shortcuts")
            terminal.type("Say hello.")
            terminal.press("Enter")
            terminal.until_shows(GREETING)
            self.assert_silent("Finished — running project", 0)
            hooks.do("install")
            # Until the agent has seen it, which takes a moment, it calls nobody.
            for _ in range(20):
                terminal.type("Say hello again.")
                terminal.press("Enter")
                try:
                    self.watch.until_shown("Finished — running project", 2)
                    break
                except TookTooLong:
                    pass
            self.watch.until_shown("Finished — running project", 0)

    def test_claude_code_waits_for_a_permission_until_it_is_given(self):
        folder = project("asking project")
        trust(folder)
        hooks_of("claude", "{}\n").do("install")
        reminder = "Still waiting — Waiting for input — asking project"
        with Terminal([AGENTS.claude_program], folder, AGENTS.claude_environment()) as terminal:
            terminal.until_shows("? for shortcuts")
            terminal.type("Please run it. [[bash:touch allowed]]")
            terminal.press("Enter")
            terminal.until_shows("Do you want to proceed?")
            waiting = self.watch.until_shown("Waiting for input — asking project", 20)
            self.assertIn("permission", waiting.body)
            self.watch.until_shown_again(reminder, 2)

            terminal.press("Enter")  # the first answer is yes
            self.watch.until_shown("Finished — asking project")
            self.assertTrue((folder / "allowed").exists())
            # Another session's reminders tell the time in which no more of ours come.
            INSTALLED.claude("waiting_input", "clock", "/srv/clock", "Claude needs your permission")
            self.watch.until_shown_again("Still waiting — Waiting for input — clock", 1)
            count = self.watch.count(reminder)
            self.watch.until_shown_again("Still waiting — Waiting for input — clock", 3)
            self.assertEqual(self.watch.count(reminder), count)

    def test_from_the_first_start_to_the_file_as_it_was(self):
        """All of it as a new user meets it, and through the windows alone."""
        application.write_settings(hasCompletedOnboarding=False, reminderIntervalSeconds=1, reminderMaxCount=1000)
        folder = project("story")
        trust(folder)
        hooks = hooks_of("claude", '{\n  "cleanupPeriodDays": 20\n}\n')
        INSTALLED.start()
        until(lambda: application.has_owner(application.NAME), "the application on the bus")
        process = application.process_of(application.NAME)
        steps = window(process, "Welcome")
        for title in ("How it works", "Allow notifications", "Connect your agents"):
            steps.find("Continue", "button").press()
            steps.until_shows(title)
        steps.find("Install Claude Code", "button").press()
        window(process, "Install Claude Code hooks?").find("Install", "button").press()
        until(lambda: "chimewell-hook" in hooks.file.read_text(), "the hooks in the file")
        steps.find("Continue", "button").press()
        steps.until_shows("Sounds & voice")
        steps.find("Done", "button").press()

        terminal_window = subprocess.Popen(["xterm", "-class", "kitty", "-e", "sleep", "600"])
        self.addCleanup(terminal_window.wait)
        self.addCleanup(terminal_window.kill)
        until(lambda: active_class() == "kitty", "the terminal's window")
        application.act("settings")
        settings = window(process, "Chimewell Settings")
        until(lambda: active_class() == "chimewell", "another window in front of it")
        environment = {**AGENTS.claude_environment(), "TERM_PROGRAM": "kitty"}
        with Terminal([AGENTS.claude_program], folder, environment) as terminal:
            terminal.until_shows("? for shortcuts")
            terminal.type("Please run it. [[bash:touch allowed]]")
            terminal.press("Enter")
            self.watch.until_shown("Waiting for input — story", 30)
            self.watch.until_shown("Still waiting — Waiting for input — story", 30)
            subprocess.run(["dunstctl", "action", "0"], check=True)
            until(lambda: active_class() == "kitty", "the agent's terminal in front")
            terminal.press("Enter")
            self.watch.until_shown("Finished — story", 30)

            StatusNotifierIcon().click()
            window(process, "Chimewell").find("Mute all", "check box").press()
            until(lambda: application.stored()["globalMuted"], "silence")
            before = len(self.watch.titles())
            terminal.type("Say hello.")
            terminal.press("Enter")
            until(lambda: terminal.screen().count(DONE) == 2, "the second answer", 30)
            until(lambda: not INSTALLED.helpers(), "the end of every helper")
            self.assertEqual(len(self.watch.titles()), before)

        application.act("settings")
        settings.find("Providers", "list item").click()
        settings.find("Uninstall Claude Code", "button").press()
        window(process, "Uninstall hooks?").find("Uninstall", "button").press()
        until(lambda: hooks.file.read_text() == hooks.content, "the file as it was")


def active_class():
    """The class of the window in front."""
    number = subprocess.run(["xdotool", "getactivewindow"], capture_output=True, text=True, check=False).stdout.strip()
    if not number:
        return ""
    found = subprocess.run(["xprop", "-id", number, "WM_CLASS"], capture_output=True, text=True, check=False).stdout
    return found.strip().rpartition('"')[0].rpartition('"')[2].lower()


def main():
    global AGENTS, INSTALLED, DRIVER
    build, cache = sys.argv[1:3]
    INSTALLED = application.install(build)
    DRIVER = pathlib.Path(build, "tests/hooks/hook_driver")
    with model_server() as server:
        try:
            AGENTS = Agents(cache, server)
        except NotToBeHad as fault:
            print(f"SKIP: npm cannot install the agents: {fault}")
            return 77
        program = unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2, exit=False)
    return 0 if program.result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
