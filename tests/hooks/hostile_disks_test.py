# SPDX-License-Identifier: MIT
"""hostile_disks_test.py HOOK_DRIVER: the installers on disks that are full, not to be written or in the way.

All mounts are made in a mount namespace of the test's own, in which it starts itself anew.
"""
import errno
import os
import subprocess
import sys
import tempfile

import scratch_home
from scratch_home import ORIGINAL, OUTDATED, InstallerTest, look, read, write

OUR_MOUNTS = "--in-mount-namespace-unlike="
REFUSED = ""

FULL, READ_ONLY, BUSY, NOT_PERMITTED = (os.strerror(number) for number in (
    errno.ENOSPC, errno.EROFS, errno.EBUSY, errno.EPERM))
UNMADE, UNRESTORED = "Could not create backup: ", "Could not restore from backup: "
UNWRITTEN = "Could not write {file}: "

PAGE = os.sysconf("SC_PAGE_SIZE")
# Three pages, also when our entries are added or taken out.
THREE_PAGES = OUTDATED.replace(b"x/y", b"x" * (2 * PAGE))


class HostileDisks(InstallerTest):
    def setUp(self):
        if REFUSED:
            self.skipTest(f"the system refuses us mounts of our own: {REFUSED}")

    def mount(self, place, *arguments):
        subprocess.run(["mount", *arguments, place], check=True)
        self.addCleanup(subprocess.run, ["umount", place], check=True)

    def on_disk(self, content, options, mounted=".claude"):
        """A home of which a part is a disk in memory."""
        home = self.fresh(None)
        if not mounted:
            os.rmdir(home.folder)
        self.mount(os.path.join(home.path, mounted), "-t", "tmpfs", "-o", f"mode=700,{options}", "scratch")
        if content is not None:
            write(home.file, content)
            write(home.backup(), THREE_PAGES)
        return home

    def leave_room(self, folder, pages=None, files=None):
        """Fills the disk but for so many pages or files."""
        names = (os.path.join(folder, f"other {n}") for n in range(1000))
        made = []
        try:
            for name in names:
                write(name, b"x" * PAGE if files is None else b"")
                made.append(name)
        except OSError as error:
            self.assertEqual(error.errno, errno.ENOSPC)
            if files is None:
                os.remove(name)
        for name in made[len(made) - (pages if files is None else files):]:
            os.remove(name)

    def test_a_full_disk(self):
        for room, content, action, sentence, begun in (
                (0, THREE_PAGES, "install", UNMADE, False),
                (2, THREE_PAGES, "uninstall", UNMADE, False),
                (3, THREE_PAGES, "install", UNWRITTEN, True),
                (5, THREE_PAGES, "uninstall", UNWRITTEN, True),
                (6, THREE_PAGES, "install", None, True),
                (0, None, "install", UNWRITTEN, False),
                (0, THREE_PAGES, "restore", UNRESTORED, False),
                (2, THREE_PAGES, "restore", UNRESTORED, False),
                (3, THREE_PAGES, "restore", None, False)):
            with self.subTest(action, pages=room, content=content is not None):
                home = self.on_disk(content, f"size={32 * PAGE}")
                self.leave_room(home.folder, pages=room)
                self.fails_or_not(home, action, sentence, FULL, begun)

    def test_a_disk_that_takes_no_more_files(self):
        for room, mounted, content, action, sentence, begun in (
                (0, ".claude", OUTDATED, "install", UNMADE, False),
                (1, ".claude", OUTDATED, "uninstall", UNWRITTEN, True),
                (2, ".claude", OUTDATED, "install", None, True),
                (0, ".claude", None, "install", UNWRITTEN, False),
                (0, "", None, "install", UNWRITTEN, False),
                (0, ".claude", OUTDATED, "restore", UNRESTORED, False),
                (1, ".claude", OUTDATED, "restore", None, False)):
            with self.subTest(action, files=room, mounted=mounted, content=content is not None):
                home = self.on_disk(content, "nr_inodes=32", mounted)
                self.leave_room(os.path.join(home.path, mounted), files=room)
                self.fails_or_not(home, action, sentence, FULL, begun)

    def fails_or_not(self, home, action, sentence, reason, begun):
        if sentence:
            self.refuses(home, action, sentence.format(file=home.file) + reason, begun)
            return
        self.assertEqual(home.run(action), ["ok"])
        if action == "restore":
            self.assertEqual(read(home.file), THREE_PAGES)
        else:
            self.is_installed(home, read(home.backups()[-1]))
        self.no_litter(home)

    def test_a_disk_not_to_be_written(self):
        for mounted, content, action, sentence in (
                (".claude", OUTDATED, "install", UNMADE),
                (".claude", OUTDATED, "uninstall", UNMADE),
                (".claude", OUTDATED, "restore", UNRESTORED),
                (".claude", None, "install", UNWRITTEN),
                ("", None, "install", UNWRITTEN)):
            with self.subTest(action, mounted=mounted, content=content is not None):
                home = self.on_disk(content, "size=1m", mounted)
                place = os.path.join(home.path, mounted)
                subprocess.run(["mount", "-o", "remount,bind,ro", place], check=True)
                self.refuses(home, action, sentence.format(file=home.file) + READ_ONLY)
        home = self.on_disk(ORIGINAL, "size=1m")
        subprocess.run(["mount", "-o", "remount,bind,ro", home.folder], check=True)
        before = home.picture()
        self.assertEqual(home.run("status", "uninstall", "offers-restore"), ["not installed", "ok", "no"])
        self.assertEqual(home.picture(), before)

    def test_a_file_that_is_a_mount_point(self):
        for action, sentence, begun in (("install", UNWRITTEN, True), ("uninstall", UNWRITTEN, True),
                                        ("restore", UNRESTORED, False)):
            with self.subTest(action):
                home = self.fresh(b"hidden by the mount")
                write(home.backup(), ORIGINAL)
                outside = os.path.join(home.scratch, "outside.json")
                write(outside, OUTDATED)
                self.mount(home.file, "--bind", outside)
                self.refuses(home, action, sentence.format(file=home.file) + BUSY, begun)

    def test_a_link_to_another_disk(self):
        home = self.fresh(None)
        disk = os.path.join(home.scratch, "disk")
        os.mkdir(disk)
        self.mount(disk, "-t", "tmpfs", "scratch")
        target = os.path.join(disk, "claude.json")
        os.symlink(target, home.file)
        write(target, ORIGINAL)
        os.chmod(target, 0o604)
        for action in ("install", "restore"):
            self.assertEqual(home.run(action), ["ok"])
            self.assertEqual(look(target).mode, 0o604)
            self.assertEqual((os.readlink(home.file), os.listdir(disk)), (target, ["claude.json"]))
            if action == "install":
                self.is_installed(home)
        self.assertEqual([read(path) for path in (target, *home.backups())], [ORIGINAL] * 2)

    def test_what_is_immutable(self):
        for what, action, sentence, begun in (
                ("file", "install", UNWRITTEN, True), ("file", "uninstall", UNWRITTEN, True),
                ("file", "restore", UNRESTORED, False), ("folder", "install", UNMADE, False),
                ("folder", "restore", UNRESTORED, False)):
            with self.subTest(action, what=what):
                home = self.on_disk(OUTDATED, "size=1m")
                path = getattr(home, what)
                flag = subprocess.run(["chattr", "+i", path], stderr=subprocess.PIPE, text=True, check=False)
                if flag.returncode != 0:
                    self.skipTest(f"nothing can be made immutable: {flag.stderr.strip()}")
                try:
                    self.refuses(home, action, sentence.format(file=home.file) + NOT_PERMITTED, begun)
                finally:
                    subprocess.run(["chattr", "-i", path], check=True)


def enter_own_mounts():
    """Starts this program anew where its mounts are seen by nobody else; says why if that is refused."""
    here = os.readlink("/proc/self/ns/mnt")
    if sys.argv[-1].startswith(OUR_MOUNTS):
        assert sys.argv.pop() != OUR_MOUNTS + here
        return ""
    command = ["unshare", "--mount", *([] if os.geteuid() == 0 else ["--map-root-user"])]
    with tempfile.TemporaryDirectory() as place:
        probe = subprocess.run([*command, "mount", "-t", "tmpfs", "probe", place], stderr=subprocess.PIPE,
                               text=True, check=False)
    if probe.returncode == 0:
        os.execvp(command[0], [*command, sys.executable, *sys.argv, OUR_MOUNTS + here])
    return probe.stderr.strip()


if __name__ == "__main__":
    REFUSED = enter_own_mounts()
    scratch_home.main()
