// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <chrono>
#include <cstddef>
#include <optional>
#include <utility>

namespace chimewell::benchmarks {

using SteadyClock = std::chrono::steady_clock;

// The bus knows the methods and properties by their names. NOLINTBEGIN(readability-identifier-naming)

/// A notification server that shows nothing.
class NotificationServer final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    explicit NotificationServer(QDBusConnection bus)
    {
        bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"), this,
                           QDBusConnection::ExportAllSlots);
        bus.registerService(QStringLiteral("org.freedesktop.Notifications"));
    }

    std::size_t banners() const { return banners_; }
    SteadyClock::time_point lastBannerAt() const { return lastBannerAt_; }

public Q_SLOTS:
    QStringList GetCapabilities()
    {
        return {QStringLiteral("actions"), QStringLiteral("body"), QStringLiteral("body-markup")};
    }
    uint Notify(const QString&, uint, const QString&, const QString&, const QString&, const QStringList&,
                const QVariantMap&, int)
    {
        lastBannerAt_ = SteadyClock::now();
        return static_cast<uint>(++banners_);
    }

private:
    std::size_t banners_ = 0;
    SteadyClock::time_point lastBannerAt_;
};

/// Registers StatusNotifier items and hosts them as a panel does, but draws nothing.
class TrayServer final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems MEMBER items_ CONSTANT)
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost_ CONSTANT)
    Q_PROPERTY(int ProtocolVersion MEMBER version_ CONSTANT)
public:
    explicit TrayServer(QDBusConnection bus) : bus_(std::move(bus))
    {
        bus_.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
        bus_.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
    }

    /// When an item was registered, if one was since the last call.
    std::optional<SteadyClock::time_point> takeRegistration() { return std::exchange(registeredAt_, {}); }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service)
    {
        registeredAt_ = SteadyClock::now();
        // A panel reads all of the item now, which makes the program render its icon.
        const bool isPath = service.startsWith(u'/');
        QDBusMessage call = QDBusMessage::createMethodCall(
            isPath ? message().service() : service, isPath ? service : QStringLiteral("/StatusNotifierItem"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"));
        call << QStringLiteral("org.kde.StatusNotifierItem");
        bus_.asyncCall(call);
    }
    void RegisterStatusNotifierHost(const QString&) {}

private:
    QDBusConnection bus_;
    QStringList items_;
    bool hasHost_ = true;
    int version_ = 0;
    std::optional<SteadyClock::time_point> registeredAt_;
};

// NOLINTEND(readability-identifier-naming)

}
