// SPDX-License-Identifier: MIT
#include "ui/panel/panel_window.h"
#include "ui/settings/settings_window.h"
#include "window_test.h"

namespace chimewell::test {
namespace {

class RecentAlertsTest : public WindowTest, public ::testing::WithParamInterface<bool> {};

TEST_P(RecentAlertsTest, CanBeUsedByKeyboard)
{
    const bool isPanel = GetParam();
    EventHistory& history = fakes.services.history;
    history.add({.type = CanonicalEvent::finished, .provider = "claude", .cwd = "/srv/one"}, false);
    history.add({.type = CanonicalEvent::error, .provider = "claude"}, false);
    system.workspace.paths["/srv/one"] = FileKind::folder;
    if (isPanel) {
        open(new PanelWindow(fakes.services, {}, PanelWindow::Form::window));
    } else {
        auto* settings = new SettingsWindow(fakes.services, {});
        settings->show(Pane::recent);
        open(settings);
    }
    at<QWidget>(isPanel ? "Error. The agent reported an error.. 14:05 (0 seconds ago)"
                        : "Error, The agent reported an error., 14:05 (0 seconds ago)")
        .setFocus();
    press(Qt::Key_Return); // there is no session
    press(Qt::Key_Down);
    if (!isPanel) // the panel shows it in place of the first
        history.add({.type = CanonicalEvent::toolUse, .provider = "claude"}, false);
    press(Qt::Key_Return);
    EXPECT_EQ(system.workspace.asked, std::vector<std::string>{"folder /srv/one"});
    press(Qt::Key_Up);
    EXPECT_EQ(focused().find("Error"), 0U);
    click("Clear");
    EXPECT_TRUE(history.entries().empty());
    EXPECT_TRUE(shows("No recent activity yet"));
}

INSTANTIATE_TEST_SUITE_P(Windows, RecentAlertsTest, ::testing::Bool(),
                         [](const auto& isPanel) { return isPanel.param ? "panel" : "settings"; });

}
}
