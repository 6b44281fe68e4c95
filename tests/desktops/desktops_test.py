# SPDX-License-Identifier: MIT
"""desktops_test.py DESKTOP light|dark BUILD PICTURES: the application that is built in BUILD, installed and used on a
real desktop as a person uses it. Prints what was seen; pictures of the panel and a banner go into the folder PICTURES.
The status is 77 where the desktop cannot run."""
import os
import pathlib
import sys

from desktop import Unavailable
from desktops import DESKTOPS, HEIGHT, WIDTH
from waiting import TookTooLong, until

LEGIBLE = 3.0   # to one: Web Content Accessibility Guidelines 2.1, 1.4.11
NEAR = 24       # pixels between an icon and its panel


def install_terminal(home):
    """One that only leaves its activation token, in the file that is returned."""
    mark, program = home / "terminal", home / "kitty"
    program.write_text(f'#!/bin/sh\necho "${{XDG_ACTIVATION_TOKEN:-none}}" >{mark}\n')
    program.chmod(0o755)
    entry = pathlib.Path(os.environ["XDG_DATA_HOME"], "applications/kitty.desktop")
    entry.write_text(f"[Desktop Entry]\nType=Application\nName=kitty\nExec={program}\n")
    return mark


def has_started(mark):
    try:
        return until(lambda: mark.exists() and mark.read_text(), "the terminal", 5)
    except TookTooLong:
        return False


def use(desktop, build, picture):
    """Yields what was seen, as sentences."""
    # Other than the modules above, these look at the environment when they are imported.
    # pylint: disable=import-outside-toplevel
    import application
    import screens
    from interface import StatusNotifierIcon, until_closed, window

    screen = screens.screen_of(desktop)
    below = (0, desktop.strip[3], WIDTH, HEIGHT)
    installed = application.install(build)
    application.write_settings()
    try:
        empty = screen.settled()
        process = installed.start()
        if desktop.name != "X-Trayer":
            StatusNotifierIcon()
        bell, plain = screen.until_changed(empty, desktop.strip, "the bell")
        contrast = screens.contrast(plain, bell)
        yield f"The bell is at {bell}, with a contrast of {contrast:.1f}:1."
        assert contrast >= LEGIBLE, "the bell is hard to see"

        x, y = (bell[0] + bell[2]) // 2, (bell[1] + bell[3]) // 2
        screen.click(x, y, desktop.clicks)
        window(process, "Chimewell")
        panel, _ = screen.until_changed(plain, below, "the panel")
        screen.photograph(picture)
        if desktop.places_windows:
            assert panel[0] <= x <= panel[2] and panel[1] - bell[3] < NEAR, f"the panel is not at the bell: {panel}"
        yield f"A click opens the panel{' at the bell' if desktop.places_windows else ''}: {panel}."
        screen.click(x, y, desktop.clicks)
        until_closed(process, "Chimewell")
        yield "The second click closes it."

        mark = install_terminal(pathlib.Path(os.environ["HOME"]))
        screen.point(100, 600)  # away from the bell, which explains itself
        plain = screen.settled()
        installed.claude("waiting_input", "a session", "/srv/paint-shop", "Claude needs your permission to use Bash")
        for _ in range(3):  # the desktop may have something of its own to say first
            banner, _ = screen.until_changed(plain, below, "a banner")
            screen.photograph(picture.with_stem(f"{picture.stem}-banner"))
            if desktop.button:
                screen.click(banner[2] + desktop.button[0], banner[3] + desktop.button[1])
            else:
                screen.click((banner[0] + banner[2]) // 2, (banner[1] + banner[3]) // 2)
            if has_started(mark):
                break
        assert mark.exists(), "no terminal"
        token = "no" if mark.read_text() == "none\n" else "an"
        yield f"A click on the banner starts the session's terminal, with {token} activation token."
    except AssertionError:
        screen.photograph(picture.with_stem(f"{picture.stem}-failure"))
        raise
    finally:
        application.end()


def main():
    name, theme, build, pictures = sys.argv[1:]
    picture = pathlib.Path(pictures, f"{name}-{theme}.png").absolute()
    desktop = DESKTOPS[name](theme == "dark")
    try:
        desktop.run()
        for sentence in use(desktop, build, picture):
            print(f"  {sentence}", flush=True)
    except Unavailable as fault:
        print(f"  {fault}")
        return 77
    except AssertionError as fault:
        print(f"  FAILED: {fault}")
        return 1
    finally:
        desktop.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
