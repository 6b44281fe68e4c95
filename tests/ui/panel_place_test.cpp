// SPDX-License-Identifier: MIT
#include "ui/panel/panel_place.h"

#include <gtest/gtest.h>

#include <optional>

namespace chimewell::test {

TEST(PanelPlace, IsAtTheBellOrInItsCorner)
{
    constexpr QRect screen(0, 0, 1000, 800);
    constexpr QRect below(0, 30, 1000, 770); // what a panel at the top leaves
    constexpr QRect above(0, 0, 1000, 770);
    constexpr QRect rightOf(30, 0, 970, 800);
    constexpr QRect leftOf(0, 0, 970, 800);
    constexpr QPoint middle(500, 400), bell(900, 10);
    constexpr QRect icon(bell, QSize(20, 20));
    struct Row {
        const char* name;
        std::optional<QRect> icon;
        QPoint pointer;
        QRect free;
        Qt::LayoutDirection direction;
        QPoint anchor;
    };
    const Row rows[] = {
        {"the bell", icon, middle, below, Qt::LeftToRight, bell},
        {"the bell in a panel that hides", icon, middle, screen, Qt::LeftToRight, bell},
        {"the pointer at the bell", std::nullopt, bell, below, Qt::LeftToRight, bell},
        {"the host names the pointer", QRect(middle, QSize(1, 1)), middle, below, Qt::LeftToRight, {999, 0}},
        {"by keyboard, panel at the top", std::nullopt, middle, below, Qt::LeftToRight, {999, 0}},
        {"by keyboard, from right to left", std::nullopt, middle, below, Qt::RightToLeft, {0, 0}},
        {"by keyboard, panel at the bottom", std::nullopt, middle, above, Qt::LeftToRight, {999, 799}},
        {"by keyboard, panel on the left", std::nullopt, middle, rightOf, Qt::LeftToRight, {0, 799}},
        {"by keyboard, panel on the right", std::nullopt, middle, leftOf, Qt::RightToLeft, {999, 799}},
        {"by keyboard, no panel", std::nullopt, middle, screen, Qt::LeftToRight, {999, 0}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(panelAnchor(row.icon, row.pointer, screen, row.free, row.direction).topLeft(), row.anchor)
            << row.name;
}

}
