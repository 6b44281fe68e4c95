# SPDX-License-Identifier: MIT
"""The hooks of an agent in the home folder, as the user has our installers treat them."""
import os
import pathlib
import subprocess

FILES = {"claude": ".claude/settings.json", "codex": ".codex/config.toml"}


class Hooks:
    def __init__(self, driver, helper, provider, content):
        """The agent's file holds `content`, nothing of ours, and there is no backup of it."""
        self._command = [driver, provider, helper]
        self.file = pathlib.Path(os.environ["HOME"], FILES[provider])
        self.content = content
        self.file.parent.mkdir(parents=True, exist_ok=True)
        for left in self.file.parent.glob(self.file.name + "*"):
            left.unlink()
        self.file.write_text(content)

    def do(self, action):
        done = subprocess.run([*self._command, action], capture_output=True, text=True, check=False)
        if done.returncode:
            raise AssertionError(f"{action}: {done.stdout}{done.stderr}")
        return done.stdout.strip()
