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
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusReply>

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
const QStringList bothActions{u"default"_s, u""_s, u"FOCUS_SESSION"_s, u"Open Session"_s};

class DbusNotificationCenterTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
        center.emplace(bus.connection(u"center"_s), time, tokens);
        center->setCategory({.identifier = "AGENT_EVENT",
                             .actionIdentifier = "FOCUS_SESSION",
                             .actionTitle = "Open Session"});
        center->setResponseHandler([this](const NotificationResponse& response) {
            responses.push_back(response.actionIdentifier + " " + response.userInfo.at("cwd") + " " +
                                tokens.take());
        });
    }

    /// In place of the one that there is.
    void startServer(const QStringList& capabilities = {u"actions"_s, u"body-markup"_s},
                     const QString& software = u"Test"_s)
    {
        static int number = 0;
        server = std::make_unique<RecordingNotificationServer>(bus.connection(u"server %1"_s.arg(++number)),
                                                               capabilities, software);
    }

    void post(const std::string& title, const std::string& body = "Body")
    {
        center->post({.identifier = "id-" + title,
                      .categoryIdentifier = "AGENT_EVENT",
                      .title = title,
                      .body = body,
                      .userInfo = {{"cwd", title}}});
    }

    NotificationPermission permission()
    {
        std::optional<NotificationPermission> answer;
        center->readPermission([&](NotificationPermission value) { answer = value; });
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(NotificationPermission::notDetermined);
    }

    bool serverGets(std::size_t banners)
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

    PrivateBus bus;
    FakeTime time;
    ActivationTokens tokens;
    std::optional<DbusNotificationCenter> center;
    std::unique_ptr<RecordingNotificationServer> server;
    Texts responses;
};

TEST_F(DbusNotificationCenterTest, HandsTheServerAllItNeeds)
{
    startServer();
    post("One & two", "<b>a</b>\n&amp; b");
    ASSERT_TRUE(serverGets(1));
    const QString id = u"app.chimewell.Chimewell"_s;
    const QVariantMap hints{{u"desktop-entry"_s, id},
                            {u"category"_s, u"x-chimewell.agent"_s},
                            {u"urgency"_s, QVariant::fromValue(uchar{1})},
                            {u"suppress-sound"_s, true}};
    EXPECT_EQ(server->banners[0].arguments,
              (QVariantList{u"Chimewell"_s, 0U, id, u"One & two"_s, u"&lt;b&gt;a&lt;/b&gt;\n&amp;amp; b"_s,
                            bothActions, hints, -1}));
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
        {{}, u"Test"_s, u"<&>"_s, {}},
        {{u"actions"_s, u"body-markup"_s}, u"Test"_s, u"&lt;&amp;&gt;"_s, bothActions},
        {{u"actions"_s}, u"Xfce Notify Daemon"_s, u"<&>"_s, bothActions.mid(2)},
    };
    for (const auto& each : cases) {
        startServer(each.capabilities, each.software);
        ASSERT_TRUE(waitUntil([&] { return center->isAvailable(); }));
        synchronize();
        server->click(1); // the number of an old server's banner
        post("a", "<&>");
        ASSERT_TRUE(serverGets(1));
        EXPECT_EQ(server->banners[0].body, each.body);
        EXPECT_EQ(server->banners[0].actions, each.actions);
        synchronize();
    }
    EXPECT_EQ(responses, Texts());

    startServer({});
    server->hold();
    synchronize();
    post("b", "<");
    ASSERT_TRUE(waitUntil([&] { return server->capabilityQuestions == 1; }));
    const auto slow = std::move(server);
    startServer();
    slow->answerHeld();
    ASSERT_TRUE(serverGets(1));
    EXPECT_EQ(server->banners[0].body, u"&lt;"_s) << "an answer that comes too late decides nothing";
}

TEST_F(DbusNotificationCenterTest, WaitsASecondForTheCapabilitiesAndThenAssumesThem)
{
    startServer({u"body"_s});
    server->hold();
    post("a", "<");
    ASSERT_TRUE(waitUntil([&] { return server->capabilityQuestions == 1; }));
    time.advance(999ms);
    synchronize();
    EXPECT_EQ(server->banners.size(), 0U);
    time.advance(1ms);
    ASSERT_TRUE(serverGets(1));
    for (int i = 0; i < 100; ++i)
        post("b", "<"); // does not wait again
    synchronize();
    EXPECT_EQ(server->banners.size(), 64U) << "the others are dropped";
    EXPECT_EQ(server->banners[63].body, u"&lt;"_s);
    EXPECT_EQ(server->banners[63].actions, bothActions);

    server->answerHeld();
    synchronize();
    post("c", "<");
    ASSERT_TRUE(serverGets(65));
    EXPECT_EQ(server->banners[64].body, u"<"_s) << "known by now";
    EXPECT_EQ(server->capabilityQuestions, 1);
}

TEST_F(DbusNotificationCenterTest, ReportsClicksOnOurBannersOnlyWithTheirTokens)
{
    startServer();
    for (const char* title : {"a", "b", "c"})
        post(title);
    ASSERT_TRUE(serverGets(3));
    synchronize();
    auto forged =
        QDBusMessage::createSignal(u"/org/freedesktop/Notifications"_s, serverName, u"ActionInvoked"_s);
    bus.connection(u"stranger"_s).send(forged << 1U << u"default"_s);
    server->click(77);
    server->tell("ActivationToken", 2, u"token"_s);
    server->click(2, "FOCUS_SESSION");
    server->click(2);
    server->tell("ActivationToken", 3, u"of another banner"_s);
    server->click(1);
    server->close(1);
    server->click(1);
    server->click(3);
    ASSERT_TRUE(waitUntil([&] { return responses.size() == 4; }));
    EXPECT_EQ(responses, (Texts{"FOCUS_SESSION b token", "default b ", "default a ", "default c "}));

    // A quick click arrives before the answer with the banner's number.
    responses.clear();
    server->hold();
    post("d");
    ASSERT_TRUE(serverGets(4));
    server->tell("ActivationToken", 4, u"token"_s);
    server->click(4);
    server->close(4);
    server->click(4);
    server->answerHeld();
    server->click(2);
    ASSERT_TRUE(waitUntil([&] { return responses.size() == 2; }));
    EXPECT_EQ(responses, (Texts{"default d token", "default b "}));
}

TEST_F(DbusNotificationCenterTest, ABannerIsWithdrawnHoweverFarItCame)
{
    startServer();
    post("shown");
    ASSERT_TRUE(serverGets(1));
    synchronize();
    center->withdraw("id-shown");
    server->hold();
    post("unanswered");
    post("kept");
    center->withdraw("id-unanswered");
    synchronize();
    server->answerHeld();
    ASSERT_TRUE(waitUntil([&] { return server->withdrawn.size() == 2; }));
    EXPECT_EQ(server->withdrawn, (std::vector<uint>{1, 2}));

    startServer();
    synchronize();
    center->withdraw("id-kept"); // the old server's
    post("never sent");
    center->withdraw("id-never sent");
    post("last");
    ASSERT_TRUE(serverGets(1));
    EXPECT_EQ(server->banners[0].title, u"last"_s);
    EXPECT_TRUE(server->withdrawn.empty());
}

TEST_F(DbusNotificationCenterTest, IsWokenByServersOnlyWhileItHasBanners)
{
    const QString daemon = u"org.freedesktop.DBus"_s;
    const QDBusConnection connection(u"center"_s);
    QDBusInterface statistics(daemon, u"/org/freedesktop/DBus"_s, daemon + u".Debug.Stats"_s, connection);
    const auto matchRules = [&] {
        const QDBusReply<QVariantMap> reply =
            statistics.call(u"GetConnectionStats"_s, connection.baseService());
        return reply.value().value(u"MatchRules"_s, -1).toInt();
    };
    startServer();
    EXPECT_EQ(permission(), NotificationPermission::authorized);
    const int idle = matchRules();
    if (idle < 0) GTEST_SKIP() << "this bus daemon keeps no statistics";
    post("a");
    ASSERT_TRUE(serverGets(1));
    synchronize();
    EXPECT_EQ(matchRules(), idle + 3);
    server->close(1);
    synchronize();
    EXPECT_EQ(matchRules(), idle);
}

TEST_F(DbusNotificationCenterTest, WithoutAServerBannersAreDropped)
{
    EXPECT_TRUE(center->isAvailable()) << "the bus has not answered yet";
    post("early");
    EXPECT_EQ(permission(), NotificationPermission::unknown);
    EXPECT_EQ(time.runningTimers(), 0U) << "the banner does not wait any more";
    post("dropped");
    startServer();
    ASSERT_TRUE(waitUntil([&] { return center->isAvailable(); }));
    post("shown");
    ASSERT_TRUE(serverGets(1));
    EXPECT_EQ(server->banners[0].title, u"shown"_s);
}

TEST_F(DbusNotificationCenterTest, ABannerStartsAServerThatTheBusKnows)
{
    bus.offer(serverName.toStdString(), "/bin/false");
    post("lost");
    ASSERT_TRUE(waitUntil([&] { return time.runningTimers() == 0; }));
    EXPECT_TRUE(center->isAvailable()) << "it is tried again";

    const TemporaryFolder folder;
    const auto started = folder.path() / "started";
    // Stands for a server that takes its name some time after it was started.
    bus.offer(serverName.toStdString(), "/bin/sh -c \"echo > " + started.string() + "\"");
    EXPECT_EQ(permission(), NotificationPermission::authorized);
    EXPECT_FALSE(std::filesystem::exists(started)) << "only asking starts nothing";
    post("shown");
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(started); }));
    startServer();
    ASSERT_TRUE(serverGets(1));
    EXPECT_EQ(server->banners[0].title, u"shown"_s);
}

}
}
