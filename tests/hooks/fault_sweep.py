# SPDX-License-Identifier: MIT
"""fault_sweep.py HOOK_DRIVER: interrupts the installers at every system call they make.

Each call is, one after the other, the one at which the process is killed, the one that fails (once, or together
with all later ones of its name), and the one at which an agent rewrites its file. Afterwards the file is wholly old
or wholly new, with its mode and attributes; the exit status says which; every backup is whole; nothing else is left
behind unless the process died; and what the agent wrote last is in the file."""
import collections
import concurrent.futures
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
OUR_FILES, SPARED = ".chimewell-", ".chimewell-kept-"
MESSAGE = re.compile(r"error: Could not (read|write|create backup|restore from backup)\b.*: \S")

# Calls of the allocator: a process that gets no memory may abort.
MEMORY = {"brk", "mmap", "munmap", "mremap", "mprotect"}
# Calls that change what a killed process leaves behind.
CHANGES = {"openat", "write", "mkdir", "fsetxattr", "fremovexattr", "fchmod", "renameat", "renameat2", "unlinkat"}
# How the new file takes the place of the old one.
SWAP = ("renameat2", 1)

Entry = collections.namedtuple("Entry", "mode content note")
# One call, by its name and number, and what happens to it.
Point = collections.namedtuple("Point", "call number fault")


def tree(home):
    """Every path below `home` with all that an install could change there."""
    found = {}
    for path in home.rglob("*"):
        mode, content, note = path.lstat().st_mode, b"", b""
        if stat.S_ISLNK(mode):
            content = os.readlink(path)
        elif stat.S_ISREG(mode):
            content = path.read_bytes()
            note = b"".join(os.getxattr(path, name) for name in os.listxattr(path) if name == "user.note")
        found[str(path.relative_to(home))] = Entry(mode, content, note)
    return found


def write(path, text, mode=0o600):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)
    path.chmod(mode)
    try:
        os.setxattr(path, "user.note", b"kept")
    except OSError:
        pass  # a file system without attributes


# The ways in which an agent writes its file, each in two steps. The installer continues between them, or before
# the first one if that has to wait for the installer.

def by_renaming(file, text):
    beside = file.with_name("agent.tmp")
    beside.write_text(text)
    beside.rename(file)
    yield


def by_removing(file, _):
    file.unlink()
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
            time.sleep(0.002)  # the agent's own pace: nothing may be lost at any other either
            opened.write(piece.encode())


def in_pieces_emptied_late(file, text):
    return in_pieces(file, text, empty_first=False)


EVERY_WAY = (by_renaming, at_once, in_pieces, in_pieces_emptied_late)


class Sweep:
    """One action on one kind of file, with a fault at each of its calls."""

    def __init__(self, driver, scratch, provider, action, file, prepare, ways=()):
        self._scratch, self._file, self._prepare, self.ways = scratch, file, prepare, ways
        self._action, self._command = action, [driver, provider, HELPER]
        self.name = f"{provider} {action}"
        home = self._home()
        self._target = str((home / file).resolve().relative_to(home))
        self._before = tree(home)
        start = collections.Counter(self._traced(home, "nothing"))
        self._calls, counts = [], collections.Counter()
        for call in self._traced(home, action):
            counts[call] += 1
            if counts[call] > start[call] and call not in ("exit", "exit_group"):
                self._calls.append((call, counts[call]))
        self._after = tree(home)
        before, after = self._before.get(self._target), self._after[self._target]
        assert after != before, f"{self.name} did nothing"
        assert not before or (after.mode, after.note) == (before.mode, before.note), f"{self.name}: {after}"

    def _home(self):
        home = pathlib.Path(tempfile.mkdtemp(dir=self._scratch))
        self._prepare(home)
        return home

    @staticmethod
    def _environment(home):
        return {"HOME": str(home), "LC_ALL": "C.UTF-8"}

    def _run(self, home, *strace, action=None):
        return subprocess.run([*strace, *self._command, action or self._action], env=self._environment(home),
                              timeout=60, capture_output=True, text=True, check=False)

    def _traced(self, home, action):
        log = home.with_suffix(".calls")
        self._run(home, "strace", "-f", "-o", log, action=action)
        return re.findall(r"^\d+ +(\w+)\(", log.read_text(), re.M)

    # Faults

    def points(self):
        changed = True
        for place, (call, number) in enumerate(self._calls):
            if changed:  # otherwise it leaves what it left one call earlier
                yield Point(call, number, "SIGKILL")
            changed = call in CHANGES
            # Which error it is matters less: these two take turns.
            errors = ["ENOMEM"] if call in MEMORY else ["EIO", "EIO+", "EINTR", ("ENOSPC", "EACCES")[place % 2]]
            if call == SWAP[0]:
                errors.append("EINVAL")  # what a file system says that cannot swap
            for error in errors:
                yield Point(call, number, error)

    def check(self, point):
        """What is wrong after the fault; nothing if all is well."""
        home, killed = self._home(), point.fault == "SIGKILL"
        log = home.with_suffix(".log")
        later = "+" if point.fault.endswith("+") else ""
        what = f"signal={point.fault}" if killed else f"error={point.fault.rstrip('+')}"
        # The faster filter does not send signals.
        done = self._run(home, "strace", "-f", *([] if killed else ["--seccomp-bpf"]), "-o", log,
                         "-e", f"trace={point.call}", "-e", f"inject={point.call}:{what}:when={point.number}{later}")
        wrong = list(self._wrong(point, done, tree(home)))
        if killed:
            again = self._run(home)
            if done.returncode != -signal.SIGKILL or again.returncode or self._state(tree(home)) != "new":
                wrong.append(f"killed: {done.returncode}, and the same once more: {again.returncode} {again.stdout}")
        elif "INJECTED" not in log.read_text():
            wrong.append("the call was not reached")
        shutil.rmtree(home)
        return [f"{self.name}, {point}: {fault}" for fault in wrong]

    def _state(self, found):
        entry = found.get(self._target)
        if entry == self._after[self._target]:
            return "new"
        return "old" if entry == self._before.get(self._target) else "torn"

    def _wrong(self, point, done, found):
        state, original = self._state(found), self._before.get(self._target)
        died = done.returncode < 0
        if state == "torn":
            yield f"the file is neither old nor new: {found.get(self._target)}"
        if died and point.fault != "SIGKILL" and point.call not in MEMORY:
            yield f"it died: {done.returncode}"
        if not died:
            if state != ("old" if done.returncode else "new"):
                yield f"the file is {state}, and the status {done.returncode}: {done.stdout}"
            silenced = point.call == "write" and not done.stdout
            if done.returncode and not silenced and not MESSAGE.match(done.stdout):
                yield f"it says {done.stdout!r}"
        # Flushes come in pairs: a file's, without which it must not be used, and its folder's, when all is done.
        if point.call == "fsync" and point.number % 2 and point.fault == "EIO" and not done.returncode:
            yield "the content never reached the disk, and nothing was reported"
        if point.fault == "EINVAL" and done.returncode:
            yield "it fails where files cannot be swapped"
        for path, entry in found.items():
            before, name = self._before.get(path), pathlib.Path(path).name
            if path == self._target or entry == before:
                continue
            if BACKUP.search(path):
                if (entry.content, entry.mode) != (original.content, original.mode):
                    yield f"the backup {path} is {entry}"
            elif name.startswith(OUR_FILES):
                # A file that cannot be removed stays.
                if not died and point.call != "unlinkat" and name not in done.stdout:
                    yield f"it left {path}"
                if state == "new" and died and not name.startswith(SPARED):
                    yield f"{path} may be the agent's, and the next install removes it"
                if entry.mode & 0o077 & ~(original.mode if original else 0):
                    yield f"{path} is readable by others: {entry.mode:o}"
            elif before is not None or not stat.S_ISDIR(entry.mode):
                yield f"{path} was {before} and is {entry}"
        for path in self._before.keys() - found.keys() - {self._target}:
            yield f"{path} is missing"

    # The agent

    def rewrites(self):
        """Where and how the agent writes, and options for strace."""
        if not self.ways:
            return
        swap = self._calls.index(SWAP)
        for stops in [[call] for call in self._calls] + [[self._calls[swap - 1], self._calls[swap]]]:
            for way in self.ways:
                yield stops, way, ()
        yield [self._calls[swap - 1]], by_removing, ()
        # On a file system that cannot swap, what is written after the last look is lost.
        last_look = max(place for place in range(swap) if self._calls[place][0] == "openat")
        for call in self._calls[:last_look]:
            yield [call], by_renaming, ("-e", f"inject={SWAP[0]}:error=EINVAL")

    def check_rewrite(self, stops, way, options):
        """The process is stopped at each of the calls given, and the agent writes another text."""
        home = self._home()
        file = home / self._target
        stop = [option for call, number in stops
                for option in ("-e", f"inject={call}:signal=SIGSTOP:when={number}")]
        names = ",".join({SWAP[0], *(call for call, _ in stops)})
        # -D: the process itself is our child, not strace.
        process = subprocess.Popen(["strace", "-D", "-f", "-e", f"trace={names}", *stop, *options, *self._command,
                                    self._action], env=self._environment(home), stdout=subprocess.DEVNULL,
                                   stderr=subprocess.PIPE, text=True)
        for number in range(len(stops)):
            if not any("--- stopped by SIGSTOP ---" in line for line in process.stderr):
                return [f"{self.name}, {stops}: it did not stop"]
            committed = tree(home).get(self._target) == self._after[self._target] and len(stops) == 1
            text = self._agents_text(number)
            steps = way(file, text)
            waits = way is not by_renaming and is_held_off(file)
            if waits:
                process.send_signal(signal.SIGCONT)
            next(steps)
            if not waits:
                process.send_signal(signal.SIGCONT)
            next(steps, None)
        process.stderr.read()
        status, found = process.wait(60), file.read_text() if file.exists() else ""
        shutil.rmtree(home)
        # Written after our last look, the agent's text stays as it is; before, it is what the change is made on. An
        # agent that had to wait may come first or last.
        if way is by_removing:  # it is as if there had been none
            kept = found == "" if self._action == "uninstall" else HELPER in found and "by agent" not in found
        else:
            kept = found == text if committed else self._is_changed(found, text) or (waits and found == text)
        # An agent that takes very long is not waited for.
        if status == 0 and kept or status == 1 and found == text and way not in (by_renaming, at_once):
            return []
        return [f"{self.name}, the agent writes {way.__name__} at {stops}: {status}, {found!r}"]

    def _agents_text(self, number):
        """As much an agent's file as the first one, with the same entries of ours in it, if any."""
        before = self._before[self._target].content.decode()
        if self._file.endswith(".toml"):
            return before + f"by_agent = {number}\n"
        return json.dumps({**json.loads(before), "by agent": number})

    def _is_changed(self, found, text):
        """Whether the action was done to the agent's text."""
        if self._file.endswith(".toml"):
            return sorted(found.splitlines()) != sorted(text.splitlines()) and text.splitlines()[-1] in found
        found, text = json.loads(found), json.loads(text)
        return found.pop("hooks", None) != text.pop("hooks", None) and found == text


def is_held_off(file):
    """Whether a program that opens the file for writing has to wait."""
    try:
        os.close(os.open(file, os.O_WRONLY | os.O_NONBLOCK))
    except BlockingIOError:
        return True
    return False


def sweeps(driver, scratch):
    """The fewest actions that make every call: which text is edited makes no difference to the files."""
    claude, codex, cursor = ".claude/settings.json", ".codex/config.toml", ".cursor/hooks.json"

    def linked(home):  # into a folder of dotfiles
        write(home / "dotfiles/settings", '{"model": "opus", "n": 1.50}', 0o640)
        (home / claude).parent.mkdir()
        (home / claude).symlink_to("../dotfiles/settings")

    def changed(home):
        write(home / claude, '{"hooks": {}}', 0o444)
        write(home / (claude + OLD_BACKUP), "{}\n")

    return [Sweep(driver, scratch, *arguments) for arguments in (
        ("claude", "install", claude, linked, EVERY_WAY),
        ("codex", "uninstall", codex,
         lambda home: write(home / codex, f'notify = ["{HELPER}", "codex-notify"]\nmodel = "x"\n', 0o644),
         [by_renaming]),
        ("claude", "restore", claude, changed),
        ("codex", "restore", codex, lambda home: write(home / (codex + OLD_BACKUP), "model = 'x'\n")),
        ("cursor", "install", cursor, lambda home: None))]


def scratch_place():
    """Where nothing waits for a disk, if files keep attributes there."""
    try:
        with tempfile.NamedTemporaryFile(dir="/dev/shm") as probe:
            os.setxattr(probe.name, "user.note", b"")
            return "/dev/shm"
    except OSError:
        return None


def main():
    begin = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="chimewell-sweep.", dir=scratch_place()) as scratch, \
            concurrent.futures.ThreadPoolExecutor(os.cpu_count() + 1) as pool:
        checks = []
        for sweep in sweeps(sys.argv[1], pathlib.Path(scratch).resolve()):
            checks += [pool.submit(sweep.check, point) for point in sweep.points()]
            checks += [pool.submit(sweep.check_rewrite, *how) for how in sweep.rewrites()]
        problems = [problem for check in checks for problem in check.result()]
    for problem in problems:
        print(problem)
    print(f"{len(checks)} faults and rewrites by the agent: "
          f"{len(problems) or 'no'} problems ({time.monotonic() - begin:.0f} s)")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
