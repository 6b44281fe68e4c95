// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>

namespace chimewell {

/// The user's switch for our banners in the desktop's own settings: GNOME, KDE Plasma and Xfce have one.
class DesktopBannerSwitch final : public QObject {
    Q_OBJECT
public:
    explicit DesktopBannerSwitch(QDBusConnection bus);

    /// `done(true)` when banners are switched off for us; false also where the desktop has no such switch,
    /// or it cannot be read. Runs from the event loop.
    void read(std::function<void(bool off)> done);

Q_SIGNALS:
    /// The switch may have been moved. Plasma's is not watched.
    void changed();

private:
    void readGnome(const std::function<void(bool off)>& done);
    void readXfce(std::function<void(bool off)> done);

    QDBusConnection bus_;
};

}
