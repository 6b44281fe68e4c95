// SPDX-License-Identifier: MIT
#include "ui/panel/panel_window.h"

#include "ui/panel/panel_rows.h"
#include "window_test.h"

namespace chimewell::test {
namespace {

class PanelWindowTest : public WindowTest {};

TEST_F(PanelWindowTest, FollowsTheHistoryAndOpensSessionsByKeyboard)
{
    const Windows windows{.openSettings = [] {}, .openOnboarding = [] {}};
    open(new PanelWindow(fakes.services, windows, PanelWindow::Form::window));
    fakes.services.actions.muteForAnHour();
    EXPECT_TRUE(shows("Until 14:05"));
    click("Mute all");
    EXPECT_FALSE(fakes.services.muting.isMuted() || shows("Until"));

    EventHistory& history = fakes.services.history;
    history.add({.type = CanonicalEvent::finished, .provider = "claude", .cwd = "/srv/one"}, false);
    history.add({.type = CanonicalEvent::error, .provider = "claude"}, false);
    system.workspace.paths["/srv/one"] = FileKind::folder;
    settle();
    EXPECT_FALSE(shows("No recent activity yet"));
    window->findChild<RecentPanelRow*>()->setFocus();
    EXPECT_EQ(focused().find("Error"), 0U);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(system.workspace.asked, std::vector<std::string>{"folder /srv/one"});
    click("Clear");
    EXPECT_TRUE(shows("No recent activity yet"));
}

}
}
