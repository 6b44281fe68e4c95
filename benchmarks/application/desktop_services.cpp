// SPDX-License-Identifier: MIT
#include "desktop_services.h"

#include <QDBusMessage>
#include <QDBusPendingCall>

#include <utility>

namespace chimewell::benchmark {

NotificationServer::NotificationServer(const QDBusConnection& bus)
{
    new NotificationServerAdaptor(*this); // owned by this object
    QDBusConnection connection(bus);
    connection.registerObject(QStringLiteral("/org/freedesktop/Notifications"), this);
    connection.registerService(QStringLiteral("org.freedesktop.Notifications"));
}

QStringList NotificationServerAdaptor::GetCapabilities()
{
    return {QStringLiteral("actions"), QStringLiteral("body"), QStringLiteral("body-markup")};
}

uint NotificationServerAdaptor::Notify(const QString&, uint, const QString&, const QString&, const QString&,
                                       const QStringList&, const QVariantMap&, int)
{
    server_.lastBannerAt_ = SteadyClock::now();
    return static_cast<uint>(++server_.banners_);
}

TrayServer::TrayServer(QDBusConnection bus) : bus_(std::move(bus))
{
    bus_.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                        QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportAllProperties);
    bus_.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
}

void TrayServer::RegisterStatusNotifierItem(const QString& service)
{
    registeredAt_ = SteadyClock::now();
    // A panel reads all of the item now, which makes the program render its icon.
    const QString name = service.startsWith(u'/') ? message().service() : service;
    const QString path = service.startsWith(u'/') ? service : QStringLiteral("/StatusNotifierItem");
    QDBusMessage call = QDBusMessage::createMethodCall(
        name, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"));
    call << QStringLiteral("org.kde.StatusNotifierItem");
    bus_.asyncCall(call);
}

}
