// SPDX-License-Identifier: MIT
// The adapter with notification servers that people use, on a screen and a bus of the test's own.
#include "harness/child_process.h"
#include "harness/private_bus.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/activation.h"
#include "platform/linux/notifications/dbus_notification_center.h"
#include "support/environment_variable.h"
#include "support/fake_time.h"

#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

void write(const QString& path, const QByteArray& text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

class RealNotificationServersTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    }

    std::unique_ptr<ChildProcess> startDunst(const QByteArray& settings = {})
    {
        const QString file = QDir::homePath() + u"/dunstrc"_s;
        write(file, "[global]\norigin = top-left\noffset = 0x0\nwidth = 400\nidle_threshold = 0\n"
                    "mouse_left_click = do_action, close_current\n" +
                        settings + "[urgency_normal]\ntimeout = 0\n");
        auto server =
            std::make_unique<ChildProcess>(std::vector<std::string>{"dunst", "-conf", file.toStdString()});
        auto* names = observer.interface();
        EXPECT_TRUE(waitUntil(
            [&] { return names->isServiceRegistered(u"org.freedesktop.Notifications"_s).value(); }));
        return server;
    }

    void startCenter()
    {
        center = std::make_unique<DbusNotificationCenter>(bus.connection(u"center"_s), time, tokens);
        center->setCategory({.identifier = "AGENT_EVENT",
                             .actionIdentifier = "FOCUS_SESSION",
                             .actionTitle = "Open Session"});
        center->setResponseHandler([this](const NotificationResponse& response) {
            const auto term = response.userInfo.find("term");
            responses.push_back(response.actionIdentifier + " " +
                                (term == response.userInfo.end() ? "nowhere" : term->second));
        });
    }

    void post(const std::string& title, const std::string& body)
    {
        center->post({.identifier = title,
                      .categoryIdentifier = "AGENT_EVENT",
                      .title = title,
                      .body = body,
                      .userInfo = {{"term", "kitty"}}});
    }

    static int shownByDunst() { return std::atoi(run({"dunstctl", "count", "displayed"}).output.c_str()); }

    /// The markup that dunst drew in the banner it closed last.
    static QString drawnByDunst()
    {
        const auto history =
            QJsonDocument::fromJson(QByteArray::fromStdString(run({"dunstctl", "history"}).output));
        return history[u"data"_s][0][0][u"message"_s][u"data"_s].toString();
    }

    const EnvironmentVariable bridge{"NO_AT_BRIDGE", "1"};
    const EnvironmentVariable backend{"GSETTINGS_BACKEND", "memory"};
    PrivateBus bus{{"Xvfb"}};
    QDBusConnection observer = bus.connection(u"observer"_s);
    FakeTime time;
    ActivationTokens tokens;
    std::unique_ptr<DbusNotificationCenter> center;
    std::vector<std::string> responses;
};

class DunstTest : public RealNotificationServersTest {
protected:
    void SetUp() override
    {
        RealNotificationServersTest::SetUp();
        if (IsSkipped()) return;
        if (QStandardPaths::findExecutable(u"dunst"_s).isEmpty()) GTEST_SKIP() << "dunst is not installed";
    }
};

TEST_F(DunstTest, ShowsABannerAsWrittenAndReportsTheClick)
{
    // With "no" it announces no markup and takes the text as it is; with the others it does and must not
    // see ours.
    for (const QByteArray markup : {"no", "strip", "full"}) {
        SCOPED_TRACE(markup.toStdString());
        responses.clear();
        const auto dunst = startDunst("markup = " + markup + "\n");
        startCenter();
        post("Agent <b>is</b> done", "a < b && <b>bold</b> &amp;");
        ASSERT_TRUE(waitUntil([&] { return shownByDunst() == 1; }));
        run({"dunstctl", "action", "0"});
        ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
        EXPECT_EQ(responses, std::vector<std::string>{"default kitty"});
        run({"dunstctl", "close-all"});
        EXPECT_EQ(drawnByDunst(), u"<b>Agent &lt;b&gt;is&lt;/b&gt; done</b>\n"
                                  "a &lt; b &amp;&amp; &lt;b&gt;bold&lt;/b&gt; &amp;amp;"_s);
        center.reset();
        bus.disconnect(u"center"_s);
    }
}

TEST_F(DunstTest, GoesOnAfterAHangAndAfterItsDeath)
{
    auto dunst = startDunst();
    startCenter();
    post("1", "shown");
    ASSERT_TRUE(waitUntil([&] { return shownByDunst() == 1; }));

    dunst->raise(SIGSTOP);
    post("2", "while it hangs");
    post("3", "while it hangs");
    dunst->raise(SIGCONT);
    ASSERT_TRUE(waitUntil([&] { return shownByDunst() == 3; }));

    dunst->raise(SIGSTOP);
    post("4", "lost with it");
    dunst->raise(SIGKILL);
    ASSERT_TRUE(waitUntil([&] { return !center->isAvailable(); }));
    dunst = startDunst();
    ASSERT_TRUE(waitUntil([&] { return center->isAvailable(); }));
    post("5", "for the new one");
    ASSERT_TRUE(waitUntil([&] { return shownByDunst() == 1; }));
    run({"dunstctl", "action", "0"});
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"default kitty"});
}

class XfceNotifydTest : public RealNotificationServersTest {
protected:
    void SetUp() override
    {
        RealNotificationServersTest::SetUp();
        if (IsSkipped()) return;
        if (!bus.start("xfce4-notifyd")) GTEST_SKIP() << "xfce4-notifyd is not installed";
    }

    /// The id of the banner's window, empty when none is shown.
    static std::string window()
    {
        const auto ids = run({"xdotool", "search", "--onlyvisible", "--class", "notifyd"}).output;
        return QString::fromStdString(ids).trimmed().section(u'\n', -1).toStdString();
    }
};

TEST_F(XfceNotifydTest, ShowsABannerWhoseButtonReportsTheClick)
{
    startCenter();
    post("Agent & co", "a < b && <b>bold</b> &amp;");
    ASSERT_TRUE(waitUntil([&] { return !window().empty(); }));
    // The button is in the lower right corner; a click anywhere else only closes the banner.
    const QStringList geometry =
        QString::fromStdString(run({"xdotool", "getwindowgeometry", "--shell", window()}).output)
            .split(u'\n');
    const auto number = [&](qsizetype line) { return geometry.value(line).section(u'=', 1).toInt(); };
    run({"xdotool", "mousemove", std::to_string(number(1) + number(3) - 50),
         std::to_string(number(2) + number(4) - 30), "click", "1"});
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"FOCUS_SESSION kitty"});
}

}
}
