// SPDX-License-Identifier: MIT
// What tests/contracts does not ask of every NotificationCenter: calls, clicks and failures of the bus, and
// the settings of real desktops, written by their own tools.
#include "platform/linux/notifications/dbus_notification_center.h"

#include "harness/child_process.h"
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/activation.h"
#include "support/bus_object.h"
#include "support/environment_variable.h"
#include "support/fake_time.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using Texts = std::vector<std::string>;

const QString serverName = u"org.freedesktop.Notifications"_s;
const QStringList bothActions{u"default"_s, u""_s, u"FOCUS_SESSION"_s, u"Open Session"_s};

/// A notification server that shows nothing, notes what it is asked and does what the test says.
class RecordingNotificationServer : public BusObject {
public:
    struct Banner {
        QVariantList arguments; ///< Of the call, with these among them.
        QString title, body;
        QStringList actions;
    };

    RecordingNotificationServer(const QDBusConnection& bus, QStringList capabilities)
        : BusObject(bus, serverName, u"/org/freedesktop/Notifications"_s),
          capabilities_(std::move(capabilities))
    {
    }

    /// From now on calls are noted, but answered by `answerHeld` only.
    void hold() { holding_ = true; }
    void answerHeld()
    {
        holding_ = false;
        for (const QDBusMessage& reply : std::exchange(held_, {}))
            bus_.send(reply);
    }
    void tell(const char* signal, uint banner, const QVariant& value)
    {
        auto message = QDBusMessage::createSignal(path_, service_, QString::fromLatin1(signal));
        bus_.send(message << banner << value);
    }
    void click(uint banner, const char* action = "default")
    {
        tell("ActionInvoked", banner, QString::fromLatin1(action));
    }
    void close(uint banner) { tell("NotificationClosed", banner, 2U); }

    std::vector<Banner> banners;
    int capabilityQuestions = 0;

    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override
    {
        QVariantList result{u"Test"_s, u""_s, u""_s, u""_s}; // of GetServerInformation
        if (call.member() == u"GetCapabilities") {
            ++capabilityQuestions;
            result = {capabilities_};
        } else if (call.member() == u"Notify") {
            QVariantList arguments = call.arguments();
            arguments[6] = qdbus_cast<QVariantMap>(arguments[6]); // the hints
            banners.push_back(
                {arguments, arguments[3].toString(), arguments[4].toString(), arguments[5].toStringList()});
            result = {static_cast<uint>(banners.size())};
        }
        const QDBusMessage reply = call.createReply(result);
        if (!holding_ || call.member() == u"GetServerInformation") return bus_.send(reply);
        held_.push_back(reply);
        return true;
    }

private:
    QStringList capabilities_;
    bool holding_ = false;
    std::vector<QDBusMessage> held_;
};

class DbusNotificationCenterTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
        startOn("");
    }

    void startOn(const char* desktop)
    {
        setenv("XDG_CURRENT_DESKTOP", desktop, 1);
        center.emplace(bus.connection(u"center"_s), time, tokens);
        center->setCategory({.identifier = "AGENT_EVENT",
                             .actionIdentifier = "FOCUS_SESSION",
                             .actionTitle = "Open Session"});
        center->setResponseHandler([this](const NotificationResponse& response) {
            responses.push_back(response.actionIdentifier + " " + response.userInfo.at("cwd") + " " +
                                tokens.take());
        });
        center->setChangeHandler([this] { ++changes; });
    }

    /// In place of the one that there is.
    void startServer(const QStringList& capabilities = {u"actions"_s, u"body-markup"_s})
    {
        static int number = 0;
        server = std::make_unique<RecordingNotificationServer>(bus.connection(u"server %1"_s.arg(++number)),
                                                               capabilities);
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
        EXPECT_FALSE(answer) << "answers come from the event loop";
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

    const TemporaryFolder folder;
    const EnvironmentVariable configuration{"XDG_CONFIG_HOME", folder.path()};
    const EnvironmentVariable currentDesktop{"XDG_CURRENT_DESKTOP", ""}; ///< Puts back what it was.
    PrivateSession bus{{"dbus-daemon"}};
    FakeTime time;
    ActivationTokens tokens;
    std::optional<DbusNotificationCenter> center;
    std::unique_ptr<RecordingNotificationServer> server;
    Texts responses;
    int changes = 0;
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

    startServer();
    synchronize();
    server->click(1); // another program's: a new server numbers its banners from 1 again
    synchronize();
    EXPECT_EQ(responses.size(), 2U);
}

TEST_F(DbusNotificationCenterTest, ABannerStartsAServerThatTheBusKnows)
{
    bus.offer(serverName.toStdString(), "/bin/false");
    post("lost");
    ASSERT_TRUE(waitUntil([&] { return time.runningTimers() == 0; }));
    EXPECT_TRUE(center->isAvailable()) << "it is tried again";

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

TEST_F(DbusNotificationCenterTest, IsDeniedWhereTheDesktopsSettingsSwitchOurBannersOff)
{
    using enum NotificationPermission;
    const std::string us = "app.chimewell.Chimewell";
    const auto gnome = [](const char* key, const char* value) {
        return Texts{"gsettings", "set",
                     "org.gnome.desktop.notifications.application:"
                     "/org/gnome/desktop/notifications/application/app-chimewell-chimewell/",
                     key, value};
    };
    const auto xfce = [](const Texts& value) {
        Texts command{"xfconf-query", "-c", "xfce4-notifyd", "-p", "/applications/muted_applications", "-n"};
        command.insert(command.end(), value.begin(), value.end());
        return command;
    };
    const auto plasma = [](const std::string& lines) {
        return Texts{"sh", "-c", "printf '" + lines + "' >\"$XDG_CONFIG_HOME/plasmanotifyrc\""};
    };
    const std::string group = "[Applications][" + us + "]\n";
    const struct {
        const char* desktop;
        Texts command;
        NotificationPermission permission;
    } cases[] = {
        {"ubuntu:GNOME", gnome("enable", "false"), denied},
        {"GNOME", gnome("enable", "true"), authorized},
        {"GNOME", gnome("show-banners", "false"), denied},
        {"XFCE", xfce({"-a", "-t", "string", "-s", "Other", "-t", "string", "-s", us}), denied},
        {"XFCE", xfce({"-a", "-t", "string", "-s", "Other", "-t", "int", "-s", "1"}), authorized},
        {"XFCE", xfce({"-t", "string", "-s", us}), authorized},
        {"KDE", plasma(group + "Seen=true\nShowPopups=false\n"), denied},
        {"KDE", plasma("[Applications][org.kde.other]\nShowPopups=false\n" + group), authorized},
        {"KDE", plasma(group + "ShowPopups=true\n[DoNotDisturb]\nShowPopups=false\n"), authorized},
        {"sway", plasma(group + "ShowPopups=false\n"), authorized},
    };
    startServer();
    bus.offerInstalled("ca.desrt.dconf");
    bus.offerInstalled("org.xfce.Xfconf");
    for (const char* desktop : {"GNOME", "XFCE", "KDE"}) {
        startOn(desktop);
        EXPECT_EQ(permission(), authorized) << desktop << " before anything was set";
    }
    for (const auto& each : cases) {
        startOn(each.desktop);
        permission();
        changes = 0;
        if (run(each.command).status != 0) GTEST_SKIP() << "no settings of " << each.desktop << " here";
        const bool isWatched = each.command[0] != "sh"; // Plasma's file is not
        EXPECT_TRUE(waitUntil([&] { return changes > 0 || !isWatched; })) << each.command.back();
        EXPECT_EQ(permission(), each.permission) << each.desktop << ' ' << each.command.back();
    }
}

}
}
