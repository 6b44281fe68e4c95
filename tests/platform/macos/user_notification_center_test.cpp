// SPDX-License-Identifier: MIT
#include "platform/macos/user_notification_center.h"

#include "objective_c.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace chimewell::test {

namespace {

using namespace objc;

long status = 0; ///< A value of UNAuthorizationStatus.

class UserNotificationCenterTest : public ::testing::Test {
protected:
    UserNotificationCenterTest()
    {
        reset();
        // The system answers and asks on threads of its own: nothing of ours may run before `runMainQueue`.
        implement("getNotificationSettingsWithCompletionHandler:",
                  [](Id, const char*, void (^done)(Id)) { done(object({{"authorizationStatus", status}})); });
        implement("requestAuthorizationWithOptions:completionHandler:",
                  [](Id, const char*, Word options, void (^done)(bool, Id)) {
                      EXPECT_EQ(options, 1U | 2U | 4U); // badge, sound, alert
                      done(false, nullptr);
                  });
        center = std::make_unique<UserNotificationCenter>(); // on the fresh Mac
    }

    static Value system() { return shared("currentNotificationCenter"); }
    /// Tells the delegate what the user did with a banner; how often it said that it was done.
    static int respond(const char* action, const std::map<std::string, Value>& userInfo)
    {
        const Value content = object({{"userInfo", object(userInfo)}});
        const Value banner = object({{"request", object({{"content", content}})}});
        const Value response = object({{"actionIdentifier", action}, {"notification", banner}});
        static int done;
        done = 0;
        send(system()["delegate"],
             "userNotificationCenter:didReceiveNotificationResponse:withCompletionHandler:", Id(system()),
             Id(response), ^{
                 ++done;
             });
        return done;
    }

    std::unique_ptr<UserNotificationCenter> center;
};

}

TEST_F(UserNotificationCenterTest, ReadsEveryPermissionOnTheMainThread)
{
    using enum NotificationPermission;
    std::vector<NotificationPermission> read;
    for (status = 0; status <= 5; ++status)
        center->readPermission([&](NotificationPermission permission) { read.push_back(permission); });
    int requests = 0;
    center->requestPermission([&] { ++requests; });
    EXPECT_TRUE(read.empty() && requests == 0) << "answered on the thread of the system";
    runMainQueue();
    EXPECT_EQ(read, (std::vector{notDetermined, denied, authorized, provisional, ephemeral, unknown}));
    EXPECT_EQ(requests, 1);
}

TEST_F(UserNotificationCenterTest, PostsBannersOfOneCategory)
{
    center->setCategory({.identifier = "AGENT", .actionIdentifier = "OPEN", .actionTitle = "Öffnen"});
    const Value category = system()["notificationCategories"]["object"];
    EXPECT_EQ(category["identifier"].text(), "AGENT");
    const Value action = category["actions"]["0"];
    EXPECT_EQ(action["identifier"].text() + " " + action["title"].text(), "OPEN Öffnen");
    EXPECT_EQ(action["options"].as<int>(), 4); // brings the application to the front

    center->post({.identifier = "uuid-1",
                  .categoryIdentifier = "AGENT",
                  .title = "Claude ✓",
                  .body = "no \xff text",
                  .userInfo = {{"cwd", "/srv/ä"}, {"term", "kitty"}}});
    const Value request = system()["addNotificationRequest"];
    EXPECT_EQ(request["identifier"].text(), "uuid-1");
    EXPECT_EQ(request["trigger"], Value(nullptr)); // at once
    const Value content = request["content"];
    EXPECT_EQ(content["categoryIdentifier"].text(), "AGENT");
    EXPECT_EQ(content["title"].text(), "Claude ✓");
    EXPECT_NE(content["body"], Value(nullptr)); // bytes that are no text
    EXPECT_EQ(content["userInfo"].texts(),
              (std::map<std::string, std::string>{{"cwd", "/srv/ä"}, {"term", "kitty"}}));
    center->withdraw("uuid-1");
    EXPECT_EQ(system()["identifiers"]["0"].text(), "uuid-1");
}

TEST_F(UserNotificationCenterTest, HandsClicksToTheMainThreadAndTellsTheSystem)
{
    std::vector<NotificationResponse> responses;
    center->setResponseHandler([&](const NotificationResponse& response) { responses.push_back(response); });
    EXPECT_EQ(respond("OPEN", {{"term", "kitty"}, {"not a text", object()}, {"cwd", "/srv/ä"}}), 1);
    EXPECT_EQ(respond("UNNotificationDefaultActionIdentifier", {}), 1);
    EXPECT_TRUE(responses.empty()) << "before the main thread's turn";
    runMainQueue();
    ASSERT_EQ(responses.size(), 2U);
    EXPECT_EQ(responses[0].actionIdentifier, "OPEN");
    EXPECT_EQ(responses[0].userInfo,
              (std::map<std::string, std::string>{{"term", "kitty"}, {"cwd", "/srv/ä"}}));
    EXPECT_EQ(responses[1].actionIdentifier, defaultNotificationAction);
    EXPECT_TRUE(responses[1].userInfo.empty());

    static Word shown;
    send(system()["delegate"],
         "userNotificationCenter:willPresentNotification:withCompletionHandler:", Id(system()), Id(object()),
         ^(Word options) {
             shown = options;
         });
    EXPECT_EQ(shown, 8U | 16U); // a banner while our window is in front: in the list, too
}

TEST_F(UserNotificationCenterTest, IsUnavailableOutsideABundle)
{
    EXPECT_TRUE(center->isAvailable());
    shared("mainBundle").set("bundleIdentifier", nullptr);
    implement("currentNotificationCenter", [](Id, const char*) -> Id {
        ADD_FAILURE() << "the system would raise an exception";
        return nullptr;
    });
    EXPECT_FALSE(center->isAvailable());
    center->setResponseHandler([](const NotificationResponse&) {});
    center->post({});
}

TEST_F(UserNotificationCenterTest, NoticesThatTheUserComesBackFromTheSystemSettings)
{
    int changes = 0;
    center->setChangeHandler([&] { ++changes; });
    center->openSystemSettings();
    EXPECT_EQ(shared("sharedWorkspace")["openURL"]["string"].text(),
              "x-apple.systempreferences:com.apple.preference.notifications");
    notify(shared("defaultCenter"), "NSApplicationDidBecomeActiveNotification");
    EXPECT_EQ(changes, 1);
    center.reset();
    notify(shared("defaultCenter"), "NSApplicationDidBecomeActiveNotification");
    EXPECT_EQ(changes, 1);
}

TEST_F(UserNotificationCenterTest, NothingReachesAnybodyAfterTheEnd)
{
    center->setResponseHandler([](const NotificationResponse&) { ADD_FAILURE() << "a click"; });
    center->requestPermission([] { ADD_FAILURE() << "the user's answer"; });
    center->readPermission([](NotificationPermission) { ADD_FAILURE() << "the permission"; });
    EXPECT_EQ(respond("OPEN", {}), 1);
    center.reset();
    runMainQueue();
}

}
