// SPDX-License-Identifier: MIT
// When the application starts, when the user starts it again, and what a click on a banner does.
#include "core/app_delegate.h"

#include "core/reopen_requests.h"
#include "core/services.h"
#include "support/fake_system.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace chimewell::test {

using namespace std::chrono_literals;

TEST(AppDelegateTest, StartsAwakeUnlessAUrlStartedIt)
{
    const std::string marker = "/data/Chimewell/dormant";
    for (const bool byUrl : {false, true}) {
        FakeSystem system;
        Services services(system.ports());
        system.files.contents[marker] = "before";
        if (byUrl) services.urls.handleURLEvent("nonsense");
        services.delegate.applicationDidFinishLaunching();
        EXPECT_EQ(system.activation.policies, std::vector{ActivationPolicy::accessory});
        EXPECT_EQ(system.activation.activations, 0); // whoever types goes on typing
        system.time.advance(499ms);
        EXPECT_TRUE(system.files.contents.contains(marker));
        system.time.advance(1ms);
        EXPECT_EQ(system.files.contents.contains(marker), byUrl);
        EXPECT_EQ(system.time.runningTimers(), 0u); // no wake-up is left behind
    }
}

TEST(AppDelegateTest, AClickedBannerOpensItsSession)
{
    FakeSystem system;
    Services services(system.ports());
    services.delegate.applicationDidFinishLaunching();
    system.workspace.installed = {"net.kovidgoyal.kitty"};
    system.workspace.paths["/proj"] = FileKind::folder;
    system.center.respond({"FOCUS_SESSION", {{"term", "kitty"}, {"cwd", "/proj"}}});
    system.center.respond({defaultNotificationAction, {{"cwd", "/proj"}}});
    system.center.respond({"dismiss", {{"cwd", "/proj"}}});
    EXPECT_EQ(system.workspace.asked,
              (std::vector<std::string>{"open net.kovidgoyal.kitty", "folder /proj"}));
}

TEST(ReopenRequestsTest, OnlyTheUsersOpenAWindow)
{
    FakeSystem system;
    Services services(system.ports());
    services.notifications.configure();
    int opened = 0;
    services.reopens.onUserReopen = [&] { ++opened; };
    const auto reopen = [&] { services.reopens.request(); };
    const auto url = [&] { services.urls.handleURLEvent("chimewell://event?type=finished"); };
    const auto banner = [&] { system.center.respond({defaultNotificationAction, {}}); };
    const auto wake = [&] { services.reopens.explain(ReopenRequests::Cause::wake); };

    const struct {
        const char* name;
        std::function<void()> first;
        std::chrono::milliseconds between;
        std::function<void()> second;
        int opens;
    } rows[] = {
        {"the user alone", [] {}, 0ms, reopen, 1},
        {"twice in a hurry", reopen, 100ms, reopen, 1},
        {"twice", reopen, 600ms, reopen, 2},
        {"just after a URL", url, 999ms, reopen, 0},
        {"later than a URL", url, 1s, reopen, 1},
        {"just before a URL", reopen, 499ms, url, 0},
        {"before a URL", reopen, 500ms, url, 1},
        {"just after a banner", banner, 999ms, reopen, 0},
        {"just before a banner", reopen, 499ms, banner, 0},
        {"seconds after waking", wake, 9999ms, reopen, 0},
        {"long after waking", wake, 10s, reopen, 1},
        {"a URL does not shorten what follows waking", [&] { wake(), url(); }, 5s, reopen, 0},
    };
    for (const auto& row : rows) {
        opened = 0;
        row.first();
        system.time.advance(row.between);
        row.second();
        system.time.advance(1h);
        EXPECT_EQ(opened, row.opens) << row.name;
        EXPECT_EQ(system.time.runningTimers(), 0U) << row.name;
    }
}

}
