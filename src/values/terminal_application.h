// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace chimewell {

/// A terminal program that we can bring to the front, and its names on each system.
struct TerminalApplication {
    std::string_view term;             ///< What it puts into the environment of its shells.
    std::string_view bundleIdentifier; ///< macOS.
    /// Linux: the class (WM_CLASS) of its windows, compared without case. Empty where it does not exist.
    std::array<std::string_view, 2> windowClasses;
    std::string_view desktopId; ///< Linux: name of its desktop file without the ending.
    bool operator==(const TerminalApplication&) const = default;
};

/// The terminal that calls itself `term`, compared exactly; null for any other text.
const TerminalApplication* findTerminalApplication(std::string_view term);

}
