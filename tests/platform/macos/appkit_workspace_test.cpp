// SPDX-License-Identifier: MIT
#include "platform/macos/appkit_workspace.h"

#include "events/session_focus.h"
#include "fakes/run_loop.h"
#include "fakes/workspace.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
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
    const TemporaryFolder disk;
    const std::string at = disk.path();
    const std::string folder = at + "/a b/ä";
    const std::string file = disk.write("run.command", "");
    const std::string package = at + "/X.app";
    std::filesystem::create_directories(folder);
    std::filesystem::create_directory(package);
    const std::string folderInFinder =
        "open file://" + at + "/a%20b/%C3%A4/ with " + finderPath + " activating";
    const std::map<std::string, std::string> iterm{{"com.googlecode.iterm2", "/Applications/iTerm.app"},
                                                   {finder, finderPath}};
    const std::map<std::string, std::string> finderOnly{{finder, finderPath}};
    const Case cases[] = {
        {"installed", "iTerm.app", folder, iterm, {}, {"open /Applications/iTerm.app activating"}},
        {"installed and running",
         "iTerm.app",
         folder,
         iterm,
         {{"com.googlecode.iterm2", true}},
         {"open /Applications/iTerm.app activating"}},
        {"wrong case", "iterm.app", folder, iterm, {}, {folderInFinder}},
        {"unknown terminal", "xterm-256color", folder, iterm, {}, {folderInFinder}},
        {"not installed but running",
         "WarpTerminal",
         folder,
         finderOnly,
         {{"dev.warp.Warp-Stable", true}},
         {"activate dev.warp.Warp-Stable"}},
        {"running but refuses",
         "WarpTerminal",
         folder,
         finderOnly,
         {{"dev.warp.Warp-Stable", false}},
         {"activate dev.warp.Warp-Stable", folderInFinder}},
        {"neither", "Hyper", folder, finderOnly, {}, {folderInFinder}},
        {"no file manager", std::nullopt, folder, {}, {}, {"select file://" + at + "/a%20b/%C3%A4"}},
        {"a file", std::nullopt, file, finderOnly, {}, {"select file://" + file}},
        {"a package", std::nullopt, package, finderOnly, {}, {"select file://" + package}},
        {"no such folder", "Tabby", at + "/gone", finderOnly, {}, {}},
        {"nothing given", std::nullopt, std::nullopt, iterm, {}, {}},
    };
    AppKitWorkspace workspace;
    SessionFocus focus(workspace);
    for (const Case& each : cases) {
        mac::desktop() = {.installed = each.installed, .running = each.running, .asked = {}};
        focus.focusSession(each.term, each.cwd);
        mac::runLoop().turn();
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
