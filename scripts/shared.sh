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

is_macos() { [ "$(uname -s)" = Darwin ]; }

has_desktop() {
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || return 1
    [ -n "${DBUS_SESSION_BUS_ADDRESS:-}" ] || [ -S "${XDG_RUNTIME_DIR:-/nowhere}/bus" ]
}

# on_bus METHOD NAME: asks the bus itself.
on_bus() {
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method "org.freedesktop.DBus.$1" "${@:2}" 2>/dev/null
}

# Where it keeps its files on macOS. While it runs, it holds a lock on one of them.
readonly mac_folder="${HOME:-}/Library/Application Support/Chimewell"

# Prints the process of the running application; fails if there is none.
application_process() {
    if is_macos; then { lsof -t "$mac_folder/running" 2>/dev/null || true; } | head -n 1 | grep .
    else on_bus GetConnectionUnixProcessID "$app_id" | grep -oE '[0-9]+' | tail -n 1; fi
}

# until_true SECONDS COMMAND...: waits until the command succeeds; fails if it has not by then.
until_true() {
    local end=$((SECONDS + $1))
    until "${@:2}"; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.05
    done
}
no_application() { ! application_process >/dev/null; }

# Ends the running application, if there is one, as the end of the session does: it may be started again.
end_application() {
    local process
    process=$(application_process) || return 0
    kill -TERM "$process"
    until_true 5 no_application || {
        echo "Chimewell does not end." >&2
        return 1
    }
}

# tell_desktop PREFIX: brings up to date what desktops remember of the installed files.
tell_desktop() {
    if [ -d "$1/share/applications" ]; then update-desktop-database -q "$1/share/applications" || true; fi
    if [ -d "$1/share/icons/hicolor" ]; then touch "$1/share/icons/hicolor"; fi
    on_bus ReloadConfig >/dev/null || true
}
