# SPDX-License-Identifier: MIT
"""kept_files_test.py HOOK_DRIVER: rights, backups and what others write: what the installers have to keep."""
import errno
import json
import os
import re
import struct
import threading
import time
import tomllib

import scratch_home
from scratch_home import ORIGINAL, InstallerTest, look, make_large, ours, outcome, read, rights, wanted, write

FIRST, SECOND = "2025-01-01T00-00-00Z", "2026-01-01T00-00-00Z"
BUSY = "error: Could not write {file}: The file was changed by another program"
# What an installer may say whose file was removed under its hands. Only in the last case it leaves something.
GONE = re.compile(f"error: Could not (create backup|write .*): ({os.strerror(errno.ENOENT)}|The file was "
                  "changed by another program(, and is kept as (?P<kept>[.]chimewell-kept-[-0-9A-F]+))?)")
# Where nothing waits for a disk, more happens at the same time.
QUICK = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None

# An access control list in the kernel's form: rw- for the owner and for user 1234, r-- for the group, rw- at
# most for anybody but the owner, --- for others.
ONE_MORE_READER = struct.pack("<I", 2) + b"".join(
    struct.pack("<HHi", *entry) for entry in ((1, 6, -1), (2, 6, 1234), (4, 4, -1), (16, 6, -1), (32, 0, -1)))


class Agent(threading.Thread):
    """Rewrites its file as fast as it can, with a counter in it, and reads it all the time."""
    REWRITES = 1000

    def __init__(self, home, removes):
        super().__init__()
        self.home, self.removes = home, removes
        self.counter = 0
        self.lost = "not ended"

    def settings(self):
        return json.loads(read(self.home.file)) # whole at any moment

    def run(self):
        known = self.settings()
        fresh = self.home.file + ".new"
        while self.counter < self.REWRITES:
            self.counter += 1
            write(fresh, json.dumps({**known, "counter": self.counter}).encode())
            if self.removes:
                os.remove(self.home.file)
                for _ in range(self.counter % 40): # so long that an installer may see that there is none
                    read(fresh)
            os.replace(fresh, self.home.file)
            for _ in range(self.counter % 40): # so long that one that saw the file before may write
                known = self.settings()
            limit = time.monotonic() + 10
            while known.get("counter") != self.counter:
                if time.monotonic() > limit:
                    self.lost = f"{self.counter} by {known.get('counter')}"
                    return
                known = self.settings()
        self.lost = ""


class KeptFiles(InstallerTest):
    def mark(self, path, name, value):
        try:
            os.setxattr(path, name, value)
        except OSError as error:
            self.skipTest(f"the file system keeps no {name}: {error}")

    def test_rights_owner_and_attributes_stay_and_the_backup_has_them_too(self):
        for name, prepare in (
                ("private", lambda home: os.chmod(home.file, 0o600)),
                ("for the group", lambda home: os.chmod(home.file, 0o640)),
                ("read only", lambda home: os.chmod(home.file, 0o444)),
                ("for all", lambda home: os.chmod(home.file, 0o666)),
                ("somebody else's", lambda home: self.give_away(home.file)),
                ("attribute", lambda home: self.mark(home.file, "user.note", b"k\0pt")),
                ("access list", lambda home: self.mark(home.file, "system.posix_acl_access",
                                                       ONE_MORE_READER)),
                # New files get this one. What was there before keeps having none.
                ("folder's list", lambda home: self.mark(home.folder, "system.posix_acl_default",
                                                         ONE_MORE_READER))):
            for umask in (0, 0o022, 0o077):
                with self.subTest(name, umask=oct(umask)):
                    home = self.fresh()
                    prepare(home)
                    before = rights(home.file)
                    for action in ("install", "restore", "install", "uninstall"):
                        self.assertEqual(home.run(action, umask=umask), ["ok"])
                        if action == "install":
                            self.is_installed(home)
                        else:
                            self.assertEqual(read(home.file), ORIGINAL)
                        self.assertEqual({rights(path) for path in (home.file, *home.backups())}, {before})
                    for action in ("install", "restore"):
                        os.remove(home.file)
                        self.assertEqual(home.run(action, umask=umask), ["ok"])
                        self.assertEqual(look(home.file).mode, 0o600, "a new file is the user's alone")
                    self.no_litter(home)

    def test_restoring_takes_the_oldest_backup_or_fails(self):
        odd = b"\xef\xbb\xbf\xff\0\r\n"
        failed = "Could not restore from backup: "
        for name, make, expected in (
                ("the first", lambda path: write(path, odd), odd),
                ("empty", write, b""),
                ("link", lambda path: os.symlink(path.replace(FIRST, SECOND), path), ORIGINAL),
                ("link to nothing", lambda path: os.symlink("gone", path),
                 failed + os.strerror(errno.ENOENT)),
                ("folder", os.mkdir, failed + os.strerror(errno.EISDIR)),
                ("pipe", os.mkfifo, failed + "Not a regular file"),
                ("huge", make_large, failed + os.strerror(errno.EFBIG)),
                ("none", None, "No Chimewell backup was found to restore from.")):
            for current in (b"{ broken", None):
                with self.subTest(name, current=current):
                    home = self.fresh(current)
                    for other in (f"settings.local.json.chimewell-backup-{FIRST}",
                                  f"a settings.json.chimewell-backup-{FIRST}",
                                  f"settings.json.backup-{FIRST}", f".chimewell-backup-{FIRST}"):
                        write(os.path.join(home.folder, other), b"{}")
                    if make:
                        make(home.backup(FIRST))
                        write(home.backup(SECOND), ORIGINAL)
                    self.assertEqual(home.run("offers-restore"), ["yes" if make else "no"])
                    if isinstance(expected, str):
                        self.refuses(home, "restore", expected)
                        continue
                    before = home.picture()
                    self.assertEqual(home.run("restore"), ["ok"])
                    after = home.picture()
                    self.assertEqual(read(home.file), expected)
                    self.assertEqual(after.pop(home.file).mode, 0o640 if current else 0o600)
                    before.pop(home.file, None)
                    self.assertEqual(after, before)

    def test_a_backup_holds_the_very_bytes(self):
        odd = b"\xef\xbb\xbfmodel = 'x'\r\n\tnote = 1"
        home = self.fresh(odd, "codex")
        before = home.picture()
        self.assertEqual(home.run("uninstall", "status"), ["ok", "not installed"])
        self.assertEqual(home.picture(), before, "what needs no change is left alone")
        self.assertEqual(home.run("install"), ["ok"])
        backup, = home.backups()
        self.assertEqual(read(backup), odd)
        self.assertEqual(home.run("restore"), ["ok"])
        self.assertEqual((read(home.file), read(backup)), (odd, odd))

    def test_two_installers_at_once_leave_what_one_would_have_left(self):
        helpers = ("/first/chimewell-hook", "/second/chimewell-hook")
        for provider, original in (("claude", ORIGINAL), ("codex", b"# mine\nmodel = 'x'\n")):
            with self.subTest(provider):
                home = self.fresh(original, provider, QUICK)
                both = [home.start(*["install", "uninstall"] * 100, "install", helper=helper)
                        for helper in helpers]
                outcomes = {line for process in both for line in outcome(process)}
                self.assertLessEqual({"ok"}, outcomes)
                self.assertLessEqual(outcomes, {"ok", BUSY.format(file=home.file)})
                text = read(home.file)
                if provider == "claude":
                    found, rest = ours(text)
                    self.assertIn(found, [wanted(helper) for helper in helpers])
                    self.assertEqual(rest, ours(original)[1])
                else:
                    self.assertIn(tomllib.loads(text.decode())["notify"],
                                  [[helper, "codex-notify"] for helper in helpers])
                    self.assertEqual(text.partition(b"\n")[2], original)
                self.no_litter(home)

    def test_what_an_agent_writes_meanwhile_is_never_lost(self):
        filler = {"filler": ["x" * 100] * 100}
        for removes in (False, True):
            with self.subTest(removes=removes):
                home = self.fresh(json.dumps({**json.loads(ORIGINAL), **filler}).encode(), below=QUICK)
                agent = Agent(home, removes)
                agent.start()
                outcomes = set()
                while agent.is_alive():
                    outcomes.update(home.run(*["install", "uninstall"] * 20))
                self.assertEqual((agent.counter, agent.lost), (Agent.REWRITES, ""))
                self.assertIn("ok", outcomes)
                kept = set()
                for line in outcomes - {"ok", BUSY.format(file=home.file)}:
                    known = GONE.fullmatch(line)
                    self.assertTrue(removes and known, line)
                    kept.add(known["kept"])
                self.assertEqual(home.run("install"), ["ok"])
                found, rest = ours(read(home.file))
                self.assertEqual(found, wanted())
                self.assertEqual(rest, {**ours(ORIGINAL)[1], **filler, "counter": Agent.REWRITES})
                self.no_litter(home, kept)


if __name__ == "__main__":
    scratch_home.main()
