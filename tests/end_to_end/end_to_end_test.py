# SPDX-License-Identifier: MIT
"""end_to_end_test.py BUILD, inside a desktop of desktop.py: the installed application on real desktop parts."""
import concurrent.futures
import os
import re
import signal
import subprocess
import sys
import unittest

import application
import bus
from application import DORMANT_MARKER as MARKER
from bus import BannerWatch, BusWatch
from sounds import Recording, spoken
from waiting import until

BUILD = ""


class EndToEnd(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.installed = application.install(BUILD)

    def setUp(self):
        MARKER.unlink(missing_ok=True)
        application.write_settings()
        self.watch = BannerWatch()
        self.addCleanup(self.watch.close)
        self.addCleanup(application.end)

    def test_an_event_starts_the_application_and_is_alerted(self):
        application.write_settings([{"event": "finished", "speak": True, "spokenPhrase": "Ready, captain"}])
        with Recording() as recording:
            self.installed.claude("finished", "a", "/srv/paint-shop")
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
        self.assertTrue(MARKER.exists())
        self.installed.claude("finished", "b")
        self.installed.until_helpers_ended()
        self.assertFalse(application.is_running())
        self.assertTrue(MARKER.exists())
        application.activate()
        until(lambda: not MARKER.exists(), "the marker to be removed")
        self.installed.claude("finished", "b", "/srv/again")
        self.watch.until_shown("Finished — again")

    def test_a_second_instance_exits_and_the_first_stays(self):
        first = application.activate()
        second = subprocess.run([self.installed.program], timeout=10, check=False)
        self.assertEqual(second.returncode, 0)
        self.assertEqual(application.process(), first)
        self.installed.claude("finished", "c", "/srv/first")
        self.watch.until_shown("Finished — first")

    def test_a_start_that_fails_says_so_and_exits(self):
        hung = application.activate()
        os.kill(hung, signal.SIGSTOP)
        self.addCleanup(os.kill, hung, signal.SIGCONT)
        headless = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "QT_QPA_PLATFORM")}
        for arguments, environment in ((), os.environ), (("chimewell:x",), os.environ), ((), headless), \
                ((), {**os.environ, "DISPLAY": ":4711"}):
            done = subprocess.run([self.installed.program, *arguments], env=environment, capture_output=True,
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
                    self.installed.claude("finished", f"d{count}")
                    recording.until_heard(count)
        finally:
            os.kill(hung, signal.SIGKILL)
        until(lambda: not bus.has_owner(bus.NOTIFICATIONS), "the end of the hung server")
        new = subprocess.Popen(["dunst", "-conf", os.path.join(os.environ["XDG_CONFIG_HOME"], "dunst/dunstrc")])
        self.addClassCleanup(lambda: (new.terminate(), new.wait()))
        until(lambda: bus.has_owner(bus.NOTIFICATIONS), "a new server")
        self.installed.claude("finished", "d3", "/srv/new-server")
        until(lambda: self.watch.until_shown("Finished — new-server").is_answered, "its answer")

    def test_the_end_of_the_session_leaves_no_marker(self):
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            with self.subTest(number.name):
                os.kill(application.activate(), number)
                application.until_ended()
                self.assertFalse(MARKER.exists())

    def test_a_waiting_session_reminds_until_the_user_acts(self):
        application.write_settings(reminderIntervalSeconds=1, reminderMaxCount=1000)
        application.activate()
        reminder = {name: f"Still waiting — Waiting for input — {name}" for name in ("left", "right")}
        for name in reminder:
            self.installed.claude("waiting_input", name, f"/srv/{name}", "Claude needs your permission")
        until(lambda: all(self.watch.count(title) >= 2 for title in reminder.values()), "reminders of both")
        self.installed.claude("user_acted", "left", "/srv/left")
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
            list(senders.map(lambda n: self.installed.claude("finished", f"h{n}"), range(1000)))
        until(lambda: sum(call.answer is not None for call in watch.calls()) == 1000, "1,000 answers", 30)
        sessions = {re.search(r"[?&]session=(\w+)", call.arguments[0][0])[1] for call in watch.calls()}
        self.assertEqual(sessions, {f"h{n}" for n in range(1000)})


if __name__ == "__main__":
    BUILD = sys.argv.pop(1)
    unittest.main(verbosity=2)
