// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chimewell {

/// Part of the screen, in points from the top left corner of the primary screen.
struct ScreenArea {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    bool operator==(const ScreenArea&) const = default;
};

/// What the user can ask for in the icon's menu.
enum class IconCommand : std::uint8_t {
    openPanel,
    toggleMute,
    muteForAnHour,
    playSample,
    openSettings,
    quit
};

/// Texts are already translated.
struct IconMenuEntry {
    IconCommand command = IconCommand::openPanel;
    std::string label;
    std::optional<bool> isChecked = std::nullopt; ///< Absent for an entry that can't be checked.
    bool beginsGroup = false;                     ///< A separator is above it.
    std::string tooltip = {};
    bool operator==(const IconMenuEntry&) const = default;
};

struct StatusIconState {
    bool isArmed = false;            ///< Alerts will come: the bell has a badge.
    std::string label;               ///< The tooltip, and what a screen reader says. Already translated.
    std::vector<IconMenuEntry> menu; ///< Not shown where a click is all that an icon takes.
    bool operator==(const StatusIconState&) const = default;
};

/// Our icon in the menu bar or the desktop's panel, for as long as this object lives.
class StatusIcon {
public:
    struct Handlers {
        /// The user clicked the icon. `icon` is its place; absent where nobody tells.
        std::function<void(const std::optional<ScreenArea>& icon)> clicked;
        /// The user chose an entry of its menu.
        std::function<void(IconCommand command)> chosen;
    };

    virtual ~StatusIcon() = default;
    virtual void show(const StatusIconState& state) = 0;
    virtual void setHandlers(Handlers handlers) = 0;
};

}
