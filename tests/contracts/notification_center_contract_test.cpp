// SPDX-License-Identifier: MIT
// What every NotificationCenter does: the fake of the other tests, and the real one with servers that
// people use.
#include "harness/child_process.h"
#include "harness/private_bus.h"
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
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace Qt::StringLiterals;

/// A notification center and the system that shows its banners: here the fake.
class Desktop {
public:
    virtual ~Desktop() = default;
    /// What is missing; empty when the desktop can be used.
    virtual std::string unavailable() { return {}; }
    virtual NotificationCenter& center() { return fake_; }
    /// False when it is not installed.
    virtual bool startServer()
    {
        set(true, NotificationPermission::authorized);
        return true;
    }
    virtual void killServer() { set(false, NotificationPermission::unknown); }
    virtual void suspendServer(bool) {}
    /// How many banners are on the screen.
    virtual int shown() { return static_cast<int>(fake_.posted.size()); }
    /// Clicks the only banner.
    virtual void click()
    {
        fake_.respond({.actionIdentifier = "default", .userInfo = fake_.posted.front().userInfo});
    }
    /// The title and the body as the user reads them; absent where that cannot be found out.
    virtual std::optional<std::string> read()
    {
        return fake_.posted.front().title + "\n" + fake_.posted.front().body;
    }

private:
    void set(bool available, NotificationPermission permission)
    {
        fake_.available = available;
        fake_.permission = permission;
        fake_.posted.clear();
        if (fake_.changed) fake_.changed();
    }

    RecordingNotificationCenter fake_;
};

/// The real center, with a server that people use.
class RealDesktop : public Desktop {
public:
    explicit RealDesktop(std::string program) : program_(std::move(program)) {}
    std::string unavailable() override { return bus_.unavailable(); }
    NotificationCenter& center() override { return center_; }
    bool startServer() override { return bus_.start(program_); }
    void killServer() override { bus_.kill(program_); }
    std::optional<std::string> read() override { return std::nullopt; }
    void suspendServer(bool suspended) override { bus_.raise(program_, suspended ? SIGSTOP : SIGCONT); }

protected:
    static QStringList lines(const std::vector<std::string>& command)
    {
        return QString::fromStdString(run(command).output).split(u'\n', Qt::SkipEmptyParts);
    }

private:
    const EnvironmentVariable noAccessibility_{"NO_AT_BRIDGE", "1"};
    PrivateBus bus_{{"Xvfb"}};
    const std::string program_;
    FakeTime time_;
    ActivationTokens tokens_;
    DbusNotificationCenter center_{bus_.connection(u"center"_s), time_, tokens_};
};

class DunstDesktop : public RealDesktop {
public:
    DunstDesktop() : RealDesktop("dunst") {}
    int shown() override { return lines({"dunstctl", "count", "displayed"}).value(0).toInt(); }
    void click() override { run({"dunstctl", "action", "0"}); }
    std::optional<std::string> read() override
    {
        run({"dunstctl", "close-all"});
        const auto history = QJsonDocument::fromJson(lines({"dunstctl", "history"}).join(u'\n').toUtf8());
        QString text = history[u"data"_s][0][0][u"message"_s][u"data"_s].toString(); // the title is bold
        text.remove(u"<b>"_s).remove(u"</b>"_s);
        text.replace(u"&lt;"_s, u"<"_s).replace(u"&gt;"_s, u">"_s).replace(u"&amp;"_s, u"&"_s);
        return text.toStdString();
    }
};

class XfceDesktop : public RealDesktop {
public:
    XfceDesktop() : RealDesktop("xfce4-notifyd") {}
    int shown() override { return static_cast<int>(windows().size()); }
    /// Clicks the button, in the lower right corner: a click anywhere else only closes the banner.
    void click() override
    {
        const auto geometry = lines({"xdotool", "getwindowgeometry", "--shell", windows()[0].toStdString()});
        const auto number = [&](qsizetype line) { return geometry.value(line).section(u'=', 1).toInt(); };
        run({"xdotool", "mousemove", std::to_string(number(1) + number(3) - 50),
             std::to_string(number(2) + number(4) - 30), "click", "1"});
    }

private:
    static QStringList windows()
    {
        return lines({"xdotool", "search", "--onlyvisible", "--class", "notifyd"});
    }
};

std::unique_ptr<Desktop> make(const std::string& kind)
{
    if (kind == "Dunst") return std::make_unique<DunstDesktop>();
    if (kind == "Xfce") return std::make_unique<XfceDesktop>();
    return std::make_unique<Desktop>();
}

class NotificationCenterContract : public ::testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        if (const std::string missing = desktop->unavailable(); !missing.empty()) GTEST_SKIP() << missing;
        if (!desktop->startServer()) GTEST_SKIP() << "the server is not installed";
        bool answered = false;
        center().requestPermission([&] { answered = true; });
        EXPECT_TRUE(waitUntil([&] { return answered; }));
        EXPECT_TRUE(permissionBecomes(NotificationPermission::authorized));
        center().setCategory({.identifier = "AGENT_EVENT",
                              .actionIdentifier = "FOCUS_SESSION",
                              .actionTitle = "Open Session"});
        center().setResponseHandler([this](const NotificationResponse& response) {
            responses.push_back(response.userInfo.at("term"));
        });
    }

    NotificationCenter& center() { return desktop->center(); }
    void post(const std::string& title, const std::string& body)
    {
        center().post({.identifier = title + body,
                       .categoryIdentifier = "AGENT_EVENT",
                       .title = title,
                       .body = body,
                       .userInfo = {{"term", title}}});
    }
    bool comesToShow(int count)
    {
        return waitUntil([&] { return desktop->shown() == count; });
    }
    bool permissionBecomes(NotificationPermission expected)
    {
        return waitUntil([&] {
            std::optional<NotificationPermission> answer;
            center().readPermission([&](NotificationPermission permission) { answer = permission; });
            return waitUntil([&] { return answer.has_value(); }) && answer == expected;
        });
    }

    const std::unique_ptr<Desktop> desktop = make(GetParam());
    std::vector<std::string> responses;
};

TEST_P(NotificationCenterContract, ShowsABannerAsWrittenAndReportsItsClick)
{
    post("Agent <b>is</b> done", "a < b && <b>bold</b> &amp;");
    ASSERT_TRUE(comesToShow(1));
    desktop->click();
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"Agent <b>is</b> done"});
    const std::string text = "Agent <b>is</b> done\na < b && <b>bold</b> &amp;";
    EXPECT_EQ(desktop->read().value_or(text), text);
}

TEST_P(NotificationCenterContract, ABannerNeverReplacesAnother)
{
    for (int i = 0; i < 3; ++i)
        post("same", "text " + std::to_string(i)); // dunst itself joins those of the same text
    EXPECT_TRUE(comesToShow(3));
}

TEST_P(NotificationCenterContract, OnlyTheBannerThatIsWithdrawnGoesAway)
{
    post("answered", "");
    post("stays", "");
    ASSERT_TRUE(comesToShow(2));
    center().withdraw("answered");
    center().withdraw("answered");
    ASSERT_TRUE(comesToShow(1));
    desktop->click();
    ASSERT_TRUE(waitUntil([&] { return !responses.empty(); }));
    EXPECT_EQ(responses, std::vector<std::string>{"stays"});
}

TEST_P(NotificationCenterContract, ABannerIsNotLostWhileTheServerHangs)
{
    post("first", "");
    ASSERT_TRUE(comesToShow(1));
    desktop->suspendServer(true);
    post("second", "");
    post("third", "");
    desktop->suspendServer(false);
    EXPECT_TRUE(comesToShow(3));
}

TEST_P(NotificationCenterContract, FollowsAServerThatDiesAndComesBack)
{
    post("old", "");
    ASSERT_TRUE(comesToShow(1));
    int changes = 0;
    center().setChangeHandler([&] { ++changes; });
    desktop->suspendServer(true);
    post("lost with it", "");
    desktop->killServer();
    EXPECT_TRUE(waitUntil([&] { return changes > 0 && !center().isAvailable(); }));
    EXPECT_TRUE(permissionBecomes(NotificationPermission::unknown));

    desktop->startServer();
    EXPECT_TRUE(waitUntil([&] { return center().isAvailable(); }));
    EXPECT_TRUE(permissionBecomes(NotificationPermission::authorized));
    post("new", "");
    ASSERT_TRUE(comesToShow(1));
    desktop->click();
    EXPECT_TRUE(waitUntil([&] { return responses.size() == 1; }));
}

INSTANTIATE_TEST_SUITE_P(Desktops, NotificationCenterContract, ::testing::Values("Fake", "Dunst", "Xfce"),
                         [](const auto& kind) { return kind.param; });

}
}
