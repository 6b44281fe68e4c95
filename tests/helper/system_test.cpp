// SPDX-License-Identifier: MIT
#include "helper/system.h"

#include "helper/session_bus.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace chimewell::test {
namespace {

TEST(Terminal, IsToldByItsVariables)
{
    const std::vector<std::pair<std::vector<const char*>, std::string_view>> cases = {
        {{"TERM=xterm-256color", "VTE_VERSION=7006"}, ""},
        {{"TERM_PROGRAM=Apple_Terminal"}, "Apple_Terminal"},
        {{"TERM_PROGRAM=", "TERM=xterm-kitty"}, "kitty"},
        {{"KITTY_WINDOW_ID=1"}, "kitty"},
        {{"ALACRITTY_WINDOW_ID=1"}, "Alacritty"},
        {{"WEZTERM_PANE=0"}, "WezTerm"},
        {{"TERM_PROGRAM=tmux", "TERM=tmux-256color", "KITTY_WINDOW_ID=1"}, "kitty"},
        {{"TERM_PROGRAM=screen", "WEZTERM_PANE=0"}, "WezTerm"},
        {{"KITTY_WINDOW_ID=1", "TERM_PROGRAM=vscode"}, "vscode"}, // VS Code started from kitty
        {{"TERM_PROGRAM=vscode", "CURSOR_TRACE_ID=1"}, ""},
        {{"TERM_PROGRAM=vscode", "VSCODE_GIT_ASKPASS_NODE=/opt/Cursor/cursor"}, ""},
        {{"TERM_PROGRAM=ghostty", "CURSOR_TRACE_ID=1"}, "ghostty"}, // started from Cursor's terminal
        {{"MY_TERM_PROGRAM=Hyper", "TERM_PROGRAMS=Hyper", "TERM_PROGRAM"}, ""},
    };
    for (auto [block, expected] : cases) {
        block.push_back(nullptr);
        EXPECT_EQ(terminalOf(Environment(block.data())), expected) << block.front();
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

TEST(BusAddress, NamesTheSockets)
{
    const std::vector<std::pair<std::string, std::vector<std::string>>> cases = {
        {"", {"/run/r/bus"}},
        {"unix:path=/run/user/7/bus", {"/run/user/7/bus"}},
        {"unix:path=/a%20b%2c%3B,guid=1", {"/a b,;"}},
        {"unix:abstract=/tmp/x", {std::string("\0/tmp/x", 7)}},
        {"unix:path=/a;tcp:host=h,port=1;unix:abstract=b;;", {"/a", std::string("\0b", 2)}},
        {"unix:runtime=yes", {"/run/r/bus"}},
        {"autolaunch:", {}},
        {"unix:path=/a%zz", {}},
    };
    for (const auto& [address, expected] : cases) {
        const std::string variable = "DBUS_SESSION_BUS_ADDRESS=" + address;
        const std::array<const char*, 3> block = {variable.c_str(), "XDG_RUNTIME_DIR=/run/r", nullptr};
        EXPECT_EQ(sessionBusSockets(Environment(block.data()), 1000), expected) << address;
    }
    const std::array<const char*, 1> empty = {};
    EXPECT_EQ(sessionBusSockets(Environment(empty.data()), 1000).front(), "/run/user/1000/bus");
}

}
}
