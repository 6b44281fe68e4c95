# SPDX-License-Identifier: MIT
"""windows_benchmark.py PROGRAM [--quick], inside a desktop of desktop.py: how long the windows of the installed
application take to be there, what they leave behind in memory, and whether it rests afterwards."""
import pathlib
import re
import select
import statistics
import subprocess
import sys
import time

import application
from interface import StatusNotifierIcon
from waiting import until

PANELS, SETTINGS, REST_SECONDS = 20, 3, 60


class MappedWindows:
    """The moments at which the X server shows a window or takes one away."""

    def __init__(self):
        self._watch = subprocess.Popen(["stdbuf", "-oL", "xev", "-root", "-event", "substructure", "-event", "property"],
                                       stdout=subprocess.PIPE, text=True)
        # It watches once it has seen something.
        while not select.select([self._watch.stdout], [], [], 0.05)[0]:
            subprocess.run(["xprop", "-root", "-f", "_WATCHED", "8s", "-set", "_WATCHED", "yes"], check=True)

    def until(self, kind):
        for line in self._watch.stdout:
            if line.startswith(kind):
                return time.monotonic()
        raise EOFError

    def close(self):
        self._watch.terminate()
        self._watch.wait()


def proportional_kilobytes(process):
    text = pathlib.Path(f"/proc/{process}/smaps_rollup").read_text()
    return int(re.search(r"^Pss:\s+(\d+)", text, re.M)[1])


def context_switches(process):
    text = pathlib.Path(f"/proc/{process}/status").read_text()
    return sum(int(number) for number in re.findall(r"ctxt_switches:\s+(\d+)", text))


def milliseconds(show, closing_key, times):
    """From `show` until the window is there."""
    taken = []
    for _ in range(times):
        windows = MappedWindows()
        begin = time.monotonic()
        show()
        taken.append(1000 * (windows.until("MapNotify") - begin))
        subprocess.run(["xdotool", "key", closing_key], check=True)
        windows.until("UnmapNotify")
        windows.close()
    return f"{min(taken):.0f} to {max(taken):.0f}, median {statistics.median(taken):.0f}"


def rested(process, pause=0.5):
    """Waits until two looks in a row, so many seconds apart, find the process where it was."""
    seen = [-1]

    def rests():
        before, seen[0] = seen[0], context_switches(process)
        time.sleep(pause)
        return before == seen[0]
    until(rests, "rest", 30 + 10 * pause)


def main():
    application.write_settings()
    subprocess.Popen([sys.argv[1]], stdin=subprocess.DEVNULL)
    process = until(application.process, "the application on the bus")
    icon = StatusNotifierIcon()
    rested(process)
    before = proportional_kilobytes(process)
    print("panel, ms                                  ", milliseconds(icon.activate, "Escape", PANELS))
    print("settings, ms                               ",
          milliseconds(lambda: application.act("settings"), "ctrl+w", SETTINGS))
    rested(process)
    # Qt looks every 30 seconds whether it can give cached pictures back, until there are none.
    if "--quick" not in sys.argv:
        rested(process, 35)
    print(f"memory before, kB (proportional)            {before}")
    print(f"the same after all windows were closed, kB  {proportional_kilobytes(process) - before:+}")
    seconds = 3 if "--quick" in sys.argv else REST_SECONDS
    switches = context_switches(process)
    time.sleep(seconds)
    print(f"context switches in {seconds} s after that         {context_switches(process) - switches}")
    application.end()


if __name__ == "__main__":
    main()
