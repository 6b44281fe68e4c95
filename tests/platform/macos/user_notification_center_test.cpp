// SPDX-License-Identifier: MIT
#include "platform/macos/user_notification_center.h"

#include "alerts/notification_service.h"
#include "fakes/main_thread.h"
#include "fakes/notification_center.h"
#include "fakes/run_loop.h"
#include "fakes/user_environment.h"
#include "fakes/user_notifications.h"
#include "fakes/workspace.h"
#include "support/english_translator.h"
#include "support/fixed_random.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {

namespace {

constexpr unsigned long badgeSoundAlert = 1 | 2 | 4;
constexpr unsigned long foreground = 4;
constexpr unsigned long listAndBanner = 8 | 16;

/// Lets the system answer, and the main thread take the answers, until nothing is owed.
void settle()
{
    for (int round = 0; round < 4; ++round) {
        mac::banners().giveAnswers();
        mac::runLoop().turn();
    }
}

class UserNotificationCenterTest : public ::testing::Test {
protected:
    using Session = std::pair<std::optional<std::string>, std::optional<std::string>>;

    UserNotificationCenterTest()
    {
        service->onOpenSession = [this](const auto& term, const auto& cwd) {
            EXPECT_TRUE(mac::onMainThread());
            opened.emplace_back(term, cwd);
        };
    }

    FixedRandom random;
    EnglishTranslator translator;
    std::unique_ptr<UserNotificationCenter> center = std::make_unique<UserNotificationCenter>();
    std::unique_ptr<NotificationService> service =
        std::make_unique<NotificationService>(*center, random, translator);
    std::vector<Session> opened;
};

}

TEST_F(UserNotificationCenterTest, ReadsEveryPermissionOnTheMainThread)
{
    const std::pair<long, AuthStatus> statuses[] = {
        {0, AuthStatus::notDetermined}, {1, AuthStatus::denied},     {2, AuthStatus::authorized},
        {3, AuthStatus::provisional},   {4, AuthStatus::authorized}, {5, AuthStatus::notDetermined},
    };
    int changes = 0;
    const Subscription subscription = service->onChange([&] {
        EXPECT_TRUE(mac::onMainThread());
        ++changes;
    });
    for (const auto& [status, expected] : statuses) {
        mac::banners().status = status;
        service->refreshStatus();
        const AuthStatus before = service->status();
        mac::banners().giveAnswers();
        EXPECT_EQ(service->status(), before) << "published on the thread that answered";
        mac::runLoop().turn();
        EXPECT_EQ(service->status(), expected) << status;
    }
    EXPECT_EQ(changes, 5);
}

TEST_F(UserNotificationCenterTest, AsksOnceForEverything)
{
    for (const long answer : {2L, 1L}) {
        mac::banners().status = 0;
        mac::banners().answer = answer;
        mac::banners().asked.clear();
        service->requestAuthorization();
        settle();
        EXPECT_EQ(mac::banners().asked, std::vector{badgeSoundAlert});
        EXPECT_EQ(service->status(), answer == 2 ? AuthStatus::authorized : AuthStatus::denied);
        service->requestAuthorization(); // decided: the system would not ask again
        settle();
        EXPECT_EQ(mac::banners().asked.size(), 1u);
    }
}

TEST_F(UserNotificationCenterTest, PostsBannersOfOneCategory)
{
    service->configure();
    EXPECT_TRUE(mac::banners().hasDelegate());
    EXPECT_EQ(mac::banners().categories,
              (std::vector<mac::BannerCategory>{
                  {"AGENT_EVENT", {{"FOCUS_SESSION", "Open Session", foreground}}, 0, 0}}));

    EXPECT_TRUE(service->post(std::string("Claude ✓"), std::string("Fertig"), "/srv/ä", "kitty"));
    EXPECT_TRUE(service->post(std::string("Claude ✓"), std::string("Fertig"), std::nullopt, std::nullopt));
    EXPECT_TRUE(service->post(std::string("Claude"), std::string("no \xff text"), "/srv/\xc3", std::nullopt));
    EXPECT_EQ(mac::banners().posted,
              (std::vector<mac::PostedBanner>{
                  {"uuid-1", "AGENT_EVENT", "Claude ✓", "Fertig", {{"cwd", "/srv/ä"}, {"term", "kitty"}}},
                  {"uuid-2", "AGENT_EVENT", "Claude ✓", "Fertig", {}},
                  {"uuid-3", "AGENT_EVENT", "Claude", "no \uFFFD text", {{"cwd", ""}}}}));
    EXPECT_EQ(mac::banners().present(), listAndBanner);
}

TEST_F(UserNotificationCenterTest, AClickOpensTheSessionAndTheSystemHearsThatWeAreDone)
{
    const Session session{"kitty", "/srv/ä"};
    const std::map<std::string, std::string> userInfo{{"term", "kitty"}, {"cwd", "/srv/ä"}};
    struct Case {
        mac::BannerResponse response;
        std::vector<Session> opened;
    };
    const Case cases[] = {
        {{"FOCUS_SESSION", userInfo}, {session}},
        {{mac::defaultActionIdentifier(), userInfo}, {session}},
        {{mac::defaultActionIdentifier(), userInfo, true}, {session}},
        {{mac::defaultActionIdentifier(), {}}, {{std::nullopt, std::nullopt}}},
        {{"com.apple.UNNotificationDismissActionIdentifier", userInfo}, {}},
    };
    service->configure();
    for (const Case& each : cases) {
        EXPECT_EQ(mac::banners().respond(each.response), 1) << each.response.action;
        EXPECT_TRUE(opened.empty()) << "opened before the main thread's turn";
        mac::runLoop().turn();
        EXPECT_EQ(std::exchange(opened, {}), each.opened) << each.response.action;
    }
}

TEST_F(UserNotificationCenterTest, IsUnavailableOutsideABundle)
{
    mac::userEnvironment().bundleIdentifier = std::nullopt;
    service->configure();
    service->requestAuthorization();
    EXPECT_EQ(service->status(), AuthStatus::unavailable);
    EXPECT_FALSE(service->post(std::string("Title"), std::string("Body"), std::nullopt, std::nullopt));
    EXPECT_FALSE(mac::banners().hasDelegate());
    EXPECT_TRUE(mac::banners().categories.empty());
    EXPECT_TRUE(mac::banners().posted.empty());
}

TEST_F(UserNotificationCenterTest, ReadsAgainWhenTheUserComesBackFromTheSettings)
{
    mac::banners().status = 1;
    service->configure();
    settle();
    service->openSystemSettings();
    EXPECT_EQ(mac::desktop().asked,
              std::vector<std::string>{"url x-apple.systempreferences:com.apple.preference.notifications"});
    mac::banners().status = 2;
    mac::applicationDidBecomeActive();
    settle();
    EXPECT_EQ(service->status(), AuthStatus::authorized);
}

TEST_F(UserNotificationCenterTest, NothingReachesAnybodyAfterTheEnd)
{
    service->configure();
    center->requestPermission([] { ADD_FAILURE() << "answered"; });
    center->readPermission([](NotificationPermission) { ADD_FAILURE() << "answered"; });
    mac::banners().respond({"FOCUS_SESSION", {}});
    service.reset();
    center.reset();
    settle();
    mac::applicationDidBecomeActive();
    EXPECT_EQ(mac::banners().respond({"FOCUS_SESSION", {}}), 0); // nobody is told any more
    EXPECT_TRUE(opened.empty());
}

}
