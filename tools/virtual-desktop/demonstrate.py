# SPDX-License-Identifier: MIT
"""demonstrate.py BUILD SCREENSHOT, inside a desktop of desktop.py: installs what is built in BUILD, starts it for the
first time, skips its walkthrough, sends one event through its helper, and prints what the notification server got,
for how long it was heard and what was spoken. Beside SCREENSHOT go one of the walkthrough and one of the panel."""
import os
import pathlib
import subprocess
import sys

import application
from bus import BannerWatch
from interface import StatusNotifierIcon, press_keys, until_closed, window
from sounds import Recording, spoken
from waiting import TookTooLong, until


def photograph(file):
    subprocess.run(["import", "-window", "root", file], check=True)


def main():
    build, screenshot = sys.argv[1], pathlib.Path(sys.argv[2])
    installed = application.install(build)
    project = pathlib.Path(os.environ["HOME"], "projects/paint-shop")
    project.mkdir(parents=True)
    watch = BannerWatch()

    print("Starting for the first time:", installed.program)
    process = application.activate()
    icon = StatusNotifierIcon()
    walkthrough = window(process, "Welcome")
    walkthrough.until_shows("Welcome to Chimewell")
    photograph(screenshot.with_stem("walkthrough"))
    walkthrough.find("Skip setup", "button").press()
    until_closed(process, "Welcome")
    application.act("settings")
    window(process, "Chimewell Settings").find("Speak for Waiting for input", "check box").press()
    press_keys("ctrl+w")

    with Recording() as recording:
        print("Event: Claude Code waits for a permission, through", installed.helper)
        installed.claude("waiting_input", "a session", project, "Claude needs your permission to use Bash")
        banner = watch.until_shown("Waiting for input — paint-shop")
        until(lambda: watch.banners()[0].is_answered, "the server's answer")
        try:
            until(spoken, "the end of the spoken phrase", 20)
        except TookTooLong as fault:
            print(fault, file=sys.stderr)
        icon.click()
        window(process, "Chimewell").until_shows(banner.title)
        photograph(screenshot)
        recording.until_heard(1)
        heard = recording.heard()

    print()
    print(f"Banner title: {banner.title}")
    print(f"Banner body:  {banner.body}")
    print(f"Button:       {', '.join(label for label in banner.actions.values() if label)}")
    print(f"Heard:        {sum(heard):.1f} s, recorded from the sound server")
    for phrase in spoken():
        print(f'Spoken:       "{phrase}" (the speech service reports its end)')
    print(f"Screenshots:  {screenshot} and {screenshot.with_stem('walkthrough')}")
    application.end()
    return 0 if spoken() else 1


if __name__ == "__main__":
    sys.exit(main())
