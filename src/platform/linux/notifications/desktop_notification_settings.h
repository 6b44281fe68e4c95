// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>

namespace chimewell {

/// The desktop's own settings about our banners: GNOME, KDE Plasma and Xfce have some. The desktop is the
/// first known name in XDG_CURRENT_DESKTOP.
class DesktopNotificationSettings final : public QObject {
    Q_OBJECT
public:
    explicit DesktopNotificationSettings(QDBusConnection bus);

    /// Reads whether the user switched our banners off. False also where the desktop has no such switch or it
    /// cannot be read. `done` runs from the event loop.
    void readOff(std::function<void(bool off)> done);
    /// Opens the page about banners. Does nothing on other desktops, or where its program is not installed.
    static void open();

Q_SIGNALS:
    /// The switch may have changed. Plasma's is not watched.
    void changed();

private:
    void readGnome(const std::function<void(bool off)>& done);

    QDBusConnection bus_;
};

}
