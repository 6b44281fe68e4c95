// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <cstdint>
#include <functional>

namespace chimewell {

/// Waits for something that shows tray icons: a StatusNotifier host on the bus, or the owner of the X11
/// tray selection. Qt chooses between the two once and for all when it is first asked for an icon, and an
/// icon made too early never reaches a host that comes later.
class TrayHost final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT
public:
    /// `appeared` runs once, from the event loop, as soon as there is a host.
    TrayHost(QDBusConnection bus, std::function<void()> appeared);
    ~TrayHost() override;

private Q_SLOTS:
    void look();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void lookAtSelection();
    void appear();

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    std::function<void()> appeared_; ///< Empty once it ran.
    std::uint32_t managerAtom_ = 0;  ///< None without X11.
    std::uint32_t selectionAtom_ = 0;
};

}
