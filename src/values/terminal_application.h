// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <iterator>
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

// Bundle identifiers and window classes are those that the programs publish themselves.
inline constexpr TerminalApplication terminalApplications[] = {
    {"Apple_Terminal", "com.apple.Terminal", {}, {}},
    {"iTerm.app", "com.googlecode.iterm2", {}, {}},
    {"vscode", "com.microsoft.VSCode", {"Code"}, "code"},
    {"ghostty", "com.mitchellh.ghostty", {"com.mitchellh.ghostty", "ghostty"}, "com.mitchellh.ghostty"},
    {"WarpTerminal", "dev.warp.Warp-Stable", {"dev.warp.Warp"}, "dev.warp.Warp"},
    {"Hyper", "co.zeit.hyper", {"Hyper"}, "hyper"},
    {"WezTerm", "com.github.wez.wezterm", {"org.wezfurlong.wezterm"}, "org.wezfurlong.wezterm"},
    {"kitty", "net.kovidgoyal.kitty", {"kitty"}, "kitty"},
    {"Tabby", "org.tabby", {"tabby"}, "tabby"},
    {"Alacritty", "org.alacritty", {"Alacritty"}, "Alacritty"},
};

/// The terminal that calls itself `term`, compared exactly; null for any other text.
constexpr const TerminalApplication* findTerminalApplication(std::string_view term)
{
    const auto* found = std::ranges::find(terminalApplications, term, &TerminalApplication::term);
    return found == std::end(terminalApplications) ? nullptr : found;
}

}
