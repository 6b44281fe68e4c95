// SPDX-License-Identifier: MIT
#include "platform/linux/session/desktop_appearance.h"

#include "platform/linux/freedesktop/dbus_call.h"

#include <QDBusMessage>
#include <QDBusVariant>

#include <utility>

namespace chimewell {

namespace {

QString service()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}
QString path()
{
    return QStringLiteral("/org/freedesktop/portal/desktop");
}
QString interface()
{
    return QStringLiteral("org.freedesktop.portal.Settings");
}
QString appearance()
{
    return QStringLiteral("org.freedesktop.appearance");
}
QString colourScheme()
{
    return QStringLiteral("color-scheme");
}

constexpr unsigned int prefersDark = 1;
constexpr unsigned int prefersLight = 2;

}

DesktopAppearance::DesktopAppearance(const QDBusConnection& bus,
                                     std::function<void(std::optional<bool>)> changed)
    : changed_(std::move(changed))
{
    QDBusConnection connection(bus);
    connection.connect(service(), path(), interface(), QStringLiteral("SettingChanged"), this,
                       SLOT(settingChanged(QDBusMessage)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(service(), path(), interface(), QStringLiteral("Read"));
    question << appearance() << colourScheme();
    callAsync(bus, question, this, [this](const QDBusMessage& reply) {
        if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return;
        // Read wraps its answer once more than it says.
        tell(reply.arguments().constFirst().value<QDBusVariant>().variant().value<QDBusVariant>().variant());
    });
}

void DesktopAppearance::settingChanged(const QDBusMessage& change)
{
    const QVariantList arguments = change.arguments();
    if (arguments.size() == 3 && arguments[0] == appearance() && arguments[1] == colourScheme())
        tell(arguments[2].value<QDBusVariant>().variant());
}

void DesktopAppearance::tell(const QVariant& value) const
{
    const unsigned int scheme = value.toUInt();
    if (scheme == prefersDark)
        changed_(true);
    else if (scheme == prefersLight)
        changed_(false);
    else
        changed_(std::nullopt);
}

}
