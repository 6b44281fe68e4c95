// SPDX-License-Identifier: MIT
#include "platform/linux/session/desktop_appearance.h"

#include "platform/linux/freedesktop/dbus_call.h"

#include <QDBusMessage>
#include <QDBusVariant>

#include <utility>

namespace chimewell {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString path = u"/org/freedesktop/portal/desktop"_s;
const QString interface = u"org.freedesktop.portal.Settings"_s;
const QString appearance = u"org.freedesktop.appearance"_s;
const QString colourScheme = u"color-scheme"_s;

}

DesktopAppearance::DesktopAppearance(QDBusConnection bus, std::function<void(std::optional<bool>)> changed)
    : changed_(std::move(changed))
{
    bus.connect(service, path, interface, u"SettingChanged"_s, this, SLOT(settingChanged(QDBusMessage)));
    auto question = QDBusMessage::createMethodCall(service, path, interface, u"Read"_s);
    question << appearance << colourScheme;
    callAsync(bus, question, this, [this](const QDBusMessage& reply) {
        const QVariant answer = firstArgument(reply);
        // QtDBus can deliver a reply later than a signal that was sent after it. Read wraps its answer in one
        // variant more than it declares.
        if (answer.isValid() && !hasChanged_)
            report(answer.value<QDBusVariant>().variant().value<QDBusVariant>().variant());
    });
}

void DesktopAppearance::settingChanged(const QDBusMessage& change)
{
    const QVariantList arguments = change.arguments();
    if (arguments.size() != 3 || arguments[0] != appearance || arguments[1] != colourScheme) return;
    hasChanged_ = true;
    report(arguments[2].value<QDBusVariant>().variant());
}

void DesktopAppearance::report(const QVariant& value) const
{
    constexpr unsigned int prefersDark = 1;
    constexpr unsigned int prefersLight = 2;
    const unsigned int scheme = value.toUInt();
    if (scheme == prefersDark || scheme == prefersLight)
        changed_(scheme == prefersDark);
    else
        changed_(std::nullopt);
}

}
