// SPDX-License-Identifier: MIT
#include "helper/terminal.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace chimewell::test {
namespace {

TEST(Terminal, IsToldByItsVariables)
{
    const std::vector<std::pair<std::vector<const char*>, std::string_view>> cases = {
        {{}, ""},
        {{"TERM=xterm-256color", "VTE_VERSION=7006"}, ""},
        {{"TERM_PROGRAM=Apple_Terminal"}, "Apple_Terminal"},
        {{"TERM_PROGRAM=a_later_one"}, "a_later_one"},
        {{"TERM_PROGRAM=", "TERM=xterm-kitty"}, "kitty"},
        {{"KITTY_WINDOW_ID=1"}, "kitty"},
        {{"ALACRITTY_WINDOW_ID=1"}, "Alacritty"},
        {{"ALACRITTY_SOCKET=/x"}, "Alacritty"},
        {{"TERM=alacritty-direct"}, "Alacritty"},
        {{"WEZTERM_PANE=0"}, "WezTerm"},
        {{"TERM=xterm-ghostty"}, "ghostty"},
        {{"GHOSTTY_RESOURCES_DIR=/x"}, "ghostty"},
        {{"LC_TERMINAL=iTerm2"}, "iTerm.app"},
        {{"ITERM_SESSION_ID=w0"}, "iTerm.app"},
        {{"TERM_PROGRAM=tmux", "TERM=tmux-256color"}, ""},
        {{"TERM_PROGRAM=tmux", "TERM=tmux-256color", "KITTY_WINDOW_ID=1"}, "kitty"},
        {{"TERM_PROGRAM=screen", "WEZTERM_PANE=0"}, "WezTerm"},
        {{"KITTY_WINDOW_ID=1", "TERM_PROGRAM=vscode"}, "vscode"}, // VS Code started from kitty
        {{"TERM_PROGRAM=vscode", "CURSOR_TRACE_ID=1"}, ""},
        {{"TERM_PROGRAM=vscode", "VSCODE_GIT_ASKPASS_NODE=/opt/Cursor/cursor"}, ""},
        {{"TERM_PROGRAM=vscode", "VSCODE_GIT_ASKPASS_NODE=/usr/share/code/code"}, "vscode"},
        {{"TERM_PROGRAM=ghostty", "CURSOR_TRACE_ID=1"}, "ghostty"}, // started from Cursor's terminal
        {{"MY_TERM_PROGRAM=Hyper", "TERM_PROGRAMS=Hyper", "TERM_PROGRAM"}, ""},
    };
    for (auto [block, expected] : cases) {
        const std::string_view last = block.empty() ? "" : block.back();
        block.push_back(nullptr);
        EXPECT_EQ(terminalOf(Environment(block.data())), expected) << last;
    }
}

}
}
