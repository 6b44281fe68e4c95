// SPDX-License-Identifier: MIT
#include "support/recording_notification_server.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>

#include <utility>

namespace chimewell::test {
namespace {

constexpr char name[] = "org.freedesktop.Notifications";
constexpr char path[] = "/org/freedesktop/Notifications";

}

RecordingNotificationServer::RecordingNotificationServer(QDBusConnection bus, QStringList capabilities)
    : bus_(std::move(bus)),
      capabilities_(std::move(capabilities))
{
    bus_.registerVirtualObject(QString::fromLatin1(path), this);
    bus_.interface()->registerService(QString::fromLatin1(name),
                                      QDBusConnectionInterface::ReplaceExistingService,
                                      QDBusConnectionInterface::AllowReplacement);
}

RecordingNotificationServer::~RecordingNotificationServer()
{
    bus_.interface()->unregisterService(QString::fromLatin1(name));
    bus_.unregisterObject(QString::fromLatin1(path));
}

void RecordingNotificationServer::answerHeld()
{
    holding_ = false;
    for (const QDBusMessage& reply : std::exchange(held_, {}))
        bus_.send(reply);
}

void RecordingNotificationServer::click(uint id, const QString& action)
{
    emitSignal("ActionInvoked", {id, action});
}

void RecordingNotificationServer::close(uint id)
{
    emitSignal("NotificationClosed", {id, 2U});
}

void RecordingNotificationServer::sendActivationToken(uint id, const QString& token)
{
    emitSignal("ActivationToken", {id, token});
}

QString RecordingNotificationServer::introspect(const QString&) const
{
    return {};
}

bool RecordingNotificationServer::handleMessage(const QDBusMessage& message, const QDBusConnection&)
{
    QDBusMessage reply;
    if (message.member() == QStringLiteral("GetServerInformation")) {
        bus_.send(message.createReply({software, QString(), QString(), QString()}));
        return true;
    }
    if (message.member() == QStringLiteral("GetCapabilities")) {
        ++capabilityQuestions;
        reply = message.createReply(capabilities_);
    } else if (message.member() == QStringLiteral("Notify")) {
        QVariantList arguments = message.arguments();
        arguments[6] = qdbus_cast<QVariantMap>(arguments.value(6)); // the hints
        banners.push_back({.signature = message.signature(),
                           .arguments = arguments,
                           .title = arguments.value(3).toString(),
                           .body = arguments.value(4).toString(),
                           .actions = arguments.value(5).toStringList()});
        reply = message.createReply(static_cast<uint>(banners.size()));
    } else {
        return false;
    }
    if (holding_)
        held_.push_back(reply);
    else
        bus_.send(reply);
    return true;
}

void RecordingNotificationServer::emitSignal(const char* signal, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createSignal(QString::fromLatin1(path), QString::fromLatin1(name),
                                                      QString::fromLatin1(signal));
    message.setArguments(arguments);
    bus_.send(message);
}

}
