// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace chimewell::test::mac {

/// A rectangle as AppKit means it: from the bottom left corner of the primary screen upwards.
struct Frame {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

/// What stands in the menu bar.
struct MenuBarItem {
    double length = 0;
    std::optional<std::string> symbol = std::nullopt;
    std::optional<std::string> symbolDescription = std::nullopt;
    bool isTemplate = false;
    std::string toolTip;
    std::string accessibilityLabel;
};

struct MenuBar {
    std::vector<Frame> screens{{0, 0, 1440, 900}}; ///< The primary one first.
    Frame itemWindow{1000, 876, 30, 24};           ///< Of any item.
    double buttonInset = 2;                        ///< Of the button on each side within its window.

    std::vector<MenuBarItem> items() const;
    enum class MouseButton { left, right };
    /// Presses the button of the item and lets it go.
    void click(std::size_t item, MouseButton mouse) const;
};

MenuBar& menuBar();

}
