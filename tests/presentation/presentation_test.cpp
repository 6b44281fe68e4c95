// SPDX-License-Identifier: MIT
#include "presentation/event_looks.h"
#include "presentation/panel_model.h"
#include "presentation/settings_model.h"
#include "values/sound_option.h"
#include "values/texts.h"

#include "support/fake_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;

TEST(PanelModel, IconAndHeaderTellWhetherAlertsWillCome)
{
    FakeSystem system;
    Services services(system.ports());
    const AppSettings& settings = services.store.settings();
    for (const auto& [muted, installed] : {std::pair{false, false}, {false, true}, {true, true}}) {
        services.actions.setMuted(muted);
        services.store.updateProvider("cursor", [&](auto& state) { state.installed = installed; });
        const std::string status = installed ? "Listening" : "Setup needed";
        const StatusIconState icon = statusIconState(settings, services.muting, system.translator);
        EXPECT_EQ(icon.isArmed, installed && !muted);
        EXPECT_EQ(icon.label, "Chimewell — " + status);
        EXPECT_EQ(icon.menu[1].isChecked, muted);
        EXPECT_FALSE(icon.menu.back().tooltip.empty()) << "what quitting means";
        EXPECT_EQ(english(panelHeader(settings).status), status);
        EXPECT_EQ(panelHeader(settings).isListening, installed);
    }
}

TEST(PanelModel, ShowsSixAlertsAndCountsTheOthers)
{
    FakeSystem system;
    EventHistory history(system.time, system.random);
    for (int count = 1; count <= 8; ++count) {
        history.add(
            {.type = CanonicalEvent::finished, .provider = "claude", .cwd = "/srv/" + std::to_string(count)},
            false);
        const auto rows = panelRows(history, system.locale, system.time.now());
        EXPECT_EQ(rows.size(), static_cast<std::size_t>(std::min(count, 6)));
        EXPECT_EQ(english(rows.front().title), "Finished — " + std::to_string(count));
        EXPECT_EQ(panelMore(history).has_value(), count > 6);
    }
    EXPECT_EQ(english(*panelMore(history)), "2 more in Settings ▸ Recent");
}

TEST(ReminderChoices, OtherIntervalsAreWholeMinutes)
{
    std::size_t preset = 0;
    for (const std::int64_t seconds : {30, 60, 120, 180, 300})
        EXPECT_EQ(reminderPreset(seconds), preset++) << seconds;
    EXPECT_EQ(reminderPreset(90), std::nullopt);
    struct Case {
        std::int64_t seconds, minutes;
    };
    for (const auto& [seconds, minutes] :
         {Case{90, 1}, Case{1, 1}, Case{-5, 1}, Case{150, 2}, Case{3600, 60}})
        EXPECT_EQ(shownMinutes(seconds), minutes) << seconds;
    EXPECT_EQ(storedSeconds(7), 420);
    EXPECT_EQ(storedSeconds(0), 60);
    EXPECT_EQ(storedSeconds(1000), 3600);
}

TEST(UserActionsTest, LaunchAtLoginStoresTheChoiceAndReportsTheSystemsRefusal)
{
    FakeSystem system;
    Services services(system.ports());
    EXPECT_EQ(services.actions.setLaunchAtLogin(false), std::nullopt);
    EXPECT_EQ(services.actions.setLaunchAtLogin(true), std::nullopt);
    EXPECT_TRUE(system.loginItem.enabled);
    system.loginItem.refuses = true; // asked only for a change
    EXPECT_EQ(services.actions.setLaunchAtLogin(true), std::nullopt);
    EXPECT_EQ(english(*services.actions.setLaunchAtLogin(false)),
              "Launch at login could not be changed: Operation not permitted");
    EXPECT_FALSE(services.store.settings().launchAtLogin);
    EXPECT_TRUE(system.loginItem.enabled);
    system.loginItem = {};
    system.resources.helper = "/Volumes/Chimewell/Chimewell.app/chimewell-hook";
    EXPECT_TRUE(
        english(*services.actions.setLaunchAtLogin(true)).contains("Move it to the Applications folder"));
    EXPECT_FALSE(system.loginItem.enabled);
}

}
}
