// SPDX-License-Identifier: MIT
#include "platform/macos/status_item.h"

#include "objective_c.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace chimewell::test {

namespace {

using namespace objc;

class StatusItemTest : public ::testing::Test {
protected:
    StatusItemTest()
    {
        reset();
        // AppKit measures upwards from the bottom left corner of the primary screen.
        implement("bounds", +[](Id, const char*) { return ScreenArea{0, 0, 26, 20}; });
        implement(
            "convertRect:toView:", +[](Id, const char*, ScreenArea area, Id) {
                return ScreenArea{area.x + 2, area.y + 2, area.width, area.height};
            });
        implement(
            "convertRectToScreen:", +[](Id, const char*, ScreenArea area) {
                return ScreenArea{area.x + 1000, area.y + 870, area.width, area.height};
            });
        implement("frame", +[](Id, const char*) { return ScreenArea{0, 0, 1440, 900}; });
        implement(
            "statusItemWithLength:", +[](Id bar, const char*, double) -> Id { return Value(bar)["item"]; });
        shared("screens").set("firstObject", object());
        shared("systemStatusBar").set("item", item);
        icon = std::make_unique<StatusItem>();
    }

    const Value button = object({{"window", object()}});
    const Value item = object({{"button", button}});
    std::unique_ptr<StatusItem> icon;
};

}

TEST_F(StatusItemTest, ShowsTheStateInTheColourOfTheMenuBar)
{
    for (const bool isArmed : {true, false}) {
        icon->show({.isArmed = isArmed, .label = "Chimewell läuft"});
        EXPECT_EQ(button["image"]["systemSymbolName"].text(), isArmed ? "bell.badge" : "bell");
        EXPECT_TRUE(button["image"]["template"].as<bool>());
        EXPECT_EQ(button["accessibilityLabel"].text(), "Chimewell läuft");
        EXPECT_EQ(button["toolTip"].text(), "Chimewell läuft");
    }
    icon.reset();
    EXPECT_EQ(shared("systemStatusBar")["removeStatusItem"], item);
}

TEST_F(StatusItemTest, TellsWhereItWasClicked)
{
    std::vector<ScreenArea> clicks;
    icon->setClickHandler([&](const ScreenArea& place) { clicks.push_back(place); });
    EXPECT_EQ(button["sendActionOn"].as<int>(), 4 | 16); // either button, when released
    send(button["target"], button["action"].as<const char*>(), Id(button));
    EXPECT_EQ(clicks, (std::vector<ScreenArea>{{1002, 8, 26, 20}}));
}

}
