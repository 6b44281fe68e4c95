// SPDX-License-Identifier: MIT
// The adapter with notification servers that people use, on a screen and a bus of the test's own.
#include "platform/linux/freedesktop/activation_tokens.h"
#include "platform/linux/notifications/dbus_notification_center.h"
#include "support/child_process.h"
#include "support/fake_time.h"
#include "support/installed_service.h"
#include "support/private_bus.h"
#include "support/private_display.h"
#include "support/wait_until.h"

#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <chrono>
#include <csignal>
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
        if (!bus.isRunning()) GTEST_SKIP() << "dbus-daemon is not installed";
        if (!display.unavailable().empty()) GTEST_SKIP() << display.unavailable();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
        environment.insert(u"NO_AT_BRIDGE"_s, u"1"_s);
        environment.insert(u"GSETTINGS_BACKEND"_s, u"memory"_s);
    }

    std::unique_ptr<ChildProcess> startDunst(const QByteArray& settings = {})
    {
        const QString file = QDir::homePath() + u"/dunstrc"_s;
        write(file, "[global]\norigin = top-left\noffset = 0x0\nwidth = 400\nidle_threshold = 0\n"
                    "mouse_left_click = do_action, close_current\n" +
                        settings + "[urgency_normal]\ntimeout = 0\n");
        return startServer(u"dunst"_s, {u"-conf"_s, file});
    }

    std::unique_ptr<ChildProcess> startServer(const QString& program, const QStringList& arguments)
    {
        auto server = std::make_unique<ChildProcess>(program, arguments, environment);
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

    /// What a command prints.
    QByteArray run(const QString& program, const QStringList& arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        process.waitForFinished();
        return process.readAllStandardOutput();
    }

    int shownByDunst() const { return run(u"dunstctl"_s, {u"count"_s, u"displayed"_s}).trimmed().toInt(); }

    /// The markup that dunst drew in the banner it closed last.
    QString drawnByDunst() const
    {
        const auto history = QJsonDocument::fromJson(run(u"dunstctl"_s, {u"history"_s}));
        return history[u"data"_s][0][0][u"message"_s][u"data"_s].toString();
    }

    PrivateDisplay display{PrivateDisplay::WindowManager::none};
    PrivateBus bus;
    QDBusConnection observer = bus.connection(u"observer"_s);
    QProcessEnvironment environment = display.environment();
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
        run(u"dunstctl"_s, {u"action"_s, u"0"_s});
        ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
        EXPECT_EQ(responses, std::vector<std::string>{"default kitty"});
        run(u"dunstctl"_s, {u"close-all"_s});
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
    run(u"dunstctl"_s, {u"action"_s, u"0"_s});
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"default kitty"});
}

class XfceNotifydTest : public RealNotificationServersTest {
protected:
    void SetUp() override
    {
        RealNotificationServersTest::SetUp();
        if (IsSkipped()) return;
        program = installedService(u"org.xfce.xfce4-notifyd.Notifications.service"_s);
        if (program.isEmpty()) GTEST_SKIP() << "xfce4-notifyd is not installed";
        if (QStandardPaths::findExecutable(u"xdotool"_s).isEmpty())
            GTEST_SKIP() << "xdotool is not installed";
        bus.offer(u"org.xfce.Xfconf"_s, installedService(u"org.xfce.Xfconf.service"_s));
    }

    /// The id of the banner's window, empty when none is shown.
    QString window() const
    {
        const QByteArray ids =
            run(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--class"_s, u"notifyd"_s});
        return QString::fromLatin1(ids.trimmed().split('\n').constLast());
    }

    QString program;
};

TEST_F(XfceNotifydTest, ShowsABannerWhoseButtonReportsTheClick)
{
    const auto notifyd = startServer(program, {});
    startCenter();
    post("Agent & co", "a < b && <b>bold</b> &amp;");
    ASSERT_TRUE(waitUntil([&] { return !window().isEmpty(); }));
    // The button is in the lower right corner; a click anywhere else only closes the banner.
    const QStringList geometry =
        QString::fromLatin1(run(u"xdotool"_s, {u"getwindowgeometry"_s, u"--shell"_s, window()})).split(u'\n');
    const auto number = [&](qsizetype line) { return geometry.value(line).section(u'=', 1).toInt(); };
    run(u"xdotool"_s, {u"mousemove"_s, QString::number(number(1) + number(3) - 50),
                       QString::number(number(2) + number(4) - 30), u"click"_s, u"1"_s});
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"FOCUS_SESSION kitty"});
}

}
}
