// SPDX-License-Identifier: MIT
#pragma once

#include "support/bus_object.h"

#include <QDBusArgument>
#include <QStringList>

namespace chimewell::test {

/// A notification server that shows nothing, notes what it is asked and does what the test says.
class RecordingNotificationServer : public BusObject {
public:
    struct Banner {
        QVariantList arguments; ///< Of the call, with these among them.
        QString title, body;
        QStringList actions;
    };

    RecordingNotificationServer(const QDBusConnection& bus, QStringList capabilities, QString software)
        : BusObject(bus, QStringLiteral("org.freedesktop.Notifications"),
                    QStringLiteral("/org/freedesktop/Notifications")),
          capabilities_(std::move(capabilities)),
          software_(std::move(software))
    {
    }

    /// From now on calls are noted, but answered by `answerHeld` only.
    void hold() { holding_ = true; }
    void answerHeld()
    {
        holding_ = false;
        for (const QDBusMessage& reply : std::exchange(held_, {}))
            bus_.send(reply);
    }
    void tell(const char* signal, uint banner, const QVariant& value)
    {
        auto message = QDBusMessage::createSignal(path_, service_, QString::fromLatin1(signal));
        bus_.send(message << banner << value);
    }
    void click(uint banner, const char* action = "default")
    {
        tell("ActionInvoked", banner, QString::fromLatin1(action));
    }
    void close(uint banner) { tell("NotificationClosed", banner, 2U); }

    std::vector<Banner> banners;
    std::vector<uint> withdrawn;
    int capabilityQuestions = 0;

    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override
    {
        const QString member = call.member();
        QVariantList arguments = call.arguments();
        QVariant result;
        if (member == QStringLiteral("GetServerInformation")) {
            return bus_.send(call.createReply({software_, QString(), QString(), QString()}));
        } else if (member == QStringLiteral("GetCapabilities")) {
            ++capabilityQuestions;
            result = capabilities_;
        } else if (member == QStringLiteral("Notify")) {
            arguments[6] = qdbus_cast<QVariantMap>(arguments[6]); // the hints
            banners.push_back(
                {arguments, arguments[3].toString(), arguments[4].toString(), arguments[5].toStringList()});
            result = static_cast<uint>(banners.size());
        } else if (member == QStringLiteral("CloseNotification")) {
            withdrawn.push_back(arguments[0].toUInt());
            close(withdrawn.back());
        } else {
            return false;
        }
        const auto reply = result.isValid() ? call.createReply(result) : call.createReply();
        if (!holding_) return bus_.send(reply);
        held_.push_back(reply);
        return true;
    }

private:
    QStringList capabilities_;
    QString software_;
    bool holding_ = false;
    std::vector<QDBusMessage> held_;
};

}
