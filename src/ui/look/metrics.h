// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

#include <cstdint>

namespace chimewell {

/// A length of the design, which is drawn for a system font of 13 pixels, in pixels beside the system font
/// that there is. Never smaller than drawn.
int scaled(double length);

enum class TextStyle : std::uint8_t {
    title,
    headline,
    body,
    bodyMedium,
    subheadline,
    subheadlineSemibold,
    caption,
    badge,
    monospace
};
QFont fontFor(TextStyle style);

/// In design lengths: to be scaled.
namespace metrics {
inline constexpr double controlRadius = 6, cardRadius = 10, panelRadius = 12, checkRadius = 4;
inline constexpr double controlHeight = 28, iconButton = 24, switchWidth = 34, switchHeight = 20, knob = 16;
inline constexpr double checkBox = 16, rowIcon = 16, sidebarIcon = 18;
}

}
