// SPDX-License-Identifier: MIT
// What the application offers to the session's bus, and what it follows there.
#include "harness/private_bus.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/dbus_call.h"
#include "platform/linux/session/desktop_appearance.h"
#include "platform/linux/session/freedesktop_application.h"
#include "values/shared_names.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariantMap>

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace Qt::StringLiterals;

class FreedesktopApplicationTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
        application.setHandlers(
            {.open = [this](const auto& url) { seen.push_back("open " + url.value_or("(none)")); },
             .activate = [this] { seen.emplace_back("activate"); },
             .action = [this](const std::string& name) { seen.push_back("action " + name); }});
    }
    /// Sends the call as another program would and runs until its answer.
    QDBusMessage::MessageType call(const QString& method, const QVariantList& arguments)
    {
        auto message = QDBusMessage::createMethodCall(QLatin1StringView(applicationId),
                                                      QLatin1StringView(applicationObjectPath),
                                                      QLatin1StringView(applicationInterface), method);
        message.setArguments(arguments);
        std::optional<QDBusMessage> answer;
        callAsync(bus.connection(u"caller"_s), message, qApp,
                  [&](const QDBusMessage& reply) { answer = reply; });
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(QDBusMessage()).type();
    }

    PrivateBus bus;
    FreedesktopApplication application{bus.connection(u"application"_s)};
    std::vector<std::string> seen;
};

TEST_F(FreedesktopApplicationTest, HandsEveryRequestOver)
{
    ASSERT_TRUE(application.acquireName());
    EXPECT_FALSE(FreedesktopApplication(bus.connection(u"second"_s)).acquireName());
    const QVariantMap platformData{{u"activation-token"_s, u"t"_s}};
    EXPECT_EQ(call(u"Open"_s, {QStringList{u"chimewell:a"_s, u"é ü"_s}, platformData}),
              QDBusMessage::ReplyMessage);
    call(u"Open"_s, {QStringList(), QVariantMap()});
    call(u"Activate"_s, {QVariantMap()});
    call(u"ActivateAction"_s, {u"mute"_s, QVariantList(), QVariantMap()});
    EXPECT_EQ(call(u"Open"_s, {u"no list"_s, QVariantMap()}), QDBusMessage::ErrorMessage);
    EXPECT_EQ(call(u"deleteLater"_s, {}), QDBusMessage::ErrorMessage);
    ASSERT_TRUE(waitUntil([&] { return seen.size() == 5; }));
    EXPECT_EQ(seen, (std::vector<std::string>{"open chimewell:a", "open é ü", "open (none)", "activate",
                                              "action mute"}));
}

TEST_F(FreedesktopApplicationTest, HandlesALongRequestAfterItsAnswerAndOnlyInPart)
{
    application.Open(QStringList(300, u"url"_s), {});
    application.Activate({});
    EXPECT_TRUE(seen.empty());
    ASSERT_TRUE(waitUntil([&] { return !seen.empty() && seen.back() == "activate"; }));
    EXPECT_EQ(seen.size(), 257U);
}

/// As much of a desktop's portal as tells of light and dark.
class Portal : public QDBusVirtualObject {
public:
    explicit Portal(QDBusConnection connection) : connection_(std::move(connection))
    {
        connection_.registerVirtualObject(path, this);
        connection_.registerService(u"org.freedesktop.portal.Desktop"_s);
    }
    void set(const QString& nameSpace, unsigned int scheme)
    {
        auto change = QDBusMessage::createSignal(path, interface, u"SettingChanged"_s);
        change << nameSpace << u"color-scheme"_s << QVariant::fromValue(QDBusVariant(scheme));
        connection_.send(change);
    }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& read, const QDBusConnection& connection) override
    {
        const QVariant dark = QVariant::fromValue(QDBusVariant(1U));
        return connection.send(read.createReply(QVariant::fromValue(QDBusVariant(dark))));
    }

private:
    const QString path = u"/org/freedesktop/portal/desktop"_s;
    const QString interface = u"org.freedesktop.portal.Settings"_s;
    QDBusConnection connection_;
};

TEST(DesktopAppearance, ReportsThePreferenceAtTheStartAndWhenItChanges)
{
    PrivateBus bus;
    if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    Portal portal(bus.connection(u"desktop"_s));
    std::vector<std::optional<bool>> reported;
    const DesktopAppearance appearance(bus.connection(u"application"_s),
                                       [&](std::optional<bool> isDark) { reported.push_back(isDark); });
    ASSERT_TRUE(waitUntil([&] { return reported.size() == 1; }));
    portal.set(u"org.gnome.desktop.interface"_s, 2); // another setting of the same name
    portal.set(u"org.freedesktop.appearance"_s, 2);
    portal.set(u"org.freedesktop.appearance"_s, 0);
    ASSERT_TRUE(waitUntil([&] { return reported.size() == 3; }));
    EXPECT_EQ(reported, (std::vector<std::optional<bool>>{true, false, std::nullopt}));
}

}
}
