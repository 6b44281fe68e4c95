// SPDX-License-Identifier: MIT
#include "platform/macos/appkit_workspace.h"

#include "events/session_focus.h"
#include "fakes/workspace.h"
#include "support/memory_files.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

namespace {

constexpr char finder[] = "com.apple.finder";
constexpr char finderPath[] = "/System/Library/CoreServices/Finder.app";

}

TEST(AppKitWorkspaceTest, BringsASessionForward)
{
    struct Case {
        const char* what;
        std::optional<std::string> term;
        std::optional<std::string> cwd;
        std::map<std::string, std::string> installed;
        std::map<std::string, bool> running;
        std::vector<std::string> asked;
    };
    const std::string folderInFinder =
        std::string("open file:///srv/a%20b/%C3%A4/ with ") + finderPath + " activating";
    const std::map<std::string, std::string> iterm{{"com.googlecode.iterm2", "/Applications/iTerm.app"},
                                                   {finder, finderPath}};
    const std::map<std::string, std::string> finderOnly{{finder, finderPath}};
    const Case cases[] = {
        {"installed", "iTerm.app", "/srv/a b/ä", iterm, {}, {"open /Applications/iTerm.app activating"}},
        {"installed and running",
         "iTerm.app",
         "/srv/a b/ä",
         iterm,
         {{"com.googlecode.iterm2", true}},
         {"open /Applications/iTerm.app activating"}},
        {"wrong case", "iterm.app", "/srv/a b/ä", iterm, {}, {folderInFinder}},
        {"unknown terminal", "xterm-256color", "/srv/a b/ä", iterm, {}, {folderInFinder}},
        {"not installed but running",
         "WarpTerminal",
         "/srv/a b/ä",
         finderOnly,
         {{"dev.warp.Warp-Stable", true}},
         {"activate dev.warp.Warp-Stable"}},
        {"running but refuses",
         "WarpTerminal",
         "/srv/a b/ä",
         finderOnly,
         {{"dev.warp.Warp-Stable", false}},
         {"activate dev.warp.Warp-Stable", folderInFinder}},
        {"neither", "Hyper", "/srv/a b/ä", finderOnly, {}, {folderInFinder}},
        {"no file manager", std::nullopt, "/srv/a b/ä", {}, {}, {"select file:///srv/a%20b/%C3%A4"}},
        {"a file", std::nullopt, "/srv/run.command", finderOnly, {}, {"select file:///srv/run.command"}},
        {"no such folder", "Tabby", "/gone", finderOnly, {}, {}},
        {"nothing given", std::nullopt, std::nullopt, iterm, {}, {}},
    };
    AppKitWorkspace workspace;
    MemoryFiles files;
    files.folders = {"/srv/a b/ä"};
    files.contents["/srv/run.command"] = "";
    SessionFocus focus(workspace, files);
    for (const Case& each : cases) {
        mac::desktop() = {.installed = each.installed, .running = each.running, .asked = {}};
        focus.focusSession(each.term, each.cwd);
        EXPECT_EQ(mac::desktop().asked, each.asked) << each.what;
    }
}

TEST(AppKitWorkspaceTest, AsksNothingForAnApplicationThatWentMeanwhile)
{
    AppKitWorkspace workspace;
    workspace.openActivating(*findTerminalApplication("kitty"));
    EXPECT_EQ(mac::desktop().asked, std::vector<std::string>{});
}

}
