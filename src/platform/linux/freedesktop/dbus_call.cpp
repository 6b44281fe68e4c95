// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop/dbus_call.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QTimer>

#include <utility>

namespace chimewell {
namespace {

constexpr int timeoutMilliseconds = 20000;

}

void callAsync(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
               std::function<void(const QDBusMessage&)> done)
{
    if (!bus.isConnected()) { // such a call would never be answered
        const auto error = QDBusMessage::createError(QDBusError::Disconnected, QStringLiteral("No bus"));
        QTimer::singleShot(0, context, [done = std::move(done), error] { done(error); });
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, timeoutMilliseconds), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [done = std::move(done)](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         done(finished->reply());
                     });
}

QDBusMessage busDaemonCall(const char* method)
{
    return QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QString::fromLatin1(method));
}

}
