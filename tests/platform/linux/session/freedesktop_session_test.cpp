// SPDX-License-Identifier: MIT
// What the application offers to the session's bus, and what it follows there.
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/session/desktop_appearance.h"
#include "platform/linux/session/freedesktop_application.h"
#include "platform/linux/tray/tray_host.h"
#include "support/bus_object.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QStringList>

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace Qt::StringLiterals;

class FreedesktopSessionTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    }
    static QVariant variant(const QVariant& value) { return QVariant::fromValue(QDBusVariant(value)); }

    PrivateSession bus{{"dbus-daemon"}};
    QDBusConnection connection = bus.connection(u"application"_s);
};

TEST_F(FreedesktopSessionTest, HandlesALongRequestAfterItsAnswerAndOnlyInPart)
{
    FreedesktopApplication application(connection);
    ASSERT_TRUE(application.acquireName());
    EXPECT_FALSE(FreedesktopApplication(bus.connection(u"second"_s)).acquireName());
    std::vector<std::string> seen;
    application.setHandlers({.open = [&](const auto& url) { seen.push_back(url.value_or("none")); },
                             .activate = [&] { seen.emplace_back("activate"); },
                             .action = {}});
    application.Open(QStringList(300, u"é ü"_s), {});
    application.Open({}, {});
    application.Activate({});
    EXPECT_TRUE(seen.empty());
    ASSERT_TRUE(waitUntil([&] { return seen.size() == 258; }));
    EXPECT_EQ(seen[255], "é ü");
    EXPECT_EQ(seen[256], "none");
    EXPECT_EQ(seen[257], "activate");
}

TEST_F(FreedesktopSessionTest, ReportsThePreferredAppearanceAtTheStartAndWhenItChanges)
{
    const QString path = u"/org/freedesktop/portal/desktop"_s;
    QDBusConnection desktop = bus.connection(u"desktop"_s);
    const BusObject portal(desktop, u"org.freedesktop.portal.Desktop"_s, path, {variant(variant(1U))});
    const auto set = [&](const QString& nameSpace, unsigned int scheme) {
        auto change =
            QDBusMessage::createSignal(path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        desktop.send(change << nameSpace << u"color-scheme"_s << variant(scheme));
    };
    std::vector<std::optional<bool>> reported;
    const DesktopAppearance appearance(connection,
                                       [&](std::optional<bool> isDark) { reported.push_back(isDark); });
    ASSERT_TRUE(waitUntil([&] { return reported.size() == 1; }));
    set(u"org.gnome.desktop.interface"_s, 2); // another setting of the same name
    set(u"org.freedesktop.appearance"_s, 2);
    set(u"org.freedesktop.appearance"_s, 0);
    ASSERT_TRUE(waitUntil([&] { return reported.size() == 3; }));
    EXPECT_EQ(reported, (std::vector<std::optional<bool>>{true, false, std::nullopt}));
}

TEST_F(FreedesktopSessionTest, FollowsTraysThatComeAndGo)
{
    const QString name = u"org.kde.StatusNotifierWatcher"_s;
    const QString path = u"/StatusNotifierWatcher"_s;
    using enum TrayKind;
    std::vector<TrayKind> told;
    const auto hears = [&](TrayKind kind) {
        return waitUntil([&] { return !told.empty() && told.back() == kind; });
    };
    QDBusConnection panel = bus.connection(u"panel"_s);
    std::optional<BusObject> watcher(std::in_place, panel, name, path,
                                     QVariantList{variant(false)}); // a watcher alone shows nothing yet
    const TrayHost host(connection, [&](TrayKind kind) { told.push_back(kind); });
    EXPECT_TRUE(told.empty()); // never before the event loop
    EXPECT_TRUE(waitUntil([&] { return watcher->calls.size() == 1; }));
    for (const bool hasHost : {true, true, false, true}) { // a second host changes nothing
        const std::size_t before = watcher->calls.size();
        watcher->answer = {variant(hasHost)};
        panel.send(QDBusMessage::createSignal(
            path, name, hasHost ? u"StatusNotifierHostRegistered"_s : u"StatusNotifierHostUnregistered"_s));
        EXPECT_TRUE(waitUntil([&] { return watcher->calls.size() > before; }));
    }
    EXPECT_TRUE(hears(statusNotifier));
    watcher.reset(); // it exits
    EXPECT_TRUE(hears(none));
    EXPECT_EQ(told, (std::vector{statusNotifier, none, statusNotifier, none}));
}

}
}
