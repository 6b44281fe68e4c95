# SPDX-License-Identifier: MIT
"""demonstrate.py BUILD SCREENSHOT, inside a desktop of desktop.py: installs what is built in BUILD, starts it for the
first time, skips its walkthrough, sends one event through its helper, and prints what the notification server got,
which sound was heard and what was spoken. Beside SCREENSHOT go one of the walkthrough and one of the panel."""
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
    installed = application.Installation(build)
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
        until(recording.is_silent, "silence")
        heard = recording.heard(installed.sounds)

    names = [sound.name for sound in heard if sound.name]
    other = sum(sound.beyond for sound in heard)
    print()
    print(f"Banner title: {banner.title}")
    print(f"Banner body:  {banner.body}")
    print(f"Button:       {', '.join(label for label in banner.actions.values() if label)}")
    print(f"Heard:        {', '.join(names)} (by comparison with its file)")
    print(f"              and {other:.1f} s that are none of the sounds")
    for phrase in spoken():
        print(f'Spoken:       "{phrase}" (the speech service reports its end)')
    print(f"Screenshots:  {screenshot} and {screenshot.with_stem('walkthrough')}")
    application.end()
    return 0 if spoken() and other > 0.5 and names else 1


if __name__ == "__main__":
    sys.exit(main())
