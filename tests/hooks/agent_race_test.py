# SPDX-License-Identifier: MIT
"""agent_race_test.py HOOK_DRIVER: installers at work at the same time as an agent or as one another, and what real
shells make of the commands that they write."""
import errno
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import threading
import time
import tomllib
import unittest

DRIVER = ""
HELPER = "/opt/Chimewell 1/chimewell-hook"
FILES = {"claude": ".claude/settings.json", "codex": ".codex/config.toml", "cursor": ".cursor/hooks.json"}
SETTINGS = {"model": "größte", "hooks": {"Stop": [{"hooks": [{"type": "command", "command": "say done"}]}]},
            "filler": ["x" * 100] * 100}
CHANGED = "The file was changed by another program"
# What an installer may say whose file is removed meanwhile. Only in the last case it leaves something.
REMOVED = re.compile(f"error: Could not (create backup|write .*): ({os.strerror(errno.ENOENT)}|{CHANGED}"
                     "(, and is kept as (?P<kept>[.]chimewell-kept-[-0-9A-F]+))?)")


class Home:
    def __init__(self, test, content=None, provider="claude"):
        # Where nothing waits for a disk, more happens at the same time.
        scratch = tempfile.TemporaryDirectory(dir="/dev/shm" if os.access("/dev/shm", os.W_OK) else None)
        test.addCleanup(scratch.cleanup)
        self.provider, self.folder = provider, pathlib.Path(scratch.name)
        self.file = self.folder / FILES[provider]
        if content is not None:
            self.file.parent.mkdir()
            self.file.write_text(content, encoding="utf-8")

    def start(self, *actions, helper=HELPER):
        return subprocess.Popen([DRIVER, self.provider, helper, *actions], env={"HOME": str(self.folder)},
                                stdout=subprocess.PIPE, text=True)

    def run(self, *actions, helper=HELPER):
        """The lines that tell the outcomes, and what the file holds then."""
        return outcomes(self.start(*actions, helper=helper)), self.file.read_text(encoding="utf-8")

    def left_over(self):
        return {path.name for path in self.file.parent.iterdir() if path.name.startswith(".chimewell-")}


def outcomes(process):
    lines = set(process.communicate(timeout=60)[0].splitlines())
    if process.returncode not in (0, 1):
        raise AssertionError(f"left with {process.returncode}: {lines}")
    return lines


class Agent(threading.Thread):
    """Rewrites its file as fast as it can, with a counter in it, and reads it all the time."""
    REWRITES = 400

    def __init__(self, file, removes):
        super().__init__()
        self.file, self.removes = file, removes
        self.counter, self.lost = 0, "not ended"

    def settings(self):
        return json.loads(self.file.read_bytes())  # whole at any moment

    def run(self):
        known, fresh = self.settings(), self.file.with_name("new")
        while self.counter < self.REWRITES:
            self.counter += 1
            fresh.write_text(json.dumps({**known, "counter": self.counter}))
            if self.removes:
                self.file.unlink()
                for _ in range(self.counter % 40):  # so long that an installer may see that there is none
                    fresh.read_bytes()
            fresh.rename(self.file)
            for _ in range(self.counter % 40):  # so long that one that saw the file before may write
                known = self.settings()
            limit = time.monotonic() + 10
            while known.get("counter") != self.counter:
                if time.monotonic() > limit:
                    self.lost = f"{self.counter} by {known.get('counter')}"
                    return
                known = self.settings()
        self.lost = ""


class Race(unittest.TestCase):
    def test_two_installers_at_once_leave_what_one_would_have_left(self):
        helpers = ("/first/chimewell-hook", "/second/chimewell-hook")
        for provider, content in (("claude", json.dumps(SETTINGS)), ("codex", "# mine\nmodel = 'x'\n")):
            with self.subTest(provider):
                home = Home(self, content, provider)
                both = [home.start(*["install", "uninstall"] * 60, "install", helper=helper) for helper in helpers]
                said = {line for process in both for line in outcomes(process)}
                self.assertIn("ok", said)
                self.assertLessEqual(said, {"ok", f"error: Could not write {home.file}: {CHANGED}"})
                alone = [Home(self, content, provider).run("install", helper=helper)[1] for helper in helpers]
                self.assertIn(home.file.read_text(encoding="utf-8"), alone)
                self.assertEqual(home.left_over(), set())

    def test_what_an_agent_writes_meanwhile_is_never_lost(self):
        for removes in (False, True):
            with self.subTest(removes=removes):
                home = Home(self, json.dumps(SETTINGS))
                agent = Agent(home.file, removes)
                agent.start()
                said = set()
                while agent.is_alive():
                    said |= outcomes(home.start(*["install", "uninstall"] * 20))
                self.assertEqual((agent.counter, agent.lost), (Agent.REWRITES, ""))
                self.assertIn("ok", said)
                kept = set()
                for line in said - {"ok", f"error: Could not write {home.file}: {CHANGED}"}:
                    known = REMOVED.fullmatch(line)
                    self.assertTrue(removes and known, line)
                    kept.add(known["kept"])
                last = Home(self, json.dumps({**SETTINGS, "counter": Agent.REWRITES}))
                self.assertEqual(json.loads(home.run("install")[1]), json.loads(last.run("install")[1]))
                self.assertLessEqual(home.left_over(), kept)


class Commands(unittest.TestCase):
    def test_every_shell_runs_the_very_helper(self):
        folder = Home(self).folder / "x \"'$`\\é😀$(touch y)`touch y`!*~;touch y;&\t%$HOME${IFS}\x01\x7f#]"
        helper = folder / "chimewell-hook"
        folder.mkdir()
        helper.write_text('#!/bin/sh\nprintf "%s\\0" "$0" "$@"\n', encoding="ascii")
        helper.chmod(0o700)

        def told_by(*command):
            done = subprocess.run(command, cwd=folder.parent, stdout=subprocess.PIPE, check=True)
            self.assertEqual([path.name for path in folder.parent.iterdir()], [folder.name])
            return done.stdout.decode().split("\0")[:-1]

        for agent, events in (("claude", {"Stop": "finished", "PostToolUse": "user_acted"}),
                              ("cursor", {"stop": "finished"})):
            hooks = json.loads(Home(self, "{}", agent).run("install", helper=str(helper))[1])["hooks"]
            for event, told in events.items():
                entry = hooks[event][0]
                command = entry.get("hooks", [entry])[0]["command"]
                for shell in ("sh", "bash", "dash"):
                    self.assertEqual(told_by(shell, "-c", command), [str(helper), agent, told])
        notify = tomllib.loads(Home(self, "", "codex").run("install", helper=str(helper))[1])["notify"]
        self.assertEqual(told_by(*notify, "{}"), [str(helper), "codex-notify", "{}"])


if __name__ == "__main__":
    DRIVER = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=2)
