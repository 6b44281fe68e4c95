# SPDX-License-Identifier: MIT
"""real_agents_test.py BUILD CACHE, inside the virtual desktop: Claude Code and Codex themselves, with our
entries in their configuration and a stand-in for their models, alert through the installed application.

Leaves with 77 where npm cannot install the agents."""
import json
import os
import pathlib
import sys
import unittest

import chimewell
from agents import KEY, Agents, NotToBeHad
from banners import BannerWatch
from model_server import model_server
from sounds import Recording
from terminal import Terminal
from waiting import until

HOME = pathlib.Path(os.environ["HOME"])
CLAUDE_EVENTS = {"Stop": "finished", "Notification": "waiting_input", "SubagentStop": "subagent_finished",
                 "UserPromptSubmit": "user_acted", "PostToolUse": "user_acted"}
AGENTS = INSTALLED = None


def configure(helper):
    """Writes the entries by hand, as documented."""
    def group(event):
        return {"matcher": "", "hooks": [{"type": "command", "command": f'"{helper}" claude {event}'}]}
    hooks = {name: [group(event)] for name, event in CLAUDE_EVENTS.items()}
    for file, text in ((".claude/settings.json", json.dumps({"hooks": hooks})),
                       (".codex/config.toml", f'notify = ["{helper}", "codex-notify"]\n')):
        (HOME / file).parent.mkdir(parents=True, exist_ok=True)
        (HOME / file).write_text(text)


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
        chimewell.write_settings(reminderIntervalSeconds=1, reminderMaxCount=1000)
        self.watch = BannerWatch()
        self.addCleanup(self.watch.close)
        self.addCleanup(chimewell.end)

    def test_claude_code_finishes_a_turn(self):
        folder = project("claude project")
        with Recording() as recording:
            events = AGENTS.claude_turn(folder, "Please run it. [[bash:touch made-by-claude]]")
            self.watch.until_shown("Finished — claude project")
            until(lambda: "Blow" in [sound.name for sound in recording.heard(INSTALLED.sounds)], "the sound")
        self.assertTrue((folder / "made-by-claude").exists())
        # What a hook prints or returns would reach the user or the model.
        hooks = [event for event in events if event.get("subtype") == "hook_response"]
        self.assertEqual([h for h in hooks if h.get("exit_code") or h.get("stdout") or h.get("stderr")], [])
        self.assertEqual({hook.get("hook_event") for hook in hooks},
                         {"UserPromptSubmit", "PostToolUse", "Stop"})

    def test_codex_finishes_a_turn(self):
        folder = project("codex project")
        with Recording() as recording:
            events = AGENTS.codex_turn(folder, "Please run it. [[bash:touch made-by-codex]]")
            self.watch.until_shown("Finished — codex project")
            until(lambda: "Blow" in [sound.name for sound in recording.heard(INSTALLED.sounds)], "the sound")
        self.assertIn("turn.completed", [event.get("type") for event in events])
        self.assertTrue((folder / "made-by-codex").exists())

    def test_claude_code_waits_for_a_permission_until_it_is_given(self):
        folder = project("asking project")
        trust(folder)
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


def main():
    global AGENTS, INSTALLED
    build, cache = sys.argv[1:3]
    INSTALLED = chimewell.install(build)
    configure(INSTALLED.helper)
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
