# SPDX-License-Identifier: MIT
"""A terminal without a window, in which a program runs as a user would run it."""
import os
import pathlib
import subprocess
import tempfile

from waiting import TookTooLong, until


class Terminal:
    def __init__(self, command, folder, environment):
        # The path of a socket must be short.
        self._folder = tempfile.TemporaryDirectory(prefix="tm", dir="/tmp")
        self._socket = pathlib.Path(self._folder.name, "s")
        values = [f"{name}={value}" for name, value in environment.items()]
        self._tmux("-f", os.devnull, "new-session", "-d", "-x", "110", "-y", "40", "-c", folder,
                   "env", "-i", *values, *command)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._tmux("kill-server", check=False)
        self._folder.cleanup()

    def _tmux(self, *arguments, check=True):
        return subprocess.run(["tmux", "-S", self._socket, *arguments], capture_output=True, text=True,
                              check=check).stdout

    def screen(self):
        return self._tmux("capture-pane", "-p")

    def until_shows(self, text, seconds=30):
        try:
            until(lambda: text in self.screen(), f"{text!r} on the screen", seconds)
        except TookTooLong as fault:
            raise TookTooLong(f"{fault}; there is:\n{self.screen()}") from None

    def type(self, text):
        self._tmux("send-keys", "-l", text)

    def press(self, key):
        self._tmux("send-keys", key)
