// SPDX-License-Identifier: MIT
#include "platform/macos/status_item.h"

#include "fakes/menu_bar.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace chimewell::test {

TEST(StatusItemTest, ShowsTheStateInTheColourOfTheMenuBar)
{
    std::optional<StatusItem> item(std::in_place);
    ASSERT_EQ(mac::menuBar().items().size(), 1u);
    EXPECT_EQ(mac::menuBar().items()[0].length, -1); // as wide as what it shows
    for (const bool isArmed : {true, false}) {
        item->show({.isArmed = isArmed, .label = "Chimewell läuft"});
        const mac::MenuBarItem shown = mac::menuBar().items()[0];
        EXPECT_EQ(shown.symbol, isArmed ? "bell.badge" : "bell");
        EXPECT_EQ(shown.symbolDescription, "Chimewell läuft");
        EXPECT_TRUE(shown.isTemplate);
        EXPECT_EQ(shown.toolTip, "Chimewell läuft");
        EXPECT_EQ(shown.accessibilityLabel, "Chimewell läuft");
    }
    item.reset();
    EXPECT_TRUE(mac::menuBar().items().empty());
}

TEST(StatusItemTest, TellsWhereItWasClicked)
{
    std::vector<ScreenArea> clicks;
    StatusItem item;
    item.setClickHandler([&](const ScreenArea& place) { clicks.push_back(place); });
    using enum mac::MenuBar::MouseButton;
    mac::MenuBar& bar = mac::menuBar();
    bar.click(0, left);
    bar.screens = {{0, 0, 1440, 900}, {1440, -180, 1920, 1080}}; // beside it stands a larger one
    bar.itemWindow = {3000, 876, 30, 24};
    bar.click(0, right);
    bar.screens = {{0, 0, 1440, 900}, {0, 900, 1920, 1080}}; // above the primary one
    bar.itemWindow = {1000, 1956, 30, 24};
    bar.click(0, left);
    EXPECT_EQ(clicks, (std::vector<ScreenArea>{{1002, 2, 26, 20}, {3002, 2, 26, 20}, {1002, -1078, 26, 20}}));
}

}
