// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>

namespace chimewell {

/// Follows whether there is something that shows tray icons: a StatusNotifier host on the bus, or the owner
/// of the X11 tray selection. Qt chooses between the two once and for all when it is first asked for an icon,
/// and an icon made too early never reaches a host that comes later. So after the first host only those of
/// its kind count.
class TrayHost final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT
public:
    /// `changed` runs from the event loop whenever a host came or the last one went.
    TrayHost(QDBusConnection bus, std::function<void(bool isThere)> changed);
    ~TrayHost() override;

private Q_SLOTS:
    void look();

private:
    enum class Kind : std::uint8_t { statusNotifier, selection };

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    bool hasSelectionOwner();
    void tell(bool hasNotifierHost);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    std::function<void(bool)> changed_;
    std::optional<Kind> kind_; ///< Of the first host.
    bool isThere_ = false;
    std::uint32_t managerAtom_ = 0; ///< None without X11.
    std::uint32_t selectionAtom_ = 0;
    std::uint32_t selectionOwner_ = 0; ///< The window whose end we are told.
};

}
