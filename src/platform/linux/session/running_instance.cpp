// SPDX-License-Identifier: MIT
#include "platform/linux/session/running_instance.h"

#include "platform/linux/freedesktop/dbus_call.h"
#include "values/shared_names.h"

#include <QDBusMessage>
#include <QString>
#include <QVariantMap>

namespace chimewell {

namespace {

constexpr int runningAnswersWithin = 2000;
constexpr int busDefault = -1; // starting one may take a while

}

bool handOver(const QDBusConnection& bus, const QStringList& urls)
{
    const QString name = QString::fromLatin1(applicationId);
    const bool isRunning = bus.call(busDaemonCall("NameHasOwner") << name).arguments().value(0).toBool();
    QDBusMessage call = QDBusMessage::createMethodCall(
        name, QString::fromLatin1(applicationObjectPath), QString::fromLatin1(applicationInterface),
        urls.isEmpty() ? QStringLiteral("Activate") : QString::fromLatin1(openMethod));
    if (!urls.isEmpty()) call << urls;
    call << QVariantMap();
    return bus.call(call, QDBus::Block, isRunning ? runningAnswersWithin : busDefault).type() ==
           QDBusMessage::ReplyMessage;
}

}
