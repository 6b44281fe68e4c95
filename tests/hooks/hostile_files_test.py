# SPDX-License-Identifier: MIT
"""hostile_files_test.py HOOK_DRIVER: the installers among files that are not what they seem."""
import errno
import os
import socket

import scratch_home
from scratch_home import HELPER, ORIGINAL, OUTDATED, InstallerTest, look, make_large, read, write

UNPARSEABLE = ("The existing settings file at {file} is not valid JSON. Refusing to modify it to avoid data "
               "loss. Please fix or remove it, then try again.")
SECOND_NOTIFY = ("Codex supports only a single `notify` program, and ~/.codex/config.toml already has one "
                 "configured. Remove it (or chain Chimewell into it) first, then install again.")
NO_BACKUP = "No Chimewell backup was found to restore from."
NO_HELPER = "The bundled chimewell-hook helper could not be found inside the app bundle."
NO_JSON = "Could not serialize settings."
UNREAD, UNMADE = "Could not read {file}: ", "Could not create backup: "
UNWRITTEN, UNRESTORED = "Could not write {file}: ", "Could not restore from backup: "

DENIED = os.strerror(errno.EACCES)
IS_FOLDER = os.strerror(errno.EISDIR)
NO_FOLDER = os.strerror(errno.ENOTDIR)
LOOP = os.strerror(errno.ELOOP)
NO_FILE = "Not a regular file"
NOWHERE = "A symbolic link leads to {gone}, which does not exist"


def make_socket(path):
    # The name of a socket has to be short; the path need not be.
    before = os.getcwd()
    os.chdir(os.path.dirname(path))
    try:
        with socket.socket(socket.AF_UNIX) as server:
            server.bind(os.path.basename(path))
    finally:
        os.chdir(before)


def link_to(target):
    return lambda path: os.symlink(target, path)


class HostileFiles(InstallerTest):
    def test_every_sentence_that_is_ours_alone(self):
        # The four that end with the system's reason are in the other tests.
        latin1 = b"/opt/caf\xe9/chimewell-hook"
        # Twelve kilobytes that take more than 64 MiB once each bracket has an indented line of its own.
        nested = b'{"a": ' + b"[" * 6000 + b"]" * 6000 + b"}"
        for provider, content, action, helper, sentence in (
                ("claude", b'{"a": 1,}', "install", HELPER, UNPARSEABLE),
                ("claude", b"", "uninstall", HELPER, UNPARSEABLE),
                ("cursor", b'{"caf\xe9": 1}', "status", HELPER, UNPARSEABLE),
                ("claude", ORIGINAL, "install", "", NO_HELPER),
                ("cursor", b"{}", "restore", HELPER, NO_BACKUP),
                ("codex", b"notify = ['other']\n", "install", HELPER, SECOND_NOTIFY),
                ("codex", b"model = 'x'\n", "install", latin1, "Could not encode config.toml."),
                ("codex", b"model = 'caf\xe9'\n", "install", HELPER, UNREAD + "The file is not valid UTF-8."),
                ("claude", ORIGINAL, "install", latin1, NO_JSON),
                ("cursor", None, "install", latin1, NO_JSON),
                ("claude", nested, "install", HELPER, NO_JSON),
                ("cursor", b'{"hooks": {"stop": [{"command": "chimewell-hook"}]}, "b": %s}' % nested,
                 "uninstall", HELPER, NO_JSON)):
            with self.subTest(sentence, provider=provider, action=action):
                home = self.fresh(content, provider)
                self.refuses(home, action, sentence.format(file=home.file), helper=helper)

    def test_what_is_no_ordinary_file_is_neither_read_nor_replaced(self):
        for name, make, unread, unreplaced in (
                ("pipe", os.mkfifo, NO_FILE, NO_FILE),
                ("socket", make_socket, os.strerror(errno.ENXIO), NO_FILE),
                ("folder", os.mkdir, IS_FOLDER, IS_FOLDER),
                ("link to itself", link_to("settings.json"), LOOP, LOOP),
                ("link to a folder", link_to(".."), IS_FOLDER, None),
                ("link to an endless device", link_to("/dev/zero"), NO_FILE, None),
                ("huge file", make_large, os.strerror(errno.EFBIG), None)):
            with self.subTest(name):
                home = self.fresh(None)
                make(home.file)
                for action in ("install", "uninstall", "status", "changes-by-install",
                               "changes-by-uninstall"):
                    self.refuses(home, action, f"Could not read {home.file}: {unread}")
                if unreplaced:
                    write(home.backup(), ORIGINAL)
                    self.refuses(home, "restore", UNRESTORED + unreplaced)

    def test_links_stay_and_what_they_lead_to_changes(self):
        # Each link of each way, from inside the scratch folder, in the order in which they are made.
        home_folder, target = "Zoë's home", "dot files/settings.json"
        file = home_folder + "/.claude/settings.json"
        for name, links in (
                ("absolute", {file: "{scratch}/" + target}),
                ("relative", {file: "../../" + target}),
                ("chain", {file: "../second", home_folder + "/second": "../third",
                           "third": "{scratch}/" + target}),
                ("folder", {home_folder + "/.claude": "../dot files"})):
            for content in (ORIGINAL, None):
                with self.subTest(name, content=content):
                    home = self.fresh(None)
                    at = lambda path: os.path.join(home.scratch, path)
                    os.rmdir(home.folder)
                    os.mkdir(at("dot files"))
                    for place, leads_to in links.items():
                        os.makedirs(os.path.dirname(at(place)), exist_ok=True)
                        os.symlink(leads_to.format(scratch=home.scratch), at(place))
                    if content:
                        write(at(target), content)
                        os.chmod(at(target), 0o604)
                    for action in ("install", "restore", "install", "uninstall") if content else ("install",):
                        self.assertEqual(home.run(action), ["ok"])
                        if action == "install":
                            self.is_installed(home, content or b"{}")
                        else:
                            self.assertEqual(read(at(target)), content)
                        self.assertEqual(look(at(target)).mode, 0o604 if content else 0o600)
                        for place, leads_to in links.items():
                            self.assertEqual(os.readlink(at(place)), leads_to.format(scratch=home.scratch))
                    self.assertEqual(bool(home.backups()), content is not None)
                    self.no_litter(home)

    def test_only_the_folders_of_the_first_name_and_of_the_file_itself_are_written(self):
        home = self.fresh(None)
        dots = os.path.join(home.path, "dots")
        os.mkdir(dots)
        os.symlink("../dots/second", home.file)
        os.symlink("../third", os.path.join(dots, "second"))
        write(os.path.join(home.path, "third"), ORIGINAL)
        os.chmod(dots, 0o500)
        self.assertEqual(home.run("install", as_user=True), ["ok"])
        self.is_installed(home)
        os.chmod(home.folder, 0o500)
        self.refuses(home, "uninstall", UNMADE + DENIED, as_user=True)

    def test_the_other_name_of_a_file_keeps_the_old_text(self):
        home = self.fresh()
        other = os.path.join(home.scratch, "other")
        os.link(home.file, other)
        before = look(other)
        self.assertEqual(home.run("install"), ["ok"])
        self.assertEqual(look(other), before)
        self.is_installed(home)

    def test_missing_folders_are_made(self):
        home = self.fresh(None)
        os.removedirs(home.folder)
        self.refuses(home, "restore", NO_BACKUP)
        self.assertEqual(home.run("uninstall", "status", "offers-restore"), ["ok", "not installed", "no"])
        self.assertEqual(home.picture(), {})
        self.assertEqual(home.run("install", umask=0), ["ok"])
        self.is_installed(home, b"{}")
        self.assertEqual([seen.mode for path, seen in sorted(home.picture().items())], [0o700, 0o700, 0o600])

    def test_what_stands_in_the_place_of_a_folder_stays(self):
        for name, place, make, sentences in (
                ("file for the agent's folder", ".claude", write,
                 {"install": UNREAD + NO_FOLDER, "uninstall": UNREAD + NO_FOLDER,
                  "status": UNREAD + NO_FOLDER, "restore": UNRESTORED + NO_FOLDER}),
                ("file for the home folder", ".", write, {"install": UNREAD + NO_FOLDER}),
                ("link to no folder", ".claude", link_to("gone"),
                 {"install": UNWRITTEN + NOWHERE, "restore": NO_BACKUP}),
                ("link into no folder", ".claude/settings.json", link_to("gone/settings.json"),
                 {"install": UNWRITTEN + NOWHERE, "restore": NO_BACKUP})):
            for action, sentence in sentences.items():
                with self.subTest(name, action=action):
                    home = self.fresh(None)
                    path = os.path.normpath(os.path.join(home.path, place))
                    if path != home.file:
                        os.rmdir(home.folder)
                    if path == home.path:
                        os.rmdir(path)
                    make(path)
                    gone = os.path.join(os.path.dirname(path), "gone")
                    self.refuses(home, action, sentence.format(file=home.file, gone=gone))

    def test_what_the_user_may_not_do_is_said_and_not_done(self):
        folder, file = ".claude", ".claude/settings.json"
        backup = file + ".chimewell-backup-2025-01-01T00-00-00Z"
        for name, content, path, mode, sentences in (
                ("folder not to be written", OUTDATED, folder, 0o500,
                 {"install": UNMADE, "uninstall": UNMADE, "restore": UNRESTORED}),
                ("folder not to be written, without a file", None, folder, 0o500,
                 {"install": UNWRITTEN, "restore": UNRESTORED}),
                ("folder not to be listed", OUTDATED, folder, 0o300,
                 {"install": UNMADE, "restore": UNRESTORED}),
                ("folder not to be entered", OUTDATED, folder, 0o600,
                 {"install": UNREAD, "uninstall": UNREAD, "status": UNREAD, "restore": UNRESTORED}),
                ("closed folder", OUTDATED, folder, 0, {"install": UNREAD, "restore": UNRESTORED}),
                ("closed home", OUTDATED, "", 0, {"status": UNREAD, "restore": UNRESTORED}),
                ("file not to be read", OUTDATED, file, 0o200,
                 {"install": UNREAD, "uninstall": UNREAD, "status": UNREAD, "restore": UNRESTORED}),
                ("oldest backup not to be read", OUTDATED, backup, 0o200, {"restore": UNRESTORED})):
            for action, start in sentences.items():
                with self.subTest(name, action=action):
                    home = self.fresh(content)
                    for time in ("2025-01-01T00-00-00Z", "2026-01-01T00-00-00Z"):
                        write(home.backup(time), ORIGINAL)
                    os.chmod(os.path.join(home.path, path), mode)
                    self.refuses(home, action, start.format(file=home.file) + DENIED, as_user=True)

        with self.subTest("home not to be written"):
            home = self.fresh(None)
            os.rmdir(home.folder)
            os.chmod(home.path, 0o500)
            self.refuses(home, "install", f"Could not write {home.file}: {DENIED}", as_user=True)
        with self.subTest("file that could not stay its owner's"):
            home = self.fresh(OUTDATED)
            self.give_away(home.file)
            os.chmod(home.file, 0o666)
            for action in ("install", "uninstall"):
                self.refuses(home, action, UNMADE + os.strerror(errno.EPERM), as_user=True)

    def test_a_file_not_to_be_written_in_a_folder_that_is(self):
        home = self.fresh()
        os.chmod(home.file, 0o444)
        self.assertEqual(home.run("install", as_user=True), ["ok"])
        self.is_installed(home)


if __name__ == "__main__":
    scratch_home.main()
