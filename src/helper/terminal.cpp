// SPDX-License-Identifier: MIT
#include "helper/terminal.h"

namespace chimewell {

namespace {

/// Cursor's own terminal calls itself "vscode", and to bring VS Code to the front would be wrong.
bool isTerminalOfCursor(const Environment& environment)
{
    return !environment["CURSOR_TRACE_ID"].empty() ||
           environment["VSCODE_GIT_ASKPASS_NODE"].find("Cursor") != std::string_view::npos;
}

}

std::string_view terminalOf(const Environment& environment)
{
    // First, because a terminal that names itself may be started from, and inherit the marks of, one that
    // does not.
    const std::string_view program = environment["TERM_PROGRAM"];
    if (program == "vscode" && isTerminalOfCursor(environment)) return {};
    if (!program.empty() && program != "tmux" && program != "screen") return program;

    const std::string_view type = environment["TERM"];
    const auto has = [&](std::string_view name) { return !environment[name].empty(); };
    if (has("KITTY_WINDOW_ID") || type == "xterm-kitty") return "kitty";
    if (has("ALACRITTY_WINDOW_ID") || has("ALACRITTY_SOCKET") || type.starts_with("alacritty"))
        return "Alacritty";
    if (has("WEZTERM_PANE")) return "WezTerm";
    if (has("GHOSTTY_RESOURCES_DIR") || type == "xterm-ghostty") return "ghostty";
    if (has("ITERM_SESSION_ID") || environment["LC_TERMINAL"] == "iTerm2") return "iTerm.app";
    return {};
}

}
