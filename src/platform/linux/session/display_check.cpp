// SPDX-License-Identifier: MIT
#include "platform/linux/session/display_check.h"

#include "platform/posix/file_descriptor.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>

namespace chimewell {
namespace {

bool canOpenX11()
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    return xcb_connection_has_error(connection.get()) == 0;
}

/// The socket is where wl_display_connect(3) looks for it.
bool canOpenWayland()
{
    if (qEnvironmentVariableIsSet("WAYLAND_SOCKET")) return true; // a connection that was made for us
    const std::string display =
        qEnvironmentVariable("WAYLAND_DISPLAY", QStringLiteral("wayland-0")).toStdString();
    const std::string path =
        std::filesystem::path(qEnvironmentVariable("XDG_RUNTIME_DIR").toStdString()) / display;
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return false;
    std::ranges::copy(path, address.sun_path);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return socket.isOpen() &&
           ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool canOpen(const QString& platform)
{
    if (platform.startsWith(u"xcb")) return canOpenX11();
    if (platform.startsWith(u"wayland")) return canOpenWayland();
    return true; // for example offscreen
}

}

bool canOpenDisplay()
{
    QStringList platforms = qEnvironmentVariable("QT_QPA_PLATFORM").split(u';', Qt::SkipEmptyParts);
    if (platforms.isEmpty()) {
        platforms.append(QStringLiteral("xcb"));
        const bool isWayland = qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland";
        if (isWayland || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
            platforms.append(QStringLiteral("wayland"));
    }
    return std::ranges::any_of(platforms, canOpen);
}

}
