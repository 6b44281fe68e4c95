// SPDX-License-Identifier: MIT
#include "platform/linux/tray_host.h"

#include "platform/linux/dbus_call.h"
#include "support/private_bus.h"
#include "support/wait_until.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QObject>
#include <QString>

#include <gtest/gtest.h>

namespace chimewell::test {

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

/// What a panel puts on the bus.
class Watcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
public:
    Watcher(QDBusConnection connection, bool host) : connection_(std::move(connection)), host_(host)
    {
        connection_.registerObject(watcherPath, this, QDBusConnection::ExportAllProperties);
        connection_.registerService(watcherName);
    }
    bool hasHost() const { return host_; }
    void registerHost()
    {
        host_ = true;
        connection_.send(QDBusMessage::createSignal(watcherPath, watcherName,
                                                    QStringLiteral("StatusNotifierHostRegistered")));
    }

private:
    QDBusConnection connection_;
    bool host_;
};

class TrayHostTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.isRunning()) GTEST_SKIP() << "dbus-daemon is not installed";
    }
    QDBusConnection panel() { return bus.connection(QStringLiteral("panel")); }
    /// Everything sent before has been dealt with once the bus has answered the application itself.
    void settle()
    {
        bool answered = false;
        callAsync(bus.connection(QStringLiteral("application")), busDaemonCall("GetId"), qApp,
                  [&](const QDBusMessage&) { answered = true; });
        ASSERT_TRUE(waitUntil([&] { return answered; }));
    }

    PrivateBus bus;
    int appeared = 0;
};

TEST_F(TrayHostTest, IsThereOrComesLater)
{
    {
        const Watcher watcher(panel(), true);
        const TrayHost host(bus.connection(QStringLiteral("application")), [&] { ++appeared; });
        EXPECT_EQ(appeared, 0); // never before the event loop
        EXPECT_TRUE(waitUntil([&] { return appeared == 1; }));
    }
    bus.disconnect(QStringLiteral("panel"));
    const TrayHost host(bus.connection(QStringLiteral("application")), [&] { ++appeared; });
    settle();
    EXPECT_EQ(appeared, 1);
    Watcher watcher(panel(), true);
    EXPECT_TRUE(waitUntil([&] { return appeared == 2; }));
    watcher.registerHost(); // a second host: the icon is there already
    settle();
    EXPECT_EQ(appeared, 2);
}

TEST_F(TrayHostTest, AWatcherWithoutAHostShowsNothingYet)
{
    Watcher watcher(panel(), false);
    const TrayHost host(bus.connection(QStringLiteral("application")), [&] { ++appeared; });
    settle();
    EXPECT_EQ(appeared, 0);
    watcher.registerHost();
    EXPECT_TRUE(waitUntil([&] { return appeared == 1; }));
}

}

#include "tray_host_test.moc"

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
