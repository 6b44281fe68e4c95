// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/desktop_notification_settings.h"

#include "platform/linux/notifications/current_desktop.h"

#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>

namespace chimewell {
namespace {

QStringList settingsCommand()
{
    switch (currentDesktop()) {
    case CurrentDesktop::gnome:
        return {QStringLiteral("gnome-control-center"), QStringLiteral("notifications")};
    case CurrentDesktop::plasma:
        return {QStringLiteral("systemsettings"), QStringLiteral("kcm_notifications")};
    case CurrentDesktop::xfce:
        return {QStringLiteral("xfce4-notifyd-config")};
    case CurrentDesktop::other:
        break;
    }
    return {};
}

}

void openDesktopNotificationSettings()
{
    QStringList command = settingsCommand();
    if (command.isEmpty()) return;
    const QString program = QStandardPaths::findExecutable(command.takeFirst());
    if (!program.isEmpty()) QProcess::startDetached(program, command);
}

}
