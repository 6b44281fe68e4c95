# SPDX-License-Identifier: MIT
"""hook_process_test.py HOOK, inside a session of desktop.py: the real program, the way the agents run it."""
import os
import pathlib
import signal
import socket
import subprocess
import sys
import time
import unittest

import application
import bus
from waiting import until

HOOK = sys.argv.pop(1)
HOME = pathlib.Path(os.environ["HOME"])
RUNTIME_FOLDER = os.environ["XDG_RUNTIME_DIR"]
BUS = {"DBUS_SESSION_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"], "HOME": str(HOME)}
RECORDS = HOME / "records"
RECORDER = f"{sys.executable} -B {pathlib.Path(__file__).with_name('open_recorder.py')} {RECORDS}"
SERVICE = pathlib.Path(os.environ["XDG_DATA_HOME"], f"dbus-1/services/{application.NAME}.service")


def payload(session):
    return b'{"session_id":"%b","cwd":"/c"}\n' % session.encode()


class HookProcess(unittest.TestCase):
    """A recorder, which the bus can start, takes the place of the application."""

    def setUp(self):
        RECORDS.write_text("")
        self.records_read = 0
        self.offer(RECORDER)
        self.addCleanup(application.end)

    def offer(self, command):
        SERVICE.write_text(f"[D-BUS Service]\nName={application.NAME}\nExec={command}\n")
        bus.call_bus("ReloadConfig")

    def start_recorder(self):
        bus.call_bus("StartServiceByName", "(su)", application.NAME, 0)
        self.assertEqual(self.next_record(), "ready")

    def next_record(self):
        record = until(lambda: RECORDS.read_text().splitlines()[self.records_read:], "another record", 30)[0]
        self.records_read += 1
        return record

    def assert_recorded(self, session):
        self.assertIn(f"&session={session}&cwd=%2Fc&", self.next_record())

    def hook(self, *arguments, given=b"", ends=True, environment=None, **options):
        """What agents rely on, always: status 0, not a word, soon, all input taken, and no stream held by anybody."""
        begin = time.monotonic()
        options = {"stdin": subprocess.PIPE, **options}
        with subprocess.Popen([HOOK, *arguments], env=environment or BUS, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, **options) as process:
            if process.stdin:
                process.stdin.write(given)
                process.stdin.flush()
                if ends:
                    process.stdin.close()
            self.assertEqual((process.stdout.read(), process.wait()), (b"", 0))
        # Its own limit is 0.9 s; a busy machine gets more.
        self.assertLess(time.monotonic() - begin, 5)

    def finish(self, session, **options):
        self.hook("claude", "finished", given=payload(session), **options)

    def test_delivers_to_a_running_application(self):
        self.start_recorder()
        for length in range(1, 9):  # every alignment in the message
            self.finish("S" * length)
            self.assert_recorded("S" * length)
        self.hook("codex-notify", '{"type":"agent-turn-complete","thread-id":"T","cwd":"/c"}')
        self.assert_recorded("T")
        self.hook("cursor", "finished", given=b'{"conversation_id":"C","workspace_roots":["/c"]}')
        self.assert_recorded("C")

    def test_delivers_whatever_the_input_does(self):
        self.start_recorder()
        much = 10 << 20
        with subprocess.Popen(["nice", "-n", "19", "yes", ""], stdout=subprocess.PIPE) as endless:
            for expected, options in (
                    ("", {"stdin": None, "preexec_fn": lambda: os.close(0)}),
                    ("", {"stdin": endless.stdout}),
                    ("", {}),
                    ("session=S&", {"given": b'{"tool_input":"%b","session_id":"S"}' % (b"x" * much)}),
                    ("session=S&", {"given": b'{"session_id":"S","cwd":7,"deep":' + b"[" * much}),
                    ("session=S&", {"given": payload("S"), "ends": False}),
                    ("session=S&", {"given": b'{"session_id":"S"', "ends": False})):
                with self.subTest(str(options)[:80]):
                    self.hook("claude", "finished", **options)
                    self.assertRegex(self.next_record(), "event.type=finished&provider=claude&" + (expected or "ts="))

    def test_takes_the_input_of_a_command_that_it_does_not_know(self):
        self.hook("claude", "unheard_of", given=b"x" * (1 << 20))

    def test_is_not_held_by_a_stopped_application_or_bus_and_loses_nothing(self):
        self.start_recorder()
        for stopped, sessions in ((application.NAME, "12"), ("org.freedesktop.DBus", "3")):
            process = bus.process_of(stopped)
            os.kill(process, signal.SIGSTOP)
            try:
                for session in sessions:
                    self.finish(session)
            finally:
                os.kill(process, signal.SIGCONT)
        for session in "123":
            self.assert_recorded(session)

    def test_finds_the_bus_by_every_kind_of_address(self):
        self.start_recorder()
        path = f"{RUNTIME_FOLDER}/bus".replace("/", "%2f")
        for address in (None, "", "unix:runtime=yes", f"unix:guid=1,path={path}",
                        f"unix:path=/nowhere;tcp:host=h,port=1;unix:path={path};;"):
            variables = {} if address is None else {"DBUS_SESSION_BUS_ADDRESS": address}
            self.finish("S", environment={"XDG_RUNTIME_DIR": RUNTIME_FOLDER, **variables})
            self.assert_recorded("S")

    def test_gives_up_without_a_bus(self):
        name = f"chimewell-test-{os.getpid()}"
        with socket.socket(socket.AF_UNIX) as mute:
            mute.bind("\0" + name)
            mute.listen()
            mute.settimeout(5)
            for address in ("unix:path=/nowhere", "unix:path=/a%zz", "tcp:host=localhost,port=1", "autolaunch:",
                            f"unix:abstract={name}"):
                with self.subTest(address):
                    self.finish("S", environment={"DBUS_SESSION_BUS_ADDRESS": address})
            mute.accept()[0].close()  # it has called, and got no answer

    def test_starts_the_application_for_alerts_only_and_loses_none(self):
        for silent in ("user_acted", "subagent_finished"):
            self.hook("claude", silent, given=payload("silent"))
        alerts = ("waiting_input", "finished", "error", "finished", "finished")
        for alert in alerts:
            self.hook("claude", alert, given=payload("alert"))
        self.assertEqual(self.next_record(), "ready")
        for _ in alerts:
            self.assert_recorded("alert")

    def test_does_not_start_an_application_that_the_user_quit(self):
        environment = BUS
        for data in (".local/share", "data"):
            marker = HOME / data / "Chimewell/dormant"
            marker.parent.mkdir(parents=True)
            marker.touch()
            self.finish("silent", environment=environment)
            marker.unlink()
            environment = {**BUS, "XDG_DATA_HOME": str(HOME / "data")}
        self.finish("alert", environment=environment)
        self.assertEqual(self.next_record(), "ready")
        self.assert_recorded("alert")

    def test_holds_neither_the_agent_nor_its_streams_during_a_slow_start_and_loses_nothing(self):
        self.offer(f'/bin/sh -c "sleep 3; exec {RECORDER}"')
        self.finish("S")
        # The bus drops the event if its sender, which doesn't wait in the agent's process, has exited by now.
        self.assertEqual(self.next_record(), "ready")
        self.assert_recorded("S")


if __name__ == "__main__":
    unittest.main(verbosity=2)
