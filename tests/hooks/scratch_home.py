# SPDX-License-Identifier: MIT
"""Scratch homes with an agent's file in them, and hook_driver at work in them."""
import collections
import functools
import json
import os
import re
import stat
import subprocess
import sys
import tempfile
import unittest

DRIVER = ""
HELPER = "/opt/Chimewell 1/chimewell-hook"
FILES = {"claude": ".claude/settings.json", "codex": ".codex/config.toml", "cursor": ".cursor/hooks.json"}
CLAUDE_EVENTS = {"Stop": "finished", "Notification": "waiting_input", "SubagentStop": "subagent_finished",
                 "UserPromptSubmit": "user_acted", "PostToolUse": "user_acted"}
ORIGINAL = """{
  "model": "größte",
  "env": {
    "TOKEN": "x/y"
  },
  "hooks": {
    "Stop": [
      {
        "hooks": [
          {
            "type": "command",
            "command": "say done"
          }
        ]
      }
    ]
  },
  "ratio": 1.50
}
""".encode()
# With an entry of ours, which both install and uninstall have to change.
OUTDATED = ORIGINAL.replace(b'"say done"', b'"/old/chimewell-hook claude finished"')

BACKUP = re.compile(r"\.chimewell-backup-\d{4}-\d\d-\d\dT\d\d-\d\d-\d\dZ$")

# Of a path: what kind it is, who may do what with it, what is in it, and which one it is.
Look = collections.namedtuple("Look", "kind mode owner attributes content inode")


def look(path):
    try:
        status = os.lstat(path)
    except PermissionError:
        return Look(*[None] * len(Look._fields))
    try:
        attributes = tuple((name, os.getxattr(path, name, follow_symlinks=False))
                           for name in sorted(os.listxattr(path, follow_symlinks=False)))
    except OSError:
        attributes = ()
    content = None
    if stat.S_ISLNK(status.st_mode):
        content = os.readlink(path)
    elif stat.S_ISREG(status.st_mode) and os.access(path, os.R_OK):
        with open(path, "rb") as file:
            content = (status.st_size, file.read(1 << 20))
    return Look(stat.S_IFMT(status.st_mode), stat.S_IMODE(status.st_mode), (status.st_uid, status.st_gid),
                attributes, content, status.st_ino)


def rights(path):
    """Everything that must survive when the text is replaced."""
    return look(path)[:4]


def read(path):
    with open(path, "rb") as file:
        return file.read()


def write(path, content=b""):
    with open(path, "wb") as file:
        file.write(content)


def make_large(path):
    """A file that takes no room and is just too large for us."""
    write(path)
    os.truncate(path, 64 * 1024 * 1024 + 1)


@functools.cache
def powerless():
    """What to put before a command that must not have root's power over the modes of files."""
    if os.geteuid() != 0:
        return []
    command = ["setpriv", "--bounding-set=-all", "--inh-caps=-all"]
    probe = subprocess.run([*command, "cat", "/proc/self/status"], stdout=subprocess.PIPE, text=True,
                           check=False)
    if not re.search(r"^CapEff:\s*0+$", probe.stdout, re.MULTILINE):
        raise unittest.SkipTest("root cannot give up its powers here")
    return command


def ours(text):
    """The commands of our entries in Claude Code's file by their events, and the file without them."""
    settings = json.loads(text)
    found = {}
    hooks = settings.get("hooks", {})
    for event, groups in list(hooks.items()):
        mine = [group for group in groups if "chimewell-hook" in group["hooks"][0]["command"]]
        hooks[event] = [group for group in groups if group not in mine]
        if mine:
            found[event] = [group["hooks"][0]["command"] for group in mine]
        if not hooks[event]:
            del hooks[event]
    if not hooks:
        settings.pop("hooks", None)
    return found, settings


def wanted(helper=HELPER):
    """What `ours` finds after an install."""
    return {event: [f'"{helper}" claude {name}'] for event, name in CLAUDE_EVENTS.items()}


class Home:
    """A home folder, not yet there, in a scratch folder."""

    def __init__(self, scratch, provider):
        self.scratch = scratch
        self.provider = provider
        self.path = os.path.join(scratch, "Zoë's home")
        self.file = os.path.join(self.path, FILES[provider])
        self.folder = os.path.dirname(self.file)

    def backup(self, time="2025-01-01T00-00-00Z"):
        return f"{self.file}.chimewell-backup-{time}"

    def backups(self):
        return [os.path.join(self.folder, name) for name in sorted(os.listdir(self.folder))
                if BACKUP.search(name)]

    def start(self, *actions, helper=HELPER, as_user=False, umask=0o022):
        return subprocess.Popen([*(powerless() if as_user else []), DRIVER, self.provider, helper, *actions],
                                env={**os.environ, "HOME": self.path, "LC_ALL": "C.UTF-8"}, umask=umask,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def run(self, *actions, **how):
        """The lines that tell the outcomes."""
        return outcome(self.start(*actions, **how))

    def picture(self):
        """What stands in the whole scratch folder."""
        paths = [os.path.join(top, name) for top, folders, files in os.walk(self.scratch)
                 for name in folders + files]
        return {path: look(path) for path in paths}


def outcome(process):
    try:
        output, errors = process.communicate(timeout=20)
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        raise AssertionError("the installer hangs") from None
    lines = os.fsdecode(output).splitlines()
    failed = any(line.startswith("error: ") for line in lines)
    if errors or process.returncode != failed:
        raise AssertionError(f"status {process.returncode}, {lines}, {os.fsdecode(errors)}")
    return lines


class InstallerTest(unittest.TestCase):
    maxDiff = None

    def fresh(self, content=ORIGINAL, provider="claude", below=None):
        """A home with the agent's folder in it, and with its file unless that is None."""
        scratch = tempfile.TemporaryDirectory(prefix="chimewell-test-", dir=below)
        self.addCleanup(scratch.cleanup)
        home = Home(scratch.name, provider)
        os.makedirs(home.folder)
        if content is not None:
            write(home.file, content)
            os.chmod(home.file, 0o640)
        return home

    def refuses(self, home, action, sentence, begun=False, **how):
        """Nothing at all changes, but for a backup where the change was begun."""
        before = home.picture()
        self.assertEqual(home.run(action, **how), [f"error: {sentence}"])
        after = home.picture()
        if begun:
            made = after.keys() - before.keys()
            self.assertEqual(len(made), 1, made)
            backup = made.pop()
            self.assertRegex(backup, re.escape(home.file) + BACKUP.pattern)
            self.assertEqual(after.pop(backup)[:-1], look(os.path.realpath(home.file))[:-1])
        self.assertEqual(after, before)

    def give_away(self, path):
        try:
            os.chown(path, 1234, 4321)
        except OSError as error:
            self.skipTest(f"no file can be given away: {error}")

    def is_installed(self, home, original=ORIGINAL, helper=HELPER):
        self.assertEqual(ours(read(home.file)), (wanted(helper), ours(original)[1]))

    def no_litter(self, home, announced=()):
        left = {os.path.basename(path) for path in home.picture()}
        self.assertEqual({name for name in left if name.startswith(".chimewell-")} - {*announced}, set())


def main():
    global DRIVER
    DRIVER = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=2)
