# SPDX-License-Identifier: MIT
"""demonstrate.py BUILD SCREENSHOT, inside a desktop of desktop.py: installs what is built in BUILD, starts it for the first
time, skips its walkthrough, sends one event through its helper, and prints what the notification server got, which
sound was heard and what was spoken. Beside SCREENSHOT go one of the walkthrough and one of the panel."""
import os
import pathlib
import subprocess
import sys
import uuid

import application
import speech
from banners import BannerWatch
from interface import has_window, press_keys, window
from sounds import Recording
from tray import StatusNotifierIcon
from waiting import TookTooLong, until


def main():
    build, screenshot = sys.argv[1], pathlib.Path(sys.argv[2])
    installed = application.install(build)
    project = pathlib.Path(os.environ["HOME"], "projects/paint-shop")
    project.mkdir(parents=True)
    watch = BannerWatch()

    print("Starting for the first time:", installed.program)
    application.activate()
    icon = StatusNotifierIcon()
    process = application.process_of(application.NAME)
    walkthrough = window(process, "Welcome")
    walkthrough.until_shows("Welcome to Chimewell")
    photograph(screenshot.with_stem("walkthrough"))
    walkthrough.find("Skip setup", "button").press()
    until(lambda: not has_window(process, "Welcome"), "the end of the walkthrough")
    application.act("settings")
    settings = window(process, "Chimewell Settings")
    settings.find("Speak for Waiting for input", "check box").press()
    press_keys("ctrl+w")

    with Recording() as recording:
        print("Event: Claude Code waits for a permission, through", installed.helper)
        installed.claude("waiting_input", str(uuid.uuid4()), project,
                         "Claude needs your permission to use Bash")
        banner = until(watch.banners, "a banner")[0]
        until(lambda: watch.banners()[0].is_answered, "the server's answer")
        try:
            until(lambda: speech.spoken() > 0, "the end of the spoken phrase", 20)
        except TookTooLong as fault:
            print(fault, file=sys.stderr)
        icon.click()
        window(process, "Chimewell").until_shows("Waiting for input — paint-shop")
        photograph(screenshot)
        until(recording.is_silent, "silence")
        heard = recording.heard(installed.sounds)

    print()
    print(f"Banner title: {banner.title}")
    print(f"Banner body:  {banner.body}")
    print(f"Button:       {', '.join(label for label in banner.actions.values() if label)}")
    for sound in heard:
        if sound.name:
            print(f"Heard:        {sound.name} (the recording agrees with its file by {sound.agreement:.1%})")
    other = sum(sound.beyond for sound in heard)
    print(f"              and {other:.1f} s that are none of the sounds")
    for phrase in speech.phrases()[:speech.spoken()]:
        print(f'Spoken:       "{phrase}" (the speech service reports its end)')
    print(f"Screenshots:  {screenshot} and {screenshot.with_stem('walkthrough')}")
    complete = speech.spoken() and other > 0.5 and any(sound.name for sound in heard)
    application.end()
    return 0 if complete else 1


def photograph(file):
    subprocess.run(["import", "-window", "root", file], check=True)


if __name__ == "__main__":
    sys.exit(main())
