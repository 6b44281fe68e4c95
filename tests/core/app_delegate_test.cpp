// SPDX-License-Identifier: MIT
#include "core/app_delegate.h"

#include "core/services.h"
#include "support/fake_system.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace chimewell::test {

using namespace std::chrono_literals;

class AppDelegateTest : public ::testing::Test {
protected:
    static constexpr char markerFile[] = "/data/Chimewell/dormant";
    bool markerStands() const { return system.files.contents.contains(markerFile); }

    FakeSystem system;
    Services services{system.ports()};
    FakeTime& time = system.time;
    MemoryFiles& files = system.files;
    AppDelegate& delegate = services.delegate;
};

TEST_F(AppDelegateTest, LivesInTheMenuBarOnly)
{
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(system.activation.policies, std::vector{ActivationPolicy::accessory});
    EXPECT_EQ(system.activation.activations, 0); // whoever types goes on typing
}

TEST_F(AppDelegateTest, StartedByHandClearsTheMarkerOnce)
{
    files.contents[markerFile] = "before";
    delegate.applicationDidFinishLaunching();
    time.advance(499ms);
    EXPECT_TRUE(markerStands());
    time.advance(1ms);
    EXPECT_FALSE(markerStands());
    EXPECT_EQ(time.runningTimers(), 0u); // no wake-up is left behind
}

TEST_F(AppDelegateTest, StartedByAnyUrlKeepsTheMarker)
{
    files.contents[markerFile] = "before";
    services.urls.handleURLEvent("nonsense");
    delegate.applicationDidFinishLaunching();
    time.advance(1s);
    EXPECT_TRUE(markerStands());
    EXPECT_TRUE(services.history.entries().empty());
}

TEST_F(AppDelegateTest, OnlyTheUsersQuitLeavesTheMarker)
{
    delegate.applicationWillTerminate(QuitReason::sessionEnd);
    EXPECT_FALSE(markerStands());
    delegate.applicationWillTerminate(QuitReason::user);
    EXPECT_EQ(files.contents.at(markerFile), "2026-03-01T14:00:00Z");

    files.contents.erase(markerFile);
    files.full = true;
    delegate.applicationWillTerminate(QuitReason::user); // nothing to be done about it
    EXPECT_FALSE(markerStands());
}

TEST_F(AppDelegateTest, KeepsItsFilesBelowTheHomeFolderWhereTheSystemNamesNoOther)
{
    EXPECT_EQ(services.store.fileURL(), "/data/Chimewell/settings.json");
    system.home.support.reset();
    EXPECT_EQ(Services(system.ports()).store.folder(), "/home/me/Library/Application Support/Chimewell");
}

TEST_F(AppDelegateTest, AClickedBannerAndASampleReachTheirServices)
{
    delegate.applicationDidFinishLaunching();
    system.workspace.installed = {"net.kovidgoyal.kitty"};
    system.workspace.paths["/proj"] = FileKind::folder;
    system.center.respond({"FOCUS_SESSION", {{"term", "kitty"}, {"cwd", "/proj"}}});
    system.center.respond({defaultNotificationAction, {{"cwd", "/proj"}}});
    system.center.respond({"dismiss", {{"cwd", "/proj"}}});
    EXPECT_EQ(system.workspace.asked,
              (std::vector<std::string>{"open net.kovidgoyal.kitty", "folder /proj"}));

    services.actions.playSample();
    ASSERT_EQ(system.center.posted.size(), 1u);
    EXPECT_EQ(system.center.posted[0].title, "Test event");
    EXPECT_TRUE(services.history.entries().empty());

    services.actions.setMuted(true);
    services.actions.playSample();
    EXPECT_EQ(system.center.posted.size(), 1u);
}

}
