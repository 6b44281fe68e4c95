// SPDX-License-Identifier: MIT
#include "presentation/panel_model.h"
#include "presentation/settings_model.h"
#include "support/fake_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

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

TEST(RecentAlerts, AreTheNewestTenOfWhichThePanelShowsSix)
{
    FakeSystem system;
    EventHistory history(system.time, system.random);
    int told = 0;
    const Subscription subscription = history.onChange([&] { ++told; });
    for (int count = 1; count <= 12; ++count) {
        history.add(
            {.type = CanonicalEvent::finished, .provider = "claude", .cwd = "/srv/" + std::to_string(count)},
            count == 12);
        system.time.advance(1s);
        EXPECT_EQ(panelRows(history, system.locale, system.time.now()).size(),
                  static_cast<std::size_t>(std::min(count, 6)));
        EXPECT_EQ(panelMore(history).has_value(), count > 6);
    }
    EXPECT_EQ(english(*panelMore(history)), "4 more in Settings ▸ Recent");
    const auto& entries = history.entries();
    ASSERT_EQ(entries.size(), 10u);
    EXPECT_EQ(english(entries.front().displayTitle()), "Finished — 12 (reminder)");
    EXPECT_EQ(english(entries.back().displayTitle()), "Finished — 3");
    EXPECT_EQ(entries.back().timeText(system.locale, system.time.now()), "14:05 (10 seconds ago)");
    EXPECT_NE(entries.front().id, entries.back().id);
    history.clear();
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(told, 13);
}

TEST(ReminderChoices, OtherIntervalsAreWholeMinutes)
{
    for (const auto& [seconds, minutes] :
         {std::pair<std::int64_t, std::int64_t>{90, 1}, {1, 1}, {-5, 1}, {150, 2}, {3600, 60}})
        EXPECT_EQ(shownMinutes(seconds), minutes) << seconds;
    EXPECT_EQ(reminderPreset(90), std::nullopt);
    EXPECT_EQ(reminderPreset(reminderPresets[1].seconds), 1U);
    EXPECT_EQ(storedSeconds(0), 60);
    EXPECT_EQ(storedSeconds(7), 420);
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
