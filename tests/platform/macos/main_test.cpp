// SPDX-License-Identifier: MIT
#include "objective_c.h"
#include "support/temporary_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMetaObject>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

/// The application's main function, renamed by the build.
int chimewellMain(int argc, char** argv);

namespace chimewell::test {

using namespace objc;

TEST(MainTest, SpeaksTheUsersLanguageAndNeedsNoWindow)
{
    const TemporaryFolder home;
    qputenv("HOME", home.path().c_str());
    qputenv("XDG_RUNTIME_DIR", home.path().c_str());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LANGUAGE", "de");
    reset();
    qAddPreRoutine([] { // as soon as there is a Qt application
        EXPECT_TRUE(qEnvironmentVariableIsSet("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM"));
        const auto lookAndQuit = [] {
            notify(shared("defaultCenter"), "NSApplicationDidFinishLaunchingNotification");
            EXPECT_TRUE(std::ranges::any_of(QApplication::allWidgets(), [](QWidget* widget) {
                const auto* button = qobject_cast<QAbstractButton*>(widget);
                return button && button->text() == QStringLiteral("Systemeinstellungen öffnen");
            }));
            EXPECT_EQ(QCoreApplication::applicationName(), QStringLiteral("Chimewell"));
            EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
            QCoreApplication::exit();
        };
        QMetaObject::invokeMethod(qApp, lookAndQuit, Qt::QueuedConnection);
    });
    char program[] = "main";
    char* arguments[] = {program, nullptr};
    EXPECT_EQ(chimewellMain(1, arguments), 0);
    EXPECT_TRUE(std::filesystem::exists(home.path() / "Support/Chimewell/dormant"));
}

}
