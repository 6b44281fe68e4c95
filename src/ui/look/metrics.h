// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

#include <cstdint>

namespace chimewell {

/// Converts a design length to pixels. The design is drawn for a system font of 13 pixels and grows with the
/// font, but is never smaller than drawn.
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

/// Design lengths, to be given to scaled().
namespace metrics {
inline constexpr double controlRadius = 6, cardRadius = 10, checkRadius = 4;
inline constexpr double controlHeight = 28, iconButton = 24, smallestButton = 84, switchWidth = 34,
                        switchHeight = 20, knob = 16;
inline constexpr double checkBox = 16, rowIcon = 16, sidebarIcon = 18;
}

}
