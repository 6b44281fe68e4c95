// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/dbus_notification_center.h"

#include "harness/private_bus.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/activation.h"
#include "support/fake_time.h"
#include "support/recording_notification_server.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QFile>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

const QString serverName = u"org.freedesktop.Notifications"_s;

NotificationRequest request(const std::string& title, std::string body = "Body")
{
    return {.identifier = "id-" + title,
            .categoryIdentifier = "AGENT_EVENT",
            .title = title,
            .body = std::move(body),
            .userInfo = {{"cwd", "/tmp/" + title}}};
}

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
        center->setChangeHandler([this] { ++changes; });
    }

    std::unique_ptr<RecordingNotificationServer>
    startServer(const QString& connection, const QStringList& capabilities = {u"actions"_s, u"body-markup"_s})
    {
        return std::make_unique<RecordingNotificationServer>(bus.connection(connection), capabilities);
    }

    NotificationPermission permission()
    {
        std::optional<NotificationPermission> answer;
        center->readPermission([&](NotificationPermission value) { answer = value; });
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(NotificationPermission::notDetermined);
    }

    /// Returns when the owner of the servers' name has seen all that was sent to it up to now, and we its
    /// signals up to now.
    void settle()
    {
        const QDBusPendingCall ping = QDBusConnection(u"center"_s)
                                          .asyncCall(QDBusMessage::createMethodCall(
                                              serverName, u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
        EXPECT_TRUE(waitUntil([&] { return ping.isFinished(); }));
        QCoreApplication::processEvents();
    }

    /// How many match rules our connection has with the bus.
    int matchRules()
    {
        const QDBusConnection connection(u"center"_s);
        QDBusMessage call =
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
    std::vector<std::string> responses;
    std::vector<std::string> tokensSeen;
    int changes = 0;
};

TEST_F(DbusNotificationCenterTest, HandsTheServerAllItNeeds)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    center->post(request("One & two", "<b>a</b>\n&amp; b"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 1; }));
    const auto& banner = server->banners.front();
    EXPECT_EQ(banner.signature, u"susssasa{sv}i"_s);
    EXPECT_EQ(banner.applicationName, u"Chimewell"_s);
    EXPECT_EQ(banner.replacesId, 0U);
    EXPECT_EQ(banner.icon, u"app.chimewell.Chimewell"_s);
    EXPECT_EQ(banner.title, u"One & two"_s);
    EXPECT_EQ(banner.body, u"&lt;b&gt;a&lt;/b&gt;\n&amp;amp; b"_s);
    EXPECT_EQ(banner.actions, QStringList({u"default"_s, u""_s, u"FOCUS_SESSION"_s, u"Open Session"_s}));
    EXPECT_EQ(banner.hints, QVariantMap({{u"desktop-entry"_s, u"app.chimewell.Chimewell"_s},
                                         {u"category"_s, u"x-chimewell.agent"_s},
                                         {u"urgency"_s, QVariant::fromValue(uchar{1})},
                                         {u"suppress-sound"_s, true}}));
    EXPECT_EQ(banner.hints.value(u"urgency"_s).metaType(), QMetaType::fromType<uchar>());
    EXPECT_EQ(banner.expiry, -1);
    EXPECT_EQ(time.runningTimers(), 0U);
}

TEST_F(DbusNotificationCenterTest, BannersNeverReplaceOneAnotherAndAskTheCapabilitiesOnce)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    for (int i = 0; i < 3; ++i)
        center->post(request("same"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 3; }));
    center->post(request("same"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 4; }));
    for (const auto& banner : server->banners)
        EXPECT_EQ(banner.replacesId, 0U);
    EXPECT_EQ(server->capabilityQuestions, 1);
}

TEST_F(DbusNotificationCenterTest, AsksAReplacedServerAnew)
{
    const auto first = startServer(u"first"_s, {u"body"_s});
    startCenter();
    center->post(request("a", "<&>"));
    ASSERT_TRUE(waitUntil([&] { return first->banners.size() == 1; }));
    EXPECT_EQ(first->banners[0].body, u"<&>"_s);
    EXPECT_EQ(first->banners[0].actions, QStringList());

    const auto second = startServer(u"second"_s, {u"actions"_s, u"body-markup"_s});
    settle();
    center->post(request("b", "<&>"));
    ASSERT_TRUE(waitUntil([&] { return second->banners.size() == 1; }));
    EXPECT_EQ(second->banners[0].body, u"&lt;&amp;&gt;"_s);
    EXPECT_EQ(second->banners[0].actions.size(), 4);
    EXPECT_EQ(first->banners.size(), 1U);

    const auto buttonsOnly = startServer(u"third"_s);
    buttonsOnly->software = u"Xfce Notify Daemon"_s;
    settle();
    center->post(request("c", ""));
    ASSERT_TRUE(waitUntil([&] { return buttonsOnly->banners.size() == 1; }));
    EXPECT_EQ(buttonsOnly->banners[0].actions, QStringList({u"FOCUS_SESSION"_s, u"Open Session"_s}));
}

TEST_F(DbusNotificationCenterTest, AServerThatIsReplacedBeforeItAnsweredDecidesNothing)
{
    const auto slow = startServer(u"slow"_s, {});
    slow->hold();
    startCenter();
    center->post(request("a", "<"));
    ASSERT_TRUE(waitUntil([&] { return slow->capabilityQuestions == 1; }));
    const auto quick = startServer(u"quick"_s);
    slow->answerHeld();
    ASSERT_TRUE(waitUntil([&] { return quick->banners.size() == 1; }));
    EXPECT_EQ(quick->banners[0].body, u"&lt;"_s);
    EXPECT_EQ(slow->banners.size(), 0U);
}

TEST_F(DbusNotificationCenterTest, WaitsASecondForTheCapabilitiesAndAssumesTheBestThen)
{
    const auto server = startServer(u"server"_s, {u"body"_s});
    server->hold();
    startCenter();
    center->post(request("a", "<"));
    ASSERT_TRUE(waitUntil([&] { return server->capabilityQuestions == 1; }));
    time.advance(999ms);
    settle();
    EXPECT_EQ(server->banners.size(), 0U);

    time.advance(1ms);
    center->post(request("b", "<")); // and nothing waits again
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 2; }));
    EXPECT_EQ(server->banners[0].title, u"a"_s);
    for (const auto& banner : server->banners) {
        EXPECT_EQ(banner.body, u"&lt;"_s);
        EXPECT_EQ(banner.actions.size(), 4);
    }

    server->answerHeld();
    settle();
    center->post(request("c", "<"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 3; }));
    EXPECT_EQ(server->banners[2].body, u"<"_s) << "known by now";
    EXPECT_EQ(server->capabilityQuestions, 1);
}

TEST_F(DbusNotificationCenterTest, DropsWhatAHungServerCouldNotTake)
{
    const auto server = startServer(u"server"_s);
    server->hold();
    startCenter();
    for (int i = 0; i < 100; ++i)
        center->post(request("waiting"));
    time.advance(1s);
    for (int i = 0; i < 100; ++i)
        center->post(request("sent"));
    settle();
    EXPECT_EQ(server->banners.size(), 64U);

    server->answerHeld();
    settle();
    center->post(request("after"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 65; }));
}

TEST_F(DbusNotificationCenterTest, ReportsClicksOnOurBannersOnly)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    center->post(request("a"));
    center->post(request("b"));
    center->post(request("c"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 3; }));
    settle();
    QDBusMessage forged =
        QDBusMessage::createSignal(u"/org/freedesktop/Notifications"_s, serverName, u"ActionInvoked"_s);
    forged << 1U << u"default"_s;
    const QDBusConnection stranger = bus.connection(u"stranger"_s);
    stranger.send(forged);
    server->click(77);
    server->click(2, u"FOCUS_SESSION"_s);
    server->click(1);
    server->close(1);
    server->click(1);
    server->close(2);
    server->click(3);
    ASSERT_TRUE(waitUntil([&] { return responses.size() == 3; }));
    EXPECT_EQ(responses,
              (std::vector<std::string>{"FOCUS_SESSION /tmp/b", "default /tmp/a", "default /tmp/c"}));
}

TEST_F(DbusNotificationCenterTest, AClickThatOvertakesTheBannersIdIsNotLost)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    center->post(request("a"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 1; }));
    settle();
    server->hold();
    center->post(request("b"));
    center->post(request("c"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 3; }));
    server->click(77);
    server->sendActivationToken(3, u"token"_s);
    server->click(3);
    server->close(3);
    server->click(3);
    settle();
    EXPECT_EQ(responses.size(), 0U);
    server->answerHeld();
    server->click(2);
    ASSERT_TRUE(waitUntil([&] { return responses.size() == 2; }));
    EXPECT_EQ(responses, (std::vector<std::string>{"default /tmp/c", "default /tmp/b"}));
    EXPECT_EQ(tokensSeen, (std::vector<std::string>{"token", ""}));
}

TEST_F(DbusNotificationCenterTest, AClicksActivationTokenIsThereBeforeTheClickAndServesOnce)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    center->post(request("a"));
    center->post(request("b"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 2; }));
    settle();
    server->sendActivationToken(77, u"foreign"_s);
    server->sendActivationToken(1, u"first"_s);
    server->click(1);
    server->click(1);
    server->sendActivationToken(2, u"of another banner"_s);
    server->click(1);
    ASSERT_TRUE(waitUntil([&] { return responses.size() == 3; }));
    EXPECT_EQ(tokensSeen, (std::vector<std::string>{"first", "", ""}));
}

TEST_F(DbusNotificationCenterTest, BannersOfADeadServerAreForgotten)
{
    auto first = startServer(u"first"_s);
    startCenter();
    center->post(request("old"));
    ASSERT_TRUE(waitUntil([&] { return first->banners.size() == 1; }));
    settle();
    first.reset();
    bus.disconnect(u"first"_s);
    const auto second = startServer(u"second"_s);
    settle();
    second->click(1);
    center->post(request("new"));
    ASSERT_TRUE(waitUntil([&] { return second->banners.size() == 1; }));
    settle();
    second->click(1);
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"default /tmp/new"});
}

TEST_F(DbusNotificationCenterTest, KeepsTheNewestThousandClickable)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    for (std::size_t i = 1; i <= 1001; ++i) {
        center->post(request(std::to_string(i)));
        if (i % 50 == 1) {
            ASSERT_TRUE(waitUntil([&] { return server->banners.size() == i; }));
            settle();
        }
    }
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 1001; }));
    settle();
    for (const uint id : {1U, 2U, 1001U})
        server->click(id);
    ASSERT_TRUE(waitUntil([&] { return responses.size() == 2; }));
    EXPECT_EQ(responses, (std::vector<std::string>{"default /tmp/2", "default /tmp/1001"}));
}

TEST_F(DbusNotificationCenterTest, IsWokenByBannersOnlyWhileItHasSome)
{
    const auto server = startServer(u"server"_s);
    startCenter();
    EXPECT_EQ(permission(), NotificationPermission::authorized);
    const int idle = matchRules();
    if (idle < 0) GTEST_SKIP() << "this bus daemon keeps no statistics";
    center->post(request("a"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 1; }));
    settle();
    EXPECT_EQ(matchRules(), idle + 3);
    server->close(1);
    settle();
    EXPECT_EQ(matchRules(), idle);
}

TEST_F(DbusNotificationCenterTest, WithoutAServerBannersAreDroppedUntilOneAppears)
{
    startCenter();
    EXPECT_TRUE(center->isAvailable()) << "nobody has answered yet";
    center->post(request("early"));
    EXPECT_EQ(permission(), NotificationPermission::unknown);
    EXPECT_FALSE(center->isAvailable());
    EXPECT_GE(changes, 1);
    EXPECT_EQ(time.runningTimers(), 0U) << "the waiting banner is gone";
    center->post(request("dropped"));

    const int before = changes;
    auto server = startServer(u"server"_s);
    ASSERT_TRUE(waitUntil([&] { return changes > before; }));
    EXPECT_TRUE(center->isAvailable());
    EXPECT_EQ(permission(), NotificationPermission::authorized);
    center->post(request("shown"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 1; }));
    EXPECT_EQ(server->banners[0].title, u"shown"_s);

    server.reset();
    ASSERT_TRUE(waitUntil([&] { return !center->isAvailable(); }));
}

TEST_F(DbusNotificationCenterTest, AServerThatCanBeStartedIsStartedByTheFirstBanner)
{
    // Stands for a server that takes its name some time after it was started.
    const QString started = u"/tmp/chimewell-started-%1"_s.arg(QCoreApplication::applicationPid());
    bus.offer(serverName.toStdString(), u"/bin/sh -c \"echo > %1\""_s.arg(started).toStdString());
    startCenter();
    EXPECT_EQ(permission(), NotificationPermission::authorized);
    EXPECT_TRUE(center->isAvailable());
    EXPECT_FALSE(QFile::exists(started)) << "asking alone starts nothing";
    center->post(request("a"));
    ASSERT_TRUE(waitUntil([&] { return QFile::exists(started); }));
    QFile::remove(started);
    const auto server = startServer(u"server"_s);
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 1; }));
    EXPECT_EQ(server->capabilityQuestions, 1);
}

TEST_F(DbusNotificationCenterTest, AServerThatFailsToStartLosesItsBannerAndIsTriedAgain)
{
    bus.offer(serverName.toStdString(), "/bin/false");
    startCenter();
    center->post(request("lost"));
    ASSERT_TRUE(waitUntil([&] { return time.runningTimers() == 0; }));
    EXPECT_TRUE(center->isAvailable());
    const auto server = startServer(u"server"_s);
    settle();
    center->post(request("shown"));
    ASSERT_TRUE(waitUntil([&] { return server->banners.size() == 1; }));
    EXPECT_EQ(server->banners[0].title, u"shown"_s);
}

TEST_F(DbusNotificationCenterTest, AskingForPermissionAnswersEvenWithoutABus)
{
    center = std::make_unique<DbusNotificationCenter>(QDBusConnection(u"no such connection"_s), time, tokens);
    bool asked = false;
    center->requestPermission([&] { asked = true; });
    EXPECT_TRUE(waitUntil([&] { return asked; }));
    EXPECT_EQ(permission(), NotificationPermission::unknown);
    EXPECT_FALSE(center->isAvailable());
    center->post(request("nowhere"));
}

}
}
