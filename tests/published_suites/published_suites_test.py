# SPDX-License-Identifier: MIT
"""published_suites_test.py BUILD CACHE: what others have published to test readers of JSON and TOML. The
documents of JSONTestSuite for our reader and writer; the files of toml-test as Codex's configuration.

Leaves with 77 where one of the suites is not to be had."""
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import tomllib
import unittest

PACKAGE, VERSION = "json-test-suite", "1.0.0"
TOML_TEST = pathlib.Path("/usr/share/gocode/src/github.com/BurntSushi/toml/internal/toml-test/tests")
HELPER = "/opt/chimewell-hook"
BUILD = CACHE = None

# JSONTestSuite names its documents y_, n_ or i_: to be accepted, to be refused, left open.
ACCEPTED_ALL_THE_SAME = {
    # A number is carried as it is spelled: any run of digits and +-.eE with a digit in it.
    "n_number_": "++ +1 -01 -1.0. -2. .-1 .2e-3 0.1.2 0.3e 0.3e+ 0.e1 0_capital_E 0_capital_E+ 0e 0e+ 1.0e "
                 "1.0e+ 1.0e- 1eE2 2.e+3 2.e-3 2.e3 9.e+ expression invalid+- neg_int_starting_with_zero "
                 "neg_real_without_int_part real_without_fractional_part starting_with_dot with_leading_zero",
    # Control characters in strings are carried, too (and written as escapes).
    "n_string_": "unescaped_ctrl_char unescaped_newline unescaped_tab",
}
# Of what is left open, numbers of any size, half surrogate pairs and deep nesting are accepted.
REFUSED_ALTHOUGH_OPEN = {"i_structure_UTF-8_BOM_empty_object"}


def json_documents():
    """The texts by their names. npm installs them once into the cache."""
    folder = CACHE / f"{PACKAGE}-{VERSION}"
    module = folder / "node_modules" / PACKAGE / "data/parsing.js"
    if not module.exists():
        folder.mkdir(parents=True, exist_ok=True)
        done = subprocess.run(["npm", "install", "--prefix", folder, "--ignore-scripts", "--no-audit",
                               "--no-fund", "--loglevel=error", "--fetch-retries=1", f"{PACKAGE}@{VERSION}"],
                              capture_output=True, text=True, check=False)
        if done.returncode:
            raise unittest.SkipTest(f"npm cannot install {PACKAGE}: {' '.join(done.stderr.split())[:300]}")
    tell = "import(process.argv[1]).then(data => process.stdout.write(JSON.stringify(data.default)))"
    done = subprocess.run(["node", "-e", tell, module.as_uri()], stdout=subprocess.PIPE, check=True)
    return {document["name"].removesuffix(".json"): document["input"] for document in json.loads(done.stdout)}


def rewritten(document):
    """In our layout; None if it is refused."""
    done = subprocess.run([BUILD / "tests/published_suites/rewrite_json"], input=document,
                          stdout=subprocess.PIPE, check=False)
    if done.returncode not in (0, 1):
        raise AssertionError(f"left with {done.returncode}")
    return done.stdout if done.returncode == 0 else None


def read_json(text):
    """As Python reads it, with members in their order, repeated ones too, and numbers as they are spelled."""
    return json.loads(text, object_pairs_hook=tuple, parse_int=lambda text: ("number", text),
                      parse_float=lambda text: ("number", text))


class JSONTestSuite(unittest.TestCase):
    def test_accepts_what_is_json_and_loses_nothing(self):
        documents = json_documents()
        # The package holds them as text, in which bytes that are no UTF-8 are lost.
        whole = {name: text for name, text in documents.items() if "\ufffd" not in text}
        accepted = set()
        for name, text in whole.items():
            with self.subTest(name):
                once = rewritten(text.encode())
                if once is None:
                    continue
                accepted.add(name)
                self.assertEqual(rewritten(once), once)
                if name.startswith(("y_", "i_number_", "i_structure_")):
                    self.assertEqual(read_json(once), read_json(text))

        expected = {start + end for start, ends in ACCEPTED_ALL_THE_SAME.items() for end in ends.split()}
        self.assertEqual({name for name in accepted if name.startswith("n_")}, expected)
        self.assertEqual({name for name in whole.keys() - accepted if not name.startswith("n_")},
                         REFUSED_ALTHOUGH_OPEN)


def read_toml(content):
    """None for what Python does not take. As text, for a NaN is not equal to itself."""
    try:
        settings = tomllib.loads(content.decode().removeprefix("\ufeff"))
    except ValueError:
        return None
    return {key: repr(value) for key, value in settings.items()}


class TomlTest(unittest.TestCase):
    def check(self, content, home):
        file = pathlib.Path(home, ".codex/config.toml")
        file.parent.mkdir()
        file.write_bytes(content)

        def act(*actions):
            """What the driver says and what the file holds then."""
            done = subprocess.run([BUILD / "tests/hooks/hook_driver", "codex", HELPER, *actions],
                                  env={"HOME": home}, stdout=subprocess.PIPE, check=False)
            self.assertIn(done.returncode, (0, 1))
            return done.stdout.decode().splitlines(), file.read_bytes()

        try:
            content.decode()
        except ValueError:
            sentence = f"error: Could not read {file}: The file is not valid UTF-8."
            self.assertEqual(act("install", "uninstall"), ([sentence] * 2, content))
            self.assertEqual(list(file.parent.iterdir()), [file])
            return
        said, once = act("install", "status")
        self.assertEqual(said, ["ok", "installed"])
        settings = read_toml(content)
        if settings is not None:
            self.assertEqual(read_toml(once), settings | {"notify": repr([HELPER, "codex-notify"])})
        self.assertEqual(act("install"), (["ok"], once))
        closed = content if content.endswith(b"\n") or not content else content + b"\n"
        self.assertEqual(act("uninstall", "status"), (["ok", "not installed"], closed))

    def test_only_the_line_of_ours_comes_and_goes(self):
        if not TOML_TEST.is_dir():
            self.skipTest("golang-github-burntsushi-toml-dev is not installed")
        valid, invalid = (sorted(TOML_TEST.glob(f"{kind}/**/*.toml")) for kind in ("valid", "invalid"))
        self.assertTrue(len(valid) >= 100 and len(invalid) >= 200, (len(valid), len(invalid)))
        for file in valid + invalid:
            # Where nothing has to wait for a disk.
            place = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
            with self.subTest(file.relative_to(TOML_TEST)), tempfile.TemporaryDirectory(dir=place) as home:
                self.check(file.read_bytes(), home)


def main():
    global BUILD, CACHE
    BUILD, CACHE = (pathlib.Path(path).absolute() for path in sys.argv[1:3])
    result = unittest.main(argv=sys.argv[:1] + sys.argv[3:], exit=False).result
    for _, reason in result.skipped:
        print(f"SKIP: {reason}")
    return 1 if not result.wasSuccessful() else 77 if result.skipped else 0


if __name__ == "__main__":
    sys.exit(main())
