// SPDX-License-Identifier: MIT
#pragma once

#include "program.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <cstddef>
#include <optional>
#include <utility>

namespace chimewell::benchmark {

/// A notification server that shows nothing.
class NotificationServer final : public QObject {
    Q_OBJECT
public:
    explicit NotificationServer(const QDBusConnection& bus);

    std::size_t banners() const { return banners_; }
    SteadyClock::time_point lastBannerAt() const { return lastBannerAt_; }

private:
    friend class NotificationServerAdaptor;

    std::size_t banners_ = 0;
    SteadyClock::time_point lastBannerAt_;
};

/// Registers StatusNotifier items and hosts them as a panel does, but draws nothing.
class TrayServer final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    // The bus knows these by their names. NOLINTBEGIN(readability-identifier-naming)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(int ProtocolVersion READ version)
public:
    explicit TrayServer(QDBusConnection bus);

    /// When an item was registered, if one was since the last call.
    std::optional<SteadyClock::time_point> takeRegistration() { return std::exchange(registeredAt_, {}); }

public Q_SLOTS:
    Q_SCRIPTABLE void RegisterStatusNotifierItem(const QString& service);
    Q_SCRIPTABLE void RegisterStatusNotifierHost(const QString&) {}
    // NOLINTEND(readability-identifier-naming)

private:
    static QStringList items() { return {}; }
    static bool hasHost() { return true; }
    static int version() { return 0; }

    QDBusConnection bus_;
    std::optional<SteadyClock::time_point> registeredAt_;
};

/// The interface as QtDBus exports it.
class NotificationServerAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    explicit NotificationServerAdaptor(NotificationServer& server)
        : QDBusAbstractAdaptor(&server),
          server_(server)
    {
    }

public Q_SLOTS:
    // The bus knows these methods by their names. NOLINTBEGIN(readability-identifier-naming)
    QStringList GetCapabilities();
    uint Notify(const QString& application, uint replaces, const QString& icon, const QString& title,
                const QString& body, const QStringList& actions, const QVariantMap& hints, int expiry);
    // NOLINTEND(readability-identifier-naming)

private:
    NotificationServer& server_;
};

}
