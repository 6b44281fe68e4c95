// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace chimewell {

/// Part of the screen, in points from the top left corner of the primary screen.
struct ScreenArea {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    bool operator==(const ScreenArea&) const = default;
};

struct StatusIconState {
    bool isArmed = false; ///< Alerts will come: the bell has a badge.
    bool isMuted = false; ///< Checks "Mute all" in the icon's menu, on systems where it has one.
    std::string label;    ///< The tooltip, and what a screen reader says. Already translated.
    bool operator==(const StatusIconState&) const = default;
};

/// Our icon in the menu bar or the desktop's panel, for as long as this object lives.
class StatusIcon {
public:
    virtual ~StatusIcon() = default;
    virtual void show(const StatusIconState& state) = 0;
    /// `clicked` runs when the user clicks the icon or asks for the panel in its menu. It gets the icon's
    /// place, as well as that is known.
    virtual void setClickHandler(std::function<void(const ScreenArea& icon)> clicked) = 0;
};

}
