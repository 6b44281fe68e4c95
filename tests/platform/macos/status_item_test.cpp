// SPDX-License-Identifier: MIT
#include "platform/macos/status_item.h"

#include "fakes/menu_bar.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace chimewell::test {

namespace {

class StatusItemTest : public ::testing::Test {
protected:
    std::vector<ScreenRectangle> clicks;
    std::unique_ptr<StatusItem> item =
        std::make_unique<StatusItem>([this](const auto& place) { clicks.push_back(place); });
};

}

TEST_F(StatusItemTest, ShowsTheSymbolInTheColourOfTheMenuBar)
{
    ASSERT_EQ(mac::menuBar().items().size(), 1u);
    EXPECT_EQ(mac::menuBar().items()[0].length, -1); // as wide as what it shows
    item->setSymbol("bell", "Chimewell läuft");
    item->setToolTip("Zwei warten ✓");
    const mac::MenuBarItem shown = mac::menuBar().items()[0];
    EXPECT_EQ(shown.symbol, "bell");
    EXPECT_EQ(shown.symbolDescription, "Chimewell läuft");
    EXPECT_TRUE(shown.isTemplate);
    EXPECT_EQ(shown.toolTip, "Zwei warten ✓");
    EXPECT_EQ(shown.accessibilityLabel, "Chimewell läuft");

    item->setSymbol("bell.slash", "Stumm");
    EXPECT_EQ(mac::menuBar().items()[0].symbol, "bell.slash");
    EXPECT_TRUE(mac::menuBar().items()[0].isTemplate);
    EXPECT_EQ(mac::menuBar().items()[0].accessibilityLabel, "Stumm");

    item.reset();
    EXPECT_TRUE(mac::menuBar().items().empty());
}

TEST_F(StatusItemTest, TellsWhereItWasClicked)
{
    using enum mac::MenuBar::MouseButton;
    mac::MenuBar& bar = mac::menuBar();
    bar.click(0, left);
    ASSERT_EQ(clicks, (std::vector<ScreenRectangle>{{1002, 2, 26, 20}}));

    bar.screens = {{0, 0, 1440, 900}, {1440, -180, 1920, 1080}}; // beside it stands a larger one
    bar.itemWindow = {3000, 876, 30, 24};
    bar.click(0, right);
    EXPECT_EQ(clicks.back(), (ScreenRectangle{3002, 2, 26, 20}));

    bar.screens = {{0, 0, 1440, 900}, {0, 900, 1920, 1080}}; // above the primary one
    bar.itemWindow = {1000, 1956, 30, 24};
    EXPECT_EQ(item->place(), (ScreenRectangle{1002, -1078, 26, 20}));
    EXPECT_EQ(clicks.size(), 2u);
}

}
