// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <utility>
#include <vector>

namespace chimewell::test {

/// A notification server that shows nothing, notes what it is asked and does what the test says.
class RecordingNotificationServer : public QDBusVirtualObject {
public:
    struct Banner {
        QVariantList arguments; ///< Of the call, with these among them.
        QString title, body;
        QStringList actions;
    };

    /// Takes the servers' name on `bus`, also from another of these.
    RecordingNotificationServer(QDBusConnection bus, QStringList capabilities, QString software)
        : bus_(std::move(bus)),
          capabilities_(std::move(capabilities)),
          software_(std::move(software))
    {
        bus_.registerVirtualObject(path_, this);
        bus_.interface()->registerService(name_, QDBusConnectionInterface::ReplaceExistingService,
                                          QDBusConnectionInterface::AllowReplacement);
    }
    ~RecordingNotificationServer() override { bus_.unregisterObject(path_); }

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
        auto message = QDBusMessage::createSignal(path_, name_, QString::fromLatin1(signal));
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

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        QDBusMessage reply;
        if (message.member() == QStringLiteral("GetServerInformation"))
            return bus_.send(message.createReply({software_, QString(), QString(), QString()}));
        if (message.member() == QStringLiteral("GetCapabilities")) {
            ++capabilityQuestions;
            reply = message.createReply(capabilities_);
        } else if (message.member() == QStringLiteral("Notify")) {
            QVariantList arguments = message.arguments();
            arguments[6] = qdbus_cast<QVariantMap>(arguments.value(6)); // the hints
            banners.push_back(
                {arguments, arguments[3].toString(), arguments[4].toString(), arguments[5].toStringList()});
            reply = message.createReply(static_cast<uint>(banners.size()));
        } else if (message.member() == QStringLiteral("CloseNotification")) {
            withdrawn.push_back(message.arguments().value(0).toUInt());
            close(withdrawn.back());
            reply = message.createReply();
        } else {
            return false;
        }
        if (!holding_) return bus_.send(reply);
        held_.push_back(reply);
        return true;
    }

private:
    const QString name_ = QStringLiteral("org.freedesktop.Notifications");
    const QString path_ = QStringLiteral("/org/freedesktop/Notifications");
    QDBusConnection bus_;
    QStringList capabilities_;
    QString software_;
    bool holding_ = false;
    std::vector<QDBusMessage> held_;
};

}
