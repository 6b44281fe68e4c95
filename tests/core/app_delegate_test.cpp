// SPDX-License-Identifier: MIT
#include "core/app_delegate.h"

#include "core/services.h"
#include "support/fake_system.h"

#include <gtest/gtest.h>

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

}
