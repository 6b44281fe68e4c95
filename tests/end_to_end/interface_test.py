# SPDX-License-Identifier: MIT
"""interface_test.py BUILD [TEST...], inside a desktop of desktop.py: the installed application, used through the
accessibility bus as a person uses it. The test of the panel runs on a desktop without a tray, too."""
import json
import os
import pathlib
import shutil
import sys
import unittest

import application
from application import DORMANT_MARKER, stored
from bus import BannerWatch, has_owner
from interface import StatusNotifierIcon, output, press_keys, until_closed, until_in_front, window
from waiting import until

HOME = pathlib.Path(os.environ["HOME"])
CLAUDE = HOME / ".claude/settings.json"
INSTALLED = None
AUTOSTART_ENTRY = pathlib.Path(os.environ["XDG_CONFIG_HOME"], "autostart/app.chimewell.Chimewell.desktop")


def event(name):
    return next((entry for entry in stored()["events"] if entry["event"] == name), {})


def until_stored(condition, what):
    until(lambda: condition(stored()), what)


class InterfaceTest(unittest.TestCase):
    def setUp(self):
        for folder in (application.FOLDER, CLAUDE.parent):
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
        until(lambda: event("finished").get("soundId") == "Hero", "another sound")
        steps.find("Read aloud for Finished", "check box").press()
        until(lambda: event("finished").get("speak"), "the wish to hear it")
        steps.find("Start Chimewell when I log in", "check box").press()
        until(AUTOSTART_ENTRY.exists, "the entry that starts it")
        steps.find("Done", "button").press()
        self.until_closed("Welcome")
        self.assertTrue(stored()["hasCompletedOnboarding"])
        self.assertEqual(StatusNotifierIcon().icon_name(), "chimewell-armed-symbolic")
        INSTALLED.claude("finished", "first", "/srv/first")
        self.watch.until_shown("Finished — first")

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
        application.act("settings")
        until_in_front("Chimewell Settings")
        press_keys("ctrl+q")
        application.until_ended()
        self.assertTrue(DORMANT_MARKER.exists())

    def test_the_icons_menu_offers_the_same(self):
        self.start()
        icon = StatusNotifierIcon()
        self.assertEqual(list(icon.menu()), ["Open Chimewell", "Mute all", "Mute for an hour",
                                             "Play a sample alert", "Open Settings…", "Quit"])
        icon.choose("Mute all")
        until_stored(lambda settings: settings["globalMuted"], "silence")
        icon.choose("Open Settings…")
        self.window("Chimewell Settings")


class Panel(InterfaceTest):
    def open_panel(self):
        if has_owner(StatusNotifierIcon.WATCHER):
            StatusNotifierIcon().click()
        else:
            application.activate()
        return self.window("Chimewell")

    def test_the_panel_shows_and_switches(self):
        self.start()
        INSTALLED.claude("finished", "s", "/srv/paint-shop")
        self.watch.until_shown("Finished — paint-shop")
        panel = self.open_panel()
        panel.until_shows("Setup needed")
        panel.until_shows("Finished — paint-shop")
        panel.find("Waiting for input", "check box").press()
        until(lambda: event("waiting_input").get("enabled") is False, "waiting switched off")
        for muted in (True, False):
            panel.find("Mute all", "check box").press()
            until_stored(lambda settings: settings["globalMuted"] == muted, "the switch")  # pylint: disable=W0640
        application.act("mute-for-an-hour")
        panel.until_shows("Until ")
        application.act("unmute")
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

    @unittest.skipUnless(has_owner(StatusNotifierIcon.WATCHER), "there is no bell")
    def test_a_second_click_on_the_bell_closes_the_panel(self):
        self.start()
        icon = StatusNotifierIcon()
        width = int(output("xdotool", "getdisplaygeometry").split()[0])

        def until_open_at_the_bell():
            left, top, wide, _ = self.window("Chimewell").area
            self.assertTrue(top < 48 and width - 16 < left + wide <= width, f"the panel is at {left}, {top}")

        for _ in range(2):
            icon.click()
            until_open_at_the_bell()
            icon.click()
            self.until_closed("Chimewell")
        output("xdotool", "mousemove", "300", "400")
        icon.activate()
        until_open_at_the_bell()


if __name__ == "__main__":
    INSTALLED = application.install(sys.argv.pop(1))
    unittest.main(verbosity=2)
