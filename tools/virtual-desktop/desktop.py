#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Runs real services of a Linux desktop away from the user's own session, and leaves nothing of them behind.

    desktop.py [--screen WxH] [--work DIR] PROGRAM... -- COMMAND [ARGUMENT...]
    desktop.py PROGRAM...

PROGRAM is a service to start: Xvfb, pulseaudio, speech-dispatcher (which runs once somebody wants to speak),
dbus-daemon, at-spi (the accessibility bus), openbox, xfce4-panel (a tray), dunst, xfce4-notifyd.

With a command, the command sees a whole desktop with a home folder and the machine's D-Bus services, except those for
banners and shells: which of these exist is chosen by the programs alone. The status is the command's. --work keeps the
home folder and logs in DIR.

Without a command, the services join the environment of the caller, and the bus knows no services of the machine. The
variables that lead to them are printed, then "ready", or a line saying what is missing. Each line of standard input is
then one order, answered by "done" or "failed"; everything ends with the input:
    start PROGRAM | kill PROGRAM | raise PROGRAM SIGNAL | offer BUS_NAME [COMMAND]
"""
import argparse
import ctypes
import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

from waiting import TookTooLong, until

# Which of these there are is the caller's choice.
CHOSEN = re.compile(r"^Name=(org\.freedesktop\.Notifications|org\.kde\.(StatusNotifierWatcher|plasmashell|kded5|kded6)"
                    r"|org\.gnome\.Shell.*|org\.freedesktop\.(impl\.)?portal.*)$", re.M)
MACHINE_SERVICES = pathlib.Path("/usr/share/dbus-1/services")
BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <keep_umask/>
  <listen>unix:path={folder}/bus</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{folder}/home-services</servicedir>
  <servicedir>{folder}/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
  </policy>
</busconfig>
"""
PANEL = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="true"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="28"/>
      <property name="icon-size" type="uint" value="20"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
        <value type="int" value="3"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="tasklist">
      <property name="show-handle" type="bool" value="false"/>
    </property>
    <property name="plugin-2" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-3" type="string" value="systray">
      <property name="square-icons" type="bool" value="true"/>
    </property>
  </property>
</channel>
"""
# Banners appear at the bottom, where no window of the tray covers them.
NOTIFYD = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-notifyd" version="1.0">
  <property name="notify-location" type="uint" value="3"/>
  <property name="expire-timeout" type="int" value="60"/>
  <property name="initial-opacity" type="double" value="1"/>
</channel>
"""
DUNST = """[global]
    width = 320
    offset = 12x12
    origin = bottom-right
    font = DejaVu Sans 10
    markup = full
    mouse_left_click = do_action, close_current
    idle_threshold = 0
[urgency_normal]
    timeout = 60
"""
# One engine, so that no other is loaded and none can take its place; the log tells what was spoken.
SPEECH = """LogLevel 5
LogDir "default"
AudioOutputMethod "pulse"
DefaultLanguage "en-US"
AddModule "espeak-ng" "sd_espeak-ng" ""
DefaultModule espeak-ng
"""


class Unavailable(Exception):
    pass


def write(file, text):
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(text)


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def accepts(path):
    with socket.socket(socket.AF_UNIX) as client:
        return client.connect_ex(str(path)) == 0


def has_owner(name):
    return "true" in output("dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                            "org.freedesktop.DBus.NameHasOwner", f"string:{name}")


def descendants(process):
    for file in pathlib.Path(f"/proc/{process}/task").glob("*/children"):
        try:
            children = file.read_text().split()
        except OSError:
            continue  # it ended meanwhile
        for child in children:
            yield int(child)
            yield from descendants(child)


class Session:
    def __init__(self, options):
        # Short: the path of a socket has only about a hundred bytes.
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="chimewell-", dir="/tmp"))
        self.log = pathlib.Path(options.work or self.folder, "log")
        self.log.mkdir(parents=True, exist_ok=True)
        self.options = options
        self.processes = {}
        self.variables = {}
        # Whatever our processes leave behind becomes our child, so that it can be ended.
        ctypes.CDLL(None).prctl(36, 1)  # PR_SET_CHILD_SUBREAPER
        if options.command:
            self.make_home()

    def make_home(self):
        """The environment is that of another user, who has nothing of the caller's desktop."""
        for name in ("WAYLAND_DISPLAY", "XAUTHORITY", "SESSION_MANAGER", "DBUS_STARTER_ADDRESS",
                     "DBUS_STARTER_BUS_TYPE", "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "NO_AT_BRIDGE",
                     "AT_SPI_BUS_ADDRESS", "QT_QPA_PLATFORMTHEME", "GTK_MODULES"):
            os.environ.pop(name, None)
        home = pathlib.Path(self.options.work or self.folder, "home").absolute()
        folders = {"XDG_CONFIG_HOME": ".config", "XDG_DATA_HOME": ".local/share", "XDG_CACHE_HOME": ".cache",
                   "XDG_STATE_HOME": ".local/state"}
        for name, folder in folders.items():
            (home / folder).mkdir(parents=True, exist_ok=True)
            self.set(name, home / folder)
        (home / ".local/share/applications").mkdir(exist_ok=True)
        own = home / ".local/share/dbus-1/services"
        own.mkdir(parents=True, exist_ok=True)
        (self.folder / "home-services").symlink_to(own)
        data = os.environ.get("XDG_DATA_DIRS") or "/usr/local/share:/usr/share"
        for name, value in {
                "HOME": home, "XDG_RUNTIME_DIR": self.folder, "XDG_DATA_DIRS": data, "XDG_SESSION_TYPE": "x11",
                "XDG_CURRENT_DESKTOP": "X-Virtual", "GDK_BACKEND": "x11", "QT_QPA_PLATFORM": "xcb", "LANG": "C.UTF-8",
                "LC_ALL": "C.UTF-8", "LIBGL_ALWAYS_SOFTWARE": "1", "GSETTINGS_BACKEND": "keyfile",
                "GIO_USE_VFS": "local", "PULSE_SERVER": f"unix:{self.folder}/no-sound-server"}.items():
            self.set(name, value)
        # With AT_SPI_BUS_ADDRESS set, Qt 6.4 never registers on the accessibility bus; so it finds the bus itself.
        if "at-spi" in self.options.programs:
            self.set("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", 1)
            self.set("QT_ACCESSIBILITY", 1)
        else:
            self.set("NO_AT_BRIDGE", 1)
        services = self.folder / "services"
        services.mkdir()
        for folder in data.split(":"):
            for service in pathlib.Path(folder, "dbus-1/services").glob("*.service"):
                link = services / service.name
                if not link.exists() and not CHOSEN.search(service.read_text(errors="replace")):
                    link.symlink_to(service)

    def set(self, name, value):
        os.environ[name] = self.variables[name] = str(value)

    def configuration(self, name):
        return pathlib.Path(os.environ.get("XDG_CONFIG_HOME") or os.path.expanduser("~/.config"), name)

    def spawn(self, program, *arguments, ready, path=None, **options):
        """Starts a program and waits until it is `ready`."""
        if not shutil.which(path or program):
            raise Unavailable(f"{program} is not installed")
        with open(self.log / program, "ab") as log:
            process = subprocess.Popen([path or program, *arguments], stdin=subprocess.DEVNULL, stderr=log,
                                       **{"stdout": log, **options})
        self.processes[program] = process
        try:
            until(lambda: process.poll() is not None or ready(), program, 30)
        except TookTooLong:
            pass
        if process.poll() is not None or not ready():
            raise Unavailable(f"{program} did not start: {(self.log / program).read_text()[-500:]}")

    # The programs, in the order in which they start: the bus hands its environment on to what it starts.

    def screen(self):
        for tool in ("xprop", "xdotool"):
            if not shutil.which(tool):
                raise Unavailable(f"{tool} is not installed")
        number, told = os.pipe()
        self.spawn("Xvfb", "-displayfd", str(told), "-screen", "0", f"{self.options.screen}x24", "-nolisten", "tcp",
                   "-noreset", "+extension", "RANDR", pass_fds=[told], ready=lambda: True)
        os.close(told)
        with open(number, encoding="ascii") as file:
            self.set("DISPLAY", f":{file.readline().strip()}")

    def sound(self):
        address = self.folder / "pulse"
        address.unlink(missing_ok=True)
        self.set("PULSE_SERVER", f"unix:{address}")
        own = {name: str(self.folder) for name in ("HOME", "XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH")}
        # Without norewinds the device works in blocks of two seconds, and what stops inside one leaves no trace.
        self.spawn("pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "--system=no",
                   "--load=module-null-sink sink_name=silent rate=48000 channels=2 norewinds=1",
                   f"--load=module-native-protocol-unix auth-anonymous=1 socket={address}",
                   env={**os.environ, **own, "PULSE_SERVER": ""}, ready=lambda: accepts(address))

    def speech(self):
        for tool in ("speech-dispatcher", "espeak-ng"):
            if not shutil.which(tool):
                raise Unavailable(f"{tool} is not installed")
        if not self.options.command:
            self.set("HOME", self.folder / "home")
            self.set("XDG_RUNTIME_DIR", self.folder)
        write(self.configuration("speech-dispatcher/speechd.conf"), SPEECH)

    def bus(self):
        for name in ("services", "home-services"):
            (self.folder / name).mkdir(exist_ok=True)
        address = self.folder / "bus"
        address.unlink(missing_ok=True)
        write(self.folder / "bus.conf", BUS.format(folder=self.folder))
        self.set("DBUS_SESSION_BUS_ADDRESS", f"unix:path={address}")
        self.spawn("dbus-daemon", f"--config-file={self.folder}/bus.conf", "--nofork", "--nopidfile",
                   ready=lambda: accepts(address))

    def accessibility(self):
        done = subprocess.run(
            ["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
             "org.freedesktop.DBus.Properties.Set", "string:org.a11y.Status", "string:IsEnabled",
             "variant:boolean:true"], capture_output=True, text=True, check=False)
        if done.returncode:
            raise Unavailable(f"the accessibility bus did not start: {done.stderr}")

    def window_manager(self):
        self.spawn("openbox", "--sm-disable",
                   ready=lambda: "window id" in output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))

    def panel(self):
        write(self.configuration("xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"), PANEL)
        self.spawn("xfce4-panel", "--sm-client-disable", ready=lambda: has_owner("org.kde.StatusNotifierWatcher"))

    def dunst(self):
        write(self.configuration("dunst/dunstrc"), DUNST)
        self.spawn("dunst", "-conf", str(self.configuration("dunst/dunstrc")),
                   ready=lambda: has_owner("org.freedesktop.Notifications"))

    def notifyd(self):
        self.offer("org.xfce.Xfconf")
        write(self.configuration("xfce4/xfconf/xfce-perchannel-xml/xfce4-notifyd.xml"), NOTIFYD)
        # It is installed outside PATH.
        service = MACHINE_SERVICES / "org.xfce.xfce4-notifyd.Notifications.service"
        found = re.search(r"^Exec=(\S+)", service.read_text(), re.M) if service.exists() else None
        self.spawn("xfce4-notifyd", path=found and found[1], ready=lambda: has_owner("org.freedesktop.Notifications"))

    PROGRAMS = {"Xvfb": screen, "pulseaudio": sound, "speech-dispatcher": speech, "dbus-daemon": bus,
                "at-spi": accessibility, "openbox": window_manager, "xfce4-panel": panel, "dunst": dunst,
                "xfce4-notifyd": notifyd}

    # Orders

    def start(self, program):
        if program != "speech-dispatcher":
            return self.PROGRAMS[program](self)
        # It prints a line for each of its thousands of voices.
        return self.spawn(program, "--run-single", "-t", "0", stdout=subprocess.DEVNULL,
                          ready=lambda: accepts(self.folder / "speech-dispatcher/speechd.sock"))

    def kill(self, program):
        """Without a word to those who use it."""
        if program == "speech-dispatcher":
            self.kill_speech()
        process = self.processes.pop(program, None)
        if process:
            process.kill()
            process.wait()

    def kill_speech(self):
        """Whoever started it; those who speak do it on demand."""
        folder = self.folder / "speech-dispatcher"
        number = folder / "pid/speech-dispatcher.pid"
        if number.exists():
            try:
                os.kill(int(number.read_text()), signal.SIGKILL)
            except (OSError, ValueError):
                pass  # it has ended
            number.unlink()
            (folder / "speechd.sock").unlink(missing_ok=True)

    def offer(self, name, command=None):
        """From now on the first call to a bus name starts a command, by default the one of the machine's service."""
        service = self.folder / "services" / f"{name}.service"
        if command:
            write(service, f"[D-BUS Service]\nName={name}\nExec={command}\n")
        elif not service.exists():
            write(service, (MACHINE_SERVICES / service.name).read_text())
        output("dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
               "org.freedesktop.DBus.ReloadConfig")

    def obey(self):
        print(*(f"{name}={value}" for name, value in self.variables.items()), "ready", sep="\n", flush=True)
        for line in sys.stdin:
            order, argument, *rest = line.rstrip("\n").split(" ", 2)
            try:
                if order == "raise":
                    self.processes[argument].send_signal(int(*rest))
                else:
                    {"start": self.start, "kill": self.kill, "offer": self.offer}[order](argument, *rest)
                print("done", flush=True)
            except (Unavailable, OSError) as fault:
                print(fault, file=sys.stderr)
                print("failed", flush=True)

    def close(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            signal.signal(number, signal.SIG_IGN)
        self.kill_speech()
        end = time.monotonic() + 1
        asked = set()
        while left := set(descendants(os.getpid())):
            for process in left if time.monotonic() > end else left - asked:
                try:
                    os.kill(process, signal.SIGKILL if process in asked else signal.SIGTERM)
                    os.kill(process, signal.SIGCONT)
                except ProcessLookupError:
                    pass
            asked |= left
            try:
                while os.waitpid(-1, os.WNOHANG)[0]:
                    pass
            except ChildProcessError:
                pass
            time.sleep(0.005)
        shutil.rmtree(self.folder, ignore_errors=True)


def leave(number, _frame):
    sys.exit(128 + number)


def main():
    arguments = sys.argv[1:]
    command = None
    if "--" in arguments:
        at = arguments.index("--")
        arguments, command = arguments[:at], arguments[at + 1:]
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--screen", default="1280x800")
    parser.add_argument("--work")
    parser.add_argument("programs", nargs="+", choices=Session.PROGRAMS)
    options = parser.parse_args(arguments)
    options.command = command
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, leave)
    session = Session(options)
    try:
        for program, start in Session.PROGRAMS.items():
            if program in options.programs:
                start(session)
        if command:
            return subprocess.call(command)
        return session.obey()
    except Unavailable as fault:
        print(fault, file=sys.stderr if command else sys.stdout)
        return 70
    finally:
        session.close()


if __name__ == "__main__":
    sys.exit(main())
