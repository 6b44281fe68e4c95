# SPDX-License-Identifier: MIT
"""fault_sweep.py HOOK_DRIVER: interrupts the installers at every system call they make.

Each call of each action is, one after the other, the one at which the process is killed, the one that fails (once,
or together with all later ones of its name), and the one after which an agent rewrites its file. Afterwards the
file is wholly old or wholly new, with its mode and attributes; the exit status says which; every backup is whole;
nothing else is left behind unless the process died; and what the agent wrote last is in the file."""
import collections
import concurrent.futures
import dataclasses
import json
import os
import pathlib
import re
import shutil
import signal
import stat
import subprocess
import sys
import tempfile
import time

HELPER = "/opt/chimewell/chimewell-hook"
OLD_BACKUP = ".chimewell-backup-2024-02-03T04-05-06Z"
BACKUP = re.compile(r"\.chimewell-backup-[0-9T-]+Z$")
LITTER = ".chimewell-"
MESSAGE = re.compile(r"error: Could not (read|write|create backup|restore from backup)\b.*: \S")

# Calls of the allocator: a process whose memory is refused may die of it, like one that is killed.
MEMORY = {"brk", "mmap", "munmap", "mremap", "mprotect"}
# How the new file takes the place of the old one.
SWAP = ("renameat2", 1)
# The end of the process, which nothing can fail.
END = {"exit", "exit_group"}


@dataclasses.dataclass(frozen=True)
class Entry:
    """What stands at a path, as far as anybody can tell."""
    mode: int
    content: bytes
    note: bytes = b""

    @staticmethod
    def at(path):
        status = os.lstat(path)
        if stat.S_ISLNK(status.st_mode):
            return Entry(status.st_mode, os.readlink(path).encode())
        if stat.S_ISDIR(status.st_mode):
            return Entry(status.st_mode, b"")
        try:
            note = os.getxattr(path, "user.note")
        except OSError:
            note = b""
        return Entry(status.st_mode, pathlib.Path(path).read_bytes(), note)


def tree(home):
    return {str(path.relative_to(home)): Entry.at(path) for path in sorted(home.rglob("*"))}


def write(path, text, mode):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)
    path.chmod(mode)
    try:
        os.setxattr(path, "user.note", b"kept")
    except OSError:
        pass  # a file system without attributes


# The ways in which an agent writes its file, each as two steps. The program goes on between them, unless the first
# one has to wait for it.

def by_renaming(file, text):
    beside = file.with_name("agent.tmp")
    beside.write_text(text)
    beside.rename(file)
    yield


def at_once(file, text):
    file.write_text(text)
    yield


def in_pieces(file, text, empty_first=True):
    with open(file, "r+b", buffering=0) as opened:
        if empty_first:
            opened.truncate(0)
        yield
        opened.truncate(0)
        for piece in (text[:len(text) // 2], text[len(text) // 2:]):
            time.sleep(0.002)  # an agent's own pace: whatever it is, nothing may be lost
            opened.write(piece.encode())


def in_pieces_emptied_late(file, text):
    return in_pieces(file, text, empty_first=False)


class Scenario:
    def __init__(self, driver, provider, action, file, prepare):
        self._driver, self._provider, self.action, self.file, self._prepare = driver, provider, action, file, prepare
        self.name = f"{provider} {action}"

    def command(self, *actions):
        return [self._driver, self._provider, HELPER, *(actions or [self.action])]

    @staticmethod
    def environment(home):
        return {"HOME": str(home), "LC_ALL": "C.UTF-8", "ASAN_OPTIONS": "detect_leaks=0"}

    def home(self, parent):
        home = pathlib.Path(tempfile.mkdtemp(dir=parent))
        self._prepare(self, home)
        return home

    def run(self, home, *, strace=(), actions=()):
        return subprocess.run([*strace, *self.command(*actions)], env=self.environment(home), timeout=60,
                              capture_output=True, text=True, check=False)

    def calls(self, home, *actions):
        """The names of the system calls, in their order."""
        log = home.parent / f"{home.name}.calls"
        self.run(home, strace=["strace", "-f", "-o", log], actions=actions)
        return re.findall(r"^\d+ +(\w+)\(", log.read_text(), re.M)


def claude_settings(*, hooks=False):
    text = '{\n  "model": "opus",\n  "n": 1.50'
    if hooks:
        command = json.dumps(f'"{HELPER}" claude finished')
        text += f',\n  "hooks": {{"Stop": [{{"hooks": [{{"type": "command", "command": {command}}}]}}]}}'
    return text + "\n}\n"


def behind_a_link(content):
    """The file that the agent reads is a link into a folder of dotfiles."""
    def prepare(scenario, home):
        write(home / "dotfiles/settings", content, 0o640)
        (home / scenario.file).parent.mkdir()
        (home / scenario.file).symlink_to("../dotfiles/settings")
    return prepare


def plain(content, mode=0o600, backup=None):
    def prepare(scenario, home):
        if content is not None:
            write(home / scenario.file, content, mode)
        if backup is not None:
            write(home / (scenario.file + OLD_BACKUP), backup, 0o600)
    return prepare


def scenarios(driver):
    claude, codex, cursor = ".claude/settings.json", ".codex/config.toml", ".cursor/hooks.json"
    notify = f'notify = ["{HELPER}", "codex-notify"]\n'
    old = '{"version": 1, "hooks": {"stop": [{"command": "/old/chimewell-hook"}, {"command": "mine"}]}}'
    return [Scenario(driver, *arguments) for arguments in (
        ("claude", "install", claude, behind_a_link(claude_settings())),
        ("claude", "uninstall", claude, behind_a_link(claude_settings(hooks=True))),
        ("claude", "restore", claude, plain(claude_settings(hooks=True), 0o444, backup=claude_settings())),
        ("codex", "install", codex, plain("# mine\nmodel = 'x'\n")),
        ("codex", "uninstall", codex, plain(notify + "model = 'x'\n", 0o644)),
        ("codex", "restore", codex, plain(None, backup="model = 'x'\n")),
        ("cursor", "install", cursor, lambda scenario, home: None),
        ("cursor", "install", cursor, plain(old)),
        ("cursor", "uninstall", cursor, plain(old)),
        ("cursor", "restore", cursor, plain(old, backup="{}\n")),
    )]


@dataclasses.dataclass(frozen=True)
class Point:
    """One call, by its name and number, and what becomes of it."""
    call: str
    number: int
    fault: str

    @property
    def option(self):
        if self.fault == "kill":
            return f"{self.call}:signal=SIGKILL:when={self.number}"
        error, later = (self.fault[:-1], "+") if self.fault.endswith("+") else (self.fault, "")
        return f"{self.call}:error={error}:when={self.number}{later}"


class Sweep:
    def __init__(self, scenario, scratch):
        self._scenario, self._scratch = scenario, scratch
        home = scenario.home(scratch)
        self._target = str((home / scenario.file).resolve().relative_to(home.resolve()))
        self._before = tree(home)
        start = collections.Counter(scenario.calls(home, "nothing"))
        self._calls, counts = [], collections.Counter()
        for call in scenario.calls(home):
            counts[call] += 1
            if counts[call] > start[call] and call not in END:
                self._calls.append((call, counts[call]))
        self._after = tree(home)
        before, after = self._before.get(self._target), self._after[self._target]
        assert after != before, f"{scenario.name} did nothing"
        assert not before or (after.mode, after.note) == (before.mode, before.note), f"{scenario.name}: {after}"

    def points(self):
        for call, number in self._calls:
            faults = ["kill", "ENOMEM"] if call in MEMORY else ["kill", "EIO", "EIO+", "ENOSPC", "EACCES", "EINTR"]
            for fault in faults:
                yield Point(call, number, fault)
            if call == SWAP[0]:
                yield Point(call, number, "EINVAL")  # what a file system says that cannot swap

    def rewrites(self):
        """Where the agent may write, once or more. Restoring drops what was written since the backup: that is
        what it is for."""
        if self._scenario.action == "restore" or self._target not in self._before:
            return []
        swap = self._calls.index(SWAP)
        return [[call] for call in self._calls] + [[self._calls[swap - 1], self._calls[swap]]]

    def rewrites_without_swap(self):
        """The same on a file system that cannot swap, as far as anything can then be noticed."""
        if not self.rewrites():
            return []
        before = self._calls[:self._calls.index(SWAP)]
        last_look = max(place for place, (call, _) in enumerate(before) if call == "openat")
        return [[call] for call in before[:last_look]]

    # The faults

    def check(self, point):
        """What is wrong after the fault; nothing if all is well."""
        home = self._scenario.home(self._scratch)
        log = home.parent / f"{home.name}.log"
        done = self._scenario.run(home, strace=["strace", "-f", "-o", log, "-e", f"trace={point.call}",
                                                "-e", f"inject={point.option}"])
        found = tree(home)
        wrong = list(self._wrong(point, done, found))
        if "INJECTED" not in log.read_text() and point.fault != "kill":
            wrong.append("the call was not reached")
        if point.fault == "kill":
            if done.returncode != -signal.SIGKILL:
                wrong.append(f"it was not killed: {done.returncode}")
            again = self._scenario.run(home)
            if again.returncode or self._state(tree(home)) != "new":
                wrong.append(f"the same once more: {again.returncode} {again.stdout}")
        shutil.rmtree(home)
        return [f"{self._scenario.name}, {point.option}: {fault}" for fault in wrong]

    def _state(self, found):
        entry = found.get(self._target)
        if entry == self._after[self._target]:
            return "new"
        return "old" if entry == self._before.get(self._target) else "torn"

    def _wrong(self, point, done, found):
        state = self._state(found)
        died = done.returncode < 0
        if state == "torn":
            yield f"the file is neither old nor new: {found.get(self._target)}"
        if died and point.fault != "kill" and point.call not in MEMORY:
            yield f"it died: {done.returncode}"
        if not died:
            says = "new" if done.returncode == 0 else "old"
            if state != says:
                yield f"the file is {state}, and the status {done.returncode}: {done.stdout}"
            silenced = point.call == "write" and not done.stdout
            if done.returncode and not silenced and not MESSAGE.match(done.stdout):
                yield f"it says {done.stdout!r}"
        # Flushes come in pairs: a file's, without which it must not be used, and its folder's, when all is done.
        if point.call == "fsync" and point.number % 2 and point.fault == "EIO" and not done.returncode:
            yield "nobody minds that the content never reached the disk"
        for path, entry in found.items():
            before = self._before.get(path)
            if path == self._target or entry == before:
                continue
            if BACKUP.search(path):
                original = self._before[self._target]
                if (entry.content, entry.mode) != (original.content, original.mode):
                    yield f"the backup {path} is {entry}"
            elif pathlib.Path(path).name.startswith(LITTER):
                # A file that cannot be removed stays.
                if not died and point.call != "unlinkat" and pathlib.Path(path).name not in done.stdout:
                    yield f"it left {path}"
                if entry.mode & 0o077 & ~self._before[self._target].mode if self._target in self._before \
                        else entry.mode & 0o077:
                    yield f"{path} is readable by others: {entry.mode:o}"
            elif before is not None or not stat.S_ISDIR(entry.mode):
                yield f"{path} was {before} and is {entry}"
        for path in self._before.keys() - found.keys() - {self._target}:
            yield f"{path} is gone"

    # The agent

    def check_rewrite(self, stops, writes, *more):
        """At each of the calls given the process is stopped, and the agent writes another text."""
        home = self._scenario.home(self._scratch)
        file = home / self._target
        process = StoppedProcess(self._scenario.command(), self._scenario.environment(home), stops, more)
        text = None
        for number in range(len(stops)):
            if not process.wait_until_stopped():
                return [f"{self._scenario.name}, {stops}: it did not stop"]
            committed = file.exists() and Entry.at(file) == self._after[self._target]
            text = self._agents_text(number)
            steps = writes(file, text)
            waits = writes is not by_renaming and is_held_off(file)
            if waits:
                process.go_on()
            next(steps)
            if not waits:
                process.go_on()
            next(steps, None)
        status = process.wait()
        found = file.read_text()
        shutil.rmtree(home)
        # Written behind our last look, the agent's text stays as it is; before, it is what the change is made on. An
        # agent that had to wait may come first or last.
        if committed and len(stops) == 1:
            kept = found == text
        else:
            kept = self._is_changed(found, text) or (waits and found == text)
        # An agent that took very long was not waited for.
        if status == 0 and kept or status == 1 and found == text and writes not in (by_renaming, at_once):
            return []
        return [f"{self._scenario.name}, the agent writes {writes.__name__} after {stops}: {status}, {found!r}"]

    def _agents_text(self, number):
        """As much an agent's file as the first one, with the same entries of ours in it, if any."""
        before = self._before[self._target].content.decode()
        if self._scenario.file.endswith(".toml"):
            return before + f"by_agent = {number}\n"
        return json.dumps({**json.loads(before), "by agent": number})

    def _is_changed(self, found, text):
        if self._scenario.file.endswith(".toml"):
            return sorted(found.splitlines()) != sorted(text.splitlines()) and text.splitlines()[-1] in found
        found, text = json.loads(found), json.loads(text)
        without = lambda settings: {key: value for key, value in settings.items() if key != "hooks"}
        return without(found) == without(text) and found.get("hooks") != text.get("hooks")


def is_held_off(file):
    """Whether who writes into the file has to wait."""
    try:
        os.close(os.open(file, os.O_WRONLY | os.O_NONBLOCK))
    except BlockingIOError:
        return True
    return False


class StoppedProcess:
    """A process that stops after the calls given, one after the other."""

    def __init__(self, command, environment, stops, more):
        options = [option for call, number in stops
                   for option in ("-e", f"inject={call}:signal=SIGSTOP:when={number}")] + list(more)
        names = ",".join({SWAP[0], *(call for call, _ in stops)})
        # -D: the process itself is our child, and strace its other parent.
        self._process = subprocess.Popen(["strace", "-D", "-f", "-e", f"trace={names}", *options, *command],
                                         env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)

    def wait_until_stopped(self):
        return any("--- stopped by SIGSTOP ---" in line for line in self._process.stderr)

    def go_on(self):
        os.kill(self._process.pid, signal.SIGCONT)

    def wait(self):
        self._process.stderr.read()
        return self._process.wait(60)


def main():
    begin = time.monotonic()
    points = rewrites = 0
    with tempfile.TemporaryDirectory(prefix="chimewell-sweep.") as scratch, \
            concurrent.futures.ThreadPoolExecutor(os.cpu_count() + 1) as pool:
        scratch = pathlib.Path(scratch).resolve()
        checks = []
        for scenario in scenarios(sys.argv[1]):
            sweep = Sweep(scenario, scratch)
            at = list(sweep.points())
            points += len(at)
            checks += [pool.submit(sweep.check, point) for point in at]
            agents = [pool.submit(sweep.check_rewrite, stops, writes) for stops in sweep.rewrites()
                      for writes in (by_renaming, at_once, in_pieces, in_pieces_emptied_late)]
            agents += [pool.submit(sweep.check_rewrite, stops, by_renaming, "-e", f"inject={SWAP[0]}:error=EINVAL")
                       for stops in sweep.rewrites_without_swap()]
            rewrites += len(agents)
            checks += agents
        problems = [problem for check in checks for problem in check.result()]
    for problem in problems:
        print(problem)
    lost = f"{len(problems)} PROBLEMS" if problems else "no byte lost"
    print(f"{points} faults and {rewrites} rewrites by the agent: {lost} ({time.monotonic() - begin:.0f} s)")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
