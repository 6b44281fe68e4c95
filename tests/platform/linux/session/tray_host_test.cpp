// SPDX-License-Identifier: MIT
#include "platform/linux/session/tray_host.h"

#include "harness/private_bus.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/dbus_call.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QObject>
#include <QString>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

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
    void setHost(bool host)
    {
        host_ = host;
        connection_.send(QDBusMessage::createSignal(watcherPath, watcherName,
                                                    host ? QStringLiteral("StatusNotifierHostRegistered")
                                                         : QStringLiteral("StatusNotifierHostUnregistered")));
    }

private:
    QDBusConnection connection_;
    bool host_;
};

class TrayHostTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
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
};

TEST_F(TrayHostTest, FollowsHostsThatComeAndGo)
{
    std::vector<bool> told;
    const auto hears = [&](bool isThere) {
        return waitUntil([&] { return !told.empty() && told.back() == isThere; });
    };
    auto firstPanel = std::make_unique<Watcher>(panel(), true);
    const TrayHost host(bus.connection(QStringLiteral("application")),
                        [&](bool isThere) { told.push_back(isThere); });
    EXPECT_TRUE(told.empty()); // never before the event loop
    EXPECT_TRUE(hears(true));
    firstPanel.reset(); // it crashes
    bus.disconnect(QStringLiteral("panel"));
    EXPECT_TRUE(hears(false));
    Watcher watcher(panel(), false); // a watcher alone shows nothing yet
    settle();
    EXPECT_EQ(told.size(), 2u);
    watcher.setHost(true);
    EXPECT_TRUE(hears(true));
    watcher.setHost(true); // a second one changes nothing
    watcher.setHost(false);
    EXPECT_TRUE(hears(false));
    EXPECT_EQ(told, (std::vector{true, false, true, false}));
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
