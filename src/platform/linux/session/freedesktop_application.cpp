// SPDX-License-Identifier: MIT
#include "platform/linux/session/freedesktop_application.h"

#include "platform/linux/freedesktop/dbus_call.h"
#include "values/shared_names.h"

#include <QDBusMessage>

#include <algorithm>
#include <utility>

namespace chimewell {

FreedesktopApplication::FreedesktopApplication(QDBusConnection bus) : bus_(std::move(bus))
{
    connect(&next_, &QTimer::timeout, this, &FreedesktopApplication::handleNext);
}

bool FreedesktopApplication::acquireName()
{
    return bus_.registerObject(QString::fromLatin1(applicationObjectPath), this,
                               QDBusConnection::ExportScriptableSlots) &&
           bus_.registerService(QString::fromLatin1(applicationId));
}

void FreedesktopApplication::Activate(const QVariantMap&)
{
    later([this] { handlers_.activate(); });
}

void FreedesktopApplication::Open(const QStringList& uris, const QVariantMap&)
{
    constexpr qsizetype maxUrls = 256; // no honest sender has more at once
    if (uris.isEmpty()) later([this] { handlers_.open(std::nullopt); });
    for (const QString& uri : uris.first(std::min(uris.size(), maxUrls)))
        later([this, url = uri.toStdString()] { handlers_.open(url); });
}

void FreedesktopApplication::ActivateAction(const QString& name, const QVariantList&, const QVariantMap&)
{
    later([this, action = name.toStdString()] { handlers_.action(action); });
}

void FreedesktopApplication::later(std::function<void()> request)
{
    requests_.push_back(std::move(request));
    next_.start();
}

void FreedesktopApplication::handleNext()
{
    const auto request = std::move(requests_.front());
    requests_.pop_front();
    if (requests_.empty()) next_.stop();
    request();
}

bool requestOpen(const QDBusConnection& bus, const QStringList& urls)
{
    constexpr int runningAnswersWithin = 2000;
    constexpr int busDefault = -1; // starting the application may take a while
    const QString name = QString::fromLatin1(applicationId);
    const bool isRunning = firstArgument(bus.call(busDaemonCall("NameHasOwner") << name)).toBool();
    auto call = QDBusMessage::createMethodCall(
        name, QString::fromLatin1(applicationObjectPath), QString::fromLatin1(applicationInterface),
        urls.isEmpty() ? QStringLiteral("Activate") : QString::fromLatin1(openMethod));
    if (!urls.isEmpty()) call << urls;
    call << QVariantMap();
    return bus.call(call, QDBus::Block, isRunning ? runningAnswersWithin : busDefault).type() ==
           QDBusMessage::ReplyMessage;
}

}
