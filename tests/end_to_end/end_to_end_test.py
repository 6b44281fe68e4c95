# SPDX-License-Identifier: MIT
"""end_to_end_test.py BUILD CLASS..., inside a desktop of desktop.py: the installed application on real desktop parts,
its windows used through the accessibility bus as a person uses them. Those of the panel run on a desktop without a
tray, too."""
import concurrent.futures
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import unittest

import application
import bus
from application import DORMANT_MARKER, stored
from bus import BannerWatch, BusWatch, has_owner
from interface import StatusNotifierIcon, output, press_keys, until_closed, until_in_front, window
from sounds import Recording, spoken
from waiting import until

CLAUDE = pathlib.Path(os.environ["HOME"], ".claude/settings.json")
AUTOSTART_ENTRY = pathlib.Path(os.environ["XDG_CONFIG_HOME"], "autostart/app.chimewell.Chimewell.desktop")
INSTALLED = application.install(sys.argv.pop(1))


class InstalledApplication(unittest.TestCase):
    def setUp(self):
        for folder in (application.FOLDER, CLAUDE.parent):
            shutil.rmtree(folder, ignore_errors=True)
        self.watch = BannerWatch()
        self.addCleanup(self.watch.close)
        self.addCleanup(application.end)


class Alerts(InstalledApplication):
    def setUp(self):
        super().setUp()
        application.write_settings()

    def test_an_event_starts_the_application_and_is_alerted(self):
        application.write_settings([{"event": "finished", "speak": True, "spokenPhrase": "Ready, captain"}])
        with Recording() as recording:
            INSTALLED.claude("finished", "a", "/srv/paint-shop")
            banner = self.watch.until_shown("Finished — paint-shop")
            until(spoken, "the spoken phrase", 20)
            recording.until_heard(1)
        self.assertEqual(banner.body, "The agent finished responding and is idle.")
        self.assertEqual(banner.actions.get("FOCUS_SESSION"), "Open Session")
        self.assertEqual(spoken(), ["Ready, captain"])

    def test_after_quit_only_a_user_starts_it(self):
        application.activate()
        application.act("quit")
        application.until_ended()
        self.assertTrue(DORMANT_MARKER.exists())
        INSTALLED.claude("finished", "b")
        INSTALLED.until_helpers_ended()
        self.assertFalse(application.is_running())
        self.assertTrue(DORMANT_MARKER.exists())
        application.activate()
        until(lambda: not DORMANT_MARKER.exists(), "the marker to be removed")
        INSTALLED.claude("finished", "b", "/srv/again")
        self.watch.until_shown("Finished — again")

    def test_a_second_instance_exits_and_the_first_stays(self):
        first = application.activate()
        second = subprocess.run([INSTALLED.program], timeout=10, check=False)
        self.assertEqual(second.returncode, 0)
        self.assertEqual(application.process(), first)
        INSTALLED.claude("finished", "c", "/srv/first")
        self.watch.until_shown("Finished — first")

    def test_a_start_that_fails_says_so_and_exits(self):
        hung = application.activate()
        os.kill(hung, signal.SIGSTOP)
        self.addCleanup(os.kill, hung, signal.SIGCONT)
        headless = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "QT_QPA_PLATFORM")}
        for arguments, environment in ((), os.environ), (("chimewell:x",), os.environ), ((), headless), \
                ((), {**os.environ, "DISPLAY": ":4711"}):
            done = subprocess.run([INSTALLED.program, *arguments], env=environment, capture_output=True,
                                  timeout=10, check=False)
            # Qt sometimes has something of its own to say while it ends.
            self.assertEqual((done.returncode, done.stderr.count(b"chimewell: ")), (1, 1), done.stderr)

    def test_a_hung_notification_server_holds_nothing_up(self):
        application.activate()
        hung = bus.process_of(bus.NOTIFICATIONS)
        os.kill(hung, signal.SIGSTOP)
        try:
            with Recording() as recording:
                for count in (1, 2):
                    INSTALLED.claude("finished", f"d{count}")
                    recording.until_heard(count)
        finally:
            os.kill(hung, signal.SIGKILL)
        until(lambda: not bus.has_owner(bus.NOTIFICATIONS), "the end of the hung server")
        new = subprocess.Popen(["dunst", "-conf", os.path.join(os.environ["XDG_CONFIG_HOME"], "dunst/dunstrc")])
        self.addClassCleanup(lambda: (new.terminate(), new.wait()))
        until(lambda: bus.has_owner(bus.NOTIFICATIONS), "a new server")
        INSTALLED.claude("finished", "d3", "/srv/new-server")
        until(lambda: self.watch.until_shown("Finished — new-server").is_answered, "its answer")

    def test_the_end_of_the_session_leaves_no_marker(self):
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(number.name):
                os.kill(application.activate(), number)
                application.until_ended()
                self.assertFalse(DORMANT_MARKER.exists())

    def test_a_waiting_session_reminds_until_the_user_acts(self):
        application.write_settings(reminderIntervalSeconds=1, reminderMaxCount=1000)
        application.activate()
        reminder = {name: f"Still waiting — Waiting for input — {name}" for name in ("left", "right")}
        for name in reminder:
            INSTALLED.claude("waiting_input", name, f"/srv/{name}", "Claude needs your permission")
        until(lambda: all(self.watch.count(title) >= 2 for title in reminder.values()), "reminders of both")
        INSTALLED.claude("user_acted", "left", "/srv/left")
        # The other session tells the time: what was under way when the user acted comes before its next one.
        self.watch.until_shown_again(reminder["right"], 1)
        left = self.watch.count(reminder["left"])
        self.watch.until_shown_again(reminder["right"], 3)
        self.assertEqual(self.watch.count(reminder["left"]), left)

    def test_a_thousand_events_of_sixteen_senders_all_arrive(self):
        application.write_settings([{"event": "finished", "soundId": "__silent__", "showPopup": False}])
        application.activate()
        watch = BusWatch("org.freedesktop.Application", "Open")
        self.addCleanup(watch.close)
        with concurrent.futures.ThreadPoolExecutor(16) as senders:
            list(senders.map(lambda n: INSTALLED.claude("finished", f"h{n}"), range(1000)))
        until(lambda: sum(call.answer is not None for call in watch.calls()) == 1000, "1,000 answers", 30)
        sessions = {re.search(r"[?&]session=(\w+)", call.arguments[0][0])[1] for call in watch.calls()}
        self.assertEqual(sessions, {f"h{n}" for n in range(1000)})


def event(name):
    return next((entry for entry in stored()["events"] if entry["event"] == name), {})


def until_stored(condition, what):
    until(lambda: condition(stored()), what)


class Interface(InstalledApplication):
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


class Windows(Interface):
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


class Panel(Interface):
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

        def is_open_at_the_bell():
            left, top, wide, _ = self.window("Chimewell").area
            return 0 < top < 48 and width - 16 < left + wide <= width

        for _ in range(2):
            icon.click()
            until(is_open_at_the_bell, "the panel at the bell")
            icon.click()
            self.until_closed("Chimewell")
        output("xdotool", "mousemove", "300", "400")
        icon.activate()
        until(is_open_at_the_bell, "the panel at the bell")


if __name__ == "__main__":
    unittest.main(verbosity=2)
