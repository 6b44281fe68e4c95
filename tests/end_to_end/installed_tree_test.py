# SPDX-License-Identifier: MIT
"""installed_tree_test.py BUILD: what `cmake --install` puts where, and whether the desktop's tools accept it."""
import configparser
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

BUILD = ""
FILES = {"bin": 1, "libexec/chimewell": 1, "share/applications": 1, "share/dbus-1/services": 1, "share/metainfo": 1,
         "share/man/man1": 2, "share/chimewell/sounds": 14, "share/icons/hicolor": 10}  # how many in each folder


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False)


class InstalledTree(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        # Characters that mean something to a shell or in a desktop entry.
        self.prefix = pathlib.Path(folder.name, "a home of $5 & 100%")
        done = run("cmake", "--install", BUILD, "--prefix", self.prefix)
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_every_file_is_there_and_programs_can_be_run(self):
        found = [file for file in self.prefix.rglob("*") if file.is_file()]
        counts = {folder: sum(file.is_relative_to(self.prefix / folder) for file in found) for folder in FILES}
        self.assertEqual((counts, len(found)), (FILES, sum(FILES.values())))
        self.assertEqual({file.name for file in found if os.access(file, os.X_OK)}, {"chimewell", "chimewell-hook"})

    def test_launchers_name_the_installed_program(self):
        program = str(self.prefix / "bin/chimewell")
        files = configparser.RawConfigParser()
        files.read([self.prefix / "share/applications/app.chimewell.Chimewell.desktop",
                    self.prefix / "share/dbus-1/services/app.chimewell.Chimewell.service"])
        value = files["Desktop Entry"]["Exec"].replace("\\\\", "\\").replace("%%", "%")
        self.assertEqual(re.sub(r"\\(.)", r"\1", value), f'"{program}" %u')
        self.assertEqual(re.sub(r"\\(.)", r"\1", files["D-BUS Service"]["Exec"]), f'"{program}"')

    def test_the_desktops_tools_accept_it(self):
        share = self.prefix / "share"
        app = "app.chimewell.Chimewell"
        checks = (("desktop-file-validate", share / f"applications/{app}.desktop"),
                  ("appstreamcli", "validate", "--no-net", share / f"metainfo/{app}.metainfo.xml"),
                  *(("man", "--warnings", "--local-file", page) for page in (share / "man/man1").iterdir()))
        for check in checks:
            with self.subTest(check[0]):
                done = run(*check)
                self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)


if __name__ == "__main__":
    BUILD = sys.argv.pop(1)
    unittest.main()
