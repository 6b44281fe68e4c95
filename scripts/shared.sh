# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# To be sourced: what the scripts share.

# shellcheck disable=SC2034 # for those who source this
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
readonly app_id=app.chimewell.Chimewell
readonly app_path=/app/chimewell/Chimewell

# Lists the files of an installation, inside it.
readonly manifest=share/chimewell/installed-files

# The desktop's own interpreter: the modules for D-Bus are installed for it and for no other.
# shellcheck disable=SC2034
readonly python=/usr/bin/python3

# CMake takes it from here when it configures a folder for the first time.
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi

has_desktop() { [ -n "${DBUS_SESSION_BUS_ADDRESS:-}" ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; }

is_running() {
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method org.freedesktop.DBus.NameHasOwner "$app_id" 2>/dev/null | grep -q true
}

# application METHOD ARGUMENT...: calls org.freedesktop.Application, which starts it where it does not run.
application() {
    gdbus call --session --dest "$app_id" --object-path "$app_path" \
        --method "org.freedesktop.Application.$1" "${@:2}" >/dev/null
}

# Ends the running application, if there is one.
quit_application() {
    is_running || return 0
    application ActivateAction quit '[]' '{}'
    local _
    for _ in $(seq 100); do
        is_running || return 0
        sleep 0.05
    done
    echo "Chimewell does not end." >&2
    return 1
}

# tell_desktop PREFIX: brings up to date what desktops remember of the installed files.
tell_desktop() {
    if [ -d "$1/share/applications" ]; then update-desktop-database -q "$1/share/applications" || true; fi
    if [ -d "$1/share/icons/hicolor" ]; then touch "$1/share/icons/hicolor"; fi
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method org.freedesktop.DBus.ReloadConfig >/dev/null 2>&1 || true
}
