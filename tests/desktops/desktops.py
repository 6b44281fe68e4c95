# SPDX-License-Identifier: MIT
"""Real desktops without a screen, each with a bus, a home and a runtime folder of its own."""
import argparse
import os
import pathlib
import shutil

import desktop
from desktop import Unavailable, has_owner, output, write
from waiting import until

WIDTH, HEIGHT = 1280, 720
SIZE = f"{WIDTH}x{HEIGHT}"
WATCHER = "org.kde.StatusNotifierWatcher"
NOTIFICATIONS = "org.freedesktop.Notifications"
PORTAL = "org.freedesktop.portal.Desktop"
GNOME_EXTENSIONS = pathlib.Path("/usr/share/gnome-shell/extensions")

# A panel with nothing but the tray, and in the tray nothing of Plasma's own.
PLASMA_PANEL = """[Containments][1]
formfactor=2
lastScreen=0
location=3
plugin=org.kde.panel

[Containments][1][Applets][2]
plugin=org.kde.plasma.panelspacer

[Containments][1][Applets][3]
plugin=org.kde.plasma.systemtray

[Containments][1][Applets][3][Configuration]
SystrayContainmentId=4

[Containments][1][General]
AppletOrder=2;3

[Containments][4]
formfactor=2
lastScreen=0
location=3
plugin=org.kde.plasma.private.systemtray

[Containments][4][General]
extraItems=org.kde.plasma.notifications
hiddenItems=org.kde.plasma.notifications
knownItems=org.kde.plasma.notifications,org.kde.plasma.keyboardlayout,org.kde.plasma.clipboard,org.kde.plasma.volume
"""


class Desktop(desktop.Session):
    """What each has in common, and what differs."""

    name = ""                    # in XDG_CURRENT_DESKTOP
    portal = "gtk"               # which tells programs whether the desktop is light or dark
    strip = (640, 0, WIDTH, 28)  # where icons are: left, top, right, bottom
    clicks = 1                   # that open the panel
    button = None                # where to click in a banner, from its lower right corner; else in its middle
    places_windows = True        # where programs ask for

    def __init__(self, dark):
        super().__init__(argparse.Namespace(screen=SIZE, work=None, programs=["at-spi"], command=True))
        self.dark = dark
        self.set("XDG_CURRENT_DESKTOP", self.name)
        extensions = [folder.name for folder in GNOME_EXTENSIONS.glob("*appindicator*")]
        write(self.configuration("glib-2.0/settings/keyfile"), f"""[org/gnome/desktop/interface]
color-scheme='{'prefer-dark' if dark else 'default'}'
enable-animations=false
enable-hot-corners=false
[org/gnome/shell]
enabled-extensions={extensions}
welcome-dialog-last-shown-version='99'
""")

    def services(self):
        """The bus and what the application asks there."""
        self.bus()
        for name in (PORTAL, f"org.freedesktop.impl.portal.desktop.{self.portal}"):
            self.offer(name)
        self.accessibility()


class Xfce(Desktop):
    name = "XFCE"
    button = (-60, -32)  # its server tells of clicks on buttons only

    def run(self):
        self.screen()
        self.services()
        self.window_manager()
        self.panel()
        self.notifyd()


class Trayer(Desktop):
    """A tray of the older protocol, which embeds windows (XEmbed)."""
    name = "X-Trayer"

    def run(self):
        self.screen()
        self.services()
        self.window_manager()
        tint = "0x202326" if self.dark else "0xeff0f1"
        self.spawn("trayer", "--edge", "top", "--align", "right", "--height", "28", "--widthtype", "request",
                   "--transparent", "true", "--alpha", "0", "--tint", tint,
                   ready=lambda: True)  # an empty one has no window
        self.dunst()


class Wayland(Desktop):
    places_windows = False

    def __init__(self, dark, display):
        super().__init__(dark)
        for name in "DISPLAY", "GDK_BACKEND":
            os.environ.pop(name, None)
        for name, value in (("XDG_SESSION_TYPE", "wayland"), ("QT_QPA_PLATFORM", "wayland"),
                            ("WAYLAND_DISPLAY", display)):
            self.set(name, value)


class Sway(Wayland):
    name = "sway"

    def __init__(self, dark):
        super().__init__(dark, "wayland-1")

    def run(self):
        self.screen()
        for name, value in (("WLR_BACKENDS", "x11"), ("WLR_RENDERER", "pixman")):
            self.set(name, value)
        write(self.configuration("sway/config"), f"output X11-1 resolution {SIZE}\noutput * bg #707880 solid_color\n")
        write(self.configuration("waybar/config"),
              '{"layer": "top", "height": 28, "modules-right": ["tray"], "tray": {"icon-size": 20}}')
        write(self.configuration("waybar/style.css"),
              f"window#waybar {{ background: {'#202326' if self.dark else '#eff0f1'}; }}")
        self.services()
        # It refuses to run as root.
        self.spawn("sway", "--user", "--map-user=1000", "--map-group=1000", "sway", path="unshare",
                   ready=(self.folder / "wayland-1").exists)
        self.spawn("waybar", ready=lambda: has_owner(WATCHER))
        self.spawn("mako", ready=lambda: has_owner(NOTIFICATIONS))


class Plasma(Desktop):
    name = "KDE"
    portal = "kde"
    strip = (640, 0, WIDTH, 44)

    def run(self):
        services = next((name for name in ("kded6", "kded5") if shutil.which(name)), "kded5")
        self.set("KDE_FULL_SESSION", "true")
        self.set("KDE_SESSION_VERSION", services[-1])
        style = "dark" if self.dark else "light"
        write(self.configuration("kdeglobals"), f"[General]\nColorScheme=Breeze{style.title()}\n"
                                                f"[KDE]\nAnimationDurationFactor=0\n")
        write(self.configuration("plasmarc"), f"[Theme]\nname=breeze-{style}\n")
        write(self.configuration("plasma-org.kde.plasma.desktop-appletsrc"), PLASMA_PANEL)
        write(self.configuration("plasmanotifyrc"), "[Notifications]\nPopupTimeout=60000\n")
        self.screen()
        self.services()
        self.spawn("kwin_x11", ready=lambda: has_owner("org.kde.KWin"))
        self.spawn(services, ready=lambda: has_owner(WATCHER))
        self.spawn("plasmashell", "--no-respawn", ready=lambda: has_owner(NOTIFICATIONS))


class Gnome(Wayland):
    name = "GNOME"
    strip = (800, 0, WIDTH, 32)
    clicks = 2  # one opens the icon's menu

    def __init__(self, dark):
        super().__init__(dark, "wayland-gnome")

    def run(self):
        if not list(GNOME_EXTENSIONS.glob("*appindicator*")) or not shutil.which("gjs"):
            raise Unavailable("gnome-shell-extension-appindicator or gjs is not installed")
        self.services()
        self.offer("org.gnome.Shell.Notifications")
        # It asks for logind where a system bus is; here it has none.
        self.set("DBUS_SYSTEM_BUS_ADDRESS", os.environ["DBUS_SESSION_BUS_ADDRESS"])
        self.spawn("gnome-shell", "--headless", "--no-x11", "--virtual-monitor", SIZE,
                   "--wayland-display", "wayland-gnome", ready=lambda: has_owner(WATCHER) and has_owner(NOTIFICATIONS))
        # It starts with the overview of all windows.
        until(lambda: "true" in self.overview("Get"), "the overview", 30)
        self.overview("Set", "<false>")

    @staticmethod
    def overview(method, *value):
        return output("gdbus", "call", "--session", "--dest", "org.gnome.Shell", "--object-path", "/org/gnome/Shell",
                      "--method", f"org.freedesktop.DBus.Properties.{method}", "org.gnome.Shell", "OverviewActive",
                      *value)


DESKTOPS = {each.__name__.lower(): each for each in (Xfce, Trayer, Sway, Plasma, Gnome)}
