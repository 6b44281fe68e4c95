// SPDX-License-Identifier: MIT
#include "platform/linux/session/autostart_login_item.h"

#include "harness/child_process.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"
#include "support/program_folder.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

constexpr char ours[] = "own/autostart/app.chimewell.Chimewell.desktop";
constexpr char systems[] = "system/autostart/app.chimewell.Chimewell.desktop";

class AutostartLoginItemTest : public ::testing::Test {
protected:
    TemporaryFolder folder;
    const EnvironmentVariable own{"XDG_CONFIG_HOME", folder.path() / "own"};
    const EnvironmentVariable shared{"XDG_CONFIG_DIRS", folder.path() / "system"};
    const XdgUserFolders folders;
    PosixFiles files;
    ProgramFolder programs;
    // It needs every kind of quoting, but has no percent sign, which GLib does not find in a path.
    const std::string odd = "a \"b\" $c `d` \\e/start ";
    AutostartLoginItem item{folders, files, {programs.add(odd)}};
};

TEST_F(AutostartLoginItemTest, TellsWhatTheNextLogInWillReallyDo)
{
    const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP", "Some:KDE");
    const struct {
        std::string user, system; ///< Lines of the two entries; empty for no file.
        bool isEnabled;
    } cases[] = {
        {"", "", false},
        {"Exec=sh\n", "", true},
        {"Exec=sh\nHidden=true\n", "", false},
        {"Exec=sh\nX-GNOME-Autostart-enabled=false\n", "", false},
        {"Exec=/gone/chimewell\n", "", false},
        {"[garbage", "", false},
        {"Exec=sh\nOnlyShowIn=GNOME;\n", "", false},
        {"Exec=sh\nOnlyShowIn=GNOME;KDE;\n", "", true},
        {"Exec=sh\nNotShowIn=KDE;\n", "", false},
        {"", "Exec=sh\n", true},
        {"Hidden=true\n", "Exec=sh\n", false},
        {"Exec=sh\n", "Hidden=true\n", true},
    };
    for (const auto& each : cases) {
        const auto write = [&](const char* file, const std::string& lines) {
            std::filesystem::remove(folder.path() / file);
            if (!lines.empty()) folder.write(file, (lines[0] == '[' ? "" : "[Desktop Entry]\n") + lines);
        };
        write(ours, each.user);
        write(systems, each.system);
        EXPECT_EQ(item.isEnabled(), each.isEnabled) << each.user << "--\n" << each.system;
        // Whatever the files say, the item switches it on and off.
        EXPECT_TRUE(item.registerItem());
        EXPECT_TRUE(item.isEnabled());
        EXPECT_TRUE(item.unregisterItem());
        EXPECT_FALSE(item.isEnabled());
        EXPECT_EQ(std::filesystem::exists(folder.path() / ours), !each.system.empty());
    }
}

TEST_F(AutostartLoginItemTest, OthersStartItAndASessionStarterObeysTheSwitch)
{
    if (run({"which", "desktop-file-validate", "gio", "dex"}).status != 0)
        GTEST_SKIP() << "desktop-file-validate, gio or dex is not installed";
    ASSERT_TRUE(item.registerItem());
    const std::string file = folder.path() / ours;
    EXPECT_EQ(run({"desktop-file-validate", file}).output, "");
    EXPECT_EQ(run({"gio", "launch", file}).status, 0);
    programs.report(odd);

    AutostartLoginItem plain(folders, files, {"/usr/bin/true"});
    folder.write(systems, "[Desktop Entry]\nType=Application\nName=X\nExec=/usr/bin/true\n");
    for (const bool isOn : {true, false}) {
        ASSERT_TRUE(isOn ? plain.registerItem() : plain.unregisterItem());
        const auto dry = run({"dex", "--autostart", "--environment", "X", "--dry-run"}).output;
        EXPECT_EQ(dry.contains("/usr/bin/true"), isOn) << dry;
    }
}

}
}
