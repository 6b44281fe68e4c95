// SPDX-License-Identifier: MIT
// What every NotificationCenter does: the fake of the other tests, and the real one with servers that
// people use.
#include "harness/child_process.h"
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/activation.h"
#include "platform/linux/notifications/dbus_notification_center.h"
#include "support/environment_variable.h"
#include "support/fake_time.h"
#include "support/recording_notification_center.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <csignal>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace Qt::StringLiterals;

/// The center that is tested, and its server: the fake, or the real one with a server that people use.
class NotificationCenterContract : public ::testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
        if (!startServer()) GTEST_SKIP() << server << " is not installed";
        bool answered = false;
        center.requestPermission([&] { answered = true; });
        EXPECT_TRUE(waitUntil([&] { return answered; }));
        EXPECT_TRUE(permissionBecomes(NotificationPermission::authorized));
        center.setCategory({.identifier = "AGENT_EVENT",
                            .actionIdentifier = "FOCUS_SESSION",
                            .actionTitle = "Open Session"});
        center.setResponseHandler([this](const NotificationResponse& response) {
            responses.push_back(response.userInfo.at("term"));
        });
    }

    bool startServer()
    {
        setFake(true, NotificationPermission::authorized);
        return isFake || bus.start(server);
    }
    void killServer()
    {
        setFake(false, NotificationPermission::unknown);
        if (!isFake) bus.kill(server);
    }
    void raise(int signal)
    {
        if (!isFake) bus.raise(server, signal);
    }
    /// How many banners are on the screen.
    int shown()
    {
        if (isFake) return static_cast<int>(fake.posted.size());
        if (server == "dunst") return lines({"dunstctl", "count", "displayed"}).value(0).toInt();
        return static_cast<int>(xfceBanners().size());
    }
    /// Clicks the only banner.
    void click()
    {
        if (isFake)
            fake.respond({.actionIdentifier = "default", .userInfo = fake.posted.front().userInfo});
        else if (server == "dunst")
            run({"dunstctl", "action", "0"});
        else
            clickXfcesButton();
    }
    /// The title and the body as the user reads them in Dunst, which tells what it showed last.
    static std::string readInDunst()
    {
        run({"dunstctl", "close-all"});
        const auto history = QJsonDocument::fromJson(lines({"dunstctl", "history"}).join(u'\n').toUtf8());
        QString text = history[u"data"_s][0][0][u"message"_s][u"data"_s].toString(); // the title is bold
        text.remove(u"<b>"_s).remove(u"</b>"_s);
        text.replace(u"&lt;"_s, u"<"_s).replace(u"&gt;"_s, u">"_s).replace(u"&amp;"_s, u"&"_s);
        return text.toStdString();
    }

    void post(const std::string& title, const std::string& body)
    {
        center.post({.identifier = title + body,
                     .categoryIdentifier = "AGENT_EVENT",
                     .title = title,
                     .body = body,
                     .userInfo = {{"term", title}}});
    }
    bool comesToShow(int count)
    {
        return waitUntil([&] { return shown() == count; });
    }
    bool permissionBecomes(NotificationPermission expected)
    {
        return waitUntil([&] {
            std::optional<NotificationPermission> answer;
            center.readPermission([&](NotificationPermission permission) { answer = permission; });
            return waitUntil([&] { return answer.has_value(); }) && answer == expected;
        });
    }

private:
    void setFake(bool available, NotificationPermission permission)
    {
        fake.available = available;
        fake.permission = permission;
        fake.posted.clear();
        if (fake.changed) fake.changed();
    }
    static QStringList lines(const std::vector<std::string>& command)
    {
        return QString::fromStdString(run(command).output).split(u'\n', Qt::SkipEmptyParts);
    }
    static QStringList xfceBanners()
    {
        return lines({"xdotool", "search", "--onlyvisible", "--class", "notifyd"});
    }
    /// It is in the lower right corner: a click anywhere else only closes the banner.
    static void clickXfcesButton()
    {
        const auto geometry =
            lines({"xdotool", "getwindowgeometry", "--shell", xfceBanners()[0].toStdString()});
        const auto number = [&](qsizetype line) { return geometry.value(line).section(u'=', 1).toInt(); };
        run({"xdotool", "mousemove", std::to_string(number(1) + number(3) - 50),
             std::to_string(number(2) + number(4) - 30), "click", "1"});
    }

    const EnvironmentVariable noAccessibility{"NO_AT_BRIDGE", "1"};
    PrivateSession bus{{"dbus-daemon", "Xvfb"}};
    FakeTime time;
    ActivationTokens tokens;
    DbusNotificationCenter real{bus.connection(u"center"_s), time, tokens};
    RecordingNotificationCenter fake;

protected:
    const std::string server = GetParam();
    const bool isFake = server == "fake";
    NotificationCenter& center = isFake ? static_cast<NotificationCenter&>(fake) : real;
    std::vector<std::string> responses;
};

TEST_P(NotificationCenterContract, ShowsABannerAsWrittenAndReportsItsClick)
{
    post("Agent <b>is</b> done", "a < b && <b>bold</b> &amp;");
    ASSERT_TRUE(comesToShow(1));
    click();
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"Agent <b>is</b> done"});
    const std::string text = "Agent <b>is</b> done\na < b && <b>bold</b> &amp;";
    EXPECT_EQ(server == "dunst" ? readInDunst() : text, text);
}

TEST_P(NotificationCenterContract, EveryBannerIsShownUntilItIsWithdrawn)
{
    post("withdrawn", "before its server is known");
    center.withdraw("withdrawnbefore its server is known");
    post("same", "1");
    ASSERT_TRUE(comesToShow(1));
    raise(SIGSTOP);
    post("same", "2"); // dunst itself joins those of the same text
    post("withdrawn", "before it is shown");
    center.withdraw("withdrawnbefore it is shown");
    post("stays", "3");
    raise(SIGCONT);
    ASSERT_TRUE(comesToShow(3));
    for (const char* identifier : {"same1", "same2", "same2"})
        center.withdraw(identifier);
    ASSERT_TRUE(comesToShow(1));
    click();
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"stays"});
}

TEST_P(NotificationCenterContract, FollowsAServerThatDiesAndComesBack)
{
    post("old", "");
    ASSERT_TRUE(comesToShow(1));
    int changes = 0;
    center.setChangeHandler([&] { ++changes; });
    raise(SIGSTOP);
    post("lost with it", "");
    killServer();
    EXPECT_TRUE(waitUntil([&] { return changes > 0 && !center.isAvailable(); }));
    EXPECT_TRUE(permissionBecomes(NotificationPermission::unknown));
    post("shown nowhere", "");

    startServer();
    EXPECT_TRUE(waitUntil([&] { return center.isAvailable(); }));
    EXPECT_TRUE(permissionBecomes(NotificationPermission::authorized));
    post("new", "");
    ASSERT_TRUE(comesToShow(1));
    click();
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"new"});
}

INSTANTIATE_TEST_SUITE_P(Servers, NotificationCenterContract,
                         ::testing::Values("fake", "dunst", "xfce4-notifyd"));

}
}
