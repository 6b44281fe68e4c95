// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/application_launcher.h"

#include "platform/linux/freedesktop/dbus_call.h"
#include "platform/linux/freedesktop/dbus_refusal.h"
#include "platform/linux/freedesktop/desktop_exec.h"
#include "platform/linux/workspace/detached_process.h"
#include "values/shared_names.h"

#include <QDBusMessage>
#include <QString>
#include <QVariantMap>

#include <utility>

namespace chimewell {

namespace {

/// The path that an application's id implies (freedesktop.org, Desktop Entry 1.5, "D-Bus Activation").
QString objectPath(QString id)
{
    return u'/' + id.replace(u'.', u'/').replace(u'-', u'_');
}

QVariantMap platformData(const std::string& activationToken)
{
    if (activationToken.empty()) return {};
    const QString token = QString::fromStdString(activationToken);
    return {{QStringLiteral("activation-token"), token}, {QStringLiteral("desktop-startup-id"), token}};
}

}

ApplicationLauncher::ApplicationLauncher(QDBusConnection bus, std::filesystem::path home)
    : bus_(std::move(bus)),
      home_(std::move(home))
{
}

void ApplicationLauncher::launch(const InstalledEntry& application, const std::string& activationToken)
{
    if (!application.entry.flag("DBusActivatable")) {
        runCommand(application, activationToken);
        return;
    }
    const QString id = QString::fromStdString(application.id);
    QDBusMessage activate = QDBusMessage::createMethodCall(
        id, objectPath(id), QString::fromLatin1(applicationInterface), QStringLiteral("Activate"));
    activate.setArguments({platformData(activationToken)});
    callAsync(bus_, activate, &context_, [this, application, activationToken](const QDBusMessage& reply) {
        if (isRefusal(reply)) runCommand(application, activationToken);
    });
}

void ApplicationLauncher::runCommand(const InstalledEntry& application,
                                     const std::string& activationToken) const
{
    const auto command = commandLine(application.entry, application.file);
    if (!command) return;
    const std::string folder = application.entry.text("Path");
    startDetached(*command, folder.empty() ? home_ : std::filesystem::path(folder), activationToken);
}

}
