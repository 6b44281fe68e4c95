# SPDX-License-Identifier: MIT
"""package_test.py NEWER, as root inside a desktop of desktop.py, on a system that is thrown away
(scripts/test-package): an older version of the Debian package is installed, NEWER is the file of the next one."""
import os
import pathlib
import subprocess
import sys
import unittest

import application
from bus import BannerWatch
from interface import window
from sounds import Recording
from waiting import until

HOME = pathlib.Path(os.environ["HOME"])
CLAUDE = HOME / ".claude/settings.json"
ELSEWHERE = "These hooks call a chimewell-hook at another place"
NEWER = sys.argv.pop(1)


class PackageTest(unittest.TestCase):
    def start(self, installation):
        """Starts it anew, with the settings of the agents open."""
        application.end()
        self.process = installation.start()
        application.act("settings")
        self.settings = window(self.process, "Chimewell Settings")
        self.settings.find("Providers", "list item").click()
        self.settings.find("Claude Code", "label")

    def test_hooks_and_settings_survive_an_upgrade(self):
        self.addCleanup(application.end)
        sound = {"event": "waiting_input", "soundId": "Hero"}
        application.write_settings([sound])
        package = application.Installation("/usr")
        self.start(package)
        self.settings.find("Install Claude Code", "button").press()
        window(self.process, "Install Claude Code hooks?").find("Install", "button").press()
        until(lambda: CLAUDE.exists() and f'"\\"{package.helper}\\" claude' in CLAUDE.read_text(), "the hooks")
        hooks = CLAUDE.read_bytes()

        subprocess.run(["dpkg", "--install", NEWER], check=True)
        watch = BannerWatch()
        self.addCleanup(watch.close)
        with Recording() as recording:
            package.claude("waiting_input", "a session", "/srv/paint-shop", "Claude needs your permission")
            watch.until_shown("Waiting for input — paint-shop")
            recording.until_heard(1)
        self.assertEqual(application.process(), self.process)
        self.start(package)
        self.settings.find("Uninstall Claude Code", "button")
        self.assertFalse(self.settings.shows(ELSEWHERE))
        self.assertEqual(CLAUDE.read_bytes(), hooks)
        self.assertTrue(any(sound.items() <= event.items() for event in application.stored()["events"]))


if __name__ == "__main__":
    unittest.main(verbosity=2)
