// SPDX-License-Identifier: MIT
// The main function of tests that need Qt's event loop or windows, on a screen that nobody sees. The user's
// session and home stay out of reach.
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    for (const char* variable :
         {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_CURRENT_DESKTOP",
          "DISPLAY", "WAYLAND_DISPLAY", "QT_STYLE_OVERRIDE", "PULSE_SERVER"})
        qunsetenv(variable);
    qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    // A screen as people have them; Qt's own would be 800 by 800.
    QFile screen(home.filePath(QStringLiteral("screen.json")));
    if (screen.open(QIODevice::WriteOnly))
        screen.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1080,
                                      "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toLocal8Bit());

    const QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
