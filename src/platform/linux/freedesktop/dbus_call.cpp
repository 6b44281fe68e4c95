// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop/dbus_call.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QString>
#include <QTimer>

#include <utility>

namespace chimewell {

using namespace Qt::StringLiterals;

void callAsync(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
               std::function<void(const QDBusMessage&)> done)
{
    constexpr int timeoutMilliseconds = 20000;
    if (!bus.isConnected()) { // such a call would never be answered
        const auto error = QDBusMessage::createError(QDBusError::Disconnected, u"No bus"_s);
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
    const QString name = u"org.freedesktop.DBus"_s;
    return QDBusMessage::createMethodCall(name, u"/org/freedesktop/DBus"_s, name,
                                          QString::fromLatin1(method));
}

QVariant firstArgument(const QDBusMessage& reply)
{
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
}

bool isRefusal(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ErrorMessage) return false;
    const QDBusError::ErrorType error = QDBusError(reply).type();
    return error != QDBusError::NoReply && error != QDBusError::Timeout && error != QDBusError::TimedOut;
}

}
