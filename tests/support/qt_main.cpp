// SPDX-License-Identifier: MIT
// The main function of tests that need Qt's event loop. The user's session and home stay out of reach.
#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
                                 "XDG_CURRENT_DESKTOP", "DISPLAY", "WAYLAND_DISPLAY", "PULSE_SERVER"})
        qunsetenv(variable);
    qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");

    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
