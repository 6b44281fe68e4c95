// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <cstdint>
#include <functional>

namespace chimewell {

/// What shows tray icons: a StatusNotifier host on the bus, the owner of the X11 tray selection, or nothing.
enum class TrayKind : std::uint8_t { none, statusNotifier, selection };

/// Follows what shows tray icons. Where there are both, the StatusNotifier host counts.
class TrayHost final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT
public:
    /// `changed` runs from the event loop with each new kind.
    TrayHost(QDBusConnection bus, std::function<void(TrayKind kind)> changed);
    ~TrayHost() override;

private Q_SLOTS:
    void look();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    bool hasSelectionOwner();
    void tell(bool hasNotifierHost);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    std::function<void(TrayKind)> changed_;
    TrayKind kind_ = TrayKind::none;
    std::uint32_t managerAtom_ = 0; ///< None without X11.
    std::uint32_t selectionAtom_ = 0;
    std::uint32_t selectionOwner_ = 0; ///< The window whose end we are told.
};

}
