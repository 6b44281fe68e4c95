# SPDX-License-Identifier: MIT
"""interface_test.py BUILD TRAY [TEST...], inside a desktop of desktop.py with that kind of tray (xfce4-panel, trayer or
none): the installed application, used through the accessibility bus as a person uses it."""
import json
import os
import pathlib
import shutil
import sys
import unittest

import application
from application import DORMANT_MARKER, stored
from bus import BannerWatch
from interface import EmbeddedIcon, StatusNotifierIcon, press_keys, until_closed, until_in_front, window
from sounds import Recording
from waiting import until

HOME = pathlib.Path(os.environ["HOME"])
CLAUDE, CODEX, CURSOR = (HOME / name for name in (".claude/settings.json", ".codex/config.toml",
                                                  ".cursor/hooks.json"))
INSTALLED, TRAY = None, ""
EVENTS = {"finished": "Finished", "waiting_input": "Waiting for input", "subagent_finished": "Subagent finished",
          "error": "Error", "tool_use": "Tool use", "long_running_start": "Long-running task started",
          "session_start": "Session started"}


def event(name):
    unchanged = {"enabled": True, "showPopup": True, "speak": False, "soundId": "", "spokenPhrase": ""}
    return next((entry for entry in stored()["events"] if entry["event"] == name), unchanged)


def until_stored(condition, what):
    until(lambda: condition(stored()), what)


class InterfaceTest(unittest.TestCase):
    def setUp(self):
        for folder in (application.FOLDER, CLAUDE.parent, CODEX.parent, CURSOR.parent):
            shutil.rmtree(folder, ignore_errors=True)
        self.addCleanup(application.end)
        self.watch = BannerWatch()
        self.addCleanup(self.watch.close)

    def start(self, **settings):
        """Starts the application of a user who has finished the walkthrough."""
        application.write_settings(**settings)
        self.process = INSTALLED.start()

    def window(self, name):
        return window(self.process, name)

    def until_closed(self, name):
        until_closed(self.process, name)

    def open_settings(self, pane):
        application.act("settings")
        found = self.window("Chimewell Settings")
        found.find(pane, "list item").click()
        return found

    def answer(self, title, button):
        """The question before an agent's file is changed."""
        self.window(title).find(button, "button").press()
        self.until_closed(title)


class Windows(InterfaceTest):
    def test_a_new_user_is_led_to_a_connected_agent(self):
        CLAUDE.parent.mkdir()
        CLAUDE.write_text('{\n  "model": "opus"\n}\n')
        self.process = INSTALLED.start()
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
        self.assertEqual(list(json.loads(CLAUDE.read_text())), ["model", "hooks"])

        steps.find("Continue", "button").press()
        steps.find("Sound for Finished", "combo box").choose("Hero")
        until(lambda: event("finished")["soundId"] == "Hero", "another sound")
        steps.find("Read aloud for Finished", "check box").press()
        until(lambda: event("finished")["speak"], "the wish to hear it")
        steps.find("Start Chimewell when I log in", "check box").press()
        until_stored(lambda settings: settings["launchAtLogin"], "the wish to be started")
        steps.find("Done", "button").press()
        self.until_closed("Welcome")
        self.assertTrue(stored()["hasCompletedOnboarding"])
        self.assertEqual(StatusNotifierIcon().icon_name(), "chimewell-armed-symbolic")
        INSTALLED.claude("finished", "first", "/srv/first")
        self.watch.until_shown("Finished — first")

    def test_every_control_of_the_events_pane_stores_one_thing(self):
        self.start(reminderIntervalSeconds=90, reminderMaxCount=7)
        for action in ("mute", "unmute"):
            application.act(action)
        until_stored(lambda settings: len(settings["events"]) == 8 and not settings["globalMuted"], "a whole file")
        pane = self.open_settings("Events")
        pane.until_shows("Every 1 minute")
        pane.find("Up to 7 reminders", "spin button").step(1)
        until_stored(lambda settings: settings["reminderMaxCount"] == 8, "one more reminder")
        pane.find("Keep reminding me while the agent waits", "check box").press()
        until_stored(lambda settings: not settings["remindersEnabled"], "no reminders")
        self.assertEqual(stored()["reminderIntervalSeconds"], 90, "an interval that was only looked at")
        pane.find("Repeat every", "combo box").choose("2 minutes")
        until_stored(lambda settings: settings["reminderIntervalSeconds"] == 120, "two minutes")

        for key, name in EVENTS.items():
            if not event(key)["enabled"]:
                pane.find(f"Enable {name}", "check box").press()
        until(lambda: all(event(key)["enabled"] for key in EVENTS), "every event switched on")
        for key, name in EVENTS.items():
            for label, field in (("Show banner for", "showPopup"), ("Speak for", "speak"), ("Enable", "enabled")):
                expected = stored()
                pane.find(f"{label} {name}", "check box").press()
                changed = next(one for one in expected["events"] if one["event"] == key)
                changed[field] = not changed[field]
                until_stored(expected.__eq__, f"nothing changed but {field} of {key}")

        for label in ("Enable", "Speak for"):  # the sound is recognised by itself only
            pane.find(f"{label} Waiting for input", "check box").press()
        pane.find("Sound for Waiting for input", "combo box").choose("Ping")
        until(lambda: event("waiting_input")["soundId"] == "Ping", "another sound")
        with Recording() as recording:
            pane.find("Preview the Waiting for input alert", "button").press()
            until(lambda: "Ping" in [sound.name for sound in recording.heard(INSTALLED.sounds)], "the sound")
        pane.find("Speak for Waiting for input", "check box").press()
        pane.find("Phrase for Waiting for input", "text").write("Look here")
        press_keys("Tab")
        until(lambda: event("waiting_input")["spokenPhrase"] == "Look here", "the phrase")

    def test_the_providers_pane_does_what_its_buttons_say(self):
        self.start()
        pane = self.open_settings("Providers")
        original = "# mine\nmodel = 'x'\n"
        CODEX.parent.mkdir()
        CODEX.write_text(original)

        def press(label):
            button = pane.find(label, "button")
            until(lambda: button.is_enabled, "the end of the second after the last action")
            button.press()

        for name, file in (("Claude Code", CLAUDE), ("Codex", CODEX), ("Cursor", CURSOR)):
            press(f"Install {name}")
            self.answer(f"Install {name} hooks?", "Install")
            until(lambda: file.exists() and "chimewell-hook" in file.read_text(),  # pylint: disable=W0640
                  f"{name} connected")
            press(f"Uninstall {name}")
            self.answer("Uninstall hooks?", "Cancel")
            self.assertIn("chimewell-hook", file.read_text())
            press(f"Uninstall {name}")
            self.answer("Uninstall hooks?", "Uninstall")
            until(lambda: "chimewell-hook" not in file.read_text(),  # pylint: disable=W0640
                  f"{name} disconnected")
            pane.until_shows("Uninstalled. Your other hooks were left untouched.")
        CODEX.write_text("broken")
        press("Restore the original settings of Codex")
        self.answer("Restore original settings?", "Restore")
        until(lambda: CODEX.read_text() == original, "the original")
        CODEX.write_text('notify = ["other"]\n')
        press("Install Codex")
        self.answer("Install Codex hooks?", "Install")
        pane.until_shows("Codex supports only a single `notify` program")
        self.assertEqual(CODEX.read_text(), 'notify = ["other"]\n')

    def test_the_general_pane_and_the_recent_alerts(self):
        self.start()
        pane = self.open_settings("Recent")
        pane.until_shows("No recent activity yet")
        INSTALLED.claude("waiting_input", "s", HOME, "Claude needs your permission")
        pane.until_shows("Claude needs your permission")
        pane.find("Clear", "button").press()
        pane.until_shows("No recent activity yet")
        pane = self.open_settings("General")
        pane.find("Test banner permission", "button").press()
        self.watch.until_shown("Chimewell")
        pane.find("Play a sample alert", "button").press()
        self.watch.until_shown("Test event")
        pane.find("Launch at login", "check box").press()
        entry = pathlib.Path(os.environ["XDG_CONFIG_HOME"], "autostart/app.chimewell.Chimewell.desktop")
        until(entry.exists, "the autostart entry")
        pane.find("Mute all notifications", "check box").press()
        until_stored(lambda settings: settings["globalMuted"], "silence")
        pane.find("Show setup walkthrough…").press()
        self.window("Welcome").find("Skip setup", "button").press()
        self.until_closed("Welcome")

    def test_keys_close_windows_and_end_the_application(self):
        self.start()
        application.act("walkthrough")
        self.window("Welcome")
        until_in_front("Welcome")
        press_keys("ctrl+comma")
        self.window("Chimewell Settings")
        until_in_front("Chimewell Settings")
        press_keys("ctrl+w")
        self.until_closed("Chimewell Settings")
        self.open_settings("General")
        until_in_front("Chimewell Settings")
        press_keys("ctrl+q")
        application.until_ended()
        self.assertTrue(DORMANT_MARKER.exists())

    def test_the_icons_menu_offers_the_same(self):
        self.start()
        icon = StatusNotifierIcon()
        self.assertEqual(list(icon.menu()), ["Open Chimewell", "Mute all", "Play a sample alert", "Open Settings…",
                                             "Quit"])
        icon.choose("Mute all")
        until_stored(lambda settings: settings["globalMuted"], "silence")
        icon.choose("Open Settings…")
        self.window("Chimewell Settings")


class Panel(InterfaceTest):
    def open_panel(self):
        if TRAY == "none":
            application.activate()
        else:
            (StatusNotifierIcon() if TRAY == "xfce4-panel" else EmbeddedIcon()).click()
        return self.window("Chimewell")

    def test_the_panel_shows_and_switches(self):
        self.start()
        INSTALLED.claude("finished", "s", "/srv/paint-shop")
        self.watch.until_shown("Finished — paint-shop")
        panel = self.open_panel()
        panel.until_shows("Setup needed")
        panel.until_shows("Finished — paint-shop")
        panel.find("Waiting for input", "check box").press()
        until(lambda: not event("waiting_input")["enabled"], "waiting switched off")
        for muted in (True, False):
            panel.find("Mute all", "check box").press()
            until_stored(lambda settings: settings["globalMuted"] == muted, "the switch")  # pylint: disable=W0640
        panel.find("Clear", "button").press()
        panel.until_shows("No recent activity yet")
        panel.find("Play a sample alert", "button").press()
        self.watch.until_shown("Test event")
        panel.find("Finish setup", "button").press()
        self.window("Welcome").find("Skip setup", "button").press()
        self.until_closed("Welcome")
        self.open_panel().find("Open Settings…", "button").press()
        self.window("Chimewell Settings")
        self.open_panel().find("Quit", "button").press()
        application.until_ended()
        self.assertTrue(DORMANT_MARKER.exists())


def main():
    global INSTALLED, TRAY
    build, TRAY = sys.argv[1:3]
    INSTALLED = application.Installation(build)
    program = unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2, exit=False)
    return 0 if program.result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
