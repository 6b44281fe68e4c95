// SPDX-License-Identifier: MIT
// What tests/contracts does not ask of every NotificationCenter: the calls, clicks and failures of the bus.
#include "platform/linux/notifications/dbus_notification_center.h"

#include "harness/private_bus.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/activation.h"
#include "support/fake_time.h"
#include "support/recording_notification_server.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using Texts = std::vector<std::string>;

const QString serverName = u"org.freedesktop.Notifications"_s;

class DbusNotificationCenterTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    }

    void startCenter()
    {
        center = std::make_unique<DbusNotificationCenter>(bus.connection(u"center"_s), time, tokens);
        center->setCategory({.identifier = "AGENT_EVENT",
                             .actionIdentifier = "FOCUS_SESSION",
                             .actionTitle = "Open Session"});
        center->setResponseHandler([this](const NotificationResponse& response) {
            responses.push_back(response.actionIdentifier + " " + response.userInfo.at("cwd"));
            tokensSeen.push_back(tokens.take());
        });
    }

    std::unique_ptr<RecordingNotificationServer>
    startServer(const QString& connection, const QStringList& capabilities = {u"actions"_s, u"body-markup"_s})
    {
        return std::make_unique<RecordingNotificationServer>(bus.connection(connection), capabilities);
    }

    void post(const std::string& title, std::string body = "Body")
    {
        center->post({.identifier = "id-" + title,
                      .categoryIdentifier = "AGENT_EVENT",
                      .title = title,
                      .body = std::move(body),
                      .userInfo = {{"cwd", title}}});
    }

    NotificationPermission permission()
    {
        std::optional<NotificationPermission> answer;
        center->readPermission([&](NotificationPermission value) { answer = value; });
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(NotificationPermission::notDetermined);
    }

    static bool gets(const std::unique_ptr<RecordingNotificationServer>& server, std::size_t banners)
    {
        return waitUntil([&] { return server->banners.size() == banners; });
    }

    /// Returns when the server has seen everything that was sent to it, and we have seen its signals.
    static void synchronize()
    {
        const auto ping = QDBusConnection(u"center"_s)
                              .asyncCall(QDBusMessage::createMethodCall(
                                  serverName, u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
        EXPECT_TRUE(waitUntil([&] { return ping.isFinished(); }));
        QCoreApplication::processEvents();
    }

    /// How many match rules our connection has with the bus; -1 when the bus keeps no statistics.
    static int matchRules()
    {
        const QDBusConnection connection(u"center"_s);
        auto call =
            QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                           u"org.freedesktop.DBus.Debug.Stats"_s, u"GetConnectionStats"_s);
        call << connection.baseService();
        const QDBusMessage reply = connection.call(call);
        if (reply.type() != QDBusMessage::ReplyMessage) return -1;
        return qdbus_cast<QVariantMap>(reply.arguments().constFirst()).value(u"MatchRules"_s, -1).toInt();
    }

    PrivateBus bus;
    FakeTime time;
    ActivationTokens tokens;
    std::unique_ptr<DbusNotificationCenter> center;
    Texts responses;
    Texts tokensSeen;
};

TEST_F(DbusNotificationCenterTest, HandsTheServerAllItNeeds)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    post("One & two", "<b>a</b>\n&amp; b");
    ASSERT_TRUE(gets(server, 1));
    EXPECT_EQ(server->banners[0].signature, u"susssasa{sv}i"_s);
    const QString id = u"app.chimewell.Chimewell"_s;
    const QVariantMap hints{{u"desktop-entry"_s, id},
                            {u"category"_s, u"x-chimewell.agent"_s},
                            {u"urgency"_s, QVariant::fromValue(uchar{1})},
                            {u"suppress-sound"_s, true}};
    const QStringList actions{u"default"_s, u""_s, u"FOCUS_SESSION"_s, u"Open Session"_s};
    EXPECT_EQ(server->banners[0].arguments,
              (QVariantList{u"Chimewell"_s, 0U, id, u"One & two"_s, u"&lt;b&gt;a&lt;/b&gt;\n&amp;amp; b"_s,
                            actions, hints, -1}));
    EXPECT_EQ(time.runningTimers(), 0U);
}

TEST_F(DbusNotificationCenterTest, AsksAReplacedServerAgainAndForgetsTheBannersOfTheOld)
{
    const struct {
        QStringList capabilities;
        QString software;
        QString body;
        QStringList actions;
    } cases[] = {
        {{}, {}, u"<&>"_s, {}},
        {{u"actions"_s, u"body-markup"_s},
         {},
         u"&lt;&amp;&gt;"_s,
         {u"default"_s, u""_s, u"FOCUS_SESSION"_s, u"Open Session"_s}},
        {{u"actions"_s}, u"Xfce Notify Daemon"_s, u"<&>"_s, {u"FOCUS_SESSION"_s, u"Open Session"_s}},
    };
    startCenter();
    std::vector<std::unique_ptr<RecordingNotificationServer>> servers;
    for (const auto& each : cases) {
        servers.push_back(startServer(u"server %1"_s.arg(servers.size()), each.capabilities));
        servers.back()->software = each.software;
        ASSERT_TRUE(waitUntil([&] { return center->isAvailable(); }));
        synchronize();
        servers.back()->click(1); // the number of an old server's banner
        post("a", "<&>");
        ASSERT_TRUE(gets(servers.back(), 1));
        EXPECT_EQ(servers.back()->banners[0].body, each.body);
        EXPECT_EQ(servers.back()->banners[0].actions, each.actions);
        synchronize();
    }
    EXPECT_EQ(responses.size(), 0U);

    // A server that is replaced before it answered decides nothing.
    const auto slow = startServer(u"slow"_s, {});
    slow->hold();
    synchronize();
    post("d", "<");
    ASSERT_TRUE(waitUntil([&] { return slow->capabilityQuestions == 1; }));
    const auto quick = startServer(u"quick"_s);
    slow->answerHeld();
    ASSERT_TRUE(gets(quick, 1));
    EXPECT_EQ(quick->banners[0].body, u"&lt;"_s);
    EXPECT_EQ(slow->banners.size(), 0U);
}

TEST_F(DbusNotificationCenterTest, WaitsASecondForTheCapabilitiesAndThenAssumesThem)
{
    const auto server = startServer(u"server"_s, {u"body"_s});
    server->hold();
    startCenter();
    post("a", "<");
    ASSERT_TRUE(waitUntil([&] { return server->capabilityQuestions == 1; }));
    time.advance(999ms);
    synchronize();
    EXPECT_EQ(server->banners.size(), 0U);

    time.advance(1ms);
    post("b", "<"); // does not wait again
    ASSERT_TRUE(gets(server, 2));
    EXPECT_EQ(server->banners[0].title, u"a"_s);
    for (const auto& banner : server->banners) {
        EXPECT_EQ(banner.body, u"&lt;"_s);
        EXPECT_EQ(banner.actions.size(), 4);
    }

    server->answerHeld();
    synchronize();
    post("c", "<");
    ASSERT_TRUE(gets(server, 3));
    EXPECT_EQ(server->banners[2].body, u"<"_s) << "known by now";
    EXPECT_EQ(server->capabilityQuestions, 1);
}

TEST_F(DbusNotificationCenterTest, DropsWhatAHungServerCouldNotTake)
{
    const auto server = startServer(u"server"_s);
    server->hold();
    startCenter();
    for (int i = 0; i < 100; ++i)
        post("waiting");
    time.advance(1s);
    for (int i = 0; i < 100; ++i)
        post("sent");
    synchronize();
    EXPECT_EQ(server->banners.size(), 64U);

    server->answerHeld();
    synchronize();
    post("after");
    EXPECT_TRUE(gets(server, 65));
}

TEST_F(DbusNotificationCenterTest, ReportsClicksOnOurBannersOnlyWithTheirTokens)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    for (const char* title : {"a", "b", "c"})
        post(title);
    ASSERT_TRUE(gets(server, 3));
    synchronize();
    auto forged =
        QDBusMessage::createSignal(u"/org/freedesktop/Notifications"_s, serverName, u"ActionInvoked"_s);
    forged << 1U << u"default"_s;
    bus.connection(u"stranger"_s).send(forged);
    server->click(77);
    server->sendActivationToken(77, u"foreign"_s);
    server->sendActivationToken(2, u"token"_s);
    server->click(2, u"FOCUS_SESSION"_s);
    server->click(2);
    server->sendActivationToken(3, u"of another banner"_s);
    server->click(1);
    server->close(1);
    server->click(1);
    server->close(2);
    server->click(3);
    ASSERT_TRUE(waitUntil([&] { return responses.size() == 4; }));
    EXPECT_EQ(responses, (Texts{"FOCUS_SESSION b", "default b", "default a", "default c"}));
    EXPECT_EQ(tokensSeen, (Texts{"token", "", "", ""}));
}

TEST_F(DbusNotificationCenterTest, AClickThatArrivesBeforeTheBannersIdIsNotLost)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    post("a");
    ASSERT_TRUE(gets(server, 1));
    synchronize();
    server->hold();
    post("b");
    post("c");
    ASSERT_TRUE(gets(server, 3));
    server->click(77);
    server->sendActivationToken(3, u"token"_s);
    server->click(3);
    server->close(3);
    server->click(3);
    synchronize();
    EXPECT_EQ(responses.size(), 0U);
    server->answerHeld();
    server->click(2);
    ASSERT_TRUE(waitUntil([&] { return responses.size() == 2; }));
    EXPECT_EQ(responses, (Texts{"default c", "default b"}));
    EXPECT_EQ(tokensSeen, (Texts{"token", ""}));
}

TEST_F(DbusNotificationCenterTest, IsWokenByBannersOnlyWhileItHasSome)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    EXPECT_EQ(permission(), NotificationPermission::authorized);
    const int idle = matchRules();
    if (idle < 0) GTEST_SKIP() << "this bus daemon keeps no statistics";
    post("a");
    ASSERT_TRUE(gets(server, 1));
    synchronize();
    EXPECT_EQ(matchRules(), idle + 3);
    server->close(1);
    synchronize();
    EXPECT_EQ(matchRules(), idle);
}

TEST_F(DbusNotificationCenterTest, WithoutAServerBannersAreDropped)
{
    startCenter();
    EXPECT_TRUE(center->isAvailable()) << "the bus has not answered yet";
    post("early");
    EXPECT_EQ(permission(), NotificationPermission::unknown);
    EXPECT_EQ(time.runningTimers(), 0U) << "the banner does not wait any more";
    post("dropped");

    const auto server = startServer(u"server"_s);
    ASSERT_TRUE(waitUntil([&] { return center->isAvailable(); }));
    post("shown");
    ASSERT_TRUE(gets(server, 1));
    EXPECT_EQ(server->banners[0].title, u"shown"_s);
}

TEST_F(DbusNotificationCenterTest, TheFirstBannerStartsAServerThatTheBusKnows)
{
    const TemporaryFolder folder;
    const auto started = folder.path() / "started";
    // Stands for a server that takes its name some time after it was started.
    bus.offer(serverName.toStdString(), "/bin/sh -c \"echo > " + started.string() + "\"");
    startCenter();
    EXPECT_EQ(permission(), NotificationPermission::authorized);
    EXPECT_TRUE(center->isAvailable());
    EXPECT_FALSE(std::filesystem::exists(started)) << "only asking starts nothing";
    post("a");
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(started); }));
    const auto server = startServer(u"server"_s);
    ASSERT_TRUE(gets(server, 1));
}

TEST_F(DbusNotificationCenterTest, AServerThatFailsToStartLosesItsBannerAndIsTriedAgain)
{
    bus.offer(serverName.toStdString(), "/bin/false");
    startCenter();
    post("lost");
    ASSERT_TRUE(waitUntil([&] { return time.runningTimers() == 0; }));
    EXPECT_TRUE(center->isAvailable());
    const auto server = startServer(u"server"_s);
    synchronize();
    post("shown");
    ASSERT_TRUE(gets(server, 1));
    EXPECT_EQ(server->banners[0].title, u"shown"_s);
}

TEST_F(DbusNotificationCenterTest, AnswersEvenWithoutABus)
{
    center = std::make_unique<DbusNotificationCenter>(QDBusConnection(u"no such connection"_s), time, tokens);
    EXPECT_EQ(permission(), NotificationPermission::unknown);
    EXPECT_FALSE(center->isAvailable());
    post("nowhere");
}

}
}
