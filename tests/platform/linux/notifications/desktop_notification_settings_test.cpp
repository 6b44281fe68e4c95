// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/desktop_notification_settings.h"

#include "harness/wait_until.h"
#include "support/environment_variable.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <string>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

TEST(DesktopNotificationSettings, OpensThePageOfTheRunningDesktop)
{
    struct Case {
        const char* desktop;
        const char* program;
        const char* arguments;
    };
    const Case cases[] = {
        {"GNOME", "gnome-control-center", "notifications"},
        {"pop:GNOME", "gnome-control-center", "notifications"},
        {"KDE", "systemsettings", "kcm_notifications"},
        {"XFCE", "xfce4-notifyd-config", ""},
    };
    const std::string path = qgetenv("PATH").toStdString();
    for (const Case& c : cases) {
        const QTemporaryDir folder;
        const QString log = folder.filePath(QStringLiteral("log"));
        QFile program(folder.filePath(QString::fromLatin1(c.program)));
        ASSERT_TRUE(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\necho \"$*\" > " + log.toLocal8Bit() + ".new\nmv " + log.toLocal8Bit() +
                      ".new " + log.toLocal8Bit() + '\n');
        program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        program.close();
        const EnvironmentVariable search("PATH", folder.path().toStdString() + ":" + path);
        const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP", c.desktop);
        DesktopNotificationSettings::open();
        EXPECT_TRUE(waitUntil([&] { return QFile::exists(log); })) << c.desktop;
        QFile written(log);
        EXPECT_TRUE(written.open(QIODevice::ReadOnly));
        EXPECT_EQ(written.readAll(), QByteArray(c.arguments) + '\n');
    }
}

TEST(DesktopNotificationSettings, OpensNothingWhereThereIsNothing)
{
    const EnvironmentVariable search("PATH", "/nonexistent");
    for (const char* name : {"GNOME", "sway"}) {
        const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP", name);
        DesktopNotificationSettings::open();
    }
}

}
}
