// SPDX-License-Identifier: MIT
#include "values/terminal_application.h"

#include <algorithm>

namespace chimewell {

namespace {

// Bundle identifiers and window classes are those that the programs publish themselves.
constexpr TerminalApplication terminals[] = {
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

}

const TerminalApplication* findTerminalApplication(std::string_view term)
{
    const auto* found = std::ranges::find(terminals, term, &TerminalApplication::term);
    return found == std::end(terminals) ? nullptr : found;
}

}
