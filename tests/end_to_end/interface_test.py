# SPDX-License-Identifier: MIT
"""interface_test.py BUILD TRAY, inside the virtual desktop with that kind of tray (sni, xembed or none): the installed
application, used through the accessibility bus as a person uses it."""
import json
import os
import pathlib
import shutil
import sys
import unittest

import application
from banners import BannerWatch
from interface import has_window, press_keys, until_in_front, window
from sounds import Recording
from tray import EmbeddedIcon, StatusNotifierIcon
from waiting import until

HOME = pathlib.Path(os.environ["HOME"])
CLAUDE, CODEX, CURSOR = (HOME / name for name in (".claude/settings.json", ".codex/config.toml",
                                                  ".cursor/hooks.json"))
INSTALLED, TRAY = None, ""


NAMES = {"finished": "Finished", "waiting_input": "Waiting for input", "subagent_finished": "Subagent finished",
         "error": "Error", "tool_use": "Tool use", "long_running_start": "Long-running task started",
         "session_start": "Session started"}


def settings():
    """What is stored; a file that we wrote ourselves holds little until the application writes the first change."""
    stored = json.loads((application.folder() / "settings.json").read_text())
    return {"events": [], "globalMuted": False, "launchAtLogin": False, "remindersEnabled": True, **stored}


def event(name):
    unchanged = {"enabled": True, "showPopup": True, "speak": False, "soundId": "", "spokenPhrase": ""}
    return next((entry for entry in settings()["events"] if entry["event"] == name), unchanged)


def provider(name):
    return next(entry for entry in settings()["providers"] if entry["providerId"] == name)


class InterfaceTest(unittest.TestCase):
    def setUp(self):
        shutil.rmtree(application.folder(), ignore_errors=True)
        for file in (CLAUDE, CODEX, CURSOR):
            shutil.rmtree(file.parent, ignore_errors=True)
        self.addCleanup(application.end)
        self.watch = BannerWatch()
        self.addCleanup(self.watch.close)

    def start(self, **changed):
        """Starts the application that was set up before, or for the first time."""
        if changed:
            application.write_settings(**changed)
        INSTALLED.start()
        until(lambda: application.has_owner(application.NAME), "the application on the bus")
        self.process = application.process_of(application.NAME)
        until(lambda: (application.folder() / "settings.json").exists() or not changed, "its settings")

    def window(self, name):
        return window(self.process, name)

    def until_gone(self, name):
        until(lambda: not has_window(self.process, name), f"the end of the window {name!r}")

    def open_settings(self, pane):
        application.act("settings")
        found = self.window("Chimewell Settings")
        found.find(pane, "list item").click()
        return found

    def answer(self, title, button):
        """The question before an agent's file is changed."""
        self.window(title).find(button, "button").press()
        self.until_gone(title)


class Windows(InterfaceTest):
    def test_a_new_user_is_led_to_a_connected_agent(self):
        CLAUDE.parent.mkdir()
        CLAUDE.write_text('{\n  "model": "opus"\n}\n')
        self.start()
        steps = self.window("Welcome")
        steps.until_shows("Know the moment your AI coding agent finishes")
        until_in_front("Welcome")
        press_keys("alt+c")
        steps.until_shows("A tiny hook in your agent")
        press_keys("alt+b")
        steps.until_shows("Know the moment your AI coding agent finishes")
        for text in ("A tiny hook in your agent", "Banners let you jump straight back", "Install hooks so your"):
            steps.find("Continue", "button").press()
            steps.until_shows(text)
        steps.find("Install Claude Code", "button").press()
        self.answer("Install Claude Code hooks?", "Cancel")
        self.assertEqual(CLAUDE.read_text(), '{\n  "model": "opus"\n}\n')
        steps.find("Install Claude Code", "button").press()
        self.answer("Install Claude Code hooks?", "Install")
        until(lambda: "chimewell-hook" in CLAUDE.read_text(), "the hooks in the file")
        self.assertTrue(provider("claude")["installed"])
        self.assertEqual(list(json.loads(CLAUDE.read_text())), ["model", "hooks"])

        steps.find("Continue", "button").press()
        steps.find("Sound for Finished", "combo box").choose("Hero")
        until(lambda: event("finished")["soundId"] == "Hero", "another sound")
        steps.find("Read aloud for Finished", "check box").press()
        until(lambda: event("finished")["speak"], "the wish to hear it")
        steps.find("Start Chimewell when I log in", "check box").press()
        until(lambda: settings()["launchAtLogin"], "the wish to be started")
        steps.find("Done", "button").press()
        self.until_gone("Welcome")
        self.assertTrue(settings()["hasCompletedOnboarding"])
        if TRAY == "sni":
            self.assertEqual(StatusNotifierIcon().icon_name(), "chimewell-armed-symbolic")
        INSTALLED.claude("finished", "first", "/srv/first")
        self.watch.until_shown("Finished — first")

    def test_the_events_pane_sets_everything_up(self):
        self.start(hasCompletedOnboarding=True)
        pane = self.open_settings("Events")
        pane.find("Enable Finished", "check box").press()
        until(lambda: not event("finished")["enabled"], "finished switched off")
        pane.find("Sound for Waiting for input", "combo box").choose("Ping")
        until(lambda: event("waiting_input")["soundId"] == "Ping", "another sound")
        pane.find("Show banner for Waiting for input", "check box").press()
        until(lambda: not event("waiting_input")["showPopup"], "no banner")
        with Recording() as recording:
            pane.find("Preview the Waiting for input alert", "button").press()
            until(lambda: "Ping" in [sound.name for sound in recording.heard(INSTALLED.sounds)], "the sound")
        pane.find("Speak for Waiting for input", "check box").press()
        until(lambda: event("waiting_input")["speak"], "a phrase to speak")
        phrase = pane.find("Phrase for Waiting for input", "text")
        phrase.focus()
        phrase.write("Look here")
        press_keys("Tab")
        until(lambda: event("waiting_input")["spokenPhrase"] == "Look here", "the phrase")

    def test_every_control_of_the_events_stores_one_thing(self):
        self.start(hasCompletedOnboarding=True)
        for action in ("mute", "unmute"):
            application.act(action)
        until(lambda: len(settings()["events"]) == 8 and not settings()["globalMuted"], "a file with everything")
        pane = self.open_settings("Events")
        for name in NAMES.values():
            if not pane.find(f"Enable {name}", "check box").is_checked:
                pane.find(f"Enable {name}", "check box").press()
        until(lambda: all(event(key)["enabled"] for key in NAMES), "every event switched on")
        for key, name in NAMES.items():
            for label, field in (("Show banner for", "showPopup"), ("Speak for", "speak"), ("Enable", "enabled")):
                before = settings()
                pane.find(f"{label} {name}", "check box").press()
                stored = next(one for one in before["events"] if one["event"] == key)
                stored[field] = not stored[field]
                until(lambda: settings() == before, f"nothing changed but {field} of {key}")  # pylint: disable=W0640

    def test_reminders_keep_an_interval_that_is_only_looked_at(self):
        self.start(hasCompletedOnboarding=True, reminderIntervalSeconds=90, reminderMaxCount=7)
        pane = self.open_settings("Events")
        pane.until_shows("Every 1 minute")
        pane.find("Up to 7 reminders", "spin button").step(1)
        until(lambda: settings()["reminderMaxCount"] == 8, "one more reminder")
        pane.find("Keep reminding me while the agent waits", "check box").press()
        until(lambda: not settings()["remindersEnabled"], "no reminders")
        self.assertEqual(settings()["reminderIntervalSeconds"], 90)
        pane.find("Repeat every", "combo box").choose("2 minutes")
        until(lambda: settings()["reminderIntervalSeconds"] == 120, "two minutes")

    def test_the_providers_pane_does_what_its_buttons_say(self):
        self.start(hasCompletedOnboarding=True)
        pane = self.open_settings("Providers")
        original = "# mine\nmodel = 'x'\n"
        CODEX.parent.mkdir()
        CODEX.write_text(original)
        for name, key, file in (("Claude Code", "claude", CLAUDE), ("Codex", "codex", CODEX),
                                ("Cursor", "cursor", CURSOR)):
            pane.find(f"Install {name}", "button").press()
            self.answer(f"Install {name} hooks?", "Install")
            until(lambda: provider(key)["installed"] and "chimewell-hook" in file.read_text(), f"{name} connected")
            button = pane.find(f"Uninstall {name}", "button")
            until(lambda: button.is_enabled, "the second after it")
            button.press()
            self.answer("Uninstall hooks?", "Cancel")
            self.assertIn("chimewell-hook", file.read_text())
            button.press()
            self.answer("Uninstall hooks?", "Uninstall")
            until(lambda: "chimewell-hook" not in file.read_text(), f"{name} disconnected")
            pane.until_shows("Uninstalled. Your other hooks were left untouched.")
        button = pane.find("Restore the original settings of Codex", "button")
        until(lambda: button.is_enabled, "the second after it")
        CODEX.write_text("broken")
        button.press()
        self.answer("Restore original settings?", "Restore")
        until(lambda: CODEX.read_text() == original, "the original")
        CODEX.write_text('notify = ["other"]\n')
        button = pane.find("Install Codex", "button")
        until(lambda: button.is_enabled, "the second after it")
        button.press()
        self.answer("Install Codex hooks?", "Install")
        pane.until_shows("Codex supports only a single `notify` program")
        self.assertEqual(CODEX.read_text(), 'notify = ["other"]\n')

    def test_recent_alerts_come_and_go(self):
        self.start(hasCompletedOnboarding=True)
        pane = self.open_settings("Recent")
        pane.until_shows("No recent activity yet")
        project = HOME / "a project"
        project.mkdir(exist_ok=True)
        INSTALLED.claude("waiting_input", "s", project, "Claude needs your permission")
        pane.until_shows("Claude needs your permission")
        pane.find("Clear", "button").press()
        pane.until_shows("No recent activity yet")

    def test_the_general_pane(self):
        self.start(hasCompletedOnboarding=True)
        pane = self.open_settings("General")
        pane.find("Test banner permission", "button").press()
        self.watch.until_shown("Chimewell")
        pane.find("Play a sample alert", "button").press()
        self.watch.until_shown("Test event")
        pane.find("Launch at login", "check box").press()
        entry = pathlib.Path(os.environ["XDG_CONFIG_HOME"], "autostart/app.chimewell.Chimewell.desktop")
        until(entry.exists, "the autostart entry")
        pane.find("Mute all notifications", "check box").press()
        until(lambda: settings()["globalMuted"], "silence")
        pane.find("Show setup walkthrough…").press()
        steps = self.window("Welcome")
        steps.find("Skip setup", "button").press()
        self.until_gone("Welcome")

    def test_keys_close_windows_and_end_the_application(self):
        self.start(hasCompletedOnboarding=True)
        application.act("walkthrough")
        self.window("Welcome")
        until_in_front("Welcome")
        press_keys("ctrl+comma")
        self.window("Chimewell Settings")
        self.open_settings("General")
        until_in_front("Chimewell Settings")
        press_keys("ctrl+w")
        self.until_gone("Chimewell Settings")
        self.open_settings("General")
        until_in_front("Chimewell Settings")
        press_keys("ctrl+q")
        until(lambda: not application.has_owner(application.NAME), "its end")
        self.assertTrue((application.folder() / "dormant").exists())


class Panel(InterfaceTest):
    def open_panel(self):
        if TRAY == "none":
            application.activate()
        else:
            (StatusNotifierIcon() if TRAY == "sni" else EmbeddedIcon()).click()
        return self.window("Chimewell")

    def test_the_panel_shows_and_switches(self):
        self.start(hasCompletedOnboarding=True)
        INSTALLED.claude("finished", "s", "/srv/paint-shop")
        self.watch.until_shown("Finished — paint-shop")
        panel = self.open_panel()
        panel.until_shows("Setup needed")
        panel.until_shows("Finished — paint-shop")
        panel.find("Waiting for input", "check box").press()
        until(lambda: not event("waiting_input")["enabled"], "waiting switched off")
        panel.find("Mute all", "check box").press()
        until(lambda: settings()["globalMuted"], "silence")
        panel.find("Mute all", "check box").press()
        until(lambda: not settings()["globalMuted"], "the end of the silence")
        panel.find("Clear", "button").press()
        panel.until_shows("No recent activity yet")
        panel.find("Play a sample alert", "button").press()
        self.watch.until_shown("Test event")
        panel.find("Quit", "button").press()
        until(lambda: not application.has_owner(application.NAME), "its end")
        self.assertTrue((application.folder() / "dormant").exists())

    def test_every_window_can_be_reached_from_it(self):
        self.start(hasCompletedOnboarding=True)
        self.open_panel().find("Finish setup", "button").press()
        self.window("Welcome").find("Skip setup", "button").press()
        self.until_gone("Welcome")
        self.open_panel().find("Open Settings…", "button").press()
        self.window("Chimewell Settings")

    @unittest.skipUnless(len(sys.argv) > 2 and sys.argv[2] == "sni", "only this tray shows menus of its own")
    def test_the_menu_offers_the_same(self):
        self.start(hasCompletedOnboarding=True)
        icon = StatusNotifierIcon()
        self.assertEqual(list(icon.menu()), ["Open Chimewell", "Mute all", "Play a sample alert", "Open Settings…",
                                             "Quit"])
        icon.choose("Mute all")
        until(lambda: settings()["globalMuted"], "silence")
        icon.choose("Open Settings…")
        self.window("Chimewell Settings")


def main():
    global INSTALLED, TRAY
    build, TRAY = sys.argv[1:3]
    INSTALLED = application.install(build)
    program = unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2, exit=False)
    return 0 if program.result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
