// SPDX-License-Identifier: MIT
#include "platform/linux/running_instance.h"

#include "platform/linux/freedesktop_application.h"

#include <QDBusMessage>
#include <QString>
#include <QVariantMap>

namespace chimewell {

bool handOver(const QDBusConnection& bus, const QStringList& urls)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(QString::fromLatin1(FreedesktopApplication::busName),
                                       QString::fromLatin1(FreedesktopApplication::objectPath),
                                       QStringLiteral("org.freedesktop.Application"),
                                       urls.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
    if (!urls.isEmpty()) call << urls;
    call << QVariantMap();
    return bus.call(call).type() == QDBusMessage::ReplyMessage;
}

}
