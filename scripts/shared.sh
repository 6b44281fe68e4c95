# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# To be sourced: what the scripts share.

# shellcheck disable=SC2034 # for those who source this
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
readonly app_id=app.chimewell.Chimewell

# Lists the files of an installation, inside it.
readonly manifest=share/chimewell/installed-files

# The desktop's own interpreter: the modules for D-Bus are installed for it and for no other.
# shellcheck disable=SC2034
readonly python=/usr/bin/python3

# CMake takes it from here when it configures a folder for the first time.
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi

has_desktop() {
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || return 1
    [ -n "${DBUS_SESSION_BUS_ADDRESS:-}" ] || [ -S "${XDG_RUNTIME_DIR:-/nowhere}/bus" ]
}

# on_bus METHOD NAME: asks the bus itself.
on_bus() {
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method "org.freedesktop.DBus.$1" "${@:2}" 2>/dev/null
}

# Ends the running application, if there is one, as the end of the session does: it may be started again.
end_application() {
    local process _
    process=$(on_bus GetConnectionUnixProcessID "$app_id" | grep -oE '[0-9]+' | tail -n 1) || return 0
    kill -TERM "$process"
    for _ in $(seq 100); do
        on_bus GetNameOwner "$app_id" >/dev/null || return 0
        sleep 0.05
    done
    echo "Chimewell does not end." >&2
    return 1
}

# tell_desktop PREFIX: brings up to date what desktops remember of the installed files.
tell_desktop() {
    if [ -d "$1/share/applications" ]; then update-desktop-database -q "$1/share/applications" || true; fi
    if [ -d "$1/share/icons/hicolor" ]; then touch "$1/share/icons/hicolor"; fi
    on_bus ReloadConfig >/dev/null || true
}
