# shellcheck shell=bash
# SPDX-License-Identifier: MIT
# shellcheck disable=SC2034 # the lists are for those who source this
# To be sourced: which packages of Debian 12 and 13 each purpose needs, and a function that installs what is missing.
# Of names with | between them, the first one that this release has is meant.

# To build the application.
build_packages=(
    g++ cmake ninja-build pkg-config
    qt6-base-dev qt6-svg-dev libpulse-dev libicu-dev libxcb1-dev libutf8proc-dev
    qt6-tools-dev qt6-l10n-tools
)

# To make the package for Debian. debian/control names those to build with once more.
packaging_packages=(build-essential debhelper)

# To run it as an installed program, with every kind of alert.
run_packages=(
    'qt6-svg-plugins|libqt6svg6' qt6-translations-l10n
    speech-dispatcher speech-dispatcher-espeak-ng espeak-ng
    desktop-file-utils libglib2.0-bin hicolor-icon-theme
)

# The desktop without a screen (tools/virtual-desktop), and what watches it.
desktop_packages=(
    xvfb x11-utils openbox dbus-daemon dbus-bin
    xfce4-panel xfce4-notifyd dunst
    pulseaudio pulseaudio-utils at-spi2-core
    python3-gi gir1.2-atspi-2.0 xdotool imagemagick xterm
    fonts-dejavu-core librsvg2-common
)

# The other desktops on which it is used (tests/desktops), and how pictures are taken there.
real_desktop_packages=(
    python3-pil
    trayer qt6-wayland
    xdg-desktop-portal xdg-desktop-portal-gtk xdg-desktop-portal-kde
    sway waybar mako-notifier
    kwin-x11 plasma-desktop plasma-workspace
    gnome-shell gnome-shell-extension-appindicator gjs
)

# To test it: the checks, the second compiler, the programs that tests use.
test_packages=(
    libgtest-dev clang-19 clang-tidy-19 clang-format-19 ccache
    libclang-rt-19-dev libblocksruntime-dev
    appstream man-db shellcheck unicode-data
    dex dconf-service gsettings-desktop-schemas xfconf
    git strace golang-github-burntsushi-toml-dev
)

# To compile and link for macOS.
macos_packages=(
    clang-19 lld-19 llvm-19 libc++-19-dev libc++abi-19-dev
    cmake ninja-build pkg-config libutf8proc-dev libgtest-dev
    qt6-base-dev qt6-svg-dev qt6-tools-dev qt6-l10n-tools
)

# To measure it: the frame, the peers, the counter of instructions.
benchmark_packages=(libbenchmark-dev libdbus-1-dev nlohmann-json3-dev rapidjson-dev valgrind libnotify-bin)

# To run real agents.
agent_packages=(tmux)
if ! command -v npm >/dev/null; then
    agent_packages+=(nodejs npm)
    macos_packages+=(nodejs npm)
fi

# missing_packages PACKAGE...: those that are not installed, a line for each.
missing_packages() {
    local names name
    for names in "$@"; do
        for name in ${names//|/ }; do
            [ "$name" != "${names##*|}" ] && apt-cache show "$name" >/dev/null 2>&1 && break
        done
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null || true)" = installed ] || echo "$name"
    done
}

# ensure_packages PACKAGE...: installs those that are missing, and nothing where none is.
ensure_packages() {
    local missing as_root=()
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0

    if ! command -v apt-get >/dev/null; then
        echo "These Debian packages, or what your system has in their place, are needed: ${missing[*]}" >&2
        return 1
    fi
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    echo "Installing ${missing[*]}"
    local install=(${as_root[@]+"${as_root[@]}"} env DEBIAN_FRONTEND=noninteractive
        apt-get install --yes --quiet=2 --no-install-recommends)
    # A machine that never fetched the package lists, or long ago, fails the first time.
    "${install[@]}" "${missing[@]}" >/dev/null 2>&1 || {
        ${as_root[@]+"${as_root[@]}"} apt-get update --quiet=2
        mapfile -t missing < <(missing_packages "$@")
        "${install[@]}" "${missing[@]}" >/dev/null
    }
}
