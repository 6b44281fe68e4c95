// SPDX-License-Identifier: MIT
#include "helper/system.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>
#include <tuple>
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

TEST(HomeFolder, IsThatOfTheUserDatabaseWithoutTheVariable)
{
    const TemporaryFolder folder;
    const auto users =
        folder.write("users", "a:x:10:1::/home/a:/bin/sh\nb:x:1:10:B:/home/b:/bin/sh\n1:x:2:1::odd");
    for (const auto& [variable, user, expected] : {std::tuple{"HOME=/h", 1U, "/h"},
                                                   {"HOME=", 1U, "/home/b"},
                                                   {"HOME=h", 10U, "/home/a"},
                                                   {"X=", 2U, "/"},
                                                   {"X=", 3U, "/"}}) {
        const std::array<const char*, 2> block = {variable, nullptr};
        EXPECT_EQ(homeFolder(Environment(block.data()), user, users.c_str()), expected) << variable << user;
    }
}

}
}
