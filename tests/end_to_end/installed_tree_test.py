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
SOUNDS = ("Basso Blow Bottle Frog Funk Glass Hero Morse Ping Pop Purr Sosumi Submarine Tink").split()
ICONS = [*(f"{size}/apps/chimewell{armed}-symbolic.svg"
           for size in ("16x16", "22x22", "24x24", "symbolic") for armed in ("", "-armed")),
         "scalable/apps/app.chimewell.Chimewell.svg", "16x16/apps/app.chimewell.Chimewell.svg"]
FILES = {
    "bin/chimewell",
    "libexec/chimewell/chimewell-hook",
    "share/applications/app.chimewell.Chimewell.desktop",
    "share/dbus-1/services/app.chimewell.Chimewell.service",
    "share/metainfo/app.chimewell.Chimewell.metainfo.xml",
    "share/man/man1/chimewell.1",
    "share/man/man1/chimewell-hook.1",
    *(f"share/chimewell/sounds/{name}.wav" for name in SOUNDS),
    *(f"share/icons/hicolor/{name}" for name in ICONS),
}


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

    def test_every_file_is_there_and_no_other(self):
        found = {str(file.relative_to(self.prefix)) for file in self.prefix.rglob("*") if file.is_file()}
        self.assertEqual(found, FILES)
        for file in found:
            self.assertEqual(os.access(self.prefix / file, os.X_OK),
                             file.startswith(("bin/", "libexec/")), file)

    def test_launchers_name_the_installed_program(self):
        program = str(self.prefix / "bin/chimewell")
        entry = configparser.RawConfigParser()
        entry.read(self.prefix / "share/applications/app.chimewell.Chimewell.desktop")
        value = entry["Desktop Entry"]["Exec"].replace("\\\\", "\\").replace("%%", "%")
        self.assertEqual(re.sub(r"\\(.)", r"\1", value), f'"{program}" %u')
        service = configparser.RawConfigParser()
        service.read(self.prefix / "share/dbus-1/services/app.chimewell.Chimewell.service")
        self.assertEqual(re.sub(r"\\(.)", r"\1", service["D-BUS Service"]["Exec"]), f'"{program}"')

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
