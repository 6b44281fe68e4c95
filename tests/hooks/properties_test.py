# SPDX-License-Identifier: MIT
"""properties_test.py HOOK_DRIVER: what the installers keep and what they write, on generated files and helper
paths, as Python's own readers and real shells see it.

A failure tells its seed and case; CHIMEWELL_TEST_SEED sets another seed."""
import collections
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import tomllib
import unittest

DRIVER = ""
SEED = int(os.environ.get("CHIMEWELL_TEST_SEED", "1"))
HELPER = "/opt/my tools/chimewell-hook"
FILES = {"claude": ".claude/settings.json", "cursor": ".cursor/hooks.json", "codex": ".codex/config.toml"}
EVENTS = {"claude": {"Stop": "finished", "Notification": "waiting_input", "SubagentStop": "subagent_finished",
                     "UserPromptSubmit": "user_acted", "PostToolUse": "user_acted"},
          "cursor": {"stop": "finished", "subagentStop": "subagent_finished"}}
BROKEN = "is not valid JSON. Refusing to modify it"
TAKEN = "Codex supports only a single `notify` program"
BOM = "\ufeff"


class Home:
    """A home folder with one agent's file in it, or none yet."""
    def __init__(self, folder, agent):
        self.folder, self._agent = pathlib.Path(folder), agent
        self._file = self.folder / FILES[agent]

    def write(self, content):
        self._file.parent.mkdir(exist_ok=True)
        self._file.write_bytes(content)

    def read(self):
        return self._file.read_bytes() if self._file.exists() else None

    def act(self, *actions, helper=HELPER):
        """What the driver says to the actions, one after another."""
        done = subprocess.run([DRIVER, self._agent, helper, *actions], env={"HOME": str(self.folder)},
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        said = done.stdout.decode(errors="replace").splitlines()
        if done.returncode not in (0, 1): # a signal, a sanitizer
            raise AssertionError(f"{actions} left with {done.returncode}: {said}")
        return said

    def everything(self):
        return {file: file.read_bytes() if file.is_file() else None for file in self.folder.rglob("*")}

    def backups(self):
        return [file.read_bytes() for file in self._file.parent.iterdir() if file != self._file]


class Properties(unittest.TestCase):
    def each(self, agent, count, check, place=None):
        """Calls `check(rng, home)` for each case, until the first that fails."""
        for case in range(count):
            with tempfile.TemporaryDirectory(dir=place) as folder:
                home = Home(folder, agent)
                try:
                    check(random.Random(f"{SEED} {agent} {case}"), home)
                except Exception as fault:
                    fault.add_note(f"{agent}, seed {SEED}, case {case}; the file now: {home.read()}")
                    raise

    def each_file(self, agent, count, check):
        # Where nothing has to wait for a disk.
        self.each(agent, count, check, "/dev/shm" if os.access("/dev/shm", os.W_OK) else None)

    def assert_refused(self, home, message, *actions, helper=HELPER):
        before = home.everything()
        said = home.act(*actions, helper=helper)
        self.assertEqual([message if message in line else line for line in said], [message] * len(actions))
        self.assertEqual(home.everything(), before)

    def assert_unchanged_by_uninstall(self, home):
        before = home.everything()
        self.assertEqual(home.act("status", "uninstall"), ["not installed", "ok"])
        self.assertEqual(home.everything(), before)

    def installed(self, home, helper=HELPER):
        """The file after an install, which a second one does not change."""
        before = home.read()
        self.assertEqual(home.act("install", "status", "changes-by-install", helper=helper),
                         ["ok", "installed"])
        self.assertEqual(home.backups(), [before])
        once = home.read()
        self.assertEqual(home.act("install", helper=helper), ["ok"])
        self.assertEqual(home.read(), once)
        return once.decode()

    def uninstalled(self, home):
        self.assertEqual(home.act("status", "uninstall", "status", "changes-by-uninstall"),
                         ["installed", "ok", "not installed"])
        return home.read().decode()


class Maker:
    def __init__(self, rng):
        self._rng = rng

    def _any(self, *choices):
        return self._rng.choice(choices)

    def _some(self, most, make):
        return [make() for _ in range(self._rng.randint(0, most))]

    def _likely(self, chance):
        return self._rng.random() < chance


# JSON as Python reads it: an object is a tuple of pairs, so that order and repeated keys are seen, and a
# number is its text.

Number = collections.namedtuple("Number", "text")


def read_json(text):
    return json.loads(text, strict=False, object_pairs_hook=tuple, parse_int=Number, parse_float=Number)


def is_object(value):
    return isinstance(value, tuple) and not isinstance(value, Number)


def last(members, key, default=None):
    return next((value for name, value in reversed(members) if name == key), default)


def spell_character(character, rng):
    plain = json.dumps(character, ensure_ascii=False)[1:-1]
    if not rng or rng.random() < 0.5:
        return plain
    units = character.encode("utf-16-be")
    escaped = "".join(f"\\u{high:02x}{low:02X}" for high, low in zip(units[::2], units[1::2]))
    # Control characters may stand as they are.
    return rng.choice((escaped, "\\/" if character == "/" else character if character < " " else plain))


def spell(value, rng=None, level=0):
    """The text of a value in our layout or, given random numbers, in any."""
    def gap(ours):
        return "".join(rng.choices(" \t\r\n", k=rng.choice((0, 0, 1, 3)))) if rng else ours
    if isinstance(value, Number):
        return value.text
    if isinstance(value, str):
        return '"' + "".join(spell_character(character, rng) for character in value) + '"'
    if not isinstance(value, (tuple, list)):
        return json.dumps(value)
    start, end = "{}" if is_object(value) else "[]"
    if not value:
        return start + gap("") + end
    line = "\n" + "  " * level
    parts = (spell(part[0], rng) + gap("") + ":" + gap(" ") + spell(part[1], rng, level + 1)
             if is_object(value) else spell(part, rng, level + 1) for part in value)
    return start + ",".join(gap(line + "  ") + part + gap("") for part in parts) + gap(line) + end


class Settings(Maker):
    """Makes an agent's JSON file, sometimes with entries of ours, sometimes with odd types in odd places."""
    def __init__(self, rng, agent):
        super().__init__(rng)
        self._agent = agent
        self._ours, self._odd = self._any(0, 0, 0.3), self._any(0, 0, 0.2)

    def file(self):
        members = self._some(3, lambda: (self._any("model", "env", self._text()), self._value()))
        members += [("hooks", self._or_odd(self._hooks())) for _ in range(self._any(0, 1, 1, 1, 1, 2))]
        members += self._some(1, lambda: ("version", self._any(Number("1"), Number("2"), "x")))
        self._rng.shuffle(members)
        return self._or_odd(tuple(members))

    def _hooks(self):
        def event():
            return self._any(*EVENTS[self._agent], "PreToolUse", ""), self._or_odd(self._some(3, self._entry))
        return tuple(self._some(4, event))

    def _entry(self):
        if self._agent == "cursor":
            return self._hook()
        return self._or_odd(self._members(("matcher", self._text()), ("hooks", self._some(2, self._hook))))

    def _hook(self):
        ours = self._any("chimewell-hook", f'"/old {self._text()}/chimewell-hook" claude done')
        command = ours if self._likely(self._ours) else f"chimewell_hook {self._text()}"
        return self._or_odd(self._members(("type", "command"), ("command", command)))

    def _members(self, *members):
        members = [*members, *self._some(1, lambda: (self._text() + "+", self._value()))]
        self._rng.shuffle(members)
        return tuple((key, self._or_odd(value)) for key, value in members)

    def _or_odd(self, value):
        odd = self._any(self._value(), "chimewell-hook", ["chimewell-hook"], (("x", "chimewell-hook"),))
        return odd if self._likely(self._odd) else value

    def _text(self):
        return "".join(self._some(7, lambda: self._any(*'ab "\\/\b\f\n\r\t\x01\x1f\x7f$é\u2028\ud7ff€😀')))

    def _value(self, depth=3):
        kind = self._any("array", "object", "", "") if depth else ""
        parts = self._some(3, lambda: self._value(depth - 1)) if kind else ()
        if kind == "array":
            return parts
        if kind == "object":
            return tuple((self._any("a", "hooks", "", self._text()), part) for part in parts)
        number = Number(self._any("0", "-0", "1.50", "1e5", "1E+05", "-7.0e-3", "9" * 40))
        return self._any(self._text(), number, number, True, False, None)


def is_ours(agent, entry):
    lists = ([[entry]] if agent == "cursor" else
             [value for key, value in entry if key == "hooks"] if is_object(entry) else [])
    return any(key == "command" and isinstance(value, str) and "chimewell-hook" in value
               for hooks in lists if isinstance(hooks, list)
               for hook in hooks if is_object(hook)
               for key, value in hook)


def others(agent, entries):
    return [entry for entry in entries if not is_ours(agent, entry)] if isinstance(entries, list) else entries


def after_install(agent, settings):
    """None where they have to be refused. Of repeated keys, an agent reads the last."""
    def put(members, key, value):
        at = max((at for at, member in enumerate(members) if member[0] == key), default=len(members))
        return (*members[:at], (key, value), *members[at + 1:])
    hooks = last(settings, "hooks", ())
    if not is_object(hooks):
        return None
    for event, told in EVENTS[agent].items():
        entries = others(agent, last(hooks, event, []))
        if not isinstance(entries, list):
            return None
        command = ("command", f'"{HELPER}" {agent} {told}')
        group = (("matcher", ""), ("hooks", [(("type", "command"), command)]))
        hooks = put(hooks, event, [*entries, (command,) if agent == "cursor" else group])
    if agent == "cursor" and last(settings, "version") is None:
        settings = put(settings, "version", Number("1"))
    return put(settings, "hooks", hooks)


def after_uninstall(agent, settings):
    """Nothing of ours is left, nor what it leaves empty (but Cursor's "hooks")."""
    members = []
    for key, value in settings:
        if key == "hooks" and is_object(value):
            kept = tuple((event, others(agent, entries)) for event, entries in value
                         if entries == [] or others(agent, entries) != [])
            if agent == "claude" and value and not kept:
                continue
            value = kept
        members.append((key, value))
    return tuple(members)


def comes_back(agent, settings):
    """Whether install and uninstall give back what can be installed into: none of ours were there before, and
    nothing was empty that they fill and take with them."""
    hooks = last(settings, "hooks")
    if settings != after_uninstall(agent, settings):
        return False
    if [] in [last(hooks or (), event) for event in EVENTS[agent]]:
        return False
    return hooks != () if agent == "claude" else hooks is not None and last(settings, "version") is not None


class JSONAgents(Properties):
    def check_case(self, agent, rng, home, met):
        settings = Settings(rng, agent).file()
        in_our_layout = rng.random() < 0.5
        text = spell(settings) + "\n" if in_our_layout else spell(settings, rng)
        self.assertEqual(read_json(text), settings)
        home.write(text.encode())
        if not is_object(settings) or rng.random() < 0.02:
            home.write(text.rstrip()[:-1].encode()) # its end is missing
            self.assert_refused(home, BROKEN, "install", "uninstall", "status")
            return
        before, after = settings, after_install(agent, settings)
        if after is None:
            met["refused"] += 1
            self.assert_refused(home, BROKEN, "install")
        elif rng.random() < 0.8:
            self.assertEqual(self.installed(home), spell(after) + "\n")
            settings = after
        after = after_uninstall(agent, settings)
        if after == settings:
            self.assert_unchanged_by_uninstall(home)
            return
        if not in_our_layout or not comes_back(agent, before):
            text = spell(after) + "\n"
        else:
            met["comes back"] += 1
        self.assertEqual(self.uninstalled(home), text)

    def check_agent(self, agent):
        met = collections.Counter()
        self.each_file(agent, 200, lambda rng, home: self.check_case(agent, rng, home, met))
        self.assertTrue(met["refused"] and met["comes back"], met)

    def test_claude(self):
        self.check_agent("claude")

    def test_cursor(self):
        self.check_agent("cursor")


class Toml(Maker):
    """Makes a valid file and knows its pieces: `head`, the statement that sets `notify` at the top level, if
    there is one, and `tail`. `kind` tells whose that is: "none", "ours", "foreign" or "table"."""
    OURS = ('["/old/chimewell-hook", "codex-notify"]', '"chimewell-hook"', "[ '/a b/chimewell-hook' , ]",
            '[\n  "/old/chimewell-hook", # ] "\n\n  "codex-notify",\n]', '["""\n/old"]\n/chimewell-hook"""]')
    FOREIGN = ('["other"]', '"prog"', "[]", '[ # it\n  "notify-send",\n]', "{ a = 1 }", "5", "'''\nx'''")
    KEYS = ("notify", '"notify"', "'notify'", r'"\u006eotify"', r'"notif\U00000079"')
    TABLES = ("{}.program = 'x'\n", ' {}\t. "a b" = 1\n', "{}.x.y = []\n", "[{}]\n", "[[{}]]\nx = 1\n",
              "[ {} . sub ]\n", "\t[{}] # y\n")

    def __init__(self, rng):
        super().__init__(rng)
        self._count = 0
        self.kind = self._any("none", "none", "none", "ours", "ours", "foreign", "table")
        top, tables = self._some(4, self._statement), self._some(3, self._table)
        at, notify = 0, ""
        if self.kind == "table":
            statement = self._any(*self.TABLES).format(self._any(*self.KEYS))
            place = tables if "[" in statement.split("=")[0] else top
            place.insert(rng.randint(0, len(place)), statement)
        elif self.kind != "none":
            # Only the plain forms of the key are taken for ours.
            keys, values = (self.KEYS[:3], self.OURS) if self.kind == "ours" else (self.KEYS, self.FOREIGN)
            at, notify = rng.randint(0, len(top)), self._line(self._any(*keys), self._any(*values))
        pieces = ["".join(top[:at]), notify, "".join(top[at:] + tables)]
        if self._likely(0.2):
            pieces = [*pieces[:2], pieces[2][:-1]] if pieces[2] else [pieces[0], pieces[1][:-1], ""]
        if self._likely(0.3):
            pieces = [piece.replace("\n", "\r\n") for piece in pieces]
        if self._likely(0.2):
            pieces[0] = BOM + pieces[0]
        self.head, self.notify, self.tail = pieces

    def _line(self, key, value):
        blanks = ["".join(self._some(2, lambda: self._any(" ", "\t"))) for _ in range(3)]
        comment = self._any("", "", "", ' # "', " # '''", ' #notify = [ """')
        return f"{blanks[0]}{key}{blanks[1]}={blanks[2]}{value}{comment}\n"

    def _statement(self):
        self._count += 1
        above = self._any("", "", "\n", "# notify = ['x']\n", '  # [table] """\n', "#'''\n")
        key = self._any("k{}", '"k{} ["', "'k{} #'", "notify{}", "notify-{}", "k{}.notify", 'k{} . "="',
                        '"notify {}"', "x.k{}", r'"\\\"{}"', '"é{}"')
        return above + self._line(key.format(self._count), self._value())

    def _table(self):
        self._count += 1
        header = self._any("[t{}]", "[[t{}]]", "[ t{} . notify ]", '["t{} ]"] # [', "  [t{}.'[']")
        notify = self._some(1, lambda: self._line(self._any("notify", "notify", "notify.x"),
                                                  self._any(*self.FOREIGN, *self.OURS)))
        return header.format(self._count) + "\n" + "".join(notify + self._some(2, self._statement))

    def _value(self, depth=3):
        def pieces(*choices):
            return self._some(4, lambda: self._any(*choices))
        kind = self._rng.randrange(8 if depth else 5)
        if kind == 0:
            return self._any("1", "0x1F", "1e5", "true", "1979-05-27 07:32:00", "-inf")
        if kind == 1:
            return '"' + "".join(pieces("notify = ['", "[", "#", r"\"", r"\\", r"\u00e9", "€", "''' ")) + '"'
        if kind == 2:
            return "'" + "".join(pieces('notify = ["', "[", "#", "\\", '"""', "😀")) + "'"
        if kind == 3:
            lines = pieces('notify = ["x"]', "[table]", "]", r'\"""', 'a "" b', "'''", r"\\", "\\", "\t}")
            return '"""' + "\n".join([*lines, "  "]) + self._any("", '"', '""', r"\\") + '"""'
        if kind == 4:
            lines = pieces('notify = ["x"]', "[table]", "[", '"""', "it''s", "\\", "{", "# 'notify")
            return "'''" + "\n".join([*lines, ""]) + self._any("", "'", "''", "\\") + "'''"
        parts = self._some(3, lambda: self._value(depth - 1))
        if kind == 5:
            keys = ("notify", "'a ]'", '"b = {"')
            return "{ " + ", ".join(f"{key} = {part}" for key, part in zip(keys, parts)) + " }"
        gap = "".join(pieces("", " ", "\n", ' # ] """ notify = 1\n'))
        return "[" + gap + "".join(part + gap + "," + gap for part in parts) + "]"


def read_toml(text):
    return tomllib.loads(text.removeprefix(BOM))


class Codex(Properties):
    def check_case(self, rng, home):
        toml = Toml(rng)
        text = toml.head + toml.notify + toml.tail
        settings = read_toml(text)
        helper = f"/opt/{odd_name(rng)}/chimewell-hook"
        home.write(text.encode())
        if toml.kind in ("foreign", "table"):
            self.assert_refused(home, TAKEN, "install", helper=helper)
            self.assert_unchanged_by_uninstall(home)
            return
        text = toml.head + toml.tail
        if toml.kind == "none" or rng.random() < 0.8:
            once = self.installed(home, helper)
            ours = {"notify": [helper, "codex-notify"]}
            self.assertEqual(read_toml(once), {**settings, **ours})
            # Not a byte is another but those of our line and a last line feed.
            text += "" if text.endswith("\n") or text in ("", BOM) else "\n"
            head = toml.head if toml.notify else BOM * text.startswith(BOM)
            tail = text[len(head):]
            self.assertEqual((once[:len(head)], once[len(once) - len(tail):]), (head, tail))
            line = once[len(head):len(once) - len(tail)]
            self.assertEqual((line.count("\n"), line[-1], read_toml(line)), (1, "\n", ours))
        self.assertEqual(self.uninstalled(home), text)

    def test_codex(self):
        self.each_file("codex", 400, self.check_case)


def odd_name(rng):
    pieces = (" ", '"', "'", "$", "`", "\\", "é", "😀", "$(touch y)", "`touch y`", "!", "*", "~", ";touch y;",
              "&", "\t", "%", "$HOME", "${IFS}", "\x01", "\x7f", "#", "]")
    return "x" + "".join(rng.choices(pieces, k=5))


class Helpers(Properties):
    def check_case(self, rng, home):
        helper = home.folder / odd_name(rng) / "chimewell-hook"
        helper.parent.mkdir()
        helper.write_text('#!/bin/sh\nprintf "%s\\0" "$0" "$@" >"$RECORD"\n', encoding="ascii")
        helper.chmod(0o700)
        record = home.folder / "record"
        homes = {agent: Home(home.folder, agent) for agent in FILES}
        for each in homes.values():
            self.assertEqual(each.act("install", helper=str(helper)), ["ok"])

        def run(*command):
            subprocess.run(command, cwd=home.folder, env={**os.environ, "RECORD": str(record)}, check=True)
            self.assertEqual({file.name for file in home.folder.iterdir()},
                             {"record", helper.parent.name, ".claude", ".cursor", ".codex"})
            told = record.read_text(encoding="utf-8").split("\0")
            record.unlink()
            return told[:-1]

        for agent, events in EVENTS.items():
            hooks = json.loads(homes[agent].read())["hooks"]
            for event, told in events.items():
                entry = hooks[event][0]
                command = (entry if agent == "cursor" else entry["hooks"][0])["command"]
                for shell in ("sh", "bash", "dash"):
                    self.assertEqual(run(shell, "-c", command), [str(helper), agent, told])
        notify = read_toml(homes["codex"].read().decode())["notify"]
        self.assertEqual(run(*notify, "{}"), [str(helper), "codex-notify", "{}"])

    def test_every_shell_runs_the_very_helper(self):
        self.each("claude", 20, self.check_case)


if __name__ == "__main__":
    DRIVER = str(pathlib.Path(sys.argv.pop(1)).absolute())
    unittest.main()
